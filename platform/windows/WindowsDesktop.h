#pragma once

#include "platform/Desktop.h"
#include "platform/windows/ActivationContext.h"

namespace platform::windows {

class WindowsDesktop final : public Desktop {
  public:
    Answer messageBox(const std::wstring& prompt, MessageStyle style, const std::wstring& title) override;
    void beep() override;
    void showModal(forms::Form& form) override;
    void processPendingEvents() override;

  private:
    ActivationContext context_;
};

}  // namespace platform::windows
