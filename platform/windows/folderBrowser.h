#pragma once

#include <windows.h>

#include <string>

namespace platform::windows {

/// Shows the system's folder browser over the window. The path of the chosen folder, or an empty text when
/// the user cancels. Throws automation::Error when the system has no path for it.
std::wstring browseForFolder(HWND owner, const std::wstring& title);

}  // namespace platform::windows
