#pragma once

#include <string>
#include <vector>

#include "platform/formLists.h"
#include "platform/windows/ControlWindow.h"
#include "platform/windows/listMessages.h"

namespace platform::windows {

/// What the windows of a list box and of a combo box have in common.
class ListWindow : public ControlWindow {
  public:
    void show() final;

  protected:
    ListWindow(forms::List& list, HWND window, const ListMessages& messages)
        : ControlWindow(window), list_(list), messages_(messages) {}

    /// The entries are others now.
    virtual void entriesChanged() = 0;
    /// The user's selection.
    void choose() { list_.choose(static_cast<int>(send(messages_.selected))); }
    const std::vector<std::wstring>& entries() const { return shown_; }

  private:
    void fill();

    forms::List& list_;
    const ListMessages& messages_;
    std::vector<std::wstring> shown_;
};

/// Entries too long for the box can be scrolled to.
class ListBoxWindow final : public ListWindow {
  public:
    ListBoxWindow(forms::ListBox& list, HWND window)
        : ListWindow(list, window, listBoxMessages), list_(list) {}
    void commanded(WORD notification) override;

  private:
    void entriesChanged() override;

    forms::ListBox& list_;
};

/// Drops down as far and as wide as its entries need.
class ComboBoxWindow final : public ListWindow {
  public:
    ComboBoxWindow(forms::ComboBox& list, HWND window);
    void commanded(WORD notification) override;

  private:
    void entriesChanged() override;
};

}  // namespace platform::windows
