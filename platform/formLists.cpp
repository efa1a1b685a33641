#include "platform/formLists.h"

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
    if (!turnedTo()) {
        return true;
    }
    selected_ = index;
    if (onChange) {
        onChange();
    }
    return true;
}

void MarkedList::setRows(std::vector<Row> rows) {
    rows_ = std::move(rows);
    setCaption(lines(rows_, &Row::text));
}

void MarkedList::markAll(bool marked) {
    for (Row& row : rows_) {
        row.marked = marked;
    }
    changed();
}

void MarkedList::mark(std::size_t row, bool marked) {
    if (row < rows_.size() && turnedTo()) {
        rows_[row].marked = marked;
    } else {
        changed();  // The window has marked it by itself.
    }
}

bool MarkedList::anyMarked() const {
    return std::ranges::any_of(rows_, &Row::marked);
}

std::wstring MarkedList::value() const {
    std::wstring positions;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (rows_[row].marked) {
            positions += (positions.empty() ? L"" : L",") + std::to_wstring(row + 1);
        }
    }
    return positions;
}

void MarkedList::markExactly(const std::vector<bool>& marks) {
    if (marks.size() == rows_.size() && turnedTo()) {
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            rows_[row].marked = marks[row];
        }
    }
    changed();
}

bool MarkedList::enter(std::wstring_view value) {
    const auto marks = parseMarks(value, rows_.size());
    if (!enabled() || !marks) {
        return false;
    }
    markExactly(*marks);
    return true;
}

std::optional<std::vector<bool>> MarkedList::parseMarks(std::wstring_view value, std::size_t rows) {
    std::vector<bool> marks(rows);
    for (const std::wstring_view position : text::split(value, L',')) {
        const auto number = number::parse(position);
        if (!number || *number < 1 || *number > static_cast<double>(rows) || *number != std::floor(*number)) {
            return std::nullopt;
        }
        marks[static_cast<std::size_t>(*number) - 1] = true;
    }
    return marks;
}

}  // namespace forms
