#pragma once

#include <windows.h>

#include <commctrl.h>

namespace platform::windows {

/// A list view draws boxes to tick as its rows' state images: the first is the empty box, the second the
/// ticked one.
inline bool isTicked(UINT state) {
    return (state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
}

inline bool rowIsTicked(HWND list, int row) {
    return isTicked(static_cast<UINT>(
        SendMessageW(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_STATEIMAGEMASK)));
}

inline void setRowState(HWND list, int row, UINT state, UINT mask) {
    LVITEMW item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

inline void tickRow(HWND list, int row, bool ticked) {
    setRowState(list, row, INDEXTOSTATEIMAGEMASK(ticked ? 2 : 1), LVIS_STATEIMAGEMASK);
}

}  // namespace platform::windows
