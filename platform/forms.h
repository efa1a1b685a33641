#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {
class Picture;
}

/// Dialogs, described once and drawn by whichever world shows them. A form declares its controls as members
/// named after their role, in tab order, with captions and places in dialog units; it never knows whether it
/// is a Win32 dialog, a terminal or a test.
namespace forms {

enum class Kind {
    Label,
    Link,
    TextBox,
    Button,
    CheckBox,
    OptionButton,
    ListBox,
    SelectionList,
    CheckList,
    ComboBox,
    Picture,
    Frame,
    TabStrip
};

/// In dialog units of the form's font.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// True for text boxes and lists.
bool isFillable(Kind kind);
/// True for buttons and links.
bool isPressed(Kind kind);

class Control;
class Form;
class Frame;

/// What controls are made in: a form, or a frame of one.
class Container {
  public:
    virtual Form& form() = 0;
    /// Null for the form itself.
    virtual const Frame* asFrame() const { return nullptr; }

  protected:
    Container() = default;
    Container(const Container&) = delete;
    Container& operator=(const Container&) = delete;
    ~Container() = default;
};

/// What shows a form while it is open. Told of every change that code makes to a control.
class View {
  public:
    virtual ~View() = default;
    virtual void refresh(const Control& control) = 0;
    virtual void captionChanged() = 0;
    virtual void focus(const Control& control) = 0;
    /// The form was hidden: end the modal loop.
    virtual void close() = 0;
};

/// One control of a form. Made as a member of its form, it enlists itself; the order of making is the tab
/// order. The name is the one by which tests and scripts address it.
class Control {
  public:
    Control(Container& container, std::wstring name, Kind kind, Place place, std::wstring caption);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::wstring& name() const { return name_; }
    Kind kind() const { return kind_; }
    /// On the form, inside of a frame too.
    Place place() const { return place_; }
    /// The innermost that it stands in; null on the form itself.
    const Frame* frame() const { return frame_; }

    /// The text on the control; in it "&" stands before the access key, where the control has one.
    const std::wstring& caption() const { return caption_; }
    /// False where an "&" in the caption is a character like any other.
    virtual bool marksAccessKey() const { return false; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// False in a frame that is not visible, too.
    bool visible() const;
    void setVisible(bool visible);
    /// True when it stands in the frame, or in one inside of that.
    bool isIn(const Frame& frame) const;
    /// Moves the keyboard here; before the form is shown, this is where it starts in place of the first
    /// control.
    void setFocus();

    /// What the control holds, as text: a text box its text, a check box "0", "1" or "2", an option "0" or
    /// "1", a list or combo box its selected entry, a list of marked rows their 1-based positions joined by
    /// ",", a tab strip the caption of its page; "" for the rest.
    virtual std::wstring value() const { return {}; }
    /// Does what a user does who brings the control to `value` (for a button: presses it), and runs the
    /// handlers that go with it. False when the control cannot take that value. What the user is about to do
    /// when a text box complains of being left is not done, which is no reason to answer false.
    virtual bool enter(std::wstring_view value);

    Form& form() const { return form_; }

  protected:
    void setCaption(std::wstring caption);
    virtual void changed();
    /// The user turns to this control. False when the text box with the keyboard complained.
    bool turnedTo();

  private:
    Form& form_;
    const Frame* frame_;
    std::wstring name_;
    Kind kind_;
    Place place_;
    std::wstring caption_;
    bool enabled_ = true;
    bool visible_ = true;
};

class Label : public Control {
  public:
    enum class Look { Plain, Heading };
    Label(Container& container, std::wstring name, Place place, std::wstring caption = {},
          Look look = Look::Plain)
        : Control(container, std::move(name), Kind::Label, place, std::move(caption)), look_(look) {}

    Look look() const { return look_; }

    /// Shows a text as it stands. Unlike the caption that a label is made with it has no access key:
    /// addresses and names of accounts may contain an "&".
    void setCaption(std::wstring caption);
    bool marksAccessKey() const override { return !showsData_; }

  private:
    Look look_;
    bool showsData_ = false;
};

class TextBox : public Control {
  public:
    /// A hidden line is a password: nobody sees it, and no report tells it.
    enum class Lines { One, Many, Hidden };
    TextBox(Container& container, std::wstring name, Place place, Lines lines = Lines::One)
        : Control(container, std::move(name), Kind::TextBox, place, {}), lines_(lines) {}

    /// Lines are separated by CR LF.
    const std::wstring& text() const { return text_; }
    void setText(std::wstring text);
    Lines lines() const { return lines_; }
    bool readOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly);

    std::function<void()> onChange;
    /// The user goes on to another control, the Cancel button excepted. False when the box complained: what
    /// the user has left it for is then not done. Where the box is to be corrected first it takes the
    /// keyboard back itself.
    std::function<bool()> onLeave;

    /// Of a password only its length, in stars.
    std::wstring value() const override;
    bool enter(std::wstring_view value) override;

