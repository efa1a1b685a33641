#pragma once

#include <string>

#include "platform/formPages.h"
#include "platform/windows/ControlWindow.h"

namespace platform::windows {

/// Only the row of tabs: the pages stand on the dialog below it, so that their texts have the dialog's own
/// background under every theme.
class TabStripWindow final : public ControlWindow {
  public:
    TabStripWindow(forms::TabStrip& strip, HWND window);
    void show() override;
    void notified(const NMHDR& notification) override;

  private:
    forms::TabStrip& strip_;
    std::wstring shown_;
};

}  // namespace platform::windows
