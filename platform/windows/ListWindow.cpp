#include "platform/windows/ListWindow.h"

#include <commctrl.h>

#include <algorithm>

namespace platform::windows {

namespace {

/// A window's device context with the window's own font.
class Measure {
  public:
    explicit Measure(HWND window)
        : window_(window),
          context_(GetDC(window)),
          former_(SelectObject(context_, reinterpret_cast<HGDIOBJ>(SendMessageW(window, WM_GETFONT, 0, 0)))) {
    }
    Measure(const Measure&) = delete;
    Measure& operator=(const Measure&) = delete;
    ~Measure() {
        SelectObject(context_, former_);
        ReleaseDC(window_, context_);
    }

    int width(const std::wstring& text) const {
        SIZE size{};
        GetTextExtentPoint32W(context_, text.c_str(), static_cast<int>(text.size()), &size);
        return static_cast<int>(size.cx);
    }

  private:
    HWND window_;
    HDC context_;
    HGDIOBJ former_;
};

int heightOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return static_cast<int>(place.bottom - place.top);
}

}  // namespace

void ListWindow::show() {
    if (shown_ != list_.items()) {
        fill();
    }
    if (send(messages_.selected) != list_.selected()) {
        send(messages_.select, static_cast<WPARAM>(list_.selected()));
    }
}

void ListWindow::fill() {
    const DrawingHeld held(handle());
    shown_ = list_.items();
    std::size_t characters = 0;
    for (const std::wstring& entry : shown_) {
        characters += entry.size() + 1;
    }
    send(messages_.clear);
    send(messages_.reserve, shown_.size(), static_cast<LPARAM>(characters * sizeof(wchar_t)));
    for (const std::wstring& entry : shown_) {
        send(messages_.add, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
    entriesChanged();
}

int ListWindow::widestEntry() const {
    const Measure measure(handle());
    int widest = 0;
    for (const std::wstring& entry : shown_) {
        widest = std::max(widest, measure.width(entry));
    }
    return widest;
}

void ListBoxWindow::commanded(WORD notification) {
    if (notification == LBN_SELCHANGE) {
        choose();
    } else if (notification == LBN_DBLCLK && list_.selected() != forms::List::none && list_.onDoubleClick) {
        list_.onDoubleClick();
    }
}

void ListBoxWindow::entriesChanged() {
    const int margins = 4 * GetSystemMetrics(SM_CXEDGE);
    send(LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(widestEntry() + margins));
}

ComboBoxWindow::ComboBoxWindow(forms::ComboBox& list, HWND window)
    : ListWindow(list, window, comboBoxMessages) {
    // Windows makes the closed box as high as the font needs; the form says how high it is to be.
    const forms::Place place = list.place();
    RECT wanted{0, 0, place.width, place.height};
    MapDialogRect(GetParent(window), &wanted);
    entriesChanged();  // The window is as high as the closed box from now on.
    auto text = static_cast<int>(send(CB_GETITEMHEIGHT, static_cast<WPARAM>(-1)));
    // Once more where the height that is set is not the height that is told.
    for (int attempt = 1; attempt <= 2; ++attempt) {
        const int missing = static_cast<int>(wanted.bottom) - heightOf(window);
        text += missing;
        if (missing != 0) {
            send(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), text);
        }
    }
}

void ComboBoxWindow::commanded(WORD notification) {
    if (notification == CBN_SELCHANGE) {
        choose();
    }
}

void ComboBoxWindow::entriesChanged() {
    constexpr int mostEntries = 20;  // More are scrolled to.
    const int entries = std::clamp(count(), 1, mostEntries);
    const auto entryHeight = static_cast<int>(send(CB_GETITEMHEIGHT));
    const int borders = 2 * GetSystemMetrics(SM_CYBORDER);
    RECT place{};
    GetWindowRect(handle(), &place);
    // The height of a combo box's window is that of the dropped box, except for version 6 of the controls,
    // which goes by the number of entries.
    SetWindowPos(handle(), nullptr, 0, 0, static_cast<int>(place.right - place.left),
                 heightOf(handle()) + entries * entryHeight + borders,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    send(CB_SETMINVISIBLE, static_cast<WPARAM>(entries));
    const int margins = 4 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
    const int room = GetSystemMetrics(SM_CXSCREEN);
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::min(widestEntry() + margins, room)));
}

}  // namespace platform::windows
