#include "host/Application.h"

#include "host/AddIns.h"
#include "host/Explorer.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/outlookRows.h"

namespace host {

using automation::Value;

namespace {

std::shared_ptr<Item> createItem(Application& application, Arguments arguments) {
    return newItem(application.core(), arguments[0].toInteger());
}

NameSpace& nameSpaceOf(Application& application, Arguments arguments) {
    if (!text::equalsIgnoringCase(arguments.text(0), L"MAPI")) {
        raise::operationFailed();
    }
    return application.core().nameSpace();
}

std::shared_ptr<Explorer> activeExplorer(Application& application) {
    return application.core().windows().topExplorer();
}

}  // namespace

void Application::quit() {
    WindowList& windows = core().windows();
    while (!windows.inspectors().empty()) {
        windows.close(windows.inspectors().back());
    }
    while (!windows.explorers().empty()) {
        windows.close(windows.explorers().back());
    }
    announceQuit();
}

void Application::announceQuit() {
    core().raise(events_, L"Quit", 0xF007);
}

constinit const Members<Application> Application::members = {
    {.name = L"Application", .id = 61440, .get = use<&Application::object>},
    classRow<Application, 0>,
    sessionRow<Application>,
    {.name = L"CreateItem", .id = 266, .call = use<createItem>, .least = 1, .most = 1},
    {.name = L"GetNamespace", .id = 272, .call = use<nameSpaceOf>, .least = 1, .most = 1},
    {.name = L"ActiveExplorer", .id = 273, .call = use<activeExplorer>},
    {.name = L"ActiveInspector", .id = 274, .call = use<windowsOf, &WindowList::topInspector>},
    {.name = L"Quit", .id = 275, .call = use<&Application::quit>},
    {.name = L"Version", .id = 278, .get = use<&Application::core, &Core::profile, &Profile::version>},
    {.name = L"COMAddIns", .id = 280, .get = use<&Application::core, &Core::addIns>},
    {.name = L"Explorers", .id = 281, .get = use<windowsOf, &WindowList::explorerCollection>},
    {.name = L"Inspectors", .id = 282, .get = use<windowsOf, &WindowList::inspectorCollection>},
    {.name = L"ActiveWindow", .id = 287, .call = use<windowsOf, &WindowList::top>},
    {.name = L"Name", .id = 12289, .get = [](Application&, Arguments) { return Value(L"Outlook"); }},
};

}  // namespace host
