#include "platform/windows/ControlWindow.h"

#include <string>

#include "platform/windows/CheckListWindow.h"
#include "platform/windows/ListWindow.h"
#include "platform/windows/windowText.h"

namespace platform::windows {

namespace {

/// Sets whether a radio button that gets the focus counts as clicked; known to Windows from Vista on.
constexpr UINT setDontClick = 0x00F8;

/// Changes a text only where it differs: setting the same text again would move the caret.
void setText(HWND window, const std::wstring& text) {
    if (windowText(window) != text) {
        SetWindowTextW(window, text.c_str());
    }
}

class LabelWindow final : public ControlWindow {
  public:
    LabelWindow(forms::Label& label, HWND window) : ControlWindow(window), label_(label) {}
    void show() override {
        const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE) & ~LONG_PTR{SS_NOPREFIX};
        SetWindowLongPtrW(handle(), GWL_STYLE, style | (label_.marksAccessKey() ? 0 : SS_NOPREFIX));
        setText(handle(), label_.caption());
    }

  private:
    forms::Label& label_;
};

class TextBoxWindow final : public ControlWindow {
  public:
    TextBoxWindow(forms::TextBox& box, HWND window) : ControlWindow(window), box_(box) {
        send(EM_SETLIMITTEXT);  // As much as Windows can.
    }
    void show() override {
        setText(handle(), box_.text());
        send(EM_SETREADONLY, box_.readOnly());
    }
    void commanded(WORD notification) override {
        if (notification == EN_CHANGE) {
            box_.enter(windowText(handle()));
        }
    }

  private:
    forms::TextBox& box_;
};

class ButtonWindow final : public ControlWindow {
  public:
    ButtonWindow(forms::Button& button, HWND window) : ControlWindow(window), button_(button) {}
    void show() override { setText(handle(), button_.caption()); }
    void commanded(WORD notification) override {
        if (notification == BN_CLICKED) {
            button_.press();
        }
    }

  private:
    forms::Button& button_;
};

class CheckBoxWindow final : public ControlWindow {
  public:
    CheckBoxWindow(forms::CheckBox& box, HWND window) : ControlWindow(window), box_(box) {}
    void show() override {
        setText(handle(), box_.caption());
        if (send(BM_GETCHECK) != box_.state()) {
            send(BM_SETCHECK, static_cast<WPARAM>(box_.state()));
        }
    }
    void commanded(WORD notification) override {
        if (notification == BN_CLICKED) {
            // As for a person's click: unticked becomes ticked, everything else unticked.
            box_.enter(box_.state() == 0 ? L"1" : L"0");
            show();  // Windows itself ticks nothing.
        }
    }

  private:
    forms::CheckBox& box_;
};

class OptionButtonWindow final : public ControlWindow {
  public:
    OptionButtonWindow(forms::OptionButton& option, HWND window) : ControlWindow(window), option_(option) {
        send(setDontClick, TRUE);  // The Tab key must be able to pass by a group without a choice.
    }
    void show() override {
        setText(handle(), option_.caption());
        // Windows moves the group's tab stop with the tick.
        if (send(BM_GETCHECK) != (option_.selected() ? BST_CHECKED : BST_UNCHECKED)) {
            send(BM_SETCHECK, option_.selected() ? BST_CHECKED : BST_UNCHECKED);
        }
    }
    void commanded(WORD notification) override {
        if (notification == BN_CLICKED) {
            option_.enter(L"1");
        }
    }

  private:
    forms::OptionButton& option_;
};

class PictureWindow final : public ControlWindow {
  public:
    PictureWindow(forms::Picture& picture, HWND window) : ControlWindow(window), picture_(picture) {}
    void show() override { send(STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, systemIcon()))); }

  private:
    const wchar_t* systemIcon() const {
        switch (picture_.image()) {
            case forms::Picture::Image::Warning:
                return IDI_WARNING;
            case forms::Picture::Image::Question:
                return IDI_QUESTION;
            case forms::Picture::Image::Information:
                break;
        }
        return IDI_INFORMATION;
    }

    forms::Picture& picture_;
};

}  // namespace

std::unique_ptr<ControlWindow> ControlWindow::make(forms::Control& control, HWND window) {
    switch (control.kind()) {
        case forms::Kind::Label:
            return std::make_unique<LabelWindow>(static_cast<forms::Label&>(control), window);
        case forms::Kind::TextBox:
            return std::make_unique<TextBoxWindow>(static_cast<forms::TextBox&>(control), window);
        case forms::Kind::Button:
            return std::make_unique<ButtonWindow>(static_cast<forms::Button&>(control), window);
        case forms::Kind::CheckBox:
            return std::make_unique<CheckBoxWindow>(static_cast<forms::CheckBox&>(control), window);
        case forms::Kind::OptionButton:
            return std::make_unique<OptionButtonWindow>(static_cast<forms::OptionButton&>(control), window);
        case forms::Kind::ListBox:
            return std::make_unique<ListBoxWindow>(static_cast<forms::ListBox&>(control), window);
        case forms::Kind::ComboBox:
            return std::make_unique<ComboBoxWindow>(static_cast<forms::ComboBox&>(control), window);
        case forms::Kind::CheckList:
            return std::make_unique<CheckListWindow>(static_cast<forms::CheckList&>(control), window);
        case forms::Kind::Picture:
            break;
    }
    return std::make_unique<PictureWindow>(static_cast<forms::Picture&>(control), window);
}

}  // namespace platform::windows
