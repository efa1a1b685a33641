#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

namespace {

using automation::Object;
using host::SendState;
using Names = std::vector<std::wstring>;

/// A machine without the Redemption library, whose user acknowledges what is said at the start.
Given without(std::vector<std::wstring> answers, std::map<std::wstring, std::wstring> settings = {}) {
    answers.insert(answers.begin(), L"Veltro=OK");
    Given setup{.settings = std::move(settings), .answers = std::move(answers)};
    setup.profile.redemptionRegistered = false;
    return setup;
}

const std::wstring startMessage = L"Veltro";

TEST(WithoutRedemption, TheStartSaysSoOnce) {
    Bench bench(without({}));
    ASSERT_EQ(bench.promptNames(), Names{startMessage});
    EXPECT_EQ(
        bench.prompts()[0].text,
        L"Veltro cannot read e-mails, because the Redemption library is missing on this computer.\r\n\r\n"
        L"Until it is installed and Outlook is started again, only the subjects of your e-mails are checked. "
        L"Attachments, recipients, delayed sending and preferred accounts are not.");
    EXPECT_EQ(bench.prompts()[0].style.icon, platform::Icon::Warning);
    EXPECT_TRUE(bench.outlook().errors().empty());
}

TEST(WithoutRedemption, EachStartSaysSo) {
    Bench bench(without({L"Veltro=OK"}));
    bench.disconnect();
    bench.connect();
    EXPECT_EQ(bench.promptNames(), (Names{startMessage, startMessage}));
}

TEST(WithoutRedemption, AStartWithoutAWindowSaysSoWithTheFirstWindow) {
    Given setup = without({});
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
const std::map<std::wstring, std::wstring> everything{
    {L"DisplayConfirmation", L"2"},      {L"ConfirmEmailAddrs", L"bob@example.org"},
    {L"ConfirmForXRecipients", L"True"}, {L"XRecipients", L"0"},
    {L"DelayEmails", L"True"},           {L"MsgAddAddress", L"0"},
    {L"ReplyMultiple", L"True"},         {L"ReplyALL_BCC", L"True"},
    {L"ReplyAllAny", L"True"},           {L"ReplyAllAutoRemove", L"True"}};

TEST(WithoutRedemption, MailsLeaveWithoutAWord) {
    for (const wchar_t* version : {L"10.0.0.2627", L"11.0.0.5510", L"14.0.0.4760"}) {
        Given setup = without({}, everything);
        setup.profile.version = version;
        Bench bench(setup);
        EXPECT_EQ(bench.send(plainMail(L"Budget", L"See attached.")).state, SendState::Sent);
        EXPECT_EQ(bench.promptNames(), Names{startMessage});
        EXPECT_TRUE(bench.outlook().errors().empty());
    }
}

TEST(WithoutRedemption, AnswersOpenWithoutAWord) {
    host::Message old = plainMail();
    old.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    old.to.push_back({.name = L"Carl", .address = L"carl@example.com"});
    old.deliveryTime = automation::Date{36526};  // 1 January 2000
    for (const auto kind : {host::ReplyKind::Reply, host::ReplyKind::ReplyAll, host::ReplyKind::Forward}) {
        Bench bench(without({}, everything));
        const Object item = bench.outlook().receive(old);
        bench.outlook().select(bench.outlook().explorers().front(), {item});
        EXPECT_TRUE(bench.outlook().answer(kind, item).opened);
        EXPECT_EQ(bench.promptNames(), Names{startMessage});
        EXPECT_TRUE(bench.outlook().errors().empty());
    }
}

TEST(WithoutRedemption, SubjectsAreChecked) {
    Bench bench(without({L"frmNoSubject=cmdCancel", L"frmRemoveSpam=cmdYes"}));
    EXPECT_EQ(bench.send(plainMail(L"")).state, SendState::Cancelled);
    const Object item = bench.outlook().receive(plainMail(L"SPAM-LOW: Budget"));
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    EXPECT_EQ(bench.outlook().view(bench.outlook().forward(item).item).subject, L"FW: Budget");
    EXPECT_EQ(bench.promptNames(), (Names{startMessage, L"frmNoSubject", L"frmRemoveSpam"}));
}

TEST(WithoutRedemption, TheAccountListSaysWhyItDoesNotOpen) {
    Bench bench(without({L"Veltro=OK"}));
    bench.outlook().pressControl(bench.outlook().explorers().front(),
                                 {L"Tarnwell", L"Veltro", L"Send Account (Preferred) List"});
    ASSERT_EQ(bench.promptNames(), (Names{startMessage, startMessage}));
    EXPECT_EQ(bench.prompts()[1].text, bench.prompts()[0].text);
}

}  // namespace
