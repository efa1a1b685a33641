#include "host/windows/OwnedWindow.h"

#include "platform/automation.h"
#include "platform/text.h"

namespace host::windows {

namespace {

constexpr wchar_t className[] = L"VeltroHostWindow";

int screenDpi() {
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}

HFONT messageFont() {
    NONCLIENTMETRICSW metrics{};
    // Windows XP knows the structure without its last member only.
    metrics.cbSize = offsetof(NONCLIENTMETRICSW, lfMessageFont) + sizeof metrics.lfMessageFont;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    return CreateFontIndirectW(&metrics.lfMessageFont);
}

}  // namespace

OwnedWindow::OwnedWindow(const wchar_t* caption, int width, int height)
    : font_(messageFont()), dpi_(screenDpi()) {
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = className;
    RegisterClassExW(&windowClass);  // Fails from the second window on, whose class is there.
    window_ = CreateWindowExW(WS_EX_CONTROLPARENT, className, caption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                              CW_USEDEFAULT, CW_USEDEFAULT, scaled(width), scaled(height), nullptr, nullptr,
                              windowClass.hInstance, this);
}

OwnedWindow::~OwnedWindow() {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    DeleteObject(font_);
}

LRESULT CALLBACK OwnedWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* owner = static_cast<OwnedWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
        owner->window_ = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
    }
    auto* owner = reinterpret_cast<OwnedWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!owner) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    owner->guard([&] { result = owner->onMessage(message, wParam, lParam); });
    return result;
}

LRESULT OwnedWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window_, message, wParam, lParam);
}

HWND OwnedWindow::addControl(const wchar_t* windowClass, const wchar_t* text, DWORD style, int id,
                             DWORD extendedStyle) {
    const HWND control = CreateWindowExW(extendedStyle, windowClass, text, style | WS_CHILD | WS_VISIBLE, 0,
                                         0, 0, 0, window_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                                         GetModuleHandleW(nullptr), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    return control;
}

SIZE OwnedWindow::space() const {
    RECT area{};
    GetClientRect(window_, &area);
    return {area.right, area.bottom};
}

void OwnedWindow::guard(const std::function<void()>& action) {
    std::wstring failure;
    try {
        action();
        return;
    } catch (const automation::Error& error) {
        failure = error.description();
    } catch (const std::exception& error) {
        failure = text::fromUtf8(error.what());
    }
    MessageBoxW(window_, failure.c_str(), L"Simulated Outlook", MB_OK | MB_ICONERROR);
}

void runMessageLoop() {
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        const HWND top = message.hwnd ? GetAncestor(message.hwnd, GA_ROOT) : nullptr;
        if (!top || !IsDialogMessageW(top, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

}  // namespace host::windows
