#include "platform/forms.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <utility>

#include "platform/number.h"
#include "platform/text.h"

namespace forms {

namespace {

/// The rows' texts, a line each.
template <class Rows, class Text>
std::wstring lines(const Rows& rows, Text text) {
    std::wstring result;
    for (bool first = true; const auto& row : rows) {
        result += first ? L"" : L"\n";
        result += std::invoke(text, row);
        first = false;
    }
    return result;
}

}  // namespace

bool isFillable(Kind kind) {
    return kind == Kind::TextBox || kind == Kind::ListBox || kind == Kind::ComboBox ||
           kind == Kind::CheckList;
}

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

void OptionButton::select() {
    for (Control* control : form().controls()) {
        auto* option = dynamic_cast<OptionButton*>(control);
        if (option && option->selected_ != (option == this)) {
            option->selected_ = option == this;
            option->changed();
        }
    }
}

bool OptionButton::enter(std::wstring_view value) {
    if (!enabled() || value != L"1") {
        return false;
    }
    if (!selected_) {
        select();
        if (onClick) {
            onClick();
        }
    }
    return true;
}

void List::setItems(std::vector<std::wstring> items) {
    items_ = std::move(items);
    selected_ = none;
    setCaption(lines(items_, [](const std::wstring& item) { return item; }));
}

void List::select(int index) {
    selected_ = index >= 0 && index < static_cast<int>(items_.size()) ? index : none;
    changed();
}

std::wstring List::value() const {
    return selected_ == none ? std::wstring() : items_[static_cast<std::size_t>(selected_)];
}

bool List::enter(std::wstring_view value) {
    const auto found = std::ranges::find(items_, value);
    return found != items_.end() && choose(static_cast<int>(found - items_.begin()));
}

bool List::choose(int index) {
    if (!enabled() || index < 0 || index >= static_cast<int>(items_.size())) {
        return false;
    }
    selected_ = index;
    if (onChange) {
        onChange();
    }
    return true;
}

void CheckList::setRows(std::vector<Row> rows) {
    rows_ = std::move(rows);
    setCaption(lines(rows_, &Row::text));
}

void CheckList::tickAll(bool ticked) {
    for (Row& row : rows_) {
        row.ticked = ticked;
    }
    changed();
}

void CheckList::tick(std::size_t row, bool ticked) {
    if (row < rows_.size()) {
        rows_[row].ticked = ticked;
    }
}

std::wstring CheckList::value() const {
    std::wstring positions;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].ticked) {
            positions += (positions.empty() ? L"" : L",") + std::to_wstring(row + 1);
        }
    }
    return positions;
}

bool CheckList::enter(std::wstring_view value) {
    const auto ticks = parseTicks(value, rows_.size());
    if (!enabled() || !ticks) {
        return false;
    }
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        rows_[row].ticked = (*ticks)[row];
    }
    changed();
    return true;
}

std::optional<std::vector<bool>> CheckList::parseTicks(std::wstring_view value, std::size_t rows) {
    std::vector<bool> ticks(rows);
    for (const std::wstring_view position : text::split(value, L',')) {
        const auto number = number::parse(position);
        if (!number || *number < 1 || *number > static_cast<double>(rows) || *number != std::floor(*number)) {
            return std::nullopt;
        }
        ticks[static_cast<std::size_t>(*number) - 1] = true;
    }
    return ticks;
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
