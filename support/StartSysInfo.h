#pragma once

#include "mail/Globals.h"

namespace support {

/// Starts the system's report of itself, where the registry says that it is; without one the user is told.
/// Throws automation::Error only when not even that can be shown.
void StartSysInfo(const mail::Globals& globals);

}  // namespace support
