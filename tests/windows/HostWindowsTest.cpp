#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "host/Outlook.h"
#include "host/windows/MainWindow.h"
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

}  // namespace
