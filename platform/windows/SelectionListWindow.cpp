#include "platform/windows/SelectionListWindow.h"

#include <algorithm>
#include <iterator>

#include "platform/windows/listBoxEntries.h"
#include "platform/windows/listMessages.h"

namespace platform::windows {

void SelectionListWindow::show() {
    const auto& rows = list_.rows();
    if (!std::ranges::equal(rows, shown_, {}, &forms::MarkedList::Row::text)) {
        shown_.clear();
        std::ranges::transform(rows, std::back_inserter(shown_), &forms::MarkedList::Row::text);
        fillList(handle(), listBoxMessages, shown_);
        fitScrolling(handle(), shown_);
    }
    for (WPARAM index = 0; const forms::MarkedList::Row& row : rows) {
        if ((send(LB_GETSEL, index) > 0) != row.marked) {
            send(LB_SETSEL, row.marked, static_cast<LPARAM>(index));
        }
        ++index;
    }
}

void SelectionListWindow::commanded(WORD notification) {
    if (notification != LBN_SELCHANGE) {
        return;
    }
    std::vector<bool> selected;
    for (std::size_t index = 0; index < shown_.size(); ++index) {
        selected.push_back(send(LB_GETSEL, index) > 0);
    }
    list_.markExactly(selected);
}

}  // namespace platform::windows
