#include "addin/menu.h"

#include "addin/modCommandBarCode.h"
#include "mail/errorTrap.h"

namespace menu {

namespace {

using automation::Object;
using basGlobals::Globals;

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

/// The controls of the menu bar; nothing in a window that has none.
Object menuBarControls(const outlook::Explorer& explorer) {
    const auto bar = basGlobals::attempt([&] {
        return explorer.object().get(L"CommandBars").toObject().get(L"Item", L"Menu Bar").toObject();
    });
    return bar && *bar ? bar->get(L"Controls").toObject() : Object();
}

}  // namespace

Buttons build(const Globals& globals, const outlook::Explorer& explorer, std::int32_t windowKey) {
    const Object controls = menuBarControls(explorer);
    if (!controls) {
        return {};
    }
    const Object help = modCommandBarCode::FindControl(controls, L"Help");
    const auto before = help ? std::optional(help.get(L"Index").toInteger()) : std::nullopt;
    const Object brand = modCommandBarCode::FindOrAddPopup(controls, brandCaption(globals), before);
    const Object product =
        modCommandBarCode::FindOrAddPopup(brand.get(L"Controls").toObject(), productCaption(globals));
    return {.accountList =
                modCommandBarCode::FindOrAddButton(product, L"Send Account (Preferred) List",
                                                   L"Veltro.AccountList." + std::to_wstring(windowKey))};
}

void remove(const Globals& globals, const outlook::Explorer& explorer) {
    const Object controls = menuBarControls(explorer);
    const Object brand = controls ? modCommandBarCode::FindControl(controls, brandCaption(globals),
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

}  // namespace menu
