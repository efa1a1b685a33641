#pragma once

#include <windows.h>

#include <functional>
#include <memory>

namespace platform::windows {

/// Whoever is kept alive while a handler runs, though it may be let go of meanwhile: the handler may wait in
/// a dialog. Null when nobody is.
using OwnerLock = std::function<std::shared_ptr<void>()>;

/// A window that nobody sees and that gets messages by the thread's message loop, dialogs' included. May be
/// destroyed by its own handler.
class MessageWindow {
  public:
    /// The texts by which programs that drive the add-in find the windows of its timers and requests.
    static constexpr wchar_t timerName[] = L"Veltro.Timer";
    static constexpr wchar_t requestName[] = L"Veltro.Request";

    using Handler = std::function<void(UINT message)>;

    /// The handler gets WM_TIMER and WM_APP; its exceptions end with it. Throws automation::Error when
    /// Windows has no window to give.
    MessageWindow(const wchar_t* name, Handler handler, OwnerLock owner);
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;
    ~MessageWindow();

    HWND handle() const { return window_; }

  private:
    struct Work {
        Handler handler;
        OwnerLock owner;
    };

    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    std::shared_ptr<const Work> work_;
    HWND window_;
    /// That of the window's class.
    WNDPROC before_;
};

}  // namespace platform::windows
