#pragma once

#include <windows.h>

#include <string>

/// Saves what a visible window shows as a bitmap file. Throws std::runtime_error when that fails.
void saveWindowPicture(HWND window, const std::wstring& file);
