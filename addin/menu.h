#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// The product's menu in the menu bar of Outlook's main windows, inside the menu of the maker's brand.
namespace addin::menu {

/// The commands in the order of the menu.
enum class Command { AccountList, Settings, CheckUpdates, Help, ContactSupport, About };
inline constexpr std::size_t commandCount = 6;

/// A command's caption; "%" stands for the product's title.
const wchar_t* caption(Command command);

/// The buttons of one window, to listen to, one a command; empty in a window without a menu bar.
using Buttons = std::vector<automation::Object>;

/// Finds or adds the menu; `windowKey` tells its window from the others. Throws automation::Error.
Buttons build(const mail::Globals& globals, const outlook::Explorer& explorer, std::int32_t windowKey);

/// Takes the product's entry from the brand's menu, and that menu too when nothing is left in it. Throws
/// automation::Error.
void remove(const mail::Globals& globals, const outlook::Explorer& explorer);

}  // namespace addin::menu
