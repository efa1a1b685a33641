#pragma once

#include <windows.h>

#include <array>
#include <functional>
#include <string>

#include "host/Outlook.h"
#include "host/windows/OwnedWindow.h"
#include "host/windows/RibbonMenus.h"

namespace host::windows {

/// The window of an open item: its fields, the buttons to send or to answer it, and what its ribbon holds.
class ItemWindow : public OwnedWindow {
  public:
    /// `itemsChanged` is called when items may have been opened, sent or closed; not while this window's own
    /// members run any more.
    ItemWindow(Outlook& outlook, automation::Object inspector, std::function<void()> itemsChanged);

    const automation::Object& inspector() const { return inspector_; }

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    /// A field of the item by its member's name, and what it held when it was last read.
    struct Field {
        const wchar_t* member;
        HWND label = nullptr;
        HWND edit = nullptr;
        std::wstring shown{};
    };

    void makeControls();
    void layOut();
    /// Shows the item's fields; an add-in may have changed them.
    void load();
    /// Writes what was typed to the item.
    void store();
    void showAttachments();
    void command(int id);
    void send();
    void attach();
    void answer(ReplyKind kind);
    bool isOpen() const;

    Outlook& outlook_;
    automation::Object inspector_;
    automation::Object item_;
    RibbonMenus ribbon_{outlook_, inspector_};
    std::function<void()> itemsChanged_;
    bool received_ = false;
    std::array<Field, 5> fields_{{{L"To"}, {L"CC"}, {L"BCC"}, {L"Subject"}, {L"Body"}}};
    std::array<HWND, 3> buttons_{};
    HWND attachments_ = nullptr;
};

}  // namespace host::windows
