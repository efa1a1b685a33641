#include "platform/forms.h"

#include <algorithm>
#include <utility>

namespace forms {

Control::Control(Form& form, std::wstring name, Kind kind, Place place, std::wstring caption)
    : form_(form), name_(std::move(name)), kind_(kind), place_(place), caption_(std::move(caption)) {
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

void Control::setVisible(bool visible) {
    visible_ = visible;
    changed();
}

void Control::setFocus() {
    if (View* view = form_.view()) {
        view->focus(*this);
    }
}

bool Control::enter(std::wstring_view) {
    return false;
}

void TextBox::setText(std::wstring text) {
    text_ = std::move(text);
    changed();
}

void TextBox::setReadOnly(bool readOnly) {
    readOnly_ = readOnly;
    changed();
}

bool TextBox::enter(std::wstring_view value) {
    if (readOnly_ || !enabled()) {
        return false;
    }
    text_ = value;
    if (onChange) {
        onChange();
    }
    return true;
}

void Button::press() {
    if (enabled() && visible() && onClick) {
        onClick();
    }
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
    if (state != state_) {  // A click on a box that is as wanted would turn it over.
        state_ = state;
        if (onClick) {
            onClick();
        }
    }
    return true;
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
