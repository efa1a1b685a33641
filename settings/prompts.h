#pragma once

#include <string>

#include "mail/Globals.h"
#include "platform/forms.h"

/// What the checks and the account step show unasked. Each is preceded by the alert sound when the user wants
/// one: message boxes by AlertingDesktop, dialogs by show().
namespace prompts {

/// Shows the message box titled "<caption> - <product title>" over the window in the foreground.
platform::Answer ask(const mail::Globals& globals, const std::wstring& caption, const std::wstring& prompt,
                     platform::MessageStyle style);

/// Tells the user something that needs no decision.
void inform(const mail::Globals& globals, const std::wstring& caption, const std::wstring& text);

/// Sounds the alert when the user wants to hear one; a machine that cannot stays silent.
void soundAlert(const mail::Globals& globals);

/// Sounds the alert and shows the dialog until it is answered.
void show(const mail::Globals& globals, forms::Form& form);

/// Opens a help file of the product's, by its full path, at the topic, or at its default topic when that is
/// empty. Where there is nothing to see the user is told why. Throws automation::Error when the viewer fails.
void showHelp(const mail::Globals& globals, const std::wstring& file, const std::wstring& topic,
              platform::HelpView view);

/// "<caption> - <product title>".
std::wstring titled(const mail::Globals& globals, const std::wstring& caption);

}  // namespace prompts
