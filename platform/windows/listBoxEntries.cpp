#include "platform/windows/listBoxEntries.h"

#include <algorithm>

#include "platform/windows/ControlWindow.h"

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

}  // namespace

void fillList(HWND list, const ListMessages& messages, const std::vector<std::wstring>& entries) {
    const DrawingHeld held(list);
    std::size_t characters = 0;
    for (const std::wstring& entry : entries) {
        characters += entry.size() + 1;
    }
    SendMessageW(list, messages.clear, 0, 0);
    SendMessageW(list, messages.reserve, entries.size(), static_cast<LPARAM>(characters * sizeof(wchar_t)));
    for (const std::wstring& entry : entries) {
        SendMessageW(list, messages.add, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    }
}

int widestEntry(HWND list, const std::vector<std::wstring>& entries) {
    const Measure measure(list);
    int widest = 0;
    for (const std::wstring& entry : entries) {
        widest = std::max(widest, measure.width(entry));
    }
    return widest;
}

void fitScrolling(HWND listBox, const std::vector<std::wstring>& entries) {
    const int margins = 4 * GetSystemMetrics(SM_CXEDGE);
    SendMessageW(listBox, LB_SETHORIZONTALEXTENT,
                 static_cast<WPARAM>(widestEntry(listBox, entries) + margins), 0);
}

}  // namespace platform::windows
