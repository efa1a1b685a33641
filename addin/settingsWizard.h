#pragma once

#include "mail/Globals.h"

/// Where the settings dialog is opened from.
namespace addin::settingsWizard {

/// As the menu does. Throws automation::Error.
void open(mail::Globals& globals);

/// As the start of Outlook does, unless it has done so before: with a page and a picture to welcome the user.
/// A failure is reported.
void welcome(mail::Globals& globals);

}  // namespace addin::settingsWizard
