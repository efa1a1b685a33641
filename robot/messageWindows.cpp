#include "robot/messageWindows.h"

#include <windows.h>

#include "platform/windows/MessageWindow.h"

namespace robot {

namespace {

using platform::windows::MessageWindow;

constexpr DWORD longest = 30000;
constexpr DWORD lookAgain = 20;

/// Null when this thread has no such window.
HWND ownWindow(const wchar_t* name) {
    HWND window = nullptr;
    while ((window = FindWindowExW(HWND_MESSAGE, window, L"STATIC", name)) != nullptr) {
        if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) {
            return window;
        }
    }
    return nullptr;
}

void handleMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

bool fireTimer() {
    HWND timer = ownWindow(MessageWindow::timerName);
    if (timer) {
        SendMessageW(timer, WM_TIMER, 1, 0);
    }
    return timer != nullptr;
}

void settleAddIn() {
    const DWORD start = GetTickCount();
    while (GetTickCount() - start < longest) {
        handleMessages();
        if (fireTimer()) {
            continue;
        }
        if (ownWindow(MessageWindow::requestName)) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, lookAgain, QS_ALLINPUT);
        } else {
            return;
        }
    }
}

}  // namespace robot
