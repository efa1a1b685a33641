#include "platform/windows/WindowsDesktop.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/windows/DialogWindow.h"
#include "platform/windows/comErrors.h"
#include "platform/windows/folderBrowser.h"

namespace platform::windows {

namespace {

BOOL CALLBACK takeUsableWindow(HWND window, LPARAM result) {
    if (!IsWindowVisible(window) || !IsWindowEnabled(window)) {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

bool isOnNetwork(const std::wstring& file) {
    return file.starts_with(L"\\\\") ||
           GetDriveTypeW(file.substr(0, file.find(L'\\') + 1).c_str()) == DRIVE_REMOTE;
}

/// Throws automation::Error.
void openByShell(const std::wstring& what) {
    SHELLEXECUTEINFOW call{};
    call.cbSize = sizeof call;
    call.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;
    call.lpVerb = L"open";
    call.lpFile = what.c_str();
    call.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&call)) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
}

class WindowTimer final : public Timer {
  public:
    WindowTimer(std::chrono::milliseconds interval, std::function<void()> due, OwnerLock owner)
        : window_(
              MessageWindow::timerName, [due = std::move(due)](UINT) { due(); }, std::move(owner)) {
        if (SetTimer(window_.handle(), 1, static_cast<UINT>(interval.count()), nullptr) == 0) {
            throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
        }
    }

  private:
    MessageWindow window_;
};

}  // namespace

HWND dialogOwner() {
    if (HWND active = GetActiveWindow()) {
        return active;
    }
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &takeUsableWindow, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND messageBoxOwner(HWND foreground) {
    DWORD process = 0;
    GetWindowThreadProcessId(foreground, &process);
    return process == GetCurrentProcessId() ? foreground : dialogOwner();
}

Answer WindowsDesktop::messageBox(const std::wstring& prompt, MessageStyle style, const std::wstring& title) {
    const ActivationContext::Scope controls(context_);
    HWND owner = messageBoxOwner(GetForegroundWindow());
    const UINT type = static_cast<UINT>(style.buttons) | static_cast<UINT>(style.icon);
    const int answer = MessageBoxW(owner, prompt.c_str(), title.c_str(), type);
    if (answer == 0) {
        throw errorOf(HRESULT_FROM_WIN32(GetLastError()));
    }
    if (owner) {
        SetForegroundWindow(owner);
    }
    return static_cast<Answer>(answer);
}

void WindowsDesktop::beep() {
    MessageBeep(MB_OK);
}

void WindowsDesktop::showModal(forms::Form& form) {
    const ActivationContext::Scope controls(context_);
    DialogWindow(form).run(dialogOwner());
}

HelpOutcome WindowsDesktop::showHelp(const std::wstring& file, const std::wstring& topic, HelpView view) {
    if (GetFileAttributesW(file.c_str()) == INVALID_FILE_ATTRIBUTES) {
        return HelpOutcome::Missing;
    }
    if (isOnNetwork(file)) {
        return HelpOutcome::OnNetwork;
    }
    help_.show(topic.empty() ? file : file + L"::/" + topic, view);
    return HelpOutcome::Shown;
}

std::wstring WindowsDesktop::chooseFolder(const std::wstring& title) {
    const ActivationContext::Scope controls(context_);
    return browseForFolder(dialogOwner(), title);
}

void WindowsDesktop::openAddress(const WebAddress& address) {
    openByShell(address.text());
}

void WindowsDesktop::startProgram(const std::wstring& path) {
    openByShell(path);
}

std::unique_ptr<Timer> WindowsDesktop::startTimer(std::chrono::milliseconds interval,
                                                  std::function<void()> due) {
    return std::make_unique<WindowTimer>(interval, std::move(due), owner_);
}

void WindowsDesktop::processPendingEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {  // Meant for the host's own loop.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace platform::windows
