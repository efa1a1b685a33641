#pragma once

#include <string>
#include <vector>

#include "platform/formLists.h"
#include "platform/windows/ControlWindow.h"

namespace platform::windows {

/// A list box with the selection of files in Explorer: Ctrl and Shift add to it.
class SelectionListWindow final : public ControlWindow {
  public:
    SelectionListWindow(forms::SelectionList& list, HWND window) : ControlWindow(window), list_(list) {}
    void show() override;
    void commanded(WORD notification) override;

  private:
    forms::SelectionList& list_;
    std::vector<std::wstring> shown_;
};

}  // namespace platform::windows
