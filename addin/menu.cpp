#include "addin/menu.h"

#include "addin/modCommandBarCode.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace addin::menu {

namespace {

using automation::Object;
using mail::Globals;

/// String resources of the captions.
namespace stringId {
constexpr std::uint32_t product = 523;
constexpr std::uint32_t brand = 525;
}  // namespace stringId

/// Bitmaps of the help button.
namespace pictureId {
constexpr std::uint32_t help = 602;
constexpr std::uint32_t helpMask = 603;
}  // namespace pictureId

struct Entry {
    const wchar_t* caption;
    std::wstring_view tag;
    bool beginGroup = false;
};

/// In the order of the commands.
constexpr Entry entries[commandCount] = {
    {L"Send Account (Preferred) List", L"Veltro.AccountList"},
    {L"Settings", L"Veltro.Settings"},
    {L"Check for Updates", L"Veltro.CheckUpdates", true},
    {L"% Help", L"Veltro.Help"},
    {L"Contact Support", L"Veltro.ContactSupport"},
    {L"About %", L"Veltro.About", true},
};

Object bitmap(const Globals& globals, std::uint32_t id) {
    const auto picture = globals.resources ? globals.resources->DLL_LoadBitmap(id) : nullptr;
    return picture ? picture->object() : Object();
}

modCommandBarCode::ButtonPicture helpPicture(const Globals& globals) {
    return {bitmap(globals, pictureId::help), bitmap(globals, pictureId::helpMask)};
}

std::wstring productCaption(const Globals& globals) {
    return globals.resourceOr(stringId::product, L"Veltro");
}

std::wstring brandCaption(const Globals& globals) {
    return globals.resourceOr(stringId::brand, L"Tarn&well");
}

/// Nothing in a window that has none.
Object menuBar(const outlook::Explorer& explorer) {
    const auto bar = mail::attempt([&] {
        return explorer.object().get(L"CommandBars").toObject().get(L"Item", L"Menu Bar").toObject();
    });
    return bar.value_or(Object());
}

/// Outlook's Help menu, which has another caption in each language, or nothing.
Object helpMenu(const Object& bar, const Object& controls) {
    constexpr std::int32_t helpMenuId = 30010;
    const auto byId = mail::attempt(
        [&] { return bar.call(L"FindControl", modCommandBarCode::popupType, helpMenuId).toObject(); });
    return byId && *byId ? *byId : modCommandBarCode::FindControl(controls, L"Help");
}

}  // namespace

const wchar_t* caption(Command command) {
    return entries[static_cast<std::size_t>(command)].caption;
}

Buttons build(const Globals& globals, const outlook::Explorer& explorer, std::int32_t windowKey) {
    const Object bar = menuBar(explorer);
    if (!bar) {
        return {};
    }
    const Object controls = bar.get(L"Controls").toObject();
    const Object help = helpMenu(bar, controls);
    const auto before = help ? std::optional(help.get(L"Index").toInteger()) : std::nullopt;
    const auto brand = modCommandBarCode::FindOrAddPopup(controls, brandCaption(globals), before);
    const auto product = modCommandBarCode::FindOrAddPopup(brand, productCaption(globals));
    Buttons buttons;
    for (const Entry& entry : entries) {
        const modCommandBarCode::Button look{
            .caption = text::replaceAll(entry.caption, L"%", globals.product.title),
            .tag = std::wstring(entry.tag) + L'.' + std::to_wstring(windowKey),
            .beginGroup = entry.beginGroup};
        buttons.push_back(
            modCommandBarCode::FindOrAddButton(product, look, [&] { return helpPicture(globals); }));
    }
    return buttons;
}

void remove(const Globals& globals, const outlook::Explorer& explorer) {
    const Object bar = menuBar(explorer);
    const Object brand =
        bar ? modCommandBarCode::FindControl(bar.get(L"Controls").toObject(), brandCaption(globals),
                                             modCommandBarCode::popupType)
            : Object();
    if (!brand) {
        return;
    }
    const Object entries = brand.get(L"Controls").toObject();
    if (const Object product =
            modCommandBarCode::FindControl(entries, productCaption(globals), modCommandBarCode::popupType)) {
        product.call(L"Delete");
    }
    if (entries.get(L"Count").toInteger() == 0) {
        brand.call(L"Delete");
    }
}

}  // namespace addin::menu
