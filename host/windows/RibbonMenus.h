#pragma once

#include <windows.h>

#include <vector>

#include "host/Outlook.h"

namespace host::windows {

/// What add-ins have in the ribbon of one of Outlook's windows, shown to a person as menus: one a group.
class RibbonMenus {
  public:
    RibbonMenus(Outlook& outlook, automation::Object window)
        : outlook_(outlook), window_(std::move(window)) {}

    /// Adds them to a menu bar, as they are now; false when there are none.
    bool addTo(HMENU bar);
    /// Brings the texts up to date, in the bar that they were added to.
    void refresh(HMENU bar);
    /// Presses the button whose menu item was chosen; false when the id is none of these.
    bool press(int id);

  private:
    Outlook& outlook_;
    automation::Object window_;
    std::vector<RibbonCommand> shown_;
};

}  // namespace host::windows
