#pragma once

#include "platform/automation.h"

/// Has the loaded Veltro.dll read this as the local time from now on: the entry of GetLocalTime in its table
/// of imports leads to a function of the tests. Throws std::runtime_error when the DLL is not loaded or does
/// not import it.
void stopClockOfAddIn(automation::Date time);
