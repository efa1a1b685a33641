#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/windows/listMessages.h"

namespace platform::windows {

/// Replaces all entries of a list box or a combo box.
void fillList(HWND list, const ListMessages& messages, const std::vector<std::wstring>& entries);

/// In pixels, of the longest entry in the list's font.
int widestEntry(HWND list, const std::vector<std::wstring>& entries);

/// Lets a list box be scrolled to the ends of its longest entry.
void fitScrolling(HWND listBox, const std::vector<std::wstring>& entries);

}  // namespace platform::windows
