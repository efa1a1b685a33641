#include "host/windows/MainWindow.h"

#include <commctrl.h>

#include <algorithm>

#include "host/LocalTime.h"
#include "platform/text.h"

namespace host::windows {

namespace {

constexpr UINT itemsChangedMessage = WM_APP;

enum CommandId { newId = 101, replyId, replyAllId, forwardId, listId, firstMenuId = 1000 };

constexpr int margin = 8;
constexpr int buttonWidth = 96;
constexpr int buttonHeight = 28;

/// Office's number of the controls that open into a menu.
constexpr std::int32_t popupType = 10;

}  // namespace

MainWindow::MainWindow(Outlook& outlook)
    : OwnedWindow(L"Inbox - simulated Outlook", 760, 420),
      outlook_(outlook),
      explorer_(outlook.explorers().front()) {
    makeControls();
    fillMenu();
    fillInbox();
    layOut();
    ShowWindow(handle(), SW_SHOW);
    SetFocus(list_);
    followItems();
}

MainWindow::~MainWindow() = default;

void MainWindow::makeControls() {
    const auto button = [this](const wchar_t* text, int id) {
        buttons_.push_back(addControl(L"BUTTON", text, WS_TABSTOP | BS_PUSHBUTTON, id));
    };
    button(L"&New", newId);
    button(L"&Reply", replyId);
    button(L"Reply to &All", replyAllId);
    button(L"&Forward", forwardId);
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    list_ = addControl(WC_LISTVIEWW, L"", WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS, listId,
                       WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
    struct Column {
        const wchar_t* caption;
        int width;
    };
    int index = 0;
    for (const auto& [caption, width] : {Column{L"From", 180}, {L"Subject", 360}, {L"Received", 140}}) {
        std::wstring text = caption;
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.cx = scaled(width);
        column.pszText = text.data();
        SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++),
                     reinterpret_cast<LPARAM>(&column));
    }
}

void MainWindow::layOut() {
    const SIZE area = space();
    const int edge = scaled(margin);
    int left = edge;
    for (const HWND button : buttons_) {
        MoveWindow(button, left, edge, scaled(buttonWidth), scaled(buttonHeight), TRUE);
        left += scaled(buttonWidth) + edge;
    }
    const int top = scaled(buttonHeight) + 2 * edge;
    MoveWindow(list_, edge, top, area.cx - 2 * edge, area.cy - top - edge, TRUE);
}

