#pragma once

#include <windows.h>

#include <functional>

namespace robot {

/// Runs the work on the thread of a window of this process, else on this one, and waits for it: ten thousand
/// messages from thread to thread take seconds, on the window's own thread an instant. The work must not open
/// dialogs.
void onThreadOf(HWND window, const std::function<void()>& work);

}  // namespace robot
