#include "robot/listDriver.h"

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/text.h"
#include "platform/windows/checkListState.h"
#include "platform/windows/listMessages.h"
#include "robot/onThreadOf.h"

namespace robot::listDriver {

using namespace platform;
using namespace platform::windows;

namespace {

using Texts = std::vector<std::wstring>;

std::wstring joined(const Texts& texts, wchar_t separator) {
    std::wstring result;
    for (std::size_t index = 0; index < texts.size(); ++index) {
        result += (index == 0 ? std::wstring() : std::wstring(1, separator)) + texts[index];
    }
    return result;
}

const ListMessages& messagesOf(forms::Kind kind) {
    return kind == forms::Kind::ListBox ? listBoxMessages : comboBoxMessages;
}

Texts entries(HWND list, const ListMessages& messages) {
    const LRESULT count = SendMessageW(list, messages.count, 0, 0);
    Texts texts;
    for (WPARAM index = 0; static_cast<LRESULT>(index) < count; ++index) {
        const LRESULT length = SendMessageW(list, messages.textLength, index, 0);
        if (length < 0) {
            break;  // The list has lost entries since they were counted.
        }
        std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
        SendMessageW(list, messages.text, index, reinterpret_cast<LPARAM>(text.data()));
        text.pop_back();
        texts.push_back(std::move(text));
    }
    return texts;
}

int rowCount(HWND list) {
    return static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
}

/// A list view does not say how long a text is.
std::wstring rowText(HWND list, int row) {
    for (std::wstring text(256, L'\0');; text.resize(text.size() * 2)) {
        LVITEMW item{};
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        const LRESULT length =
            SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        if (static_cast<std::size_t>(length) + 1 < text.size()) {
            return text.substr(0, static_cast<std::size_t>(length));
        }
    }
}

Texts rowTexts(HWND list) {
    Texts texts;
    for (int row = 0; row < rowCount(list); ++row) {
        texts.push_back(rowText(list, row));
    }
    return texts;
}

/// The 1-based positions of the rows for which `isMarked` is true.
template <class IsMarked>
std::wstring positions(int rows, IsMarked isMarked) {
    Texts marked;
    for (int row = 0; row < rows; ++row) {
        if (isMarked(row)) {
            marked.push_back(std::to_wstring(row + 1));
        }
    }
    return joined(marked, L',');
}

bool isSelected(HWND list, int row) {
    return SendMessageW(list, LB_GETSEL, static_cast<WPARAM>(row), 0) > 0;
}

bool selectExactly(HWND list, const std::wstring& value) {
    const auto rows = static_cast<std::size_t>(SendMessageW(list, LB_GETCOUNT, 0, 0));
    const auto marks = forms::MarkedList::parseMarks(value, rows);
    for (std::size_t row = 0; marks && row < rows; ++row) {
        SendMessageW(list, LB_SETSEL, (*marks)[row], static_cast<LPARAM>(row));
    }
    return marks.has_value();
}

int selectedTab(HWND strip) {
    return static_cast<int>(SendMessageW(strip, TCM_GETCURSEL, 0, 0));
}

std::wstring tabText(HWND strip, int tab) {
    wchar_t text[256] = L"";
    TCITEMW item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = 256;
    SendMessageW(strip, TCM_GETITEMW, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
}

Texts tabTexts(HWND strip) {
    Texts texts;
    const auto count = static_cast<int>(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0));
    for (int tab = 0; tab < count; ++tab) {
        texts.push_back(tabText(strip, tab));
    }
    return texts;
}

/// A click on the tab.
void clickTab(HWND strip, int tab) {
    RECT place{};
    SendMessageW(strip, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&place));
    const LPARAM point = MAKELPARAM((place.left + place.right) / 2, (place.top + place.bottom) / 2);
    SendNotifyMessageW(strip, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendNotifyMessageW(strip, WM_LBUTTONUP, 0, point);
}

bool tickExactly(HWND list, const std::wstring& value) {
    const auto ticks = forms::MarkedList::parseMarks(value, static_cast<std::size_t>(rowCount(list)));
    if (!ticks) {
        return false;
    }
    for (int row = 0; row < static_cast<int>(ticks->size()); ++row) {
        const bool ticked = (*ticks)[static_cast<std::size_t>(row)];
        if (rowIsTicked(list, row) != ticked) {
            tickRow(list, row, ticked);  // Notifies the form as the space bar does.
        }
    }
    return true;
}

/// A click on the entry.
void clickEntry(HWND list, int index) {
    SendMessageW(list, LB_SETTOPINDEX, static_cast<WPARAM>(index), 0);
    RECT place{};
    SendMessageW(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&place));
    const LPARAM point = MAKELPARAM(place.left + 1, (place.top + place.bottom) / 2);
    SendNotifyMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
    SendNotifyMessageW(list, WM_LBUTTONUP, 0, point);
}

/// The drop-down list closes on every click somewhere else, so that it is moved and told of as it tells.
void selectEntry(HWND comboBox, int index) {
    SendMessageW(comboBox, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendNotifyMessageW(GetParent(comboBox), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(comboBox), CBN_SELCHANGE),
                       reinterpret_cast<LPARAM>(comboBox));
}

void describeHere(HWND control, forms::Kind kind, ControlState& state) {
    switch (kind) {
        case forms::Kind::CheckList:
            state.caption = joined(rowTexts(control), L'\n');
            state.value = positions(rowCount(control), [&](int row) { return rowIsTicked(control, row); });
            return;
        case forms::Kind::SelectionList: {
            const Texts texts = entries(control, listBoxMessages);
            state.caption = joined(texts, L'\n');
            state.value =
                positions(static_cast<int>(texts.size()), [&](int row) { return isSelected(control, row); });
            return;
        }
        case forms::Kind::TabStrip:
            state.caption = joined(tabTexts(control), L'\n');
            state.value = tabText(control, selectedTab(control));
            return;
        default:
            break;
    }
    const ListMessages& messages = messagesOf(kind);
    const Texts texts = entries(control, messages);
    state.caption = joined(texts, L'\n');
    const LRESULT selected = SendMessageW(control, messages.selected, 0, 0);
    if (selected >= 0 && static_cast<std::size_t>(selected) < texts.size()) {
        state.value = texts[static_cast<std::size_t>(selected)];
    }
}

/// A text's place among others; letter case is ignored where the form ignores it.
std::optional<int> placeOf(const std::wstring& value, const Texts& texts, bool ignoringCase = false) {
    const auto found = std::ranges::find_if(texts, [&](const std::wstring& each) {
        return ignoringCase ? text::equalsIgnoringCase(each, value) : each == value;
    });
    return found == texts.end() ? std::nullopt : std::optional(static_cast<int>(found - texts.begin()));
}

/// Marks exactly the rows of such a value as "1,3".
bool markExactly(HWND list, forms::Kind kind, const std::wstring& value) {
    bool possible = false;
    onThreadOf(list, [&] {
        possible = kind == forms::Kind::CheckList ? tickExactly(list, value) : selectExactly(list, value);
    });
    if (possible && kind == forms::Kind::SelectionList) {  // Told of, as it tells of a person's selection.
        SendNotifyMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), LBN_SELCHANGE),
                           reinterpret_cast<LPARAM>(list));
    }
    return possible;
}

}  // namespace

void describe(HWND control, forms::Kind kind, ControlState& state) {
    onThreadOf(control, [&] { describeHere(control, kind, state); });
}

bool enter(HWND control, forms::Kind kind, const std::wstring& value) {
    if (kind == forms::Kind::CheckList || kind == forms::Kind::SelectionList) {
        return markExactly(control, kind, value);
    }
    const bool isStrip = kind == forms::Kind::TabStrip;
    std::optional<int> index;
    onThreadOf(control, [&] {
        index = isStrip ? placeOf(value, tabTexts(control), true)
                        : placeOf(value, entries(control, messagesOf(kind)));
    });
    if (index) {
        isStrip                        ? clickTab(control, *index)
        : kind == forms::Kind::ListBox ? clickEntry(control, *index)
                                       : selectEntry(control, *index);
    }
    return index.has_value();
}

}  // namespace robot::listDriver
