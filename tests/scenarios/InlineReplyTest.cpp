#include <gtest/gtest.h>

#include "tests/accounts/listTexts.h"
#include "tests/scenarios/Bench.h"

/// Responses written in the reading pane of a main window: from Outlook 2013 on they have no window.
namespace {

using automation::Object;
using host::ReplyKind;
using host::SendState;
using Names = std::vector<std::wstring>;

constexpr wchar_t outlook2013[] = L"15.0.4420.1017";

Given given(Names answers, std::map<std::wstring, std::wstring> settings = {}) {
    Given result{.settings = std::move(settings), .answers = std::move(answers)};
    result.profile.version = outlook2013;
    return result;
}

/// A mail from Ann to the user, selected in the main window.
Object receiveFromAnn(Bench& bench, const std::wstring& subject = L"Budget") {
    host::Message message = plainMail(subject);
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.org"};
    message.to = {{.name = L"Me", .address = L"me@example.org"}};
    const Object item = bench.outlook().receive(message);
    bench.outlook().select(bench.outlook().explorers().front(), {item});
    return item;
}

/// Answers Ann in the reading pane. Gives the response.
Object answerInline(Bench& bench, ReplyKind kind = ReplyKind::Reply) {
    const Object item = receiveFromAnn(bench);
    return bench.outlook().answerInline(bench.outlook().explorers().front(), kind, item).item;
}

Object pane(Bench& bench) {
    return bench.outlook().explorers().front();
}

TEST(InlineReply, GoesThroughTheWholeOfASend) {
    Given setup = given({L"frmNoSubject=txtSubject=Plan; cmdOK", L"Attachment(s) missing=Yes", L"Confirm=Yes",
                         L"frmNotifyB4Delay=cmdYes", L"frmSelectSendAcct=cmdOK"},
                        {{L"DisplayConfirmation", L"1"},
                         {L"DelayEmails", L"True"},
                         {L"AutoDelayAll", L"1"},
                         {L"DelayTime", L"90"},
                         {L"NotifyBeforeDelaying", L"True"}});
    setup.profile = profileWith(listText(Entries{{L"ann@example.org", L"Home"}}), corvaneFolder);
    setup.profile.version = outlook2013;
    Bench bench(setup);
    const Object response = answerInline(bench);
    bench.outlook().typeSubject(response, L"");
    bench.outlook().typeBody(response, L"See the attached report.");
    const host::SendOutcome outcome = bench.outlook().sendInline(pane(bench));
    EXPECT_EQ(bench.prompts().size(), 5U);
    EXPECT_EQ(outcome.state, SendState::Deferred);
    EXPECT_EQ(outcome.mail.subject, L"Plan");
    EXPECT_EQ(outcome.mail.account, L"Home");
}

TEST(InlineReply, StaysWhenTheUserSaysNo) {
    Bench bench(given({L"Attachment(s) missing=No", L"Confirm=No", L"Confirm=Yes"},
                      {{L"DisplayConfirmation", L"1"}}));
    const Object response = answerInline(bench, ReplyKind::Forward);
    response.get(L"Recipients").toObject().call(L"Add", L"bob@example.org").toObject().call(L"Resolve");
    bench.outlook().typeBody(response, L"See the attached report.");
    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Cancelled);
    bench.outlook().typeBody(response, L"See the report.");
    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Cancelled);
    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Sent);
    EXPECT_EQ(bench.prompts().size(), 3U);
}

/// The response goes on in a window of its own, and is checked once.
TEST(InlineReply, IsHandedOverWhenItIsPoppedOut) {
    Bench bench(given({L"Attachment(s) missing=No", L"Attachment(s) missing=Yes"}));
    const Object response = answerInline(bench);
    bench.outlook().typeBody(response, L"See the attached report.");
    const Object window = bench.outlook().popOut(pane(bench));
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Cancelled);
    EXPECT_EQ(bench.outlook().send(window).state, SendState::Sent);
    EXPECT_EQ(bench.prompts().size(), 2U);
}

TEST(InlineReply, IsForgottenWhenItIsLeft) {
    Bench bench(given({L"Attachment(s) missing=No"}));
    const Object left = answerInline(bench);
    bench.outlook().typeBody(left, L"See the attached report.");
    const Object next = receiveFromAnn(bench, L"Plan");  // Another mail is selected.
    ASSERT_EQ(bench.outlook().itemsIn(L"Drafts").size(), 1U);

    bench.outlook().answerInline(pane(bench), ReplyKind::Reply, next);
    bench.outlook().discardInline(pane(bench));
    EXPECT_TRUE(bench.prompts().empty());
    // A program sends the draft: no window, none of the add-in's business.
    EXPECT_EQ(bench.outlook().sendByProgram(bench.outlook().itemsIn(L"Drafts").front()).state,
              SendState::Sent);

    const Object third = bench.outlook().answerInline(pane(bench), ReplyKind::Reply, next).item;
    bench.outlook().typeBody(third, L"See the attached report.");
    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Cancelled);
}

TEST(InlineReply, IsGuardedThoughItWasBegunBefore) {
    Given setup = given({L"Attachment(s) missing=No"});
    setup.connected = false;
    Bench bench(setup);
    const Object response = answerInline(bench);
    bench.outlook().typeBody(response, L"See the attached report.");
    bench.connect();
    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Cancelled);
}

/// While it is written, a program sends other mails without a window: a draft, and one that was never saved.
TEST(InlineReply, DrawsNoOtherMailIn) {
    Bench bench(given({L"Confirm=No"}, {{L"DisplayConfirmation", L"1"}, {L"CheckAttachMissing", L"False"}}));
    answerInline(bench);
    const Object draft = bench.outlook().store(L"Drafts", plainMail());
    EXPECT_EQ(bench.outlook().sendByProgram(draft).state, SendState::Sent);
    EXPECT_TRUE(bench.prompts().empty());

    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Cancelled);
    const Object mail = bench.outlook().application().call(L"CreateItem", 0).toObject();
    mail.put(L"To", L"bob@example.org");
    mail.put(L"Subject", L"Budget");
    EXPECT_EQ(bench.outlook().sendByProgram(mail).state, SendState::Sent);
    EXPECT_EQ(bench.prompts().size(), 1U);
    bench.disconnect();
    EXPECT_EQ(bench.outlook().sendInline(pane(bench)).state, SendState::Sent);
}

}  // namespace
