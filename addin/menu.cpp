#include "addin/menu.h"

#include "addin/modCommandBarCode.h"
#include "mail/errorTrap.h"

namespace addin::menu {

namespace {

using automation::Object;
using mail::Globals;

/// String resources of the captions.
namespace stringId {
constexpr std::uint32_t product = 523;
constexpr std::uint32_t brand = 525;
}  // namespace stringId

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
    return {.accountList =
                modCommandBarCode::FindOrAddButton(product, L"Send Account (Preferred) List",
                                                   L"Veltro.AccountList." + std::to_wstring(windowKey))};
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
