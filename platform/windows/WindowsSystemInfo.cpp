#include "platform/windows/WindowsSystemInfo.h"

#include "platform/windows/ownModule.h"

namespace platform::windows {

std::wstring WindowsSystemInfo::addInFolder() {
    std::wstring path = modulePath(ownModule());
    path.erase(path.find_last_of(L'\\'));
    return path;
}

}  // namespace platform::windows
