#include "host/windows/ItemWindow.h"

#include <commdlg.h>

#include <algorithm>

#include "platform/windows/windowText.h"

namespace host::windows {

namespace {

enum CommandId { sendId = 101, attachId, replyId, replyAllId, forwardId, firstFieldId };

constexpr int margin = 8;
constexpr int labelWidth = 60;
constexpr int rowHeight = 24;
constexpr int buttonWidth = 96;
constexpr int buttonHeight = 28;

}  // namespace

ItemWindow::ItemWindow(Outlook& outlook, automation::Object inspector, std::function<void()> itemsChanged)
    : OwnedWindow(L"", 640, 480),
      outlook_(outlook),
      inspector_(std::move(inspector)),
      item_(outlook.itemOf(inspector_)),
      itemsChanged_(std::move(itemsChanged)),
      received_(item_.get(L"Sent").toBool()) {
    makeControls();
    load();
    if (const HMENU bar = CreateMenu(); ribbon_.addTo(bar)) {
        SetMenu(handle(), bar);
    } else {
        DestroyMenu(bar);
    }
    layOut();
    ShowWindow(handle(), SW_SHOW);
    SetFocus(fields_[received_ ? 4 : 0].edit);
}

void ItemWindow::makeControls() {
    const auto button = [this](const wchar_t* text, int id) {
        return addControl(L"BUTTON", text, WS_TABSTOP | BS_PUSHBUTTON, id);
    };
    if (received_) {
        buttons_ = {button(L"&Reply", replyId), button(L"Reply to &All", replyAllId),
                    button(L"&Forward", forwardId)};
    } else {
        buttons_ = {button(L"&Send", sendId), button(L"&Attach...", attachId), nullptr};
    }
    attachments_ = addControl(L"STATIC", L"", SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS | SS_NOPREFIX, 0);
    constexpr const wchar_t* labels[] = {L"&To:", L"&Cc:", L"&Bcc:", L"S&ubject:", L""};
    const DWORD readOnly = received_ ? ES_READONLY : 0;
    for (std::size_t index = 0; index < fields_.size(); ++index) {
        const bool body = index == 4;
        fields_[index].label = addControl(L"STATIC", labels[index], SS_LEFT | SS_CENTERIMAGE, 0);
        fields_[index].edit = addControl(
            L"EDIT", L"",
            WS_TABSTOP | readOnly |
                static_cast<DWORD>(body ? ES_MULTILINE | ES_WANTRETURN | WS_VSCROLL : ES_AUTOHSCROLL),
            firstFieldId + static_cast<int>(index), WS_EX_CLIENTEDGE);
        SendMessageW(fields_[index].edit, EM_SETLIMITTEXT, 0, 0);
    }
}

void ItemWindow::layOut() {
    const SIZE area = space();
    const int edge = scaled(margin);
    int left = edge;
    int top = edge;
    for (const HWND button : buttons_) {
        if (button) {
            MoveWindow(button, left, top, scaled(buttonWidth), scaled(buttonHeight), TRUE);
            left += scaled(buttonWidth) + edge;
        }
    }
    MoveWindow(attachments_, left, top, area.cx - left - edge, scaled(buttonHeight), TRUE);
    top += scaled(buttonHeight) + edge;
    const int fieldLeft = edge + scaled(labelWidth);
    for (const Field& field : fields_) {
        if (&field == &fields_.back()) {
            MoveWindow(field.edit, edge, top, area.cx - 2 * edge, area.cy - top - edge, TRUE);
            return;
        }
        MoveWindow(field.label, edge, top, scaled(labelWidth), scaled(rowHeight), TRUE);
        MoveWindow(field.edit, fieldLeft, top, area.cx - fieldLeft - edge, scaled(rowHeight), TRUE);
        top += scaled(rowHeight) + edge / 2;
    }
}

void ItemWindow::load() {
    for (Field& field : fields_) {
        field.shown = item_.get(field.member).toText();
        SetWindowTextW(field.edit, field.shown.c_str());
    }
    const std::wstring& subject = fields_[3].shown;
    SetWindowTextW(handle(), ((subject.empty() ? L"Untitled" : subject) + L" - Message").c_str());
    showAttachments();
}

void ItemWindow::store() {
    for (Field& field : fields_) {
        const std::wstring typed = platform::windows::windowText(field.edit);
        if (typed != field.shown) {  // Writing a body back would cost it its formatting.
            item_.put(field.member, typed);
            field.shown = typed;
        }
    }
}

void ItemWindow::showAttachments() {
    const automation::Object attachments = item_.get(L"Attachments").toObject();
    const auto count = attachments.get(L"Count").toInteger();
    std::wstring names;
    for (std::int32_t index = 1; index <= count; ++index) {
        const auto attachment = attachments.get(L"Item", index).toObject();
        names += (names.empty() ? L"Attached: " : L", ") + attachment.get(L"FileName").toText();
    }
    SetWindowTextW(attachments_, names.c_str());
}

void ItemWindow::send() {
    store();
    const SendOutcome outcome = outlook_.send(inspector_);
    if (outcome.state == SendState::Cancelled) {
        load();
        if (!outcome.failure.empty()) {
            MessageBoxW(handle(), outcome.failure.c_str(), L"Simulated Outlook", MB_OK | MB_ICONWARNING);
        }
    }
}

void ItemWindow::attach() {
    wchar_t path[MAX_PATH] = L"";
    OPENFILENAMEW request{};
    request.lStructSize = sizeof request;
    request.hwndOwner = handle();
    request.lpstrFile = path;
    request.nMaxFile = MAX_PATH;
    request.Flags = OFN_FILEMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR;
    if (GetOpenFileNameW(&request)) {
        item_.get(L"Attachments").toObject().call(L"Add", std::wstring(path));
        showAttachments();
    }
}

/// The item may have been sent or closed a moment ago.
bool ItemWindow::isOpen() const {
    const auto inspectors = outlook_.inspectors();
    return std::ranges::find(inspectors, inspector_) != inspectors.end();
}

void ItemWindow::answer(ReplyKind kind) {
    outlook_.answer(kind, item_);
}

void ItemWindow::command(int id) {
    switch (id) {
        case sendId:
            send();
            break;
        case attachId:
            attach();
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
            store();
            if (!ribbon_.press(id)) {
                return;
            }
            if (isOpen()) {
                load();
            }
            break;
    }
    itemsChanged_();
}

LRESULT ItemWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_SIZE:
            layOut();
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE && isOpen()) {
                outlook_.activate(inspector_);
            }
            break;
        case WM_COMMAND:
            if (HIWORD(wParam) == BN_CLICKED) {
                command(LOWORD(wParam));
            }
            return 0;
        case WM_INITMENU:
            if (isOpen()) {
                store();  // The recipients that were typed.
                ribbon_.refresh(GetMenu(handle()));
            }
            return 0;
        case WM_CLOSE:
            if (isOpen()) {
                outlook_.closeInspector(inspector_);
            }
            itemsChanged_();
            return 0;
        default:
            break;
    }
    return OwnedWindow::onMessage(message, wParam, lParam);
}

}  // namespace host::windows
