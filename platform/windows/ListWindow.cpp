#include "platform/windows/ListWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/windows/listBoxEntries.h"

namespace platform::windows {

namespace {

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
    shown_ = list_.items();
    fillList(handle(), messages_, shown_);
    entriesChanged();
}

void ListBoxWindow::commanded(WORD notification) {
    if (notification == LBN_SELCHANGE) {
        choose();
    } else if (notification == LBN_DBLCLK && list_.selected() != forms::List::none && list_.onDoubleClick) {
        list_.onDoubleClick();
    }
}

void ListBoxWindow::entriesChanged() {
    fitScrolling(handle(), entries());
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
    const int rows = std::clamp(static_cast<int>(entries().size()), 1, mostEntries);
    const auto entryHeight = static_cast<int>(send(CB_GETITEMHEIGHT));
    const int borders = 2 * GetSystemMetrics(SM_CYBORDER);
    RECT place{};
    GetWindowRect(handle(), &place);
    // The height of a combo box's window is that of the dropped box, except for version 6 of the controls,
    // which goes by the number of entries.
    SetWindowPos(handle(), nullptr, 0, 0, static_cast<int>(place.right - place.left),
                 heightOf(handle()) + rows * entryHeight + borders,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    send(CB_SETMINVISIBLE, static_cast<WPARAM>(rows));
    const int margins = 4 * GetSystemMetrics(SM_CXEDGE) + GetSystemMetrics(SM_CXVSCROLL);
    const int room = GetSystemMetrics(SM_CXSCREEN);
    send(CB_SETDROPPEDWIDTH, static_cast<WPARAM>(std::min(widestEntry(handle(), entries()) + margins, room)));
}

}  // namespace platform::windows
