#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace host::windows {

/// A top-level window of this program. It is destroyed with the object; its handlers' errors are shown to the
/// user and go no further.
class OwnedWindow {
  public:
    OwnedWindow(const OwnedWindow&) = delete;
    OwnedWindow& operator=(const OwnedWindow&) = delete;
    virtual ~OwnedWindow();

    HWND handle() const { return window_; }

  protected:
    /// Made hidden; width and height in 96ths of an inch.
    OwnedWindow(const wchar_t* caption, int width, int height);

    /// A message of the window, or the default handling.
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);

    /// A child control with the system's message font.
    HWND addControl(const wchar_t* windowClass, const wchar_t* text, DWORD style, int id,
                    DWORD extendedStyle = 0);
    int scaled(int length) const { return MulDiv(length, dpi_, 96); }
    /// Width and height of the space for controls.
    SIZE space() const;

    /// Runs an action of the user's, and shows why it failed if it did.
    void guard(const std::function<void()>& action);

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    HFONT font_ = nullptr;
    int dpi_ = 96;
};

/// Runs the program's windows until WM_QUIT; Tab moves between their controls.
void runMessageLoop();

}  // namespace host::windows
