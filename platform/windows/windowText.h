#pragma once

#include <windows.h>

#include <string>

namespace platform::windows {

/// The window's text: a dialog's caption, a control's label or content. Asks by message, so that it works for
/// the controls of other threads too.
std::wstring windowText(HWND window);

}  // namespace platform::windows
