#pragma once

#include <string_view>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// Word as the e-mail editor of Outlook versions below 12, where an item window is a Word window: there the
/// macros of the add-in's template ask instead of the add-in's own dialogs.
namespace basWordMail {

/// True when the item window is a Word window. Throws automation::Error.
bool editsInWord(const mail::Globals& globals, const outlook::Inspector& inspector);
/// The same of the active item window. Throws automation::Error.
bool editsInWord(const mail::Globals& globals);

/// The Word that edits the item of the active window; its Run runs the template's macros. Throws
/// automation::Error.
automation::Object activeWord(const mail::Globals& globals);

/// Runs a macro of the template in the item window's Word with the item and the cancel flag, which the macro
/// may set. Throws automation::Error.
void runMacro(const mail::Globals& globals, const outlook::Inspector& inspector, std::wstring_view macro,
              const outlook::Item& item, bool& cancel);

}  // namespace basWordMail
