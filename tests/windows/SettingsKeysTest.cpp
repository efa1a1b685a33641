#include <gtest/gtest.h>

#include "platform/MemorySettingsStore.h"
#include "platform/windows/WindowsPlatform.h"
#include "platform/windows/dialogProperties.h"
#include "settings/frmIntroWizard.h"
#include "tests/windows/AnsweredDialogs.h"
#include "tests/windows/Keyboard.h"

namespace {

/// The settings, as somebody without a mouse meets them.
class SettingsKeysTest : public AnsweredDialogs {
  protected:
    SettingsKeysTest() {
        CoInitialize(nullptr);
        settings.write(L"ShowStartupWizard", L"False");
        settings.write(L"EmailList", {});
    }
    ~SettingsKeysTest() override { CoUninitialize(); }

    /// The name of the page, and of the control with the keyboard.
    std::wstring place(HWND dialog) const {
        namespace windows = platform::windows;
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &info);
        const auto prompt = robot::dialogDriver::describeForm(dialog, L"frmIntroWizard");
        return control(prompt, L"TabStripWizard").value + L", " +
               windows::attachedName(info.hwndFocus, windows::controlNameProperty).value_or(L"");
    }

    platform::MemorySettingsStore settings;
    platform::windows::LiveObjects objects;
    platform::windows::WindowsPlatform world{objects};
    platform::Platform ports{world.platform().automation,
                             desktop,
                             settings,
                             world.platform().registry,
                             world.platform().resources,
                             world.platform().clock,
                             world.platform().system,
                             world.platform().http};
    mail::Globals globals{ports};
    Keyboard keyboard;
};

TEST_F(SettingsKeysTest, EveryPageAndFieldIsReached) {
    settings::frmIntroWizard form(globals, nullptr);
    std::vector<std::wstring> places;
    meanwhile = [&](HWND dialog) {
        const auto note = [&] { places.push_back(place(dialog)); };
        note();
        keyboard.press(dialog, {VK_RIGHT});  // Along the tabs.
        note();
        keyboard.press(dialog, {VK_TAB});
        note();
        keyboard.pressWithControl(dialog, VK_TAB);
        note();
        keyboard.pressWithControl(dialog, VK_NEXT);
        keyboard.pressWithControl(dialog, VK_NEXT);
        keyboard.pressWithControl(dialog, VK_PRIOR);
        note();
        keyboard.accessKey(dialog, L'b');
        keyboard.accessKey(dialog, L'b');
        keyboard.accessKey(dialog, L'b');
        note();
        keyboard.focus(dialog, L"TabStripWizard");
        keyboard.press(dialog, {VK_TAB, VK_SPACE});
        note();
    };
    show(form, {{{}, L"{Enter}"}});
    EXPECT_EQ(places, (std::vector<std::wstring>{
                          L"Reply Sentry, TabStripWizard", L"Subject Sentry, TabStripWizard",
                          L"Subject Sentry, chkSubjectEmpty", L"Attachment Sentry, chkAttachMissing",
                          L"Account Sentry, optShowMessage", L"Reply Sentry, cmdNav(3)",
                          L"Reply Sentry, chkReplyMultiple"}));
    EXPECT_EQ(settings.read(L"ReplyMultiple"), L"False");
    EXPECT_EQ(settings.read(L"CheckEmptySubject"), L"True");
}

/// Whoever turns the page by Ctrl+Tab with a wrong number in a box is told, and stays.
TEST_F(SettingsKeysTest, AWrongNumberHoldsThePage) {
    settings::frmIntroWizard form(globals, nullptr);
    form.find(L"TabStripWizard")->enter(L"Delay Sentry");
    std::wstring held;
    meanwhile = [&](HWND dialog) { held = place(dialog); };
    show(form,
         {{{{L"txtDelayTime", L"soon"}, {L"TabStripWizard", L"Send Confirm"}}, L""}, {{}, L"{Escape}"}});
    ASSERT_EQ(messages.size(), 1U);
    EXPECT_EQ(messages[0].title, L"Invalid time - Veltro");
    EXPECT_EQ(held, L"Delay Sentry, txtDelayTime");
}

}  // namespace
