#include "platform/windows/windowText.h"

namespace platform::windows {

std::wstring windowText(HWND window) {
    const auto length = static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0));
    std::wstring text(length + 1, L'\0');
    const LRESULT copied =
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
    text.resize(copied > 0 ? static_cast<std::size_t>(copied) : 0);  // A combo box may answer CB_ERR.
    return text;
}

}  // namespace platform::windows
