/// Plays Word for a simulated Outlook, which starts it: runs the macros of templates in a process of its own.

#include <windows.h>

#include <objbase.h>

#include "host/windows/WordProcess.h"
#include "program/windows/commandLineWords.h"
#include "robot/importTable.h"

namespace {

/// Only where the add-in's DLL is what a macro has made an object of.
void stopClock(automation::Date now) {
    if (GetModuleHandleW(L"Veltro.dll")) {
        robot::stopClockOfAddIn(now);
    }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    int status = 1;
    try {
        status = host::windows::playWord(program::windows::commandLineWords(), &stopClock);
    } catch (const std::exception&) {
        // Whoever has started this finds nobody to talk to.
    }
    CoUninitialize();
    return status;
}
