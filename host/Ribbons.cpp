#include "host/Ribbons.h"

#include <algorithm>

#include "host/Core.h"
#include "host/Explorer.h"
#include "host/Inspector.h"
#include "host/Item.h"

namespace host {

using automation::Object;
using automation::Value;
using ribbonXml::Element;

constinit const Members<RibbonControl> RibbonControl::members = {
    {.name = L"Id", .id = 1, .get = use<&RibbonControl::id_>},
    {.name = L"Context", .id = 2, .get = use<&RibbonControl::context>},
    {.name = L"Tag", .id = 3, .get = use<&RibbonControl::tag_>},
};

void RibbonUi::invalidateControl(Arguments arguments) {
    const std::wstring id = arguments.text(0);
    std::erase_if(answers, [&](const auto& answer) { return answer.first.second == id; });
}

constinit const Members<RibbonUi> RibbonUi::members = {
    {.name = L"Invalidate", .id = 1, .call = use<&RibbonUi::invalidate>},
    {.name = L"InvalidateControl", .id = 2, .call = use<&RibbonUi::invalidateControl>, .least = 1, .most = 1},
};

namespace {

constexpr wchar_t explorerRibbon[] = L"Microsoft.Outlook.Explorer";

/// Main windows have a ribbon from Outlook 2010 on, item windows from Outlook 2007 on.
constexpr int explorersSince = 14;
constexpr int inspectorsSince = 12;

/// How Outlook names the kind of an item's window.
std::wstring ribbonIdOf(const Item& item) {
    const bool sent = item.content().sent;
    switch (item.content().itemClass) {
        case itemClass::mail:
            return sent ? L"Microsoft.Outlook.Mail.Read" : L"Microsoft.Outlook.Mail.Compose";
        case itemClass::post:
            return sent ? L"Microsoft.Outlook.Post.Read" : L"Microsoft.Outlook.Post.Compose";
        case itemClass::report:
            return L"Microsoft.Outlook.Report";
        case itemClass::appointment:
            return L"Microsoft.Outlook.Appointment";
        case itemClass::contact:
            return L"Microsoft.Outlook.Contact";
        case itemClass::task:
            return L"Microsoft.Outlook.Task";
        default:
            return L"Microsoft.Outlook.Journal";
    }
}

/// Empty for a window without a ribbon.
std::wstring ribbonIdOf(const HostObject& window) {
    const int version = window.core().majorVersion();
    if (dynamic_cast<const Explorer*>(&window)) {
        return version >= explorersSince ? explorerRibbon : L"";
    }
    const auto* const inspector = dynamic_cast<const Inspector*>(&window);
    return inspector && version >= inspectorsSince ? ribbonIdOf(*inspector->item()) : L"";
}

/// The tabs for what is written in the reading pane show while something is.
bool showsContextual(const HostObject& window) {
    const auto* const explorer = dynamic_cast<const Explorer*>(&window);
    return explorer && explorer->inlineResponse();
}

std::wstring idOf(const Element& element) {
    const std::wstring own = element.attribute(L"id");
    return own.empty() ? element.attribute(L"idMso") : own;
}

}  // namespace

void Ribbons::add(RibbonAddIn addIn) {
    addIns_.push_back(std::make_shared<AddIn>(AddIn{std::move(addIn), {}}));
    if (core_.majorVersion() >= explorersSince) {
        load(explorerRibbon);
    }
    for (const auto& explorer : core_.windows().explorers()) {
        show(explorer);
    }
    for (const auto& inspector : core_.windows().inspectors()) {
        show(inspector);
    }
}

void Ribbons::dropAddIns() {
    addIns_.clear();
    loaded_.clear();
}

void Ribbons::load(const std::wstring& ribbonId) {
    for (const auto& addIn : std::vector(addIns_)) {
        if (addIn->asked.insert(ribbonId).second) {
            loadFrom(addIn->offered, ribbonId);
        }
    }
}

void Ribbons::loadFrom(const RibbonAddIn& addIn, const std::wstring& ribbonId) {
    try {
        const std::wstring text = addIn.customUI(ribbonId);
        if (text.empty()) {
            return;
        }
        auto ribbon = std::make_shared<Loaded>(Loaded{addIn, ribbonId,
                                                      ribbonXml::read(text, {ribbonId, core_.majorVersion()}),
                                                      core_.make<RibbonUi>()});
        loaded_.push_back(ribbon);
        if (const std::wstring onLoad = ribbon->root.attribute(L"onLoad"); !onLoad.empty()) {
            addIn.callbacks.call(onLoad, ribbon->ui->object());
        }
    } catch (const automation::Error& error) {
        note(L"GetCustomUI", error);
    }
}

void Ribbons::show(const std::shared_ptr<HostObject>& window) {
    if (const std::wstring ribbonId = ribbonIdOf(*window); !ribbonId.empty()) {
        load(ribbonId);
        draw(window);
    }
}

void Ribbons::closed(const HostObject& window) {
    for (const auto& ribbon : loaded_) {
        std::erase_if(ribbon->ui->answers, [&](const auto& kept) { return kept.first.first == &window; });
    }
}

std::vector<RibbonCommand> Ribbons::commands(const std::shared_ptr<HostObject>& window) {
    std::vector<RibbonCommand> shown;
    for (Drawn& drawn : draw(window)) {
        shown.push_back(std::move(drawn.command));
    }
    return shown;
}

std::vector<Ribbons::Drawn> Ribbons::draw(const std::shared_ptr<HostObject>& window) {
    std::vector<Drawn> drawn;
    const std::wstring ribbonId = ribbonIdOf(*window);
    for (const auto& ribbon : std::vector(loaded_)) {
        if (ribbon->ribbonId != ribbonId || ribbon->root.children.empty()) {
            continue;
        }
        for (const Element& part : ribbon->root.children.front().children) {
            if (part.name == L"tabs") {
                drawTabs({ribbon, window, {}, {}}, part, drawn);
                continue;
            }
            for (const Element& set : part.children) {
                if (showsContextual(*window)) {
                    drawTabs({ribbon, window, {}, {}}, set, drawn);
                }
            }
        }
    }
    return drawn;
}

void Ribbons::drawTabs(Spot spot, const Element& parent, std::vector<Drawn>& drawn) {
    for (const Element& tab : parent.children) {
        spot.tab = idOf(tab);
        for (const Element& group : tab.children) {
            if (flagOf(spot, tab, L"visible", L"getVisible") &&
                flagOf(spot, group, L"visible", L"getVisible")) {
                spot.group = textOf(spot, group, L"label", L"getLabel");
                drawControls(spot, group, drawn);
            }
        }
    }
}

void Ribbons::drawControls(const Spot& spot, const Element& parent, std::vector<Drawn>& drawn) {
    for (const Element& child : parent.children) {
        if (child.name == L"separator" || !flagOf(spot, child, L"visible", L"getVisible")) {
            continue;
        }
        if (child.children.empty()) {
            drawn.push_back({describe(spot, child), spot.ribbon, child});
        } else {
            drawControls(spot, child, drawn);
        }
    }
}

RibbonCommand Ribbons::describe(const Spot& spot, const Element& element) {
    RibbonCommand command{
        .id = idOf(element),
        .tab = spot.tab,
        .group = spot.group,
        .label = textOf(spot, element, L"label", L"getLabel"),
        .screentip = textOf(spot, element, L"screentip", L"getScreentip"),
        .supertip = textOf(spot, element, L"supertip", L"getSupertip"),
        .keytip = textOf(spot, element, L"keytip", L"getKeytip"),
        .button = element.name != L"labelControl",
        .large = element.attribute(L"size") == L"large",
        .enabled = flagOf(spot, element, L"enabled", L"getEnabled"),
    };
    if (const Value picture = answer(spot, element, L"getImage"); picture.holds<Object>()) {
        command.picture = picture.toObject();
    }
    return command;
}

std::wstring Ribbons::textOf(const Spot& spot, const Element& element, const std::wstring& name,
                             const std::wstring& callback) {
    constexpr std::size_t longest = 1024;
    if (element.attribute(callback).empty()) {
        return element.attribute(name);
    }
    const Value given = answer(spot, element, callback);
    // Office takes neither numbers nor longer texts.
    return given.holds<std::wstring>() && given.toText().size() <= longest ? given.toText() : std::wstring();
}

bool Ribbons::flagOf(const Spot& spot, const Element& element, const std::wstring& name,
                     const std::wstring& callback) {
    if (element.attribute(callback).empty()) {
        const std::wstring given = element.attribute(name);
        return given != L"false" && given != L"0";
    }
    const Value given = answer(spot, element, callback);
    return given.holds<bool>() && given.toBool();
}

/// Empty when the element has no such callback, or it fails.
Value Ribbons::answer(const Spot& spot, const Element& element, const std::wstring& name) {
    const std::wstring callback = element.attribute(name);
    if (callback.empty()) {
        return {};
    }
    const RibbonUi::Place place{spot.window.get(), idOf(element)};
    auto& answers = spot.ribbon->ui->answers;
    if (const auto kept = answers.find(place); kept != answers.end() && kept->second.contains(name)) {
        return kept->second.at(name);
    }
    const Value given = call(spot, element, callback);
    return answers[place][name] = given;
}

void Ribbons::press(const std::shared_ptr<HostObject>& window, std::wstring_view label) {
    const auto drawn = draw(window);
    const auto pressed = std::ranges::find_if(drawn, [&](const Drawn& one) {
        return one.command.label == label && one.command.button && one.command.enabled;
    });
    const std::wstring action =
        pressed == drawn.end() ? std::wstring() : pressed->element.attribute(L"onAction");
    if (action.empty()) {
        raise::objectNotFound();
    }
    call({pressed->ribbon, window, {}, {}}, pressed->element, action);
}

/// Empty when the callback fails.
Value Ribbons::call(const Spot& spot, const Element& element, const std::wstring& callback) {
    const Object control =
        core_.makeObject<RibbonControl>(idOf(element), element.attribute(L"tag"), spot.window);
    try {
        return spot.ribbon->addIn.callbacks.call(callback, control);
    } catch (const automation::Error& error) {
        note(callback, error);
        return {};
    }
}

void Ribbons::note(const std::wstring& event, const automation::Error& error) {
    core_.noteError({event, error.number(), error.description()});
}

}  // namespace host
