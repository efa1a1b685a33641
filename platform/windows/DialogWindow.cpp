#include "platform/windows/DialogWindow.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/formPages.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/dialogProperties.h"
#include "platform/windows/dialogTemplate.h"
#include "platform/windows/ownModule.h"

namespace platform::windows {

namespace {

/// The area of the screen that a dialog of this window may cover.
RECT workArea(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

/// Centres the dialog over its owner, or on the screen, and keeps it on the screen.
void centre(HWND dialog, HWND owner) {
    const bool overOwner = owner && IsWindowVisible(owner) && !IsIconic(owner);
    const RECT area = workArea(overOwner ? owner : dialog);
    RECT over = area;
    if (overOwner) {
        GetWindowRect(owner, &over);
    }
    RECT size{};
    GetWindowRect(dialog, &size);
    const LONG width = size.right - size.left;
    const LONG height = size.bottom - size.top;
    const auto within = [](LONG start, LONG length, LONG low, LONG high) {
        return std::max(low, std::min(start, high - length));
    };
    const LONG left = within((over.left + over.right - width) / 2, width, area.left, area.right);
    const LONG top = within((over.top + over.bottom - height) / 2, height, area.top, area.bottom);
    SetWindowPos(dialog, nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

/// The control of a page where the keyboard starts; null when it can nowhere.
const forms::Control* firstField(const forms::Form& form, const forms::Frame& page) {
    const auto takesKeys = [&page](const forms::Control* control) {
        const forms::Kind kind = control->kind();
        const bool isField =
            kind != forms::Kind::Label && kind != forms::Kind::Frame && kind != forms::Kind::Picture;
        return isField && control->isIn(page) && control->visible() && control->enabled();
    };
    const auto found = std::ranges::find_if(form.controls(), takesKeys);
    return found == form.controls().end() ? nullptr : *found;
}

class Counted {
  public:
    explicit Counted(int& counter) : counter_(counter) { ++counter_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;
    ~Counted() { --counter_; }

  private:
    int& counter_;
};

/// Of this thread's dialogs and menus, for as long as it lives.
class KeyHook {
  public:
    explicit KeyHook(HOOKPROC procedure)
        : hook_(SetWindowsHookExW(WH_MSGFILTER, procedure, nullptr, GetCurrentThreadId())) {}
    KeyHook(const KeyHook&) = delete;
    KeyHook& operator=(const KeyHook&) = delete;
    ~KeyHook() {
        if (hook_) {
            UnhookWindowsHookEx(hook_);
        }
    }

  private:
    HHOOK hook_;
};

}  // namespace

DialogWindow::DialogWindow(forms::Form& form) : form_(form), outer_(form.view()) {
    form_.setView(this);
}

DialogWindow::~DialogWindow() {
    form_.setView(outer_);
}

void DialogWindow::run(HWND owner) {
    owner_ = owner;
    const std::vector<DWORD> resource = dialogTemplate(form_);
    const KeyHook keys(&DialogWindow::watchKeys);
    const INT_PTR result =
        DialogBoxIndirectParamW(ownModule(), reinterpret_cast<const DLGTEMPLATE*>(resource.data()), owner,
                                &DialogWindow::procedure, reinterpret_cast<LPARAM>(this));
    if (failure_) {
        std::rethrow_exception(std::exchange(failure_, nullptr));
    }
    if (result == -1) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
}

INT_PTR CALLBACK DialogWindow::procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        reinterpret_cast<DialogWindow*>(lParam)->dialog_ = dialog;
    }
    auto* self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (!self) {
        return FALSE;
    }
    try {
        return self->handle(message, wParam, lParam);
    } catch (...) {
        self->failure_ = std::current_exception();
        EndDialog(dialog, 0);
        return TRUE;
    }
}

/// Sees the keys before the dialog manager does, to which Ctrl+Tab is a Tab.
LRESULT CALLBACK DialogWindow::watchKeys(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const auto& message = *reinterpret_cast<const MSG*>(lParam);
    HWND dialog = code == MSGF_DIALOGBOX ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    auto* self = dialog && attachedName(dialog, formNameProperty)
                     ? reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(dialog, DWLP_USER))
                     : nullptr;
    try {
        if (self && self->turnPage(message)) {
            return TRUE;
        }
    } catch (...) {
        self->failure_ = std::current_exception();
        EndDialog(dialog, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

INT_PTR DialogWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            initialise();
            return form_.firstFocus() == nullptr;  // TRUE gives the focus to the first control.
        case WM_COMMAND:
            command(LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_NOTIFY:
            notify(*reinterpret_cast<const NMHDR*>(lParam));
            return FALSE;
        case focusLeft:
            leaveTextBox();
            return TRUE;
        case WM_DESTROY:
            removeNames();
            dialog_ = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
}

void DialogWindow::initialise() {
    attachName(dialog_, formNameProperty, form_.name());
    if (form_.waits()) {
        markWaiting(dialog_);
    }
    captionChanged();
    for (forms::Control* control : form_.controls()) {
        HWND controlWindow = GetDlgItem(dialog_, firstControlId + static_cast<int>(windows_.size()));
        attachName(controlWindow, controlNameProperty, control->name());
        attachKind(controlWindow, control->kind());
        windows_.push_back(ControlWindow::make(*control, controlWindow));
        show(*control);
    }
    centre(dialog_, owner_);
    if (form_.firstFocus()) {
        focus(*form_.firstFocus());
    }
}

void DialogWindow::removeNames() {
    for (const auto& controlWindow : windows_) {
        detachName(controlWindow->handle(), controlNameProperty);
        detachKind(controlWindow->handle());
    }
    detachName(dialog_, formNameProperty);
    RemovePropW(dialog_, waitsProperty);
}

void DialogWindow::command(WORD id, WORD notification) {
    const BusyMark busy(dialog_);
    if (id == IDCANCEL) {  // Escape or the close box.
        form_.closeBox();
    } else if (ControlWindow* sender = notifier(id)) {
        sender->commanded(notification);
    }
}

void DialogWindow::notify(const NMHDR& notification) {
    const BusyMark busy(dialog_);
    if (ControlWindow* sender = notifier(notification.idFrom)) {
        sender->notified(notification);
    }
}

/// The focus may be back in the box, or with another program.
void DialogWindow::leaveTextBox() {
    const BusyMark busy(dialog_);
    if (const forms::Control* const focused = focusedControl()) {
        form_.leaveFor(*focused);
    }
}

const forms::Control* DialogWindow::focusedControl() const {
    HWND focused = GetFocus();
    const UINT_PTR id = GetParent(focused) == dialog_ ? static_cast<UINT_PTR>(GetDlgCtrlID(focused)) : 0;
    return notifier(id) ? form_.controls()[id - firstControlId] : nullptr;
}

bool DialogWindow::turnPage(const MSG& key) {
    const auto strip = std::ranges::find(form_.controls(), forms::Kind::TabStrip, &forms::Control::kind);
    const bool controlDown = GetKeyState(VK_CONTROL) < 0;
    if (key.message != WM_KEYDOWN || !controlDown || strip == form_.controls().end()) {
        return false;
    }
    const bool back = key.wParam == VK_PRIOR || (key.wParam == VK_TAB && GetKeyState(VK_SHIFT) < 0);
    if (!back && key.wParam != VK_NEXT && key.wParam != VK_TAB) {
        return false;
    }
    const BusyMark busy(dialog_);
    auto& pages = static_cast<forms::TabStrip&>(**strip);
    const std::size_t count = pages.pages().size();
    const forms::Control* const focused = focusedControl();
    const bool inPage = focused && focused->isIn(pages.page());
    const bool turned = pages.turnTo((pages.selected() + (back ? count - 1 : 1)) % count);
    const forms::Control* const first = turned && inPage ? firstField(form_, pages.page()) : nullptr;
    if (first) {
        focus(*first);
    }
    return true;
}

ControlWindow* DialogWindow::notifier(UINT_PTR id) const {
    const bool known = id >= firstControlId && id - firstControlId < windows_.size() && changing_ == 0;
    return known ? windows_[id - firstControlId].get() : nullptr;
}

ControlWindow& DialogWindow::window(const forms::Control& control) const {
    const auto& controls = form_.controls();
    const auto index = std::ranges::find(controls, &control) - controls.begin();
    return *windows_[static_cast<std::size_t>(index)];
}

void DialogWindow::refresh(const forms::Control& control) {
    if (dialog_) {
        show(control);
    }
}

void DialogWindow::captionChanged() {
    if (dialog_) {
        SetWindowTextW(dialog_, form_.caption().c_str());
    }
}

void DialogWindow::focus(const forms::Control& control) {
    if (dialog_) {
        // Not SetFocus, which would leave the frame of the default button where it was.
        SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window(control).handle()), TRUE);
    }
}

void DialogWindow::close() {
    if (dialog_) {
        EndDialog(dialog_, 0);
    }
}

void DialogWindow::show(const forms::Control& control) {
    const Counted own(changing_);
    ControlWindow& shown = window(control);
    shown.show();
    HWND controlWindow = shown.handle();
    const bool visible = (GetWindowLongPtrW(controlWindow, GWL_STYLE) & WS_VISIBLE) != 0;
    if ((visible && !control.visible()) || (IsWindowEnabled(controlWindow) && !control.enabled())) {
        moveFocusFrom(controlWindow);
    }
    EnableWindow(controlWindow, control.enabled());
    if (visible != control.visible()) {
        ShowWindow(controlWindow, control.visible() ? SW_SHOWNA : SW_HIDE);
    }
}

/// A window that is disabled or hidden while it has the focus would keep the keyboard.
void DialogWindow::moveFocusFrom(HWND controlWindow) {
    if (GetFocus() == controlWindow) {
        SendMessageW(dialog_, WM_NEXTDLGCTL, 0, FALSE);
    }
}

}  // namespace platform::windows
