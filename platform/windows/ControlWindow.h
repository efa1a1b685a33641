#pragma once

#include <windows.h>

#include <memory>

#include "platform/forms.h"

namespace platform::windows {

/// Posted to the dialog when the focus has left one of its text boxes.
inline constexpr UINT focusLeft = WM_APP;

/// A control's window while its form is shown. Brings the window to what the control holds, and the control
/// to what the user does in the window.
class ControlWindow {
  public:
    /// For a window that dialogTemplate() has described; it may still be empty.
    static std::unique_ptr<ControlWindow> make(forms::Control& control, HWND window);

    explicit ControlWindow(HWND window) : window_(window) {}
    ControlWindow(const ControlWindow&) = delete;
    ControlWindow& operator=(const ControlWindow&) = delete;
    virtual ~ControlWindow() = default;

    HWND handle() const { return window_; }

    /// Changes the window only where it differs from the control. It may notify its parent meanwhile, which
    /// says nothing about the user.
    virtual void show() = 0;
    /// The user did something, told by WM_COMMAND.
    virtual void commanded(WORD /*notification*/) {}
    /// The user did something, told by WM_NOTIFY.
    virtual void notified(const NMHDR& /*notification*/) {}

  protected:
    LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(window_, message, wParam, lParam);
    }

  private:
    HWND window_;
};

/// Holds back the drawing of a window that gets many rows, and draws it once at the end.
class DrawingHeld {
  public:
    explicit DrawingHeld(HWND window) : window_(window) { SendMessageW(window_, WM_SETREDRAW, FALSE, 0); }
    DrawingHeld(const DrawingHeld&) = delete;
    DrawingHeld& operator=(const DrawingHeld&) = delete;
    ~DrawingHeld() {
        SendMessageW(window_, WM_SETREDRAW, TRUE, 0);
        InvalidateRect(window_, nullptr, TRUE);
    }

  private:
    HWND window_;
};

}  // namespace platform::windows
