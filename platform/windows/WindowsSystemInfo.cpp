#include "platform/windows/WindowsSystemInfo.h"

#include <windows.h>

#include "platform/windows/ownModule.h"

namespace platform::windows {

std::wstring WindowsSystemInfo::addInFolder() {
    std::wstring path = modulePath(ownModule());
    path.erase(path.find_last_of(L'\\'));
    return path;
}

void WindowsSystemInfo::debug(std::string_view line) {
    OutputDebugStringA((debugPrefix + std::string(line) + '\n').c_str());
}

}  // namespace platform::windows
