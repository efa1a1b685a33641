#pragma once

#include <windows.h>

#include "platform/Desktop.h"
#include "platform/windows/ActivationContext.h"
#include "platform/windows/HelpViewer.h"

namespace platform::windows {

class WindowsDesktop final : public Desktop {
  public:
    Answer messageBox(const std::wstring& prompt, MessageStyle style, const std::wstring& title) override;
    void beep() override;
    void showModal(forms::Form& form) override;
    void showHelp(const std::wstring& file, const std::wstring& topic, HelpView view) override;
    std::wstring chooseFolder(const std::wstring& title) override;
    void processPendingEvents() override;

  private:
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
