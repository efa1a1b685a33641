#include "robot/dialogDriver.h"

#include <shlobj.h>

#include <algorithm>
#include <atomic>

#include "platform/text.h"
#include "platform/windows/dialogProperties.h"
#include "platform/windows/dialogTemplate.h"
#include "platform/windows/windowText.h"
#include "robot/listDriver.h"

namespace robot::dialogDriver {

using namespace platform;
using namespace platform::windows;

namespace {

/// Watched beside this one; 0 is nobody's id.
std::atomic<DWORD> otherProcess = 0;

/// The lParam of a key pressed while Alt is down.
constexpr LPARAM withAlt = 1 << 29;

std::wstring className(HWND window) {
    wchar_t name[64];
    const int length = GetClassNameW(window, name, 64);
    return std::wstring(name, static_cast<std::size_t>(length));
}

bool isShown(HWND window) {
    return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

BOOL CALLBACK takeDialog(HWND window, LPARAM result) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if ((process != GetCurrentProcessId() && process != otherProcess) || !IsWindowVisible(window) ||
        !IsWindowEnabled(window) || className(window) != L"#32770") {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

/// The visible children of a window class, whatever the letter case of its name.
std::vector<HWND> shownChildren(HWND dialog, std::wstring_view windowClass) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (isShown(child) && text::equalsIgnoringCase(className(child), windowClass)) {
            children.push_back(child);
        }
    }
    return children;
}

bool isIcon(HWND label) {
    return (GetWindowLongPtrW(label, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

Icon iconOf(HWND label) {
    const struct {
        const wchar_t* name;
        Icon icon;
    } icons[] = {{IDI_ERROR, Icon::Critical},
                 {IDI_QUESTION, Icon::Question},
                 {IDI_WARNING, Icon::Warning},
                 {IDI_INFORMATION, Icon::Information}};
    const auto shown = reinterpret_cast<HICON>(SendMessageW(label, STM_GETICON, 0, 0));
    for (const auto& [name, icon] : icons) {
        if (shown && shown == LoadIconW(nullptr, name)) {  // The system's icons are shared.
            return icon;
        }
    }
    return Icon::None;
}

HWND buttonOf(HWND dialog, Answer answer) {
    const std::vector<HWND> buttons = shownChildren(dialog, L"Button");
    if (buttons.size() == 1 && answer == Answer::Ok) {
        return buttons.front();  // Windows gives the only button the number of Cancel.
    }
    const auto found = std::ranges::find(buttons, static_cast<int>(answer), &GetDlgCtrlID);
    return found == buttons.end() ? nullptr : *found;
}

Buttons buttonsOf(HWND dialog) {
    if (buttonOf(dialog, Answer::Yes)) {
        return Buttons::YesNo;
    }
    return shownChildren(dialog, L"Button").size() > 1 ? Buttons::OkCancel : Buttons::Ok;
}

void click(HWND button) {
    SendNotifyMessageW(button, BM_CLICK, 0, 0);
}

/// Of a password only its length, in stars.
std::wstring boxText(HWND box) {
    const std::wstring text = windowText(box);
    const bool hidden = (GetWindowLongPtrW(box, GWL_STYLE) & ES_PASSWORD) != 0;
    return hidden ? std::wstring(text.size(), L'*') : text;
}

/// The text between the marks of a link.
std::wstring linkText(HWND link) {
    const std::wstring marked = windowText(link);
    const auto start = marked.find(L'>') + 1;
    return marked.substr(start, marked.rfind(L'<') - start);
}

/// As Enter does while the link has the keyboard.
void follow(HWND link) {
    HWND dialog = GetParent(link);
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(link), TRUE);
    SendNotifyMessageW(link, WM_KEYDOWN, VK_RETURN, 1);
}

/// As pasting over all of the text does; a text set by WM_SETTEXT is not always notified.
bool type(HWND box, const std::wstring& text) {
    if ((GetWindowLongPtrW(box, GWL_STYLE) & ES_READONLY) != 0) {
        return false;
    }
    SendMessageW(GetParent(box), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(box), TRUE);
    SendMessageW(box, EM_SETSEL, 0, -1);
    SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    return true;
}

std::wstring checkState(HWND button) {
    return std::to_wstring(SendMessageW(button, BM_GETCHECK, 0, 0));
}

bool tick(HWND box, const std::wstring& value) {
    if (value != L"0" && value != L"1") {
        return false;
    }
    if (checkState(box) != value) {
        click(box);
    }
    return true;
}

ControlState describeControl(HWND control) {
    ControlState state;
    state.name = attachedName(control, controlNameProperty).value_or(std::wstring());
    state.enabled = IsWindowEnabled(control);
    state.visible = isShown(control);
    const auto kind = attachedKind(control).value_or(forms::Kind::Label);
    state.fillable = forms::isFillable(kind);
    switch (kind) {
        case forms::Kind::TextBox:
            state.value = boxText(control);
            break;
        case forms::Kind::CheckBox:
        case forms::Kind::OptionButton:
            state.value = checkState(control);
            state.caption = windowText(control);
            break;
        case forms::Kind::Label:
        case forms::Kind::Button:
        case forms::Kind::Frame:
            state.caption = windowText(control);
            break;
        case forms::Kind::Link:
            state.caption = linkText(control);
            break;
        case forms::Kind::ListBox:
        case forms::Kind::ComboBox:
        case forms::Kind::CheckList:
        case forms::Kind::SelectionList:
        case forms::Kind::TabStrip:
            listDriver::describe(control, kind, state);
            break;
        case forms::Kind::Picture:
            break;
    }
    return state;
}

std::vector<HWND> controlsOf(HWND form) {
    std::vector<HWND> controls;
    for (int id = firstControlId; HWND control = GetDlgItem(form, id); ++id) {
        controls.push_back(control);
    }
    return controls;
}

HWND focusedControl(HWND form) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(form, nullptr), &info);
    return info.hwndFocus && IsChild(form, info.hwndFocus) ? info.hwndFocus : form;
}

}  // namespace

void watchProcess(DWORD process) {
    otherProcess = process;
}

HWND topDialog() {
    HWND found = nullptr;
    EnumWindows(&takeDialog, reinterpret_cast<LPARAM>(&found));  // From the top down.
    return found;
}

void settle(HWND dialog) {
    SendMessageW(dialog, WM_NULL, 0, 0);
}

MessagePrompt describeMessageBox(HWND dialog) {
    MessagePrompt prompt{windowText(dialog), {}, {buttonsOf(dialog), Icon::None}};
    for (HWND label : shownChildren(dialog, L"Static")) {
        if (isIcon(label)) {
            prompt.style.icon = iconOf(label);
        } else if (prompt.text.empty()) {
            prompt.text = windowText(label);
        }
    }
    return prompt;
}

FolderPrompt describeFolderBrowser(HWND dialog) {
    FolderPrompt prompt;
    for (HWND label : shownChildren(dialog, L"Static")) {
        if (prompt.title.empty()) {
            prompt.title = windowText(label);
        }
    }
    return prompt;
}

FormPrompt describeForm(HWND dialog, const std::wstring& name) {
    FormPrompt prompt{name, windowText(dialog), {}, isWaiting(dialog)};
    for (HWND control : controlsOf(dialog)) {
        prompt.controls.push_back(describeControl(control));
    }
    return prompt;
}

bool answerMessageBox(HWND dialog, Answer answer) {
    HWND button = buttonOf(dialog, answer);
    if (button) {
        click(button);
    }
    return button != nullptr;
}

bool chooseFolder(HWND dialog, const std::wstring& path) {
    if (path.empty()) {
        cancel(dialog);
        return true;
    }
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
        return false;  // The browser would keep what was chosen before.
    }
    SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
    click(GetDlgItem(dialog, IDOK));
    return true;
}

