#include "platform/windows/ControlWindow.h"

#include <commctrl.h>

#include <optional>
#include <string>

#include "platform/formPages.h"
#include "platform/windows/CheckListWindow.h"
#include "platform/windows/ListWindow.h"
#include "platform/windows/SelectionListWindow.h"
#include "platform/windows/TabStripWindow.h"
#include "platform/windows/WindowsPicture.h"
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

/// A font of the same size as the window's, but bold.
class BoldFont {
  public:
    explicit BoldFont(HWND window) {
        LOGFONTW description{};
        const auto own = reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0));
        if (GetObjectW(own, sizeof description, &description) != 0) {
            description.lfWeight = FW_BOLD;
            font_ = CreateFontIndirectW(&description);
        }
        SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_ ? font_ : own), FALSE);
    }
    BoldFont(const BoldFont&) = delete;
    BoldFont& operator=(const BoldFont&) = delete;
    ~BoldFont() {
        if (font_) {
            DeleteObject(font_);
        }
    }

  private:
    HFONT font_ = nullptr;
};

class LabelWindow final : public ControlWindow {
  public:
    LabelWindow(forms::Label& label, HWND window) : ControlWindow(window), label_(label) {
        if (label.look() == forms::Label::Look::Heading) {
            font_.emplace(window);
        }
    }
    void show() override {
        const LONG_PTR style = GetWindowLongPtrW(handle(), GWL_STYLE) & ~LONG_PTR{SS_NOPREFIX};
        SetWindowLongPtrW(handle(), GWL_STYLE, style | (label_.marksAccessKey() ? 0 : SS_NOPREFIX));
        setText(handle(), label_.caption());
    }

  private:
    forms::Label& label_;
    std::optional<BoldFont> font_;
};

class FrameWindow final : public ControlWindow {
  public:
    FrameWindow(forms::Frame& frame, HWND window) : ControlWindow(window), frame_(frame) {}
    void show() override { setText(handle(), frame_.caption()); }

  private:
    forms::Frame& frame_;
};

class LinkWindow final : public ControlWindow {
  public:
    LinkWindow(forms::Link& link, HWND window) : ControlWindow(window), link_(link) {}
    void show() override { setText(handle(), L"<a>" + link_.caption() + L"</a>"); }
    void notified(const NMHDR& notification) override {
        if (notification.code == static_cast<UINT>(NM_CLICK) ||
            notification.code == static_cast<UINT>(NM_RETURN)) {
            link_.press();
        }
    }

  private:
    forms::Link& link_;
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
        } else if (notification == EN_SETFOCUS) {
            box_.form().focused(box_);
        } else if (notification == EN_KILLFOCUS) {
            // Later: a message box from inside of a change of the focus would spoil it.
            PostMessageW(GetParent(handle()), focusLeft, 0, 0);
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
            if (!option_.selected()) {
                showOthers();  // Windows has moved the tick by itself.
            }
        }
    }

  private:
    void showOthers() const {
        for (const forms::Control* control : option_.form().controls()) {
            if (control->kind() == forms::Kind::OptionButton) {
                option_.form().view()->refresh(*control);
            }
        }
    }

    forms::OptionButton& option_;
};

class PictureWindow final : public ControlWindow {
  public:
    PictureWindow(forms::Picture& picture, HWND window) : ControlWindow(window), picture_(picture) {}
    void show() override {
        if (picture_.image() == forms::Picture::Image::Given) {
            send(STM_SETIMAGE, IMAGE_BITMAP, reinterpret_cast<LPARAM>(bitmap()));
        } else {
            send(STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, systemIcon())));
        }
    }

  private:
    /// Stays the picture's; null for a picture of another kind.
    HBITMAP bitmap() const {
        const auto* const given = dynamic_cast<const WindowsPicture*>(picture_.bitmap().get());
        OLE_HANDLE handle = 0;
        if (!given || given->kind() != PictureKind::Bitmap || FAILED(given->picture()->get_Handle(&handle))) {
            return nullptr;
        }
        return reinterpret_cast<HBITMAP>(static_cast<ULONG_PTR>(handle));
    }

    const wchar_t* systemIcon() const {
        switch (picture_.image()) {
            case forms::Picture::Image::Warning:
                return IDI_WARNING;
            case forms::Picture::Image::Question:
                return IDI_QUESTION;
            case forms::Picture::Image::Information:
            case forms::Picture::Image::Given:
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
        case forms::Kind::Link:
            return std::make_unique<LinkWindow>(static_cast<forms::Link&>(control), window);
        case forms::Kind::Frame:
            return std::make_unique<FrameWindow>(static_cast<forms::Frame&>(control), window);
        case forms::Kind::TabStrip:
            return std::make_unique<TabStripWindow>(static_cast<forms::TabStrip&>(control), window);
        case forms::Kind::SelectionList:
            return std::make_unique<SelectionListWindow>(static_cast<forms::SelectionList&>(control), window);
        case forms::Kind::Picture:
            break;
    }
    return std::make_unique<PictureWindow>(static_cast<forms::Picture&>(control), window);
}

}  // namespace platform::windows
