#pragma once

#include "mail/Globals.h"
#include "platform/forms.h"

/// What the settings dialog's text boxes are held to when they are left. Each is false after a complaint; the
/// box that must be corrected has the keyboard again then.
namespace settings::wizardValidation {

/// A number of at least 1, of which the whole part stays. `noun` is what is counted, such as "Days".
bool isCount(const mail::Globals& globals, forms::TextBox& box, const wchar_t* noun);

bool isDelayTime(const mail::Globals& globals, forms::TextBox& box);

/// Domains, parted by ";".
bool areDomains(const mail::Globals& globals, forms::TextBox& box);

}  // namespace settings::wizardValidation
