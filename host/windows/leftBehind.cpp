#include "host/windows/leftBehind.h"

namespace host::windows {

bool isLeftBehind(DWORD processId) {
    if (processId == GetCurrentProcessId()) {
        return true;
    }
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, processId);
    if (!process) {
        return GetLastError() != ERROR_ACCESS_DENIED;
    }
    const bool ended = WaitForSingleObject(process, 0) != WAIT_TIMEOUT;
    CloseHandle(process);
    return ended;
}

}  // namespace host::windows