void MainWindow::fillInbox() {
    inbox_ = outlook_.itemsIn(L"Inbox");
    std::ranges::reverse(inbox_);
    SendMessageW(list_, LVM_DELETEALLITEMS, 0, 0);
    for (std::size_t row = 0; row < inbox_.size(); ++row) {
        const automation::Object& item = inbox_[row];
        std::wstring texts[] = {
            item.get(L"SenderName").toText(), item.get(L"Subject").toText(),
            text::replaceAll(text::fromUtf8(toIsoTime(item.get(L"ReceivedTime").toDate())), L"T", L"  ")};
        for (int column = 0; column < 3; ++column) {
            LVITEMW entry{};
            entry.mask = LVIF_TEXT;
            entry.iItem = static_cast<int>(row);
            entry.iSubItem = column;
            entry.pszText = texts[column].data();
            SendMessageW(list_, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                         reinterpret_cast<LPARAM>(&entry));
        }
    }
    ListView_SetItemState(list_, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

automation::Object MainWindow::selected() const {
    const int row = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    return row < 0 ? automation::Object() : inbox_[static_cast<std::size_t>(row)];
}

void MainWindow::selectionChanged() {
    const automation::Object item = selected();
    outlook_.select(explorer_, item ? std::vector{item} : std::vector<automation::Object>());
}

void MainWindow::answer(ReplyKind kind) {
    if (const automation::Object item = selected()) {
        outlook_.answer(kind, item);
    }
}

void MainWindow::openSelected() {
    if (const automation::Object item = selected()) {
        outlook_.openItem(item);
        followItems();
    }
}

void MainWindow::command(int id) {
    switch (id) {
        case newId:
            outlook_.openNewMail({});
            break;
        case replyId:
            answer(ReplyKind::Reply);
            break;
        case replyAllId:
            answer(ReplyKind::ReplyAll);
            break;
        case forwardId:
            answer(ReplyKind::Forward);
            break;
        default:
            if (ribbon_.press(id)) {
                break;
            }
            if (id < firstMenuId) {
                return;
            }
            menuControls_.at(static_cast<std::size_t>(id - firstMenuId)).call(L"Execute");
            fillMenu();
            break;
    }
    followItems();
}

void MainWindow::fillMenu() {
    menuControls_.clear();
    const HMENU bar = CreateMenu();
    const automation::Object commandBars = explorer_.get(L"CommandBars").toObject();
    const automation::Object menuBar = commandBars.get(L"Item", L"Menu Bar").toObject();
    addMenuItems(bar, menuBar.get(L"Controls").toObject());
    ribbon_.addTo(bar);
    const HMENU previous = GetMenu(handle());
    SetMenu(handle(), bar);
    DestroyMenu(previous);
}

void MainWindow::addMenuItems(HMENU menu, const automation::Object& controls) {
    const auto count = controls.get(L"Count").toInteger();
    for (std::int32_t index = 1; index <= count; ++index) {
        const automation::Object control = controls.get(L"Item", index).toObject();
        const std::wstring caption = control.get(L"Caption").toText();
        if (index > 1 && control.get(L"BeginGroup").toBool()) {
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        }
        if (control.get(L"Type").toInteger() != popupType) {
            const auto id = firstMenuId + menuControls_.size();
            menuControls_.push_back(control);
            AppendMenuW(menu, MF_STRING, id, caption.c_str());
            continue;
        }
        const automation::Object inner = control.get(L"Controls").toObject();
        if (inner.get(L"Count").toInteger() > 0) {  // Outlook's own menus are empty here.
            const HMENU popup = CreatePopupMenu();
            addMenuItems(popup, inner);
            AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), caption.c_str());
        }
    }
}

void MainWindow::followItems() {
    const auto inspectors = outlook_.inspectors();
    std::erase_if(items_, [&inspectors](const std::unique_ptr<ItemWindow>& window) {
        return std::ranges::find(inspectors, window->inspector()) == inspectors.end();
    });
    for (const automation::Object& inspector : inspectors) {
        const bool shown =
            std::ranges::any_of(items_, [&inspector](const std::unique_ptr<ItemWindow>& window) {
                return window->inspector() == inspector;
            });
        if (!shown) {
            items_.push_back(std::make_unique<ItemWindow>(outlook_, inspector, [this] {
                // Later: the window that tells of the change may be one that goes.
                PostMessageW(handle(), itemsChangedMessage, 0, 0);
            }));
        }
    }
}

LRESULT MainWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            layOut();
            return 0;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED) {
                command(LOWORD(wParam));
            }
            return 0;
        case WM_NOTIFY: {
            const auto* notice = reinterpret_cast<const NMHDR*>(lParam);
            if (notice->idFrom == listId && notice->code == NM_DBLCLK) {
                openSelected();
            } else if (notice->idFrom == listId && notice->code == LVN_ITEMCHANGED &&
                       (reinterpret_cast<const NMLISTVIEW*>(lParam)->uChanged & LVIF_STATE) != 0) {
                selectionChanged();
            }
            return 0;
        }
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) {
                outlook_.activate(explorer_);
            }
            break;
        case itemsChangedMessage:
            followItems();
            return 0;
        case WM_CLOSE:
            PostQuitMessage(0);
            return 0;
        default:
            break;
    }
    return OwnedWindow::onMessage(message, wParam, lParam);
}

}  // namespace host::windows
