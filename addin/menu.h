#pragma once

#include "mail/Globals.h"
#include "platform/outlook.h"

/// The product's menu in the menu bar of Outlook's main windows, inside the menu of the maker's brand.
namespace addin::menu {

/// The controls of one window, to listen to.
struct Buttons {
    automation::Object accountList;
};

/// Finds or adds the menu; `windowKey` tells its window from the others. A window without a menu bar gives no
/// buttons. Throws automation::Error.
Buttons build(const mail::Globals& globals, const outlook::Explorer& explorer, std::int32_t windowKey);

/// Takes the product's entry from the brand's menu, and that menu too when nothing is left in it. Throws
/// automation::Error.
void remove(const mail::Globals& globals, const outlook::Explorer& explorer);

}  // namespace addin::menu