HWND findControl(HWND form, const std::wstring& name) {
    for (HWND control : controlsOf(form)) {
        if (text::equalsIgnoringCase(attachedName(control, controlNameProperty).value_or(L""), name)) {
            return control;
        }
    }
    return nullptr;
}

bool enter(HWND control, const std::wstring& value) {
    if (!isShown(control) || !IsWindowEnabled(control)) {
        return false;
    }
    const auto kind = attachedKind(control).value_or(forms::Kind::Label);
    switch (kind) {
        case forms::Kind::TextBox:
            return type(control, value);
        case forms::Kind::CheckBox:
            return tick(control, value);
        case forms::Kind::OptionButton:
            return value == L"1" && tick(control, value);
        case forms::Kind::Button:
            click(control);
            return true;
        case forms::Kind::ListBox:
        case forms::Kind::ComboBox:
        case forms::Kind::CheckList:
        case forms::Kind::SelectionList:
        case forms::Kind::TabStrip:
            return listDriver::enter(control, kind, value);
        case forms::Kind::Link:
            follow(control);
            return true;
        case forms::Kind::Label:
        case forms::Kind::Frame:
        case forms::Kind::Picture:
            break;
    }
    return false;
}

bool pressKey(HWND form, const std::wstring& key) {
    HWND receiver = focusedControl(form);
    if (key == L"{Enter}") {
        PostMessageW(receiver, WM_KEYDOWN, VK_RETURN, 1);
    } else if (key == L"{Escape}") {
        PostMessageW(receiver, WM_KEYDOWN, VK_ESCAPE, 1);
    } else if (key.size() == 7 && key.starts_with(L"{Alt+") && key.ends_with(L'}')) {
        PostMessageW(receiver, WM_SYSCHAR, key[5], withAlt | 1);
    } else {
        return false;
    }
    return true;
}

void cancel(HWND dialog) {
    SendNotifyMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

}  // namespace robot::dialogDriver
