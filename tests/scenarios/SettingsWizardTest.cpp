#include <gtest/gtest.h>

#include <algorithm>

#include "platform/text.h"
#include "tests/scenarios/Bench.h"

namespace {

using Answers = std::vector<std::wstring>;

constexpr wchar_t cancel[] = L"frmIntroWizard=cmdNav(1)";
const std::vector<std::wstring> settingsButton{L"Tarnwell", L"Veltro", L"Settings"};

void openSettings(Bench& bench) {
    bench.outlook().choose(bench.outlook().explorers().front(), settingsButton);
}

/// One opening of the settings, answered so.
struct Opened {
    explicit Opened(Answers answers, std::map<std::wstring, std::wstring> settings = {})
        : bench({.settings = std::move(settings), .answers = std::move(answers)}) {
        openSettings(bench);
    }
    std::optional<std::wstring> setting(const wchar_t* key) { return bench.world().setting(key); }
    /// What the settings showed when they asked for the `time`-th time.
    const platform::ControlState& shown(std::size_t time, const wchar_t* control) const {
        std::vector<const PromptLog::Prompt*> wizards;
        for (const PromptLog::Prompt& prompt : bench.prompts()) {
            if (prompt.where == L"frmIntroWizard") {
                wizards.push_back(&prompt);
            }
        }
        return wizards.at(time)->control(control);
    }

