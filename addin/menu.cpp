#include "addin/menu.h"

#include "addin/modCommandBarCode.h"
#include "mail/errorTrap.h"

namespace menu {

namespace {

using automation::Object;
using basGlobals::Globals;

constexpr wchar_t brandCaption[] = L"Tarn&well";

/// String resource of the product's entry.
constexpr std::uint32_t productId = 523;

std::wstring productCaption(const Globals& globals) {
    return globals.resources ? globals.resources->stringOr(productId, L"Veltro") : L"Veltro";
}

/// The controls of the menu bar; nothing in a window that has none.
Object menuBarControls(const outlook::Explorer& explorer) {
    const auto bar = basGlobals::attempt([&] {
        return explorer.object().get(L"CommandBars").toObject().get(L"Item", L"Menu Bar").toObject();
    });
    return bar && *bar ? bar->get(L"Controls").toObject() : Object();
}

}  // namespace

Buttons build(const Globals& globals, const outlook::Explorer& explorer) {
    const Object controls = menuBarControls(explorer);
    if (!controls) {
        return {};
    }
    const Object help = modCommandBarCode::FindControl(controls, L"Help");
    const auto before = help ? std::optional(help.get(L"Index").toInteger()) : std::nullopt;
    const Object brand = modCommandBarCode::FindOrAddPopup(controls, brandCaption, before);
    const Object product =
        modCommandBarCode::FindOrAddPopup(brand.get(L"Controls").toObject(), productCaption(globals));
    return {.accountList = modCommandBarCode::FindOrAddButton(product, L"Send Account (Preferred) List")};
}

void remove(const Globals& globals, const outlook::Explorer& explorer) {
    const Object controls = menuBarControls(explorer);
    const Object brand = controls ? modCommandBarCode::FindControl(controls, brandCaption) : Object();
    if (!brand) {
        return;
    }
    const Object entries = brand.get(L"Controls").toObject();
    if (const Object product = modCommandBarCode::FindControl(entries, productCaption(globals))) {
        product.call(L"Delete");
    }
    if (entries.get(L"Count").toInteger() == 0) {
        brand.call(L"Delete");
    }
}

}  // namespace menu
