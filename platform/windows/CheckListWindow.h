#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/formLists.h"
#include "platform/windows/ControlWindow.h"

namespace platform::windows {

/// A list view of one column, as wide as the list or as the longest row needs. Mouse and space bar tick its
/// rows.
class CheckListWindow final : public ControlWindow {
  public:
    CheckListWindow(forms::CheckList& list, HWND window);

    void show() override;
    void notified(const NMHDR& notification) override;

  private:
    bool showsTexts() const;
    void fill();
    void fitColumn();
    void showTicks();

    forms::CheckList& list_;
    std::vector<std::wstring> shown_;
};

}  // namespace platform::windows
