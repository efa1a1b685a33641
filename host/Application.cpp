#include "host/Application.h"

#include "host/AddIns.h"
#include "host/Explorer.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/NameSpace.h"
#include "host/World.h"

namespace host {

using automation::Object;
using automation::Value;

namespace {

Value objectOrNothing(const std::shared_ptr<HostObject>& object) {
    return object ? object->object() : Object();
}

}  // namespace

void Application::quit() {
    WindowList& windows = world().windows();
    while (!windows.inspectors().empty()) {
        windows.close(windows.inspectors().back());
    }
    while (!windows.explorers().empty()) {
        windows.close(windows.explorers().back());
    }
    world().raise(events_, L"Quit", 0xF007);
}

constinit const Member<Application> Application::table_[] = {
    {.name = L"Application",
     .id = 61440,
     .get = [](Application& application, Arguments) { return Value(application.object()); }},
    {.name = L"Class", .id = 61450, .get = [](Application&, Arguments) { return Value(0); }},
    {.name = L"Session",
     .id = 61451,
     .get = [](Application& application,
               Arguments) { return Value(application.world().nameSpace().object()); }},
    {.name = L"CreateItem",
     .id = 266,
     .call =
         [](Application& application, Arguments arguments) {
             return Value(newItem(application.world(), arguments[0].toInteger())->object());
         },
     .least = 1,
     .most = 1},
    {.name = L"GetNamespace",
     .id = 272,
     .call =
         [](Application& application, Arguments arguments) {
             if (!text::equalsIgnoringCase(arguments.text(0), L"MAPI")) {
                 raise::operationFailed();
             }
             return Value(application.world().nameSpace().object());
         },
     .least = 1,
     .most = 1},
    {.name = L"ActiveExplorer",
     .id = 273,
     .call = [](Application& application,
                Arguments) { return objectOrNothing(application.world().windows().topExplorer()); }},
    {.name = L"ActiveInspector",
     .id = 274,
     .call = [](Application& application,
                Arguments) { return objectOrNothing(application.world().windows().topInspector()); }},
    {.name = L"Quit",
     .id = 275,
     .call =
         [](Application& application, Arguments) {
             application.quit();
             return Value();
         }},
    {.name = L"Version",
     .id = 278,
     .get = [](Application& application, Arguments) { return Value(application.world().profile().version); }},
    {.name = L"COMAddIns",
     .id = 280,
     .get = [](Application& application, Arguments) { return Value(application.world().addIns().object()); }},
    {.name = L"Explorers",
     .id = 281,
     .get = [](Application& application,
               Arguments) { return Value(application.world().windows().explorerCollection().object()); }},
    {.name = L"Inspectors",
     .id = 282,
     .get = [](Application& application,
               Arguments) { return Value(application.world().windows().inspectorCollection().object()); }},
    {.name = L"ActiveWindow",
     .id = 287,
     .call = [](Application& application,
                Arguments) { return objectOrNothing(application.world().windows().top()); }},
    {.name = L"Name", .id = 12289, .get = [](Application&, Arguments) { return Value(L"Outlook"); }},
};

std::span<const Member<Application>> Application::members() {
    return table_;
}

}  // namespace host
