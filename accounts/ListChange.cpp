#include "accounts/ListChange.h"

#include <cstddef>
#include <utility>

namespace accounts {

namespace {

std::optional<std::size_t> rowOf(const AccountRows& list, const AccountEntry& entry) {
    for (std::size_t row = 0; row < list.count(); ++row) {
        if (list.holds(row, entry)) {
            return row;
        }
    }
    return std::nullopt;
}

std::size_t countOf(const AccountRows& list, const AccountEntry& entry) {
    std::size_t count = 0;
    for (std::size_t row = 0; row < list.count(); ++row) {
        count += list.holds(row, entry) ? 1 : 0;
    }
    return count;
}

}  // namespace

ListChange ListChange::addition(AccountEntry entry) {
    ListChange change;
    change.to_ = std::move(entry);
    return change;
}

ListChange ListChange::replacement(const AccountRows& list, AccountEntry entry) {
    ListChange change = removal(list);
    change.to_ = std::move(entry);
    return change;
}

ListChange ListChange::removal(const AccountRows& list) {
    ListChange change;
    change.from_ = {list.address(list.position()), list.account(list.position())};
    return change;
}

bool ListChange::applyTo(AccountRows& list) const {
    if (from_) {
        const auto row = rowOf(list, *from_);
        if (!row) {
            return false;
        }
        list.moveTo(*row);
    } else {
        list.add();
    }
    if (to_) {
        list.set(*to_);
    } else {
        list.remove();
    }
    return true;
}

bool ListChange::isIn(const AccountRows& stored, const AccountRows& written) const {
    const bool arrived = !to_ || countOf(stored, *to_) >= countOf(written, *to_);
    const bool gone = !from_ || from_ == to_ || countOf(stored, *from_) <= countOf(written, *from_);
    return arrived && gone;
}

}  // namespace accounts
