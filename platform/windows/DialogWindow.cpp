#include "platform/windows/DialogWindow.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows/comErrors.h"
#include "platform/windows/dialogProperties.h"
#include "platform/windows/dialogTemplate.h"
#include "platform/windows/ownModule.h"
#include "platform/windows/windowText.h"

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

const wchar_t* systemIcon(forms::Picture::Image image) {
    switch (image) {
        case forms::Picture::Image::Warning:
            return IDI_WARNING;
        case forms::Picture::Image::Question:
            return IDI_QUESTION;
        case forms::Picture::Image::Information:
            break;
    }
    return IDI_INFORMATION;
}

/// Changes a control only where it differs: setting the same text again would move the caret.
void setText(HWND window, const std::wstring& text) {
    if (windowText(window) != text) {
        SetWindowTextW(window, text.c_str());
    }
}

void setCheck(HWND window, int state) {
    if (SendMessageW(window, BM_GETCHECK, 0, 0) != state) {
        SendMessageW(window, BM_SETCHECK, static_cast<WPARAM>(state), 0);
    }
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
        return self->handle(message, wParam);
    } catch (...) {
        self->failure_ = std::current_exception();
        EndDialog(dialog, 0);
        return TRUE;
    }
}

INT_PTR DialogWindow::handle(UINT message, WPARAM wParam) {
    switch (message) {
        case WM_INITDIALOG:
            initialise();
            return TRUE;  // The first control gets the focus.
        case WM_COMMAND:
            command(LOWORD(wParam), HIWORD(wParam));
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
    captionChanged();
    for (const forms::Control* control : form_.controls()) {
        HWND controlWindow = window(*control);
        attachName(controlWindow, controlNameProperty, control->name());
        attachKind(controlWindow, control->kind());
        if (control->kind() == forms::Kind::TextBox) {
            SendMessageW(controlWindow, EM_SETLIMITTEXT, 0, 0);  // As much as Windows can.
        }
        show(*control);
    }
    centre(dialog_, owner_);
}

void DialogWindow::removeNames() {
    for (const forms::Control* control : form_.controls()) {
        detachName(window(*control), controlNameProperty);
        detachKind(window(*control));
    }
    detachName(dialog_, formNameProperty);
}

void DialogWindow::command(WORD id, WORD notification) {
    if (id == IDCANCEL) {  // Escape or the close box.
        form_.closeBox();
        return;
    }
    const auto index = static_cast<std::size_t>(id - firstControlId);
    if (id < firstControlId || index >= form_.controls().size() || changing_ > 0) {
        return;
    }
    forms::Control& control = *form_.controls()[index];
    if (control.kind() == forms::Kind::TextBox) {
        if (notification == EN_CHANGE) {
            typed(static_cast<forms::TextBox&>(control));
        }
    } else if (notification == BN_CLICKED) {
        clicked(control);
    }
}

void DialogWindow::typed(forms::TextBox& box) {
    box.enter(windowText(window(box)));
}

void DialogWindow::clicked(forms::Control& control) {
    switch (control.kind()) {
        case forms::Kind::Button:
            static_cast<forms::Button&>(control).press();
            break;
        case forms::Kind::CheckBox:
            // As for a person's click: unticked becomes ticked, everything else unticked.
            control.enter(static_cast<forms::CheckBox&>(control).state() == 0 ? L"1" : L"0");
            refresh(control);
            break;
        case forms::Kind::OptionButton:
            control.enter(L"1");
            refresh(control);
            break;
        default:
            break;
    }
}

HWND DialogWindow::window(const forms::Control& control) const {
    const auto& controls = form_.controls();
    const auto index = std::ranges::find(controls, &control) - controls.begin();
    return GetDlgItem(dialog_, firstControlId + static_cast<int>(index));
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
        SendMessageW(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(window(control)), TRUE);
    }
}

void DialogWindow::close() {
    if (dialog_) {
        EndDialog(dialog_, 0);
    }
}

void DialogWindow::show(const forms::Control& control) {
    const Counted own(changing_);
    HWND controlWindow = window(control);
    showContent(control, controlWindow);
    const bool visible = (GetWindowLongPtrW(controlWindow, GWL_STYLE) & WS_VISIBLE) != 0;
    if ((visible && !control.visible()) || (IsWindowEnabled(controlWindow) && !control.enabled())) {
        moveFocusFrom(controlWindow);
    }
    EnableWindow(controlWindow, control.enabled());
    if (visible != control.visible()) {
        ShowWindow(controlWindow, control.visible() ? SW_SHOWNA : SW_HIDE);
    }
}

void DialogWindow::showContent(const forms::Control& control, HWND controlWindow) {
    switch (control.kind()) {
        case forms::Kind::Label:
        case forms::Kind::Button:
            setText(controlWindow, control.caption());
            break;
        case forms::Kind::TextBox: {
            const auto& box = static_cast<const forms::TextBox&>(control);
            setText(controlWindow, box.text());
            SendMessageW(controlWindow, EM_SETREADONLY, box.readOnly(), 0);
            break;
        }
        case forms::Kind::CheckBox:
            setText(controlWindow, control.caption());
            setCheck(controlWindow, static_cast<const forms::CheckBox&>(control).state());
            break;
        case forms::Kind::OptionButton:
            setText(controlWindow, control.caption());
            setCheck(controlWindow, control.value() == L"1" ? 1 : 0);
            break;
        case forms::Kind::Picture: {
            const auto image = static_cast<const forms::Picture&>(control).image();
            HICON icon = LoadIconW(nullptr, systemIcon(image));
            SendMessageW(controlWindow, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
            break;
        }
        case forms::Kind::ListBox:
        case forms::Kind::ComboBox:
            break;
    }
}

/// A window that is disabled or hidden while it has the focus would keep the keyboard.
void DialogWindow::moveFocusFrom(HWND controlWindow) {
    if (GetFocus() == controlWindow) {
        SendMessageW(dialog_, WM_NEXTDLGCTL, 0, FALSE);
    }
}

}  // namespace platform::windows
