#pragma once

#include <string>

#include "mail/Globals.h"

/// What the product's group in the ribbon does for the mail that is being written, in a window of its own or
/// in the reading pane of a main window. A window is given as Outlook's object.
namespace addin::composeGroup {

/// Which account is preferred for the first recipient, for the user to read. Nothing is asked, saved or
/// looked up in an address book: Outlook is drawing the window. What cannot be read is unknown.
std::wstring accountText(mail::Globals& globals, const automation::Object& window);

/// Asks what would be asked if the mail were sent now, without sending it; says so when there is nothing.
/// Throws automation::Error when the mail cannot be reached.
void checkNow(mail::Globals& globals, const automation::Object& window);

}  // namespace addin::composeGroup
