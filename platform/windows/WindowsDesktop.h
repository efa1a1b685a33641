#pragma once

#include <windows.h>

#include "platform/Desktop.h"
#include "platform/windows/ActivationContext.h"
#include "platform/windows/HelpViewer.h"
#include "platform/windows/MessageWindow.h"

namespace platform::windows {

class WindowsDesktop final : public Desktop {
  public:
    /// `owner` holds whoever must not go while a timer's work is being done.
    explicit WindowsDesktop(OwnerLock owner = nullptr) : owner_(std::move(owner)) {}

    Answer messageBox(const std::wstring& prompt, MessageStyle style, const std::wstring& title) override;
    void beep() override;
    void showModal(forms::Form& form) override;
    HelpOutcome showHelp(const std::wstring& file, const std::wstring& topic, HelpView view) override;
    std::wstring chooseFolder(const std::wstring& title) override;
    void openAddress(const WebAddress& address) override;
    void startProgram(const std::wstring& path) override;
    std::unique_ptr<Timer> startTimer(std::chrono::milliseconds interval, std::function<void()> due) override;
    void processPendingEvents() override;

  private:
    OwnerLock owner_;
    HelpViewer help_;
    ActivationContext context_;
};

/// The window of Outlook that a dialog belongs over: the active one, or the topmost while the user is in
/// another program. Null when there is none.
HWND dialogOwner();

/// What a message box belongs over while `foreground` is in the foreground. Never a window of another
/// program, which the box would disable, and which would wait for Outlook from then on.
HWND messageBoxOwner(HWND foreground);

}  // namespace platform::windows
