#pragma once

#include <windows.h>

#include <exception>
#include <memory>
#include <vector>

#include "platform/forms.h"
#include "platform/windows/ControlWindow.h"

namespace platform::windows {

/// A form as a modal dialog of Windows. Lives for one showing.
class DialogWindow final : public forms::View {
  public:
    explicit DialogWindow(forms::Form& form);
    DialogWindow(const DialogWindow&) = delete;
    DialogWindow& operator=(const DialogWindow&) = delete;
    ~DialogWindow() override;

    /// Shows the form over `owner`, which may be null, until it is hidden. An exception that escapes a
    /// handler of the form closes it and comes out here. Throws automation::Error when Windows cannot make
    /// the dialog.
    void run(HWND owner);

    void refresh(const forms::Control& control) override;
    void captionChanged() override;
    void focus(const forms::Control& control) override;
    void close() override;

  private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK watchKeys(int code, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam);
    void initialise();
    void removeNames();
    void command(WORD id, WORD notification);
    void notify(const NMHDR& notification);
    void leaveTextBox();
    /// Null when the focus is on none, or with another program.
    const forms::Control* focusedControl() const;
    /// True when the key was one that turns to another page.
    bool turnPage(const MSG& key);
    /// Null for what is no control of the form, and while the notifications are answers to our own changes.
    ControlWindow* notifier(UINT_PTR id) const;
    ControlWindow& window(const forms::Control& control) const;
    void show(const forms::Control& control);
    void moveFocusFrom(HWND window);

    forms::Form& form_;
    /// What showed the form before, when a form opens itself anew.
    forms::View* outer_;
    HWND owner_ = nullptr;
    HWND dialog_ = nullptr;
    /// As the form's controls, while the dialog exists.
    std::vector<std::unique_ptr<ControlWindow>> windows_;
    /// Notifications that answer our own changes say nothing about the user.
    int changing_ = 0;
    std::exception_ptr failure_;
};

}  // namespace platform::windows