    Bench bench;
};

TEST(Settings, ChangeTheNextSend) {
    Opened opened(
        {L"frmIntroWizard=chkReplyMultiple=0; TabStripWizard=Delay Sentry; chkDelay=1; txtDelayTime=90; "
         L"cmdNav(4)",
         L"frmNotifyB4Delay=cmdYes"});
    EXPECT_EQ(opened.setting(L"ReplyMultiple"), L"False");
    EXPECT_EQ(opened.setting(L"DelayTime"), L"90");
    const host::SendOutcome sent = opened.bench.send(plainMail());
    ASSERT_TRUE(sent.mail.deferred);
    EXPECT_NEAR(sent.mail.deferred->days, noonOfAnOrdinaryDay.days + 90 / 86400.0, 1e-9);
}

const std::map<std::wstring, std::wstring> otherThanTheDefaults{
    {L"ReplyMultiple", L"False"},
    {L"ReplyALL_BCC", L"False"},
    {L"ReplyAllAny", L"False"},
    {L"ReplyInternalCheck", L"True"},
    {L"DomainName", L"a.org;b.org"},
    {L"ReplyAllAutoRemove", L"False"},
    {L"PlaySound", L"True"},
    {L"CheckEmptySubject", L"False"},
    {L"RemoveSpamWords", L"False"},
    {L"AutoRemoveSpamWords", L"1"},
    {L"SpamKeyWords", L"[X];[Y]"},
    {L"CheckMultipleReFwd", L"False"},
    {L"PromptReplyOnOlderEmails", L"False"},
    {L"OldEmailDays", L"7"},
    {L"CheckAttachMissing", L"False"},
    {L"AttachKeyWords", L"file"},
    {L"MsgAddAddress", L"1"},
    {L"DoNotShowSelect", L"1"},
    {L"DisplayConfirmation", L"2"},
    {L"ConfirmEmailAddrs", L"ann@a.org;bob@b.org"},
    {L"ConfirmForXRecipients", L"True"},
    {L"XRecipients", L"9"},
    {L"DelayEmails", L"True"},
    {L"DelayTime", L"5"},
    {L"AutoDelayAll", L"0"},
    {L"DelayedEmailAddrs", L"cy@c.org"},
    {L"NotifyBeforeDelaying", L"False"},
    {L"UseOutlookSettings", L"False"},
    {L"EmailList", L"me@x.org"},
};

TEST(Settings, AreStoredAsTheyAreShown) {
    Opened changed({L"frmIntroWizard=cmdNav(4)"}, otherThanTheDefaults);
    for (const auto& [key, value] : otherThanTheDefaults) {
        EXPECT_EQ(changed.setting(key.c_str()), value) << text::toUtf8(key);
    }
}

TEST(Settings, AreStoredAsTheirDefaultsWhereNoneWere) {
    Opened defaults({L"frmIntroWizard=cmdNav(4)"}, {{L"MsgAddAddress", L""}});
    const std::map<std::wstring, std::wstring> some{
        {L"ReplyMultiple", L"True"},    {L"SpamKeyWords", L"SPAM-LOW:;SPAM-MED:;SPAM-HIGH:"},
        {L"OldEmailDays", L"28"},       {L"MsgAddAddress", L"1"},
        {L"DisplayConfirmation", L"0"}, {L"DelayTime", L"60"},
        {L"AutoDelayAll", L"1"},        {L"EmailList", L"me@example.org"}};
    for (const auto& [key, value] : some) {
        EXPECT_EQ(defaults.setting(key.c_str()), value) << text::toUtf8(key);
    }
}

TEST(Settings, StayAsTheyAreWhenTheUserCancels) {
    for (const wchar_t* end : {L"cmdNav(1)", L"{Escape}"}) {
        Opened opened(
            {L"frmIntroWizard=chkPlaySound=1; TabStripWizard=Send Confirm; "
             L"chkConfirmForXRecipt=1; txtXRecipients=x; " +
             std::wstring(end)});
        EXPECT_EQ(opened.setting(L"PlaySound"), std::nullopt);
    }
}

struct Refused {
    const wchar_t* typed;
    const wchar_t* title;
    const wchar_t* text;
};

/// What is typed is refused when the user wants to save, whatever the key.
class RefusedSettings : public testing::TestWithParam<Refused> {};

TEST_P(RefusedSettings, AreToldAndNotStored) {
    const auto& [typed, title, text] = GetParam();
    for (const wchar_t* save : {L"cmdNav(4)", L"{Enter}"}) {
        Opened opened({std::wstring(L"frmIntroWizard=chkPlaySound=1; ") + typed + L"; " + save,
                       std::wstring(title) + L" - Veltro=OK", cancel});
        ASSERT_EQ(opened.bench.prompts().size(), 3U);
        EXPECT_EQ(opened.bench.prompts().at(1).text, text);
        EXPECT_EQ(opened.bench.prompts().at(1).style.icon, platform::Icon::Information);
        EXPECT_EQ(opened.setting(L"PlaySound"), std::nullopt);
    }
}

constexpr wchar_t wantedNumber[] = L"Please enter a numeric value greater than 0.";
constexpr wchar_t wantedDomains[] =
    L"At least one of the domains entered is incorrect.\r\nPlease verify that you have entered the correct "
    L"domains.";
constexpr wchar_t wantedTime[] = L"Please enter a whole number greater than 0 for the delay time.";

INSTANTIATE_TEST_SUITE_P(
    Typed, RefusedSettings,
    testing::Values(
        Refused{L"TabStripWizard=Subject Sentry; txtOldEmailsDays= ", L"Number of Days missing",
                wantedNumber},
        Refused{L"TabStripWizard=Subject Sentry; txtOldEmailsDays=0.9", L"Invalid Number of Days",
                wantedNumber},
        Refused{L"TabStripWizard=Send Confirm; chkConfirmForXRecipt=1; txtXRecipients=",
                L"Number of Recipients missing", wantedNumber},
        Refused{L"TabStripWizard=Send Confirm; chkConfirmForXRecipt=1; txtXRecipients=many",
                L"Invalid Number of Recipients", wantedNumber},
        Refused{L"TabStripWizard=Subject Sentry; txtOldEmailsDays=1e999", L"Invalid Number of Days",
                wantedNumber},
        Refused{L"TabStripWizard=Delay Sentry; txtDelayTime=0", L"Invalid time", wantedTime},
        Refused{L"TabStripWizard=Delay Sentry; txtDelayTime=", L"Invalid time", wantedTime},
        Refused{L"TabStripWizard=Delay Sentry; txtDelayTime=2147483648", L"Invalid time",
                L"Please enter a whole number between 0 and 2147483647"},
        Refused{L"txtDomains=a.org;; b.org", L"Verify domain", wantedDomains},
        Refused{L"txtDomains=a", L"Verify domain", wantedDomains},
        Refused{
            L"chkReplyInternalCheck=1; TabStripWizard=Delay Sentry", L"No domain entered",
            L"Please enter a domain or un-tick the option\r\n'Do not warn when all recipients are part of "
            L"the domain'"}));

TEST(Settings, KeepTheWholePartOfACountAndPassOverWhatIsSwitchedOff) {
    Opened opened(
        {L"frmIntroWizard=TabStripWizard=Subject Sentry; txtOldEmailsDays=2.7; "
         L"TabStripWizard=Send Confirm; chkConfirmForXRecipt=0; txtXRecipients=x; cmdNav(4)"});
    EXPECT_EQ(opened.setting(L"OldEmailDays"), L"2");
    EXPECT_EQ(opened.setting(L"XRecipients"), L"x");  // Reads as the default.
}

TEST(Settings, LeadToTheMissingDomain) {
    Opened opened({L"frmIntroWizard=chkReplyInternalCheck=1; TabStripWizard=My Email Accounts; cmdNav(4)",
                   L"No domain entered=OK", L"frmIntroWizard=txtDomains=a.org; cmdNav(4)"});
    EXPECT_EQ(opened.shown(1, L"TabStripWizard").value, L"Reply Sentry");
    EXPECT_EQ(opened.setting(L"DomainName"), L"a.org");
}

TEST(Settings, ArePagedBackAndForth) {
    Opened opened({L"frmIntroWizard=cmdNav(3)", L"frmIntroWizard=TabStripWizard=delay sentry; cmdNav(3)",
                   L"frmIntroWizard=cmdNav(2)", cancel});
    const struct {
        const wchar_t* page;
        const wchar_t* heading;
        bool back;
        bool next;
        const wchar_t* onIt;
    } expected[] = {
        {L"Reply Sentry", L"REPLY SENTRY SETTINGS", false, true, L"txtDomains"},
        {L"Subject Sentry", L"SUBJECT SENTRY SETTINGS", true, true, L"lblOlderEmailLink"},
        {L"My Email Accounts", L"MY EMAIL ACCOUNTS", true, false, L"lstEmailAccounts"},
        {L"Delay Sentry", L"DELAY SENTRY SETTINGS", true, true, L"txtDelayTime"},
    };
    for (std::size_t time = 0; time < std::size(expected); ++time) {
        EXPECT_EQ(opened.shown(time, L"TabStripWizard").value, expected[time].page);
        EXPECT_EQ(opened.shown(time, L"lblTabTitle").caption, expected[time].heading);
        EXPECT_FALSE(opened.shown(time, L"lblChecks").visible) << "the first page is for the first start";
        EXPECT_EQ(opened.shown(time, L"cmdNav(2)").enabled, expected[time].back);
        EXPECT_EQ(opened.shown(time, L"cmdNav(3)").enabled, expected[time].next);
        for (const auto& other : expected) {
            EXPECT_EQ(opened.shown(time, other.onIt).visible, &other == &expected[time]);
        }
    }
}

TEST(Settings, WelcomeANewUserOnce) {
    Bench bench(
        {.settings = {{L"ShowStartupWizard", L""}},
         .answers = {L"frmIntroWizard=TabStripWizard=Reply Sentry; chkPlaySound=1; cmdNav(4)", cancel},
         .connected = false});
    EXPECT_TRUE(bench.connect());
    ASSERT_EQ(bench.prompts().size(), 1U);
    EXPECT_EQ(bench.prompts().at(0).control(L"TabStripWizard").value, L"Intro");
    EXPECT_TRUE(bench.prompts().at(0).control(L"lblChecks").visible);
    EXPECT_TRUE(bench.prompts().at(0).control(L"imgIntro").visible);
    EXPECT_EQ(bench.world().setting(L"ShowStartupWizard"), L"False");
    openSettings(bench);
    EXPECT_EQ(bench.prompts().at(1).control(L"TabStripWizard").value, L"Reply Sentry");
}

struct ListCase {
    const char* name;
    const wchar_t* page;
    const wchar_t* list;
    const wchar_t* key;
    const wchar_t* add;
    const wchar_t* remove;
    const wchar_t* prompt;
    const wchar_t* caption;
    const wchar_t* noun;
    /// In the order in which they come for nothing, for what is no address, for what is there.
    std::vector<Refused> refused;
    const wchar_t* stored;
    const wchar_t* added;
    const wchar_t* after;
};

class SettingsList : public testing::TestWithParam<ListCase> {};

TEST_P(SettingsList, IsAddedToAndDeletedFrom) {
    const ListCase& given = GetParam();
    const std::wstring page = std::wstring(L"frmIntroWizard=TabStripWizard=") + given.page + L"; ";
    Answers answers{page + given.remove, L"No item selected - Veltro=OK", page + given.add};
    for (const Refused& refused : given.refused) {
        answers.push_back(std::wstring(L"frmGetUserInput=txtInput=") + refused.typed + L"; cmdOK");
        answers.push_back(std::wstring(refused.title) + L" - Veltro=OK");
    }
    answers.push_back(std::wstring(L"frmGetUserInput=txtInput= ") + given.added + L" ; cmdOK");
    answers.push_back(page + given.list + L"=1,2; " + given.remove);
    answers.push_back(L"Confirm delete - Veltro=No");
    answers.push_back(page + given.remove);
    answers.push_back(L"Confirm delete - Veltro=Yes");
    answers.push_back(L"frmIntroWizard=cmdNav(4)");
    Opened opened(answers, {{given.key, given.stored}, {L"UseOutlookSettings", L"False"}});

    const auto& prompts = opened.bench.prompts();
    EXPECT_EQ(prompts.at(1).text, L"Please select an item from the list");
    EXPECT_EQ(prompts.at(3).text, given.caption);
    EXPECT_EQ(prompts.at(3).control(L"lblPrompt").caption, given.prompt);
    for (std::size_t index = 0; index < given.refused.size(); ++index) {
        EXPECT_EQ(prompts.at(4 + 2 * index).text, given.refused[index].text);
    }
    EXPECT_EQ(prompts.at(prompts.size() - 2).text,
              std::wstring(L"Are you sure you want to delete the selected ") + given.noun);
    EXPECT_EQ(opened.setting(given.key), given.after);
}

const std::vector<Refused> refusedAddresses{
    {L" ", L"Email Address missing", L"Please enter the e-mail address"},
    {L"ANN@a.org", L"Existing Email Address", L"There is already an existing e-mail with this address. "},
    {L"ann", L"Invalid Email Address", L"Please enter a valid Email Address"}};

INSTANTIATE_TEST_SUITE_P(
    Lists, SettingsList,
    testing::Values(
        ListCase{"Keywords",
                 L"Attachment Sentry",
                 L"lstKeywords",
                 L"AttachKeyWords",
                 L"cmdAdd_Attach",
                 L"cmdDelete_Attach",
                 L"Enter a keyword that implies that you need to have attachment(s) to the email",
                 L"Add attachment keyword",
                 L"Keyword(s)?",
                 {{L"", L"Keyword missing", L"Please enter the keyword"},
                  {L"FILE", L"Existing keyword",
                   L"There is already an existing keyword. \r\nPlease enter another keyword"}},
                 L"file;picture;plan",
                 L"scan",
                 L"plan;scan"},
        ListCase{"SpamMarks",
                 L"Subject Sentry",
                 L"lstSpamWords",
                 L"SpamKeyWords",
                 L"cmdAdd_Spam",
                 L"cmdDelete_Spam",
                 L"Enter the SPAM Mark phrase added in Subject by Anti-Spam software",
                 L"Add SPAM Mark phrase",
                 L"item(s)?",
                 {{L"", L"SPAM Mark phrase missing", L"Please enter the SPAM Mark phrase"},
                  {L"[x]", L"Existing SPAM Mark phrase",
                   L"There is already an existing SPAM Mark phrase. \r\nPlease enter another SPAM Mark "
                   L"phrase"}},
                 L"[X];;[Y]",
                 L"[Z]",
                 L"[Z]"},
        ListCase{"Confirmed", L"Send Confirm", L"lstConfirmEmailAddresses", L"ConfirmEmailAddrs",
                 L"cmdAdd_Confirm", L"cmdDelete_Confirm",
                 L"Enter the email address for which you want to confirm before sending the email",
                 L"Add email address", L"Email address(es)?", refusedAddresses, L"ann@a.org;bob@b.org",
                 L"cy@c.org", L"cy@c.org"},
        ListCase{"Delayed", L"Delay Sentry", L"lstDelayToEAddr", L"DelayedEmailAddrs", L"cmdAdd_EAddr",
                 L"cmdDelete_EAddr", L"Enter the email address for which you want to delay the email sending",
                 L"Add email address", L"Email address(es)?", refusedAddresses, L"ann@a.org;bob@b.org",
                 L"cy@c.org", L"cy@c.org"},
        ListCase{"Own",
                 L"My Email Accounts",
                 L"lstEmailAccounts",
                 L"EmailList",
                 L"cmdAdd_EmailAcc",
                 L"cmdDelete_EmailAcc",
                 L"Enter your email address",
                 L"Add email address",
                 L"Email address(es)?",
                 {{L"", L"Email address missing", L"Please enter an email address."},
                  {L"ann", L"Invalid email address", L"Please enter a valid email address."},
                  {L"Ann@a.org", L"Existing email address",
                   L"There is already an existing email address.\r\nPlease enter another email address"}},
                 L"ann@a.org;bob@b.org",
                 L"cy@c.org",
                 L"cy@c.org"}),
    [](const auto& test) { return test.param.name; });

TEST(Settings, BringDefaultsBack) {
    Opened opened(
        {L"frmIntroWizard=TabStripWizard=Subject Sentry; cmdReset_Spam",
         L"frmIntroWizard=TabStripWizard=Attachment Sentry; cmdReset_Attach", L"frmIntroWizard=cmdNav(4)"},
        {{L"SpamKeyWords", L""}, {L"AttachKeyWords", L"x"}});
    EXPECT_EQ(opened.setting(L"SpamKeyWords"), L"SPAM-LOW:;SPAM-MED:;SPAM-HIGH:");
    EXPECT_EQ(opened.setting(L"AttachKeyWords"), L"attach;attached;attachment;enclose;enclosed;enclosing");
}

TEST(Settings, TakeTheAddressesOfTheProfileWhenTheUserAgrees) {
    for (const bool agrees : {true, false}) {
        Opened opened({L"frmIntroWizard=TabStripWizard=My Email Accounts; chkEmailFromOutlook=1; cmdNav(4)",
                       std::wstring(L"Confirm action - Veltro=") + (agrees ? L"Yes" : L"No")},
                      {{L"UseOutlookSettings", L"False"}, {L"EmailList", L"old@x.org"}});
        EXPECT_EQ(
            opened.bench.prompts().at(1).text,
            L"This action will reset your email address list to the corresponding email accounts linked "
            L"to your Outlook.\r\nYou will loose any changes you made to your email address list.\r\nDo "
            L"you want to continue?");
        EXPECT_EQ(opened.setting(L"UseOutlookSettings"), agrees ? L"True" : L"False");
        EXPECT_EQ(opened.setting(L"EmailList"), agrees ? L"me@example.org" : L"old@x.org");
    }
}

TEST(Settings, LeadToTheSettingsOfTheAttachmentCheck) {
    Opened opened({L"frmIntroWizard=TabStripWizard=Attachment Sentry; lblIgnoreSig",
                   L"frmSigDisclaimer=chkIgnoreAttach=1; txtIgnoreAttach=me.vcf; cmdSave",
                   L"frmIntroWizard=TabStripWizard=Subject Sentry; lblOlderEmailLink",
                   L"Replying to older emails - Veltro=OK", cancel});
    EXPECT_EQ(opened.setting(L"IgnoreAttachValue"), L"me.vcf");
    EXPECT_EQ(
        opened.bench.prompts().at(3).text,
        L"An old e-mail is often answered only to reach the same people again, about something new. Its "
        L"subject then says the wrong thing.\r\n\r\nVeltro shows you the subject of such an answer, so "
        L"that you can change it or leave it as it is.");
}

TEST(Settings, SayWhichOutlooksHaveNoPreferredAccounts) {
    for (const auto& [version, shown] :
         {std::pair{L"10.0.0.2627", true}, {L"11.0.0.5608", false}, {L"16.0.0.1", false}}) {
        Given setup{.answers = {L"frmIntroWizard=TabStripWizard=Attachment Sentry; cmdNav(3)", cancel}};
        setup.profile.version = version;
        Bench bench(setup);
        openSettings(bench);
        EXPECT_EQ(bench.prompts().at(1).control(L"lblAgStatus").visible, shown);
    }
}

}  // namespace
