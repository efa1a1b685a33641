#include "addin/ribbonXml.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <utility>

#include "platform/characters.h"
#include "platform/text.h"

namespace addin::ribbonXml {

namespace {

using mail::Globals;
using menu::Command;

/// Pictures of the resource library.
namespace pictureId {
constexpr std::uint32_t product = 601;
constexpr std::uint32_t accountList = 611;
constexpr std::uint32_t settings = 612;
constexpr std::uint32_t updates = 613;
constexpr std::uint32_t help = 614;
constexpr std::uint32_t support = 615;
constexpr std::uint32_t checkNow = 616;
}  // namespace pictureId

constexpr std::uint32_t checkNowCaption = 559;

constexpr wchar_t settingsTip[] = L"What % asks about, and when";
constexpr wchar_t settingsText[] =
    L"Opens the settings: replies, subjects, attachments, preferred accounts, confirmation and delay.";

/// Those of the main windows first, in the order of the commands.
constexpr Button buttons[] = {
    {L"VeltroAccountList", Command::AccountList, 541, pictureId::accountList, true, L"VL",
     L"Preferred sending accounts",
     L"Shows for which addresses which account is preferred, to add, change and delete entries. % asks when an "
     L"e-mail to one of them is about to leave from another account."},
    {L"VeltroSettings", Command::Settings, 544, pictureId::settings, true, L"VS", settingsTip, settingsText},
    {L"VeltroCheckUpdates", Command::CheckUpdates, 547, pictureId::updates, false, L"VU",
     L"Is there a newer version of %?",
     L"Asks the maker's web site for a newer version and offers to open the page where it can be downloaded."},
    {L"VeltroHelp", Command::Help, 550, pictureId::help, false, L"VH", L"Help on %",
     L"Explains what % asks, and every setting."},
    {L"VeltroContactSupport", Command::ContactSupport, 553, pictureId::support, false, L"VC",
     L"Write to the support",
     L"Prepares an e-mail with the versions of Outlook, % and Windows. You see it before it is sent."},
    {L"VeltroAbout", Command::About, 556, pictureId::product, false, L"VA", L"About %",
     L"Shows the version of % and where its maker is found."},
    {L"VeltroCheckNow", std::nullopt, checkNowCaption, pictureId::checkNow, true, L"VN",
     L"Check this e-mail without sending it",
     L"Asks what % would ask when the e-mail is sent: about an empty subject and about a missing attachment. "
     L"The e-mail is saved for it, as by Save."},
    {L"VeltroComposeSettings", Command::Settings, 544, pictureId::settings, false, L"VS", settingsTip,
     settingsText},
};

constexpr std::span mainButtons(buttons, menu::commandCount);
constexpr std::span composeButtons(buttons + menu::commandCount, 2);

/// As texts of attributes; characters that no XML may hold are left out.
std::wstring escaped(std::wstring value) {
    std::erase_if(value, text::isControl);
    constexpr std::pair<const wchar_t*, const wchar_t*> references[] = {
        {L"&", L"&amp;"}, {L"<", L"&lt;"}, {L">", L"&gt;"}, {L"\"", L"&quot;"}};
    for (const auto& [character, reference] : references) {
        value = text::replaceAll(value, character, reference);
    }
    return value;
}

struct Attribute {
    std::wstring_view name;
    std::wstring value;
};

/// An element; one without a value is left out, as Office takes no empty ones, and longer ones are cut as it
/// takes no longer ones.
std::wstring element(const std::wstring& name, std::initializer_list<Attribute> attributes,
                     const std::wstring& children = {}) {
    constexpr std::size_t longest = 1024;
    std::wstring made = L"<" + name;
    for (const Attribute& attribute : attributes) {
        if (!attribute.value.empty()) {
            made += L' ';
            made += attribute.name;
            made += L"=\"" + escaped(attribute.value.substr(0, longest)) + L"\"";
        }
    }
    return made + (children.empty() ? L"/>" : L">" + children + L"</" + name + L">");
}

std::wstring textOf(const Globals& globals, std::uint32_t id, const std::wstring& fallback) {
    return text::replaceAll(globals.resourceOr(id, fallback), L"%", globals.product.title);
}

std::wstring buttonElement(const Globals& globals, const Button& button) {
    // Without the library there are no pictures, and Office would leave room for one.
    const bool drawn = globals.resources && globals.resources->hLibrary() != 0;
    return element(L"button", {{L"id", std::wstring(button.id)},
                               {L"label", caption(globals, button)},
                               {L"screentip", textOf(globals, button.firstText + 1, button.screentip)},
                               {L"supertip", textOf(globals, button.firstText + 2, button.supertip)},
                               {L"keytip", std::wstring(button.keytip)},
                               {L"size", button.large ? L"large" : L"normal"},
                               {L"getImage", drawn ? callback::picture : L""},
                               {L"onAction", callback::pressed}});
}

std::wstring group(const Globals& globals, const wchar_t* id, const std::wstring& children) {
    return element(L"group", {{L"id", id}, {L"label", globals.product.title}}, children);
}

std::wstring mainGroup(const Globals& globals) {
    std::wstring all;
    for (const Button& button : mainButtons) {
        all += buttonElement(globals, button);
    }
    return group(globals, L"VeltroGroup", all);
}

std::wstring composeGroup(const Globals& globals) {
    const auto& [check, settings] = std::pair(composeButtons[0], composeButtons[1]);
    const std::wstring account =
        element(L"labelControl", {{L"id", accountControl}, {L"getLabel", callback::account}});
    return group(globals, L"VeltroCompose",
                 buttonElement(globals, check) +
                     element(L"box", {{L"id", L"VeltroComposeBox"}, {L"boxStyle", L"vertical"}},
                             account + buttonElement(globals, settings)));
}

std::wstring tab(const wchar_t* id, const std::wstring& groups) {
    return element(L"tab", {{L"idMso", id}}, groups);
}

/// Outlook 2007 knows only the older name space.
std::wstring document(bool since2010, bool hasAccount, const std::wstring& tabs) {
    return element(L"customUI",
                   {{L"xmlns", since2010 ? L"http://schemas.microsoft.com/office/2009/07/customui"
                                         : L"http://schemas.microsoft.com/office/2006/01/customui"},
                    {L"onLoad", hasAccount ? callback::loaded : L""}},
                   element(L"ribbon", {}, tabs));
}

}  // namespace

const Button* find(std::wstring_view id) {
    const auto found = std::ranges::find(buttons, id, &Button::id);
    return found == std::end(buttons) ? nullptr : found;
}

std::wstring caption(const Globals& globals, const Button& button) {
    return textOf(globals, button.firstText, button.command ? menu::caption(*button.command) : L"Check now");
}

std::wstring make(const Globals& globals, std::wstring_view ribbonId,
                  std::optional<mail::OutlookVersion> version) {
    if (ribbonId == mailCompose) {
        return document(version >= mail::outlook2010, true,
                        element(L"tabs", {}, tab(L"TabNewMailMessage", composeGroup(globals))));
    }
    if (ribbonId != explorer) {
        return {};
    }
    // Only from Outlook 2010 on is there any for main windows, and it knows no tab for what is written in
    // the reading pane.
    const bool inlineResponses = version >= mail::outlook2013;
    std::wstring tabs = element(L"tabs", {}, tab(L"TabMail", mainGroup(globals)));
    if (inlineResponses) {
        tabs += element(
            L"contextualTabs", {},
            element(L"tabSet", {{L"idMso", L"TabComposeTools"}}, tab(L"TabMessage", composeGroup(globals))));
    }
    return document(true, inlineResponses, tabs);
}

}  // namespace addin::ribbonXml
