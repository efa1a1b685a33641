#pragma once

#include <windows.h>

namespace platform::windows {

/// The messages of a list box and of a combo box, which differ by their numbers alone.
struct ListMessages {
    UINT clear;
    UINT reserve;
    UINT add;
    UINT count;
    UINT textLength;
    UINT text;
    UINT selected;
    UINT select;
};

inline constexpr ListMessages listBoxMessages{LB_RESETCONTENT, LB_INITSTORAGE, LB_ADDSTRING, LB_GETCOUNT,
                                              LB_GETTEXTLEN,   LB_GETTEXT,     LB_GETCURSEL, LB_SETCURSEL};
inline constexpr ListMessages comboBoxMessages{CB_RESETCONTENT, CB_INITSTORAGE, CB_ADDSTRING, CB_GETCOUNT,
                                               CB_GETLBTEXTLEN, CB_GETLBTEXT,   CB_GETCURSEL, CB_SETCURSEL};

}  // namespace platform::windows
