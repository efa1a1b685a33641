#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "host/Outlook.h"
#include "host/windows/ItemWindow.h"
#include "host/windows/OwnedWindow.h"
#include "host/windows/RibbonMenus.h"

namespace host::windows {

/// What a person sees of the simulated Outlook: the Inbox with buttons to answer and write, what
/// add-ins have put into the explorer, and a window for each open item.
class MainWindow : public OwnedWindow {
  public:
    /// The Outlook has an explorer open.
    explicit MainWindow(Outlook& outlook);
    ~MainWindow() override;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    void makeControls();
    void layOut();
    void fillInbox();
    void command(int id);
    void answer(ReplyKind kind);
    void openSelected();
    /// Tells Outlook what the list shows selected.
    void selectionChanged();
    /// Nothing when none is.
    automation::Object selected() const;

    /// Shows the explorer's menus, and what its ribbon holds, as they are now.
    void fillMenu();
    void addMenuItems(HMENU menu, const automation::Object& controls);

    /// Gives every open item a window, and takes the windows away whose items were closed.
    void followItems();

    Outlook& outlook_;
    automation::Object explorer_;
    RibbonMenus ribbon_{outlook_, explorer_};
    HWND list_ = nullptr;
    std::vector<HWND> buttons_;
    /// The items in the list, and the command bar controls in the menus.
    std::vector<automation::Object> inbox_;
    std::vector<automation::Object> menuControls_;
    std::vector<std::unique_ptr<ItemWindow>> items_;
};

}  // namespace host::windows