  private:
    Lines lines_;
    bool readOnly_ = false;
    std::wstring text_;
};

class Button : public Control {
  public:
    /// Default is pressed by Enter, Cancel by Escape and by the close box.
    enum class Role { Plain, Default, Cancel };
    Button(Container& container, std::wstring name, Place place, std::wstring caption,
           Role role = Role::Plain)
        : Control(container, std::move(name), Kind::Button, place, std::move(caption)), role_(role) {}

    Role role() const { return role_; }
    bool marksAccessKey() const override { return true; }
    void press();

    std::function<void()> onClick;

    bool enter(std::wstring_view value) override;

  private:
    Role role_;
};

/// A text that opens something when it is clicked. It has no access key.
class Link : public Control {
  public:
    Link(Container& container, std::wstring name, Place place, std::wstring caption)
        : Control(container, std::move(name), Kind::Link, place, std::move(caption)) {}

    void press();

    std::function<void()> onClick;

    bool enter(std::wstring_view value) override;
};

class CheckBox : public Control {
  public:
    CheckBox(Container& container, std::wstring name, Place place, std::wstring caption)
        : Control(container, std::move(name), Kind::CheckBox, place, std::move(caption)) {}

    bool marksAccessKey() const override { return true; }
    /// 0 unticked, 1 ticked, 2 greyed.
    int state() const { return state_; }
    bool ticked() const { return state_ == 1; }
    void setState(int state);

    std::function<void()> onClick;

    std::wstring value() const override { return std::to_wstring(state_); }
    bool enter(std::wstring_view value) override;

  private:
    int state_ = 0;
};

/// One of several choices: the option buttons of a frame, or those of the form itself, exclude each other. To
/// the keyboard they stand together, in the tab order where the first of them is.
class OptionButton : public Control {
  public:
    OptionButton(Container& container, std::wstring name, Place place, std::wstring caption)
        : Control(container, std::move(name), Kind::OptionButton, place, std::move(caption)) {}

    bool marksAccessKey() const override { return true; }
    bool selected() const { return selected_; }
    /// Selects this one and no other.
    void select();

    std::function<void()> onClick;

    std::wstring value() const override { return selected_ ? L"1" : L"0"; }
    /// Takes "1" alone: an option is left by choosing another. Nothing happens when it is selected already.
    bool enter(std::wstring_view value) override;

  private:
    bool selected_ = false;
};

/// The picture of a message-box icon, or of the resource library.
class Picture : public Control {
  public:
    enum class Image { Given, Information, Warning, Question };
    Picture(Container& container, std::wstring name, Place place, Image image)
        : Control(container, std::move(name), Kind::Picture, place, {}), image_(image) {}

    Image image() const { return image_; }
    /// The bitmap of one whose image is Given; null before.
    const std::shared_ptr<platform::Picture>& bitmap() const { return bitmap_; }
    void setBitmap(std::shared_ptr<platform::Picture> bitmap);

  private:
    Image image_;
    std::shared_ptr<platform::Picture> bitmap_;
};

/// Base of every dialog. Shown by Desktop::showModal until hide().
class Form : public Container {
  public:
    Form(std::wstring name, std::wstring caption, int width, int height)
        : name_(std::move(name)), caption_(std::move(caption)), width_(width), height_(height) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

    Form& form() final { return *this; }

    const std::wstring& name() const { return name_; }
    const std::wstring& caption() const { return caption_; }
    void setCaption(std::wstring caption);
    /// Size of the client area in dialog units.
    int width() const { return width_; }
    int height() const { return height_; }

    /// In tab order.
    const std::vector<Control*>& controls() const { return controls_; }
    Control* find(std::wstring_view controlName) const;
    Button* button(Button::Role role) const;
    /// Where the keyboard starts; nothing: at the first control.
    const Control* firstFocus() const { return firstFocus_; }

    /// True of a form that is shown while something else is going on, which hides it at its end: it needs no
    /// answer of the user's.
    virtual bool waits() const { return false; }

    /// Ends the modal showing; the controls keep what they hold.
    void hide();
    /// The close box or Escape: presses the Cancel button, or hides a form that has none.
    virtual void closeBox();

    /// The control has the keyboard now. Told by the world that shows the form.
    void focused(const Control& control);
    /// The user turns to another control: ends the work in the text box that had the keyboard. False when
    /// the box complained.
    bool leaveFor(const Control& next);

    bool shown() const { return view_ != nullptr; }
    /// For the world that shows the form; null again once it is closed.
    void setView(View* view);
    View* view() const { return view_; }

  private:
    friend class Control;

    std::wstring name_;
    std::wstring caption_;
    int width_;
    int height_;
    std::vector<Control*> controls_;
    View* view_ = nullptr;
    const Control* firstFocus_ = nullptr;
    /// The text box that has the keyboard.
    const TextBox* edited_ = nullptr;
};

}  // namespace forms
