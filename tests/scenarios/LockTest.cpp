#include <gtest/gtest.h>

#include <algorithm>

#include "platform/text.h"
#include "tests/scenarios/Bench.h"

namespace {

using Answers = std::vector<std::wstring>;

const std::vector<std::wstring> settingsButton{L"Tarnwell", L"Veltro", L"Settings"};
constexpr wchar_t close[] = L"frmIntroWizard=cmdNav(1)";
constexpr wchar_t toLock[] = L"frmIntroWizard=cmdLockControls";

/// The settings as a lock leaves them, and each opening of them answered by one or more of the answers.
class Lock : public testing::Test {
  protected:
    /// Locks replies to several people and all that is about delays of mails.
    void lockWith(const wchar_t* password) {
        open({toLock,
              std::wstring(L"frmLockFields=lstVSettings=1,20,21; txtPassword=") + password +
                  L"; txtVerifyPassword=" + password + L"; cmdOK",
              L"Lock Veltro settings=Yes", close});
    }

    std::vector<PromptLog::Prompt> open(Answers answers) {
        Bench bench({.settings = settings_, .answers = std::move(answers)});
        bench.outlook().choose(bench.outlook().explorers().front(), settingsButton);
        for (const wchar_t* key : {L"LockFields", L"Password", L"DelayTime", L"DelayedEmailAddrs"}) {
            if (const auto value = bench.world().setting(key)) {
                settings_[key] = *value;
            }
        }
        return bench.prompts();
    }

    /// Those of the fields that are locked, of one of their neighbours, and what is never locked.
    static std::vector<bool> enabled(const PromptLog::Prompt& wizard) {
        std::vector<bool> states;
        for (const wchar_t* control : {L"chkReplyMultiple", L"chkDelay", L"txtDelayTime", L"optAutoDelay",
                                       L"lstDelayToEAddr", L"cmdAdd_EAddr", L"cmdDelete_EAddr",
                                       L"chkReplyALL_BCC", L"chkNotifyDelay", L"cmdNav(0)", L"cmdNav(4)"}) {
            states.push_back(wizard.control(control).enabled);
        }
        return states;
    }
    const std::vector<bool> locked{false, false, false, false, false, false, false, true, true, true, true};
    const std::vector<bool> unlocked = std::vector<bool>(11, true);

