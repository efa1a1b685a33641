#include "platform/forms.h"

#include <algorithm>
#include <utility>

#include "platform/formPages.h"

namespace forms {

bool isFillable(Kind kind) {
    return kind == Kind::TextBox || kind == Kind::ListBox || kind == Kind::ComboBox ||
           kind == Kind::CheckList || kind == Kind::SelectionList;
}

bool isPressed(Kind kind) {
    return kind == Kind::Button || kind == Kind::Link;
}

Control::Control(Container& container, std::wstring name, Kind kind, Place place, std::wstring caption)
    : form_(container.form()),
      frame_(container.asFrame()),
      name_(std::move(name)),
      kind_(kind),
      place_(place),
      caption_(std::move(caption)) {
    form_.controls_.push_back(this);
}

void Control::changed() {
    if (View* view = form_.view()) {
        view->refresh(*this);
    }
}

void Control::setCaption(std::wstring caption) {
    caption_ = std::move(caption);
    changed();
}

void Control::setEnabled(bool enabled) {
    enabled_ = enabled;
    changed();
}

bool Control::visible() const {
    return visible_ && (!frame_ || frame_->visible());
}

void Control::setVisible(bool visible) {
    visible_ = visible;
    changed();
}

bool Control::isIn(const Frame& frame) const {
    return frame_ && (frame_ == &frame || frame_->isIn(frame));
}

bool Control::turnedTo() {
    return form_.leaveFor(*this);
}

void Control::setFocus() {
    if (View* view = form_.view()) {
        view->focus(*this);
    } else {
        form_.firstFocus_ = this;
    }
}

bool Control::enter(std::wstring_view) {
    return false;
}

void Label::setCaption(std::wstring caption) {
    showsData_ = true;
    Control::setCaption(std::move(caption));
}

void TextBox::setText(std::wstring text) {
    text_ = std::move(text);
    changed();
}

void TextBox::setReadOnly(bool readOnly) {
    readOnly_ = readOnly;
    changed();
}

std::wstring TextBox::value() const {
    return lines_ == Lines::Hidden ? std::wstring(text_.size(), L'*') : text_;
}

bool TextBox::enter(std::wstring_view value) {
    if (readOnly_ || !enabled()) {
        return false;
    }
    if (!turnedTo()) {
        return true;
    }
    form().focused(*this);
    text_ = value;
    if (onChange) {
        onChange();
    }
    return true;
}

void Button::press() {
    if (enabled() && visible() && turnedTo() && onClick) {
        onClick();
    }
}

void Link::press() {
    if (enabled() && visible() && turnedTo() && onClick) {
        onClick();
    }
}

bool Link::enter(std::wstring_view) {
    press();
    return enabled() && visible();
}

bool Button::enter(std::wstring_view) {
    press();
    return enabled() && visible();
}

void CheckBox::setState(int state) {
    state_ = state;
    changed();
}

bool CheckBox::enter(std::wstring_view value) {
    if (!enabled() || (value != L"0" && value != L"1")) {
        return false;
    }
    const int state = value == L"1" ? 1 : 0;
    if (state != state_ && turnedTo()) {  // A click on a box that is as wanted would turn it over.
        state_ = state;
        if (onClick) {
            onClick();
        }
    }
    return true;
}

void OptionButton::select() {
    for (Control* control : form().controls()) {
        auto* option = dynamic_cast<OptionButton*>(control);
        if (option && option->frame() == frame() && option->selected_ != (option == this)) {
            option->selected_ = option == this;
            option->changed();
        }
    }
}

bool OptionButton::enter(std::wstring_view value) {
    if (!enabled() || value != L"1") {
        return false;
    }
    if (!selected_ && turnedTo()) {
        select();
        if (onClick) {
            onClick();
        }
    }
    return true;
}

void Picture::setBitmap(std::shared_ptr<platform::Picture> bitmap) {
    bitmap_ = std::move(bitmap);
    changed();
}

void Form::setCaption(std::wstring caption) {
    caption_ = std::move(caption);
    if (view_) {
        view_->captionChanged();
    }
}

Control* Form::find(std::wstring_view controlName) const {
    const auto found = std::ranges::find(controls_, controlName, &Control::name);
    return found == controls_.end() ? nullptr : *found;
}

Button* Form::button(Button::Role role) const {
    for (Control* control : controls_) {
        auto* candidate = dynamic_cast<Button*>(control);
        if (candidate && candidate->role() == role) {
            return candidate;
        }
    }
    return nullptr;
}

void Form::focused(const Control& control) {
    edited_ = dynamic_cast<const TextBox*>(&control);
}

bool Form::leaveFor(const Control& next) {
    const auto* const pressed = dynamic_cast<const Button*>(&next);
    const bool dismisses = pressed && pressed->role() == Button::Role::Cancel;
    if (!edited_ || edited_ == &next || dismisses) {
        return true;
    }
    const TextBox& left = *std::exchange(edited_, nullptr);
    return !left.onLeave || left.onLeave();
}

void Form::hide() {
    if (view_) {
        view_->close();
    }
}

void Form::setView(View* view) {
    view_ = view;
}

void Form::closeBox() {
    if (Button* cancel = button(Button::Role::Cancel)) {
        cancel->press();
    } else {
        hide();
    }
}

}  // namespace forms
