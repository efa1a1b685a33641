#pragma once

#include <string>

#include "mail/Globals.h"
#include "platform/forms.h"

/// What the dialogs say about a newer version alike.
namespace update::newVersion {

std::wstring caption(const mail::Globals& globals);
/// That there is one, and which is installed.
std::wstring announcement(const mail::Globals& globals, const std::wstring& version);
/// Fills the box with the service's message; without one there is no box.
void show(forms::TextBox& box, const std::wstring& message);

}  // namespace update::newVersion
