#include "platform/windows/CheckListWindow.h"

#include <algorithm>

#include "platform/windows/checkListState.h"

namespace platform::windows {

CheckListWindow::CheckListWindow(forms::CheckList& list, HWND window) : ControlWindow(window), list_(list) {
    constexpr DWORD style = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT;
    send(LVM_SETEXTENDEDLISTVIEWSTYLE, style, style);
    LVCOLUMNW column{};
    send(LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    fitColumn();
}

void CheckListWindow::show() {
    if (!showsTexts()) {
        fill();
    }
    showTicks();
}

bool CheckListWindow::showsTexts() const {
    return std::ranges::equal(list_.rows(), shown_, {}, &forms::MarkedList::Row::text);
}

void CheckListWindow::fill() {
    shown_.clear();
    {
        const DrawingHeld held(handle());
        send(LVM_DELETEALLITEMS);
        send(LVM_SETITEMCOUNT, list_.rows().size());
        for (const forms::MarkedList::Row& row : list_.rows()) {
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(shown_.size());
            item.pszText = const_cast<wchar_t*>(row.text.c_str());  // Only read.
            send(LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
            shown_.push_back(row.text);
        }
    }
    fitColumn();
    if (!shown_.empty()) {  // The space bar finds a row at once.
        setRowState(handle(), 0, LVIS_FOCUSED | LVIS_SELECTED, LVIS_FOCUSED | LVIS_SELECTED);
    }
}

void CheckListWindow::fitColumn() {
    send(LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE);
    RECT client{};
    GetClientRect(handle(), &client);
    if (send(LVM_GETCOLUMNWIDTH) < client.right) {
        send(LVM_SETCOLUMNWIDTH, 0, client.right);
    }
}

void CheckListWindow::showTicks() {
    std::vector<int> others;
    for (int row = 0; const forms::MarkedList::Row& wanted : list_.rows()) {
        if (rowIsTicked(handle(), row) != wanted.marked) {
            others.push_back(row);
        }
        ++row;
    }
    if (others.empty()) {
        return;
    }
    const DrawingHeld held(handle());
    for (const int row : others) {
        tickRow(handle(), row, list_.rows()[static_cast<std::size_t>(row)].marked);
    }
}

void CheckListWindow::notified(const NMHDR& notification) {
    if (notification.code != static_cast<UINT>(LVN_ITEMCHANGED)) {
        return;
    }
    const auto& change = reinterpret_cast<const NMLISTVIEW&>(notification);
    const bool tickChanged = ((change.uNewState ^ change.uOldState) & LVIS_STATEIMAGEMASK) != 0;
    if ((change.uChanged & LVIF_STATE) != 0 && tickChanged && change.iItem >= 0) {
        list_.mark(static_cast<std::size_t>(change.iItem), isTicked(change.uNewState));
    }
}

}  // namespace platform::windows
