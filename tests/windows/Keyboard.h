#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "robot/dialogDriver.h"
#include "robot/onThreadOf.h"

/// Types on the form's window, from the user's thread. Made on the thread of the form.
class Keyboard {
  public:
    Keyboard() {
        SetWindowLongPtrW(fence_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(done_));
        SetWindowLongPtrW(fence_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Keyboard::fenceReached));
    }
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;
    ~Keyboard() {
        DestroyWindow(fence_);
        CloseHandle(done_);
    }

    void accessKey(HWND dialog, wchar_t key) const {
        constexpr LPARAM withAlt = 1 << 29;
        post(dialog, WM_SYSCHAR, key, withAlt | 1);
    }
    void focus(HWND dialog, const wchar_t* control) const {
        post(dialog, WM_NEXTDLGCTL,
             reinterpret_cast<WPARAM>(robot::dialogDriver::findControl(dialog, control)), TRUE);
    }
    /// With Ctrl held down.
    void pressWithControl(HWND dialog, WPARAM key) const {
        hold(dialog, VK_CONTROL, true);
        press(dialog, {key});
        hold(dialog, VK_CONTROL, false);
    }
    /// Each key goes to the control that has the focus by then.
    void press(HWND dialog, const std::vector<WPARAM>& keys) const {
        for (const WPARAM key : keys) {
            GUITHREADINFO info{};
            info.cbSize = sizeof info;
            GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
            post(info.hwndFocus, WM_KEYDOWN, key, 1);
            if (key == VK_SPACE) {  // A check box is ticked when the key comes up.
                post(info.hwndFocus, WM_KEYUP, key, 1);
            }
        }
    }

  private:
    /// Posted messages are taken in their order: once the fence has its own, this one is done.
    void post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) const {
        PostMessageW(window, message, wParam, lParam);
        PostMessageW(fence_, WM_APP, 0, 0);
        WaitForSingleObject(done_, INFINITE);
    }

    static void hold(HWND dialog, int key, bool down) {
        robot::onThreadOf(dialog, [key, down] {
            BYTE keys[256];
            GetKeyboardState(keys);
            keys[key] = down ? 0x80 : 0;
            SetKeyboardState(keys);
        });
    }

    static LRESULT CALLBACK fenceReached(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_APP) {
            SetEvent(reinterpret_cast<HANDLE>(GetWindowLongPtrW(window, GWLP_USERDATA)));
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    HANDLE done_ = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    HWND fence_ = CreateWindowExW(0, WC_STATICW, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
};
