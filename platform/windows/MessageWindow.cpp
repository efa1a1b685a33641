#include "platform/windows/MessageWindow.h"

#include <utility>

#include "platform/windows/comErrors.h"
#include "platform/windows/ownModule.h"

namespace platform::windows {

MessageWindow::MessageWindow(const wchar_t* name, Handler handler, OwnerLock owner)
    : work_(std::make_shared<const Work>(Work{std::move(handler), std::move(owner)})),
      // Of a class of the system's, which nobody has to take back before the DLL goes.
      window_(
          CreateWindowExW(0, L"STATIC", name, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, ownModule(), nullptr)) {
    if (!window_) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    before_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MessageWindow::procedure)));
}

MessageWindow::~MessageWindow() {
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before_));
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK MessageWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const auto* const self = reinterpret_cast<MessageWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != WM_TIMER && message != WM_APP) {
        return CallWindowProcW(self->before_, window, message, wParam, lParam);
    }
    guarded([work = self->work_, message] {
        const auto owner = work->owner ? work->owner() : nullptr;
        work->handler(message);
        return S_OK;
    });
    return 0;
}

}  // namespace platform::windows
