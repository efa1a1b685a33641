#include "platform/windows/TabStripWindow.h"

#include <commctrl.h>

namespace platform::windows {

TabStripWindow::TabStripWindow(forms::TabStrip& strip, HWND window) : ControlWindow(window), strip_(strip) {
    // As high as the form says, whatever the theme's own tabs are.
    RECT client{};
    GetClientRect(window, &client);
    send(TCM_SETITEMSIZE, 0, MAKELPARAM(0, client.bottom - 2 * GetSystemMetrics(SM_CYEDGE)));
}

void TabStripWindow::show() {
    if (shown_ != strip_.caption()) {
        shown_ = strip_.caption();
        send(TCM_DELETEALLITEMS);
        for (int index = 0; const forms::Frame* page : strip_.pages()) {
            TCITEMW item{};
            item.mask = TCIF_TEXT;
            item.pszText = const_cast<wchar_t*>(page->caption().c_str());  // Only read.
            send(TCM_INSERTITEMW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&item));
        }
    }
    if (send(TCM_GETCURSEL) != static_cast<LRESULT>(strip_.selected())) {
        send(TCM_SETCURSEL, strip_.selected());
    }
}

void TabStripWindow::notified(const NMHDR& notification) {
    if (notification.code == static_cast<UINT>(TCN_SELCHANGE)) {
        strip_.turnTo(static_cast<std::size_t>(send(TCM_GETCURSEL)));
        show();  // Back, where the page could not be left.
    }
}

}  // namespace platform::windows
