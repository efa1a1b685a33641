#include "accounts/Rowset.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "platform/text.h"

namespace accounts::rowset {

namespace {

const std::wstring nothing;

const std::wstring* valueIn(const Rowset::Row& row, Column column) {
    const auto cell = std::ranges::lower_bound(row, column, {}, &Rowset::Cell::column);
    return cell != row.end() && cell->column == column ? &cell->value : nullptr;
}

}  // namespace

const std::wstring* Element::find(std::wstring_view attribute) const {
    const auto found = std::ranges::find(attributes, attribute, &Attribute::name);
    return found == attributes.end() ? nullptr : &found->value;
}

std::optional<Column> Rowset::column(std::wstring_view name) const {
    const auto found = std::ranges::find(frame_.columns, name, &ColumnNames::column);
    if (found == frame_.columns.end()) {
        return std::nullopt;
    }
    return static_cast<Column>(found - frame_.columns.begin());
}

const std::wstring& Rowset::value(std::size_t row, Column column) const {
    const std::wstring* value = valueIn(rows_.at(row), column);
    return value ? *value : nothing;
}

bool sameRows(const Rowset& left, const Rowset& right) {
    std::map<std::wstring_view, Column> byAttribute;
    for (const Rowset::ColumnNames& names : right.frame().columns) {
        byAttribute.emplace(names.attribute, static_cast<Column>(byAttribute.size()));
    }
    const auto isIn = [&](const Rowset::Row& row, const Rowset::Cell& cell) {
        const auto column = byAttribute.find(left.frame().columns[cell.column].attribute);
        const std::wstring* value = column == byAttribute.end() ? nullptr : valueIn(row, column->second);
        return value && *value == cell.value;
    };
    const auto sameRow = [&](const Rowset::Row& one, const Rowset::Row& other) {
        return one.size() == other.size() &&
               std::ranges::all_of(one, [&](const Rowset::Cell& cell) { return isIn(other, cell); });
    };
    return std::ranges::equal(left.rows(), right.rows(), sameRow);
}

void Rowset::sort(Column column) {
    const auto before = [column](const Row& left, const Row& right) {
        const std::wstring* leftValue = valueIn(left, column);
        const std::wstring* rightValue = valueIn(right, column);
        if (!leftValue || !rightValue) {
            return !leftValue && rightValue;
        }
        return std::ranges::lexicographical_compare(*leftValue, *rightValue, {}, text::upperCase,
                                                    text::upperCase);
    };
    if (!std::ranges::is_sorted(rows_, before)) {
        std::ranges::stable_sort(rows_, before);
    }
    current_ = 0;
}

bool Rowset::moveTo(std::size_t row) {
    if (row >= rows_.size()) {
        return false;
    }
    current_ = row;
    return true;
}

bool Rowset::findForward(Column column, std::wstring_view value) {
    for (; !atEnd(); ++current_) {
        const std::wstring* found = valueIn(rows_[current_], column);
        if (found && *found == value) {
            return true;
        }
    }
    return false;
}

void Rowset::add() {
    current_ = rows_.size();
    rows_.emplace_back();
}

void Rowset::set(Column column, std::wstring value) {
    Row& row = rows_.at(current_);
    const auto cell = std::ranges::lower_bound(row, column, {}, &Cell::column);
    if (cell != row.end() && cell->column == column) {
        cell->value = std::move(value);
    } else {
        row.insert(cell, {column, std::move(value)});
    }
}

void Rowset::remove() {
    rows_.erase(std::next(rows_.begin(), static_cast<std::ptrdiff_t>(current_)));
}

}  // namespace accounts::rowset
