#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Dialogs, described once and drawn by whichever world shows them. A form declares its controls as members
/// named after their role, in tab order, with captions and places in dialog units; it never knows whether it
/// is a Win32 dialog, a terminal or a test.
namespace forms {

enum class Kind { Label, TextBox, Button, CheckBox, OptionButton, ListBox, CheckList, ComboBox, Picture };

/// In dialog units of the form's font.
struct Place {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

/// True for text boxes and lists.
bool isFillable(Kind kind);

class Control;
class Form;

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
    Control(Form& form, std::wstring name, Kind kind, Place place, std::wstring caption);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::wstring& name() const { return name_; }
    Kind kind() const { return kind_; }
    Place place() const { return place_; }

    /// The text on the control; in it "&" stands before the access key, where the control has one.
    const std::wstring& caption() const { return caption_; }
    /// False where an "&" in the caption is a character like any other.
    virtual bool marksAccessKey() const { return false; }
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);
    bool visible() const { return visible_; }
    void setVisible(bool visible);
    /// Moves the keyboard here; before the form is shown, this is where it starts in place of the first
    /// control.
    void setFocus();

    /// What the control holds, as text: a text box its text, a check box "0", "1" or "2", an option "0" or
    /// "1", a list or combo box its selected entry, a check list the 1-based positions of its ticked rows
    /// joined by ","; "" for the rest.
    virtual std::wstring value() const { return {}; }
    /// Does what a user does who brings the control to `value` (for a button: presses it), and runs the
    /// handlers that go with it. False when the control cannot take that value.
    virtual bool enter(std::wstring_view value);

  protected:
    void setCaption(std::wstring caption);
    void changed();
    Form& form() const { return form_; }

  private:
    Form& form_;
    std::wstring name_;
    Kind kind_;
    Place place_;
    std::wstring caption_;
    bool enabled_ = true;
    bool visible_ = true;
};

class Label : public Control {
  public:
    Label(Form& form, std::wstring name, Place place, std::wstring caption = {})
        : Control(form, std::move(name), Kind::Label, place, std::move(caption)) {}

    /// Shows a text as it stands. Unlike the caption that a label is made with it has no access key:
    /// addresses and names of accounts may contain an "&".
    void setCaption(std::wstring caption);
    bool marksAccessKey() const override { return !showsData_; }

  private:
    bool showsData_ = false;
};

class TextBox : public Control {
  public:
    enum class Lines { One, Many };
    TextBox(Form& form, std::wstring name, Place place, Lines lines = Lines::One)
        : Control(form, std::move(name), Kind::TextBox, place, {}), lines_(lines) {}

    /// Lines are separated by CR LF.
    const std::wstring& text() const { return text_; }
    void setText(std::wstring text);
    bool multiline() const { return lines_ == Lines::Many; }
    bool readOnly() const { return readOnly_; }
    void setReadOnly(bool readOnly);

    std::function<void()> onChange;

    std::wstring value() const override { return text_; }
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
    Button(Form& form, std::wstring name, Place place, std::wstring caption, Role role = Role::Plain)
        : Control(form, std::move(name), Kind::Button, place, std::move(caption)), role_(role) {}

    Role role() const { return role_; }
    bool marksAccessKey() const override { return true; }
    void press();

    std::function<void()> onClick;

    bool enter(std::wstring_view value) override;

  private:
    Role role_;
};

class CheckBox : public Control {
  public:
    CheckBox(Form& form, std::wstring name, Place place, std::wstring caption)
        : Control(form, std::move(name), Kind::CheckBox, place, std::move(caption)) {}

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

/// One of several choices: all option buttons of a form exclude each other. To the keyboard they stand
/// together, in the tab order where the first of them is.
class OptionButton : public Control {
  public:
    OptionButton(Form& form, std::wstring name, Place place, std::wstring caption)
        : Control(form, std::move(name), Kind::OptionButton, place, std::move(caption)) {}

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

/// Entries of which one can be selected: a list box, or a drop-down list.
class List : public Control {
  public:
    static constexpr int none = -1;

    const std::vector<std::wstring>& items() const { return items_; }
    /// Replaces all entries, which are also the control's caption, a line each; nothing is selected
    /// afterwards.
    void setItems(std::vector<std::wstring> items);
    /// 0-based, or none.
    int selected() const { return selected_; }
    void select(int index);

    /// A choice by the user.
    std::function<void()> onChange;

    std::wstring value() const override;
    /// Selects the first entry of that text.
    bool enter(std::wstring_view value) override;
    /// As a user's choice, by position.
    bool choose(int index);

  protected:
    List(Form& form, std::wstring name, Kind kind, Place place)
        : Control(form, std::move(name), kind, place, {}) {}

  private:
    std::vector<std::wstring> items_;
    int selected_ = none;
};

class ListBox : public List {
  public:
    ListBox(Form& form, std::wstring name, Place place) : List(form, std::move(name), Kind::ListBox, place) {}
    /// A double click on the selected entry.
    std::function<void()> onDoubleClick;
};

/// The place is that of the closed box; it drops down as far as its entries need.
class ComboBox : public List {
  public:
    ComboBox(Form& form, std::wstring name, Place place)
        : List(form, std::move(name), Kind::ComboBox, place) {}
};

/// Rows with a box each to tick.
class CheckList : public Control {
  public:
    struct Row {
        std::wstring text;
        bool ticked = true;
    };

    CheckList(Form& form, std::wstring name, Place place)
        : Control(form, std::move(name), Kind::CheckList, place, {}) {}

    const std::vector<Row>& rows() const { return rows_; }
    /// The rows' texts are also the control's caption, a line each.
    void setRows(std::vector<Row> rows);
    void tickAll(bool ticked);
    /// As the user does, who ticks a row by mouse or space bar.
    void tick(std::size_t row, bool ticked);

    std::wstring value() const override;
    bool enter(std::wstring_view value) override;

    /// Which of `rows` rows a value such as "1,3" ticks; nothing when the value is not such a list.
    static std::optional<std::vector<bool>> parseTicks(std::wstring_view value, std::size_t rows);

  private:
    std::vector<Row> rows_;
};

/// The picture of a message-box icon, or of the resource library.
class Picture : public Control {
  public:
    enum class Image { Information, Warning, Question };
    Picture(Form& form, std::wstring name, Place place, Image image)
        : Control(form, std::move(name), Kind::Picture, place, {}), image_(image) {}

    Image image() const { return image_; }

  private:
    Image image_;
};

/// Base of every dialog. Shown by Desktop::showModal until hide().
class Form {
  public:
    Form(std::wstring name, std::wstring caption, int width, int height)
        : name_(std::move(name)), caption_(std::move(caption)), width_(width), height_(height) {}
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;
    virtual ~Form() = default;

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

    /// Ends the modal showing; the controls keep what they hold.
    void hide();
    /// The close box or Escape: presses the Cancel button, or hides a form that has none.
    virtual void closeBox();

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
};

}  // namespace forms
