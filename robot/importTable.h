#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "platform/automation.h"

/// What the add-in asks of the system, answered in the system's place: entries in Veltro.dll's table of
/// imports lead to functions of the robot. For one add-in in the process, on its thread.
namespace robot {

/// Has the loaded Veltro.dll read this as the local time from now on. Throws std::runtime_error when the DLL
/// is not loaded or does not ask Windows for the time.
void stopClockOfAddIn(automation::Date time);

/// Has the add-in's clock go ahead of the machine's, by that many days. Throws as stopClockOfAddIn does.
void moveClockOfAddIn(int days);

/// Has the add-in take the program for one whose file has this version. Throws as stopClockOfAddIn does.
void tellProgramVersion(const std::wstring& version);

/// From now on the loaded Veltro.dll opens nothing: `opened` is told each address and file instead. An empty
/// function gives it back what it had. Throws std::runtime_error when the DLL is not loaded.
void catchOpening(std::function<void(const std::wstring&)> opened);

}  // namespace robot