    std::map<std::wstring, std::wstring> settings_{{L"DelayTime", L"7"}, {L"DelayedEmailAddrs", L"a@b.org"}};
};

TEST_F(Lock, DisablesWhatEditsALockedSetting) {
    lockWith(L"abc_12");
    EXPECT_TRUE(settings_[L"LockFields"].starts_with(
        L"Warn_Reply_Click_Mult_Recpt=Yes;Warn_Replytoall_click_BCCed=No;Warn_Replytoall_Click=No;"));
    EXPECT_EQ(std::ranges::count(settings_[L"LockFields"], L';'), 22);
    EXPECT_EQ(settings_[L"Password"].find(L"abc_12"), std::wstring::npos);
    const auto prompts = open({L"frmIntroWizard=cmdNav(4)"});
    EXPECT_EQ(enabled(prompts.at(0)), locked);
    EXPECT_EQ(settings_[L"DelayTime"], L"7");
    EXPECT_EQ(settings_[L"DelayedEmailAddrs"], L"a@b.org");
}

TEST_F(Lock, IsInForceAtOnce) {
    const auto prompts = open({toLock,
                               L"frmLockFields=lstVSettings=1,20,21; txtPassword=abc_12; "
                               L"txtVerifyPassword=abc_12; cmdOK",
                               L"Lock Veltro settings=Yes", close});
    EXPECT_EQ(enabled(prompts.front()), unlocked);
    EXPECT_EQ(enabled(prompts.back()), locked);
    EXPECT_EQ(prompts.at(2).style.icon, platform::Icon::Question);
    EXPECT_EQ(prompts.at(2).text,
              L"Do you want to stop users from changing settings that have been indicated?");
}

TEST_F(Lock, IsLiftedUntilTheSettingsAreClosed) {
    lockWith(L"abc_12");
    const auto prompts = open({toLock, L"frmUnlockFields=txtPassword=abc_12; cmdOK", close});
    EXPECT_EQ(enabled(prompts.at(2)), unlocked);
    EXPECT_EQ(enabled(open({close}).at(0)), locked);
}

TEST_F(Lock, IsRemovedForGood) {
    lockWith(L"abc_12");
    const std::wstring remove = L"frmUnlockFields=txtPassword=abc_12; optPermanant=1; cmdOK";
    open({toLock, remove, L"Remove Veltro settings lock=No", L"frmUnlockFields=cmdCancel", close});
    EXPECT_EQ(enabled(open({close}).at(0)), locked);
    const auto prompts = open({toLock, remove, L"Remove Veltro settings lock=Yes", close});
    EXPECT_EQ(prompts.at(2).text, L"Do you wish to remove locks on all settings?");
    EXPECT_EQ(enabled(prompts.at(3)), unlocked);
    EXPECT_EQ(settings_[L"Password"], L"");
    EXPECT_EQ(enabled(open({close}).at(0)), unlocked);
}

struct WrongLock {
    const wchar_t* form;
    const wchar_t* entered;
    const wchar_t* title;
    const wchar_t* text;
};

constexpr wchar_t weak[] =
    L"The password must be at least 6 characters long and contain a combination of numbers and characters.";

TEST_F(Lock, TellsWhatIsWrong) {
    lockWith(L"abc_12");
    const std::wstring password = settings_[L"Password"];
    const WrongLock cases[] = {
        {L"frmLockFields", L"lstVSettings=; txtPassword=abc123; txtVerifyPassword=abc123",
         L"No settings selected",
         L"You have not selected any settings to lock.\r\n\r\nPlease select atleast one settings to lock."},
        {L"frmLockFields", L"txtPassword=abc123; txtVerifyPassword=Abc123", L"Passwords do not match",
         L"The passwords entered in the Password and the Verify Password fields do not match.\r\n\r\nPlease "
         L"correct this and try again."},
        {L"frmLockFields", L"txtPassword=ab12c; txtVerifyPassword=ab12c", L"Invalid Password", weak},
        {L"frmLockFields", L"txtPassword=abcdef; txtVerifyPassword=abcdef", L"Invalid Password", weak},
        {L"frmLockFields", L"txtPassword=123456; txtVerifyPassword=123456", L"Invalid Password", weak},
        {L"frmUnlockFields", L"txtPassword=", L"Password not provided",
         L"Password was not entered!\r\n\r\nPlease enter the password."},
        {L"frmUnlockFields", L"txtPassword=abc_13", L"Invalid password",
         L"Settings cannot be unlocked as the password was not correct!"},
    };
    for (const auto& [form, entered, title, text] : cases) {
        settings_[L"Password"] = form == std::wstring_view(L"frmUnlockFields") ? password : L"";
        const std::wstring before = settings_[L"Password"];
        const auto prompts =
            open({toLock, form + std::wstring(L"=") + entered + L"; cmdOK",
                  title + std::wstring(L" - Veltro=OK"), form + std::wstring(L"=cmdCancel"), close});
        EXPECT_EQ(prompts.at(2).text, text);
        EXPECT_EQ(prompts.at(2).style.icon, platform::Icon::Information);
        EXPECT_EQ(prompts.at(3).control(L"txtPassword").value.find(L'1'), std::wstring::npos);
        EXPECT_EQ(settings_[L"Password"], before) << text::toUtf8(entered);
    }
}

/// As a settings file may bring it.
TEST_F(Lock, CountsAsItIsWritten) {
    lockWith(L"abc_12");
    const std::wstring password = settings_[L"Password"];
    const struct {
        const wchar_t* fields;
        bool hasPassword;
        bool delayEnabled;
    } cases[] = {
        {L"Delay_Emails_by_x_Seconds=yes", true, false},
        {L";Gone=Yes;Delay_Emails_by_x_Seconds=YES;", true, false},
        {L"Delay_Emails_by_x_Seconds=Yes ", true, true},
        {L"Delay_Emails_by_x_Seconds", true, true},
        {L"Delay_Emails_by_x_Seconds=Yes", false, true},
        {L"", true, true},
    };
    for (const auto& [fields, hasPassword, delayEnabled] : cases) {
        settings_[L"LockFields"] = fields;
        settings_[L"Password"] = hasPassword ? password : L" ";
        EXPECT_EQ(open({close}).at(0).control(L"chkDelay").enabled, delayEnabled) << text::toUtf8(fields);
    }
}

}  // namespace
