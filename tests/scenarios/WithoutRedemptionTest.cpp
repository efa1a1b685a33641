#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"
#include "tests/scenarios/replies.h"

namespace {

using namespace replies;
using host::SendState;

const std::wstring startMessage = L"Veltro";

/// A machine without the Redemption library.
Given without(const wchar_t* version, std::vector<std::wstring> answers = {},
              std::map<std::wstring, std::wstring> settings = {}) {
    Given setup{.settings = std::move(settings), .answers = std::move(answers)};
    setup.profile.version = version;
    setup.profile.redemptionRegistered = false;
    return setup;
}

constexpr wchar_t outlook2002[] = L"10.0.0.2627";
constexpr wchar_t outlook2003[] = L"11.0.0.5510";

TEST(WithoutRedemption, TheStartSaysWhatTheVersionLacks) {
    constexpr wchar_t recipients[] =
        L"Veltro cannot read the recipients of your e-mails, because the Redemption library is missing on this "
        L"computer.\r\n\r\nUntil it is installed and Outlook is started again, subjects and attachments are "
        L"checked. Recipients, and what depends on them, are not.";
    constexpr wchar_t accounts[] =
        L"Veltro cannot choose the account of your e-mails, because the Redemption library is missing on this "
        L"computer.\r\n\r\nUntil it is installed and Outlook is started again, preferred accounts are not "
        L"available. Everything else is checked.";
    const struct {
        const wchar_t* version;
        const wchar_t* text;
    } cases[] = {{L"9.0.0.2711", recipients},
                 {outlook2002, recipients},
                 {outlook2003, accounts},
                 {L"12.0.0.4518", nullptr},
                 {newestOutlook, nullptr}};
    for (const auto& given : cases) {
        const bool says = given.text != nullptr;
        Bench bench(without(given.version, says ? Names{L"Veltro=OK"} : Names()));
        ASSERT_EQ(bench.promptNames(), says ? Names{startMessage} : Names()) << given.version;
        if (says) {
            EXPECT_EQ(bench.prompts()[0].text, given.text);
            EXPECT_EQ(bench.prompts()[0].style.icon, platform::Icon::Warning);
        }
        bench.disconnect();
        bench.connect();
        EXPECT_EQ(bench.prompts().size(), says ? 1U : 0U) << "at the next start " << given.version;
        EXPECT_TRUE(bench.outlook().errors().empty());
    }
}

TEST(WithoutRedemption, AStartWithoutAWindowSaysSoWithTheFirstWindow) {
    Given setup = without(outlook2003, {L"Veltro=OK"});
    setup.profile.explorers = 0;
    Bench bench(setup);
    const automation::Object mail = bench.outlook().application().call(L"CreateItem", 0).toObject();
    const automation::Object hidden = mail.get(L"GetInspector").toObject();
    EXPECT_TRUE(bench.prompts().empty()) << "a window that a program never shows";
    bench.outlook().openNewMail(plainMail());
    bench.outlook().openNewMail(plainMail());
    EXPECT_EQ(bench.promptNames(), Names{startMessage});
}

/// Every check is switched on.
const std::map<std::wstring, std::wstring> everything{{L"LibraryMissingTold", L"1"},
                                                      {L"DisplayConfirmation", L"2"},
                                                      {L"ConfirmEmailAddrs", L"bob@example.org"},
                                                      {L"ConfirmForXRecipients", L"True"},
                                                      {L"XRecipients", L"0"},
                                                      {L"DelayEmails", L"True"},
                                                      {L"AutoDelayAll", L"0"},
                                                      {L"DelayedEmailAddrs", L"bob@example.org"},
                                                      {L"MsgAddAddress", L"0"},
                                                      {L"ReplyMultiple", L"True"},
                                                      {L"ReplyALL_BCC", L"True"},
                                                      {L"ReplyAllAny", L"True"},
                                                      {L"ReplyAllAutoRemove", L"True"}};

/// What the version has no trust for is not asked about, and holds no mail back.
TEST(WithoutRedemption, MailsAreCheckedAsFarAsTheyCanBeRead) {
    const std::wstring attachment(attachmentPrompt);
    const std::wstring confirmation = L"Confirm Email Send - Veltro";
    const struct {
        const wchar_t* version;
        Names prompts;
    } cases[] = {
        {outlook2002, {attachment}},
        {outlook2003, {attachment, confirmation, L"frmNotifyB4Delay"}},
        {newestOutlook, {attachment, confirmation, L"frmNotifyB4Delay", L"frmAddEmailToList"}},
    };
    for (const auto& given : cases) {
        Bench bench(without(given.version,
                            {L"Attachment(s) missing=Yes", L"Confirm Email Send=Yes",
                             L"frmNotifyB4Delay=cmdNo", L"frmAddEmailToList=cmdNo"},
                            everything));
        EXPECT_EQ(bench.send(plainMail(L"Budget", L"See attached.")).state, SendState::Sent) << given.version;
        EXPECT_EQ(bench.promptNames(), given.prompts) << given.version;
        EXPECT_TRUE(bench.outlook().errors().empty());
        EXPECT_TRUE(bench.outlook().guardPrompts().empty())
            << testing::PrintToString(bench.outlook().guardPrompts());
    }
}

/// Outlook 2003 tells no content ids: a picture is known by the name of its file.
TEST(WithoutRedemption, PicturesInTheTextAreKnownByTheirNames) {
    for (const wchar_t* version : {outlook2002, outlook2003, newestOutlook}) {
        host::Message picture = plainMail(L"Budget", L"See attached.");
        picture.html = L"<html><body>See attached.<img src=\"cid:logo.png@01D9\"></body></html>";
        picture.attachments = {{.fileName = L"logo.png", .contentId = L"logo.png@01D9"}};
        host::Message file = picture;
        file.attachments = {{.fileName = L"attached", .contentId = L""}};
        host::Message nameless = picture;
        nameless.attachments = {{.fileName = L"", .contentId = L""}};
        Bench bench(without(version, {L"Attachment(s) missing=No"}, {{L"LibraryMissingTold", L"1"}}));
        EXPECT_EQ(bench.send(picture).state, SendState::Cancelled) << version;
        EXPECT_EQ(bench.send(file).state, SendState::Sent) << version;
        EXPECT_EQ(bench.send(nameless).state, SendState::Sent) << version;
        EXPECT_TRUE(bench.outlook().guardPrompts().empty()) << version;
    }
}

TEST(WithoutRedemption, AnswersOpenAsFarAsTheMailCanBeRead) {
    host::Message old = mailTo({bob, me});
    old.deliveryTime = automation::Date{36526};  // 1 January 2000
    const struct {
        const wchar_t* version;
        host::ReplyKind kind;
        Names prompts;
    } cases[] = {
        {outlook2002, host::ReplyKind::Reply, {L"frmOldSubject"}},
        {outlook2002, host::ReplyKind::ReplyAll, {L"frmOldSubject"}},
        {outlook2002, host::ReplyKind::Forward, {}},
        {outlook2003, host::ReplyKind::ReplyAll, {L"frmOldSubject", L"frmReplyMultRecipt"}},
        {newestOutlook, host::ReplyKind::ReplyAll, {L"frmOldSubject", L"frmReplyMultRecipt"}},
    };
    for (const auto& given : cases) {
        Bench bench(
            without(given.version, {L"frmOldSubject=cmdOK", L"frmReplyMultRecipt=cmdOK"}, everything));
        const auto item = selected(bench, old);
        EXPECT_TRUE(bench.outlook().answer(given.kind, item).opened) << given.version;
        EXPECT_EQ(bench.promptNames(), given.prompts) << given.version;
        EXPECT_TRUE(bench.outlook().errors().empty());
        EXPECT_TRUE(bench.outlook().guardPrompts().empty())
            << testing::PrintToString(bench.outlook().guardPrompts());
    }
}

/// The profile's addresses cannot be had in Outlook 2003, but those that were stored.
TEST(WithoutRedemption, BlindCopiesAreNoticedByTheStoredAddresses) {
    for (const wchar_t* stored : {L"me@example.org", L""}) {
        Bench bench(without(outlook2003, {L"BCCed e-mail=No", L"frmReplyMultRecipt=cmdOK"},
                            {{L"LibraryMissingTold", L"1"}, {L"EmailList", stored}}));
        const auto item = selected(bench, mailTo({bob}));
        EXPECT_EQ(bench.outlook().replyAll(item).opened, *stored == L'\0') << "asks for " << stored;
    }
}

TEST(WithoutRedemption, SendersThatNobodyKnowsAreNotComplainedOf) {
    host::Message gone = mailTo({bob});
    gone.from = host::Address{.name = L"Gone", .address = L"/o=x/cn=gone", .type = L"EX"};
    for (const wchar_t* version : {outlook2003, L"12.0.0.4518", newestOutlook}) {
        Bench bench(without(version, {L"BCCed e-mail=Yes", L"frmReplyMultRecipt=cmdOK"},
                            {{L"LibraryMissingTold", L"1"}, {L"EmailList", L"me@example.org"}}));
        EXPECT_TRUE(bench.outlook().replyAll(selected(bench, gone)).opened) << version;
        EXPECT_EQ(bench.promptNames(), (Names{L"BCCed e-mail - Veltro", L"frmReplyMultRecipt"})) << version;
    }
}

/// Word's process cannot be reached without a question of Outlook's: Outlook's own asks.
TEST(WithoutRedemption, MailsEditedInWordAreCheckedInOutlook) {
    for (const auto& [version, delays] : {std::pair{outlook2002, false}, {outlook2003, true}}) {
        Given setup = without(version, {L"frmNoSubject=cmdOK", L"frmNotifyB4Delay=cmdYes"}, everything);
        setup.settings[L"DisplayConfirmation"] = L"0";
        setup.settings[L"ConfirmForXRecipients"] = L"False";
        setup.profile.editor = host::Editor::Word;
        Bench bench(setup);
        const auto outcome = bench.send(plainMail(L""));
        EXPECT_EQ(outcome.state, delays ? SendState::Deferred : SendState::Sent) << version;
        EXPECT_EQ(bench.promptNames(),
                  delays ? (Names{L"frmNoSubject", L"frmNotifyB4Delay"}) : Names{L"frmNoSubject"})
            << version;
        EXPECT_TRUE(bench.outlook().guardPrompts().empty()) << version;
    }
}

/// An administrator may have Outlook refuse everybody: then nothing is known, which is no fault.
TEST(WithoutRedemption, RefusalsHoldNothingBackAndAreNotTold) {
    for (const std::int32_t refusal : {host::guardRefusal::aborted, host::guardRefusal::userCancelled}) {
        std::map<std::wstring, std::wstring> settings = everything;
        settings.insert_or_assign(L"MsgAddAddress", L"0");
        Given setup = without(newestOutlook, {L"frmOldSubject=cmdOK"}, settings);
        setup.profile.guard = host::GuardMode::Everybody;
        setup.profile.guardRefusal = refusal;
        setup.settings[L"EmailList"] = L"me@example.org";
        Bench bench(setup);
        EXPECT_EQ(bench.send(plainMail(L"Budget", L"See attached.")).state, SendState::Sent);
        for (const auto kind : {host::ReplyKind::Reply, host::ReplyKind::ReplyAll}) {
            EXPECT_TRUE(bench.outlook().answer(kind, selected(bench, mailTo({bob, me}))).opened);
        }
        EXPECT_TRUE(bench.prompts().empty()) << testing::PrintToString(bench.promptNames());
        EXPECT_EQ(bench.world().setting(L"EmailList"), L"me@example.org") << "unknown is not empty";
        EXPECT_TRUE(bench.outlook().errors().empty());
    }
}

TEST(WithoutRedemption, TheAccountListSaysWhyItDoesNotOpen) {
    Bench bench(without(outlook2003, {L"Veltro=OK"}, {{L"LibraryMissingTold", L"1"}}));
    bench.outlook().choose(bench.outlook().explorers().front(),
                           {L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"});
    EXPECT_EQ(bench.promptNames(), Names{startMessage});
}

}  // namespace
