#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "host/Outlook.h"
#include "host/windows/MainWindow.h"
#include "platform/FunctionTarget.h"
#include "platform/outlook.h"
#include "platform/windows/windowText.h"

using automation::Value;

namespace {

/// A button or field of a window by what it or the label before it says.
HWND control(HWND window, const std::wstring& caption) {
    HWND found = FindWindowExW(window, nullptr, nullptr, caption.c_str());
    return caption.ends_with(L':') ? GetWindow(found, GW_HWNDNEXT) : found;
}

void type(HWND window, const std::wstring& field, const wchar_t* text) {
    SendMessageW(control(window, field), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

/// Presses a button, and lets the windows do what they have put off.
void press(HWND window, const std::wstring& button) {
    SendMessageW(control(window, button), BM_CLICK, 0, 0);
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        DispatchMessageW(&message);
    }
}

TEST(HostWindows, SendDoesWhatItsHandlersAllow) {
    host::Outlook outlook({});
    bool refuse = true;
    const auto handler = automation::subscribe(outlook.application(), outlook::events::application,
                                               [&refuse](std::int32_t, std::span<Value> arguments) {
                                                   arguments[0].toObject().put(L"Subject", L"Seen");
                                                   arguments[1].variable() = Value(refuse);
                                               });
    const host::windows::MainWindow window(outlook);
    press(window.handle(), L"&New");
    const HWND mail = FindWindowW(nullptr, L"Untitled - Message");
    ASSERT_TRUE(mail);
    type(mail, L"&To:", L"bob@example.com");
    type(mail, L"S&ubject:", L"Lunch");

    press(mail, L"&Send");
    ASSERT_TRUE(IsWindow(mail)) << "a refused mail stays open";
    EXPECT_EQ(platform::windows::windowText(control(mail, L"S&ubject:")), L"Seen");
    EXPECT_TRUE(outlook.itemsIn(L"Sent Items").empty());

    refuse = false;
    press(mail, L"&Send");
    EXPECT_FALSE(IsWindow(mail));
    const auto sent = outlook.itemsIn(L"Sent Items");
    ASSERT_EQ(sent.size(), 1U);
    EXPECT_EQ(outlook.view(sent[0]).recipients.at(0).address.address, L"bob@example.com");
}

/// An add-in whose ribbon shows the recipients, and that opens the first of them to be pressed.
host::RibbonAddIn addInWithRibbon(std::vector<std::wstring>& pressed) {
    using Members = std::vector<automation::FunctionTarget::Member>;
    const auto itemOf = [](std::span<const Value> given) {
        return given[0].toObject().get(L"Context").toObject().get(L"CurrentItem").toObject();
    };
    return {
        [](const std::wstring& ribbonId) {
            const bool compose = ribbonId == L"Microsoft.Outlook.Mail.Compose";
            const std::wstring tab = compose ? L"TabNewMailMessage" : L"TabMail";
            const std::wstring text = compose ? L"<labelControl id='L' getLabel='Label'/>" : L"";
            return L"<customUI xmlns='http://schemas.microsoft.com/office/2009/07/customui'><ribbon><tabs>"
                   L"<tab idMso='" +
                   tab + L"'><group id='G' label='Checks'>" + text +
                   L"<button id='B' label='Look &amp; see' onAction='Press'/></group></tab></tabs></ribbon>"
                   L"</customUI>";
        },
        automation::Object(std::make_shared<automation::FunctionTarget>(Members{
            {L"Label", 1, [itemOf](auto given) { return itemOf(given).get(L"To"); }},
            {L"Press", 1, [&pressed](auto given) {
                 pressed.push_back(given[0].toObject().get(L"Context").toObject().get(L"Caption").toText());
                 return Value();
             }}}))};
}

/// The text of a menu's entry in the only menu with entries of a window, and the command that it sends.
std::pair<std::wstring, WPARAM> entryOf(HWND window, int entry) {
    const HMENU group = GetSubMenu(GetMenu(window), 0);
    wchar_t text[80] = L"";
    GetMenuStringW(group, static_cast<UINT>(entry), text, 80, MF_BYPOSITION);
    return {text, GetMenuItemID(group, entry)};
}

TEST(HostWindows, ShowTheRibbonsAsMenus) {
    host::Outlook outlook({});
    std::vector<std::wstring> pressed;
    outlook.addRibbon(addInWithRibbon(pressed));
    const host::windows::MainWindow window(outlook);
    const auto [caption, command] = entryOf(window.handle(), 0);
    EXPECT_EQ(caption, L"Look && see");
    SendMessageW(window.handle(), WM_COMMAND, command, 0);
    press(window.handle(), L"&New");
    const HWND mail = FindWindowW(nullptr, L"Untitled - Message");
    ASSERT_TRUE(mail);
    type(mail, L"&To:", L"bob@example.com");
    SendMessageW(mail, WM_INITMENU, reinterpret_cast<WPARAM>(GetMenu(mail)), 0);
    EXPECT_EQ(entryOf(mail, 0).first, L"") << "kept, as nobody says that it has changed";
    SendMessageW(mail, WM_COMMAND, entryOf(mail, 1).second, 0);
    EXPECT_EQ(pressed, (std::vector<std::wstring>{L"Inbox - Microsoft Outlook", L"Untitled - Message"}));
    EXPECT_TRUE(outlook.errors().empty());
}

}  // namespace
