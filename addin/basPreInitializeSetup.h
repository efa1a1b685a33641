#pragma once

#include "mail/Globals.h"

namespace addin::basPreInitializeSetup {

/// Where an administrator presets settings for all users of the machine: "PreSetupID" and any settings.
inline constexpr wchar_t presetKey[] = L"SOFTWARE\\Corvane\\Veltro";

/// Copies the machine's presets into the user's settings, once for each preset id. Errors are reported.
void InitializeSetup(mail::Globals& globals);

}  // namespace addin::basPreInitializeSetup
