#include <gtest/gtest.h>

#include "tests/host/EventLog.h"

namespace {

using automation::Object;
using host::ReplyKind;
using Lines = std::vector<std::wstring>;

host::Message received() {
    return {.from = host::Address{.name = L"Ann", .address = L"ann@example.com"},
            .to = {{.name = L"Me", .address = L"me@example.org"},
                   {.name = L"Bob", .address = L"bob@example.com"}},
            .cc = {{.name = L"Cy", .address = L"cy@example.com"},
                   {.name = L"Bob", .address = L"BOB@example.com"}},
            .bcc = {{.name = L"Dee", .address = L"dee@example.com"}},
            .subject = L"Plan",
            .body = L"First line\r\nSecond line",
            .attachments = {{.fileName = L"plan.pdf"}},
            .deliveryTime = automation::Date{45294.0 + 13.0 / 24 + 5.0 / 1440}};
}

/// Recipients as "type:address".
Lines recipientsOf(const host::ItemView& view) {
    Lines result;
    for (const host::RecipientView& recipient : view.recipients) {
        result.push_back(std::to_wstring(recipient.type) + L":" + recipient.address.address);
    }
    return result;
}

struct Desk {
    explicit Desk(const host::Message& message = received()) : item(outlook.receive(message)) {
        outlook.select(outlook.explorers().front(), {item});
    }
    host::ItemView answer(ReplyKind kind) { return outlook.view(outlook.answer(kind, item).item); }

    host::Outlook outlook{host::Profile{}};
    Object item;
};

TEST(HostAnsweringTest, AddressesResponsesAsOutlookDoes) {
    auto withReplyTo = received();
    withReplyTo.replyTo = {{.name = L"List", .address = L"list@example.com"}};
    auto onBehalf = received();
    onBehalf.onBehalfOf = host::Address{.name = L"Boss", .address = L"boss@example.com"};
    struct Case {
        ReplyKind kind;
        host::Message message;
        Lines recipients;
    };
    const Case cases[] = {
        {ReplyKind::Reply, received(), {L"1:ann@example.com"}},
        {ReplyKind::Reply, withReplyTo, {L"1:list@example.com"}},
        {ReplyKind::Reply, onBehalf, {L"1:boss@example.com"}},
        {ReplyKind::ReplyAll,
         received(),
         {L"1:ann@example.com", L"1:me@example.org", L"1:bob@example.com", L"2:cy@example.com"}},
        {ReplyKind::Forward, received(), {}},
    };
    for (const Case& test : cases) {
        Desk desk(test.message);
        const host::ItemView response = desk.answer(test.kind);
        EXPECT_EQ(recipientsOf(response), test.recipients);
        EXPECT_EQ(response.answers, test.kind);
        EXPECT_EQ(response.attachments.size(), test.kind == ReplyKind::Forward ? 1U : 0U);
        EXPECT_TRUE(response.entryId.empty());
    }
}

TEST(HostAnsweringTest, PrefixesTheSubjectOnce) {
    struct Case {
        const wchar_t* subject;
        const wchar_t* reply;
        const wchar_t* forward;
    };
    const Case cases[] = {
        {L"Plan", L"RE: Plan", L"FW: Plan"},
        {L"RE: Plan", L"RE: Plan", L"FW: Plan"},
        {L"re: Plan", L"RE: Plan", L"FW: Plan"},
        {L"FW: Plan", L"RE: Plan", L"FW: Plan"},
        {L"AW: Plan", L"RE: Plan", L"FW: Plan"},
        {L"Plan: part 2", L"RE: Plan: part 2", L"FW: Plan: part 2"},
        {L"10: ten", L"RE: 10: ten", L"FW: 10: ten"},
        {L"", L"RE: ", L"FW: "},
    };
    for (const Case& test : cases) {
        auto message = received();
        message.subject = test.subject;
        Desk desk(message);
        EXPECT_EQ(desk.answer(ReplyKind::Reply).subject, test.reply);
        EXPECT_EQ(desk.answer(ReplyKind::Forward).subject, test.forward);
    }
}

TEST(HostAnsweringTest, QuotesTheMessageUnderItsHeader) {
    Desk desk;
    EXPECT_EQ(desk.answer(ReplyKind::Reply).body,
              L"\r\n\r\n-----Original Message-----\r\nFrom: Ann [mailto:ann@example.com]\r\nSent: Wednesday, "
              L"January 3, 2024 1:05 PM\r\nTo: Me; Bob\r\nCc: Cy; Bob\r\nSubject: Plan\r\n\r\nFirst line\r\n"
              L"Second line");
}

TEST(HostAnsweringTest, HandlersSeeTheResponseAndMayCancelIt) {
    struct Case {
        ReplyKind kind;
        const wchar_t* line;
    };
    for (const Case& test : {Case{ReplyKind::Reply, L"item Reply"},
                             {ReplyKind::ReplyAll, L"item ReplyAll"},
                             {ReplyKind::Forward, L"item Forward"}}) {
        Desk desk;
        EventLog log;
        log.watch(desk.item, outlook::events::item, L"item");
        std::size_t arguments = 0;
        log.on(test.line, [&](std::span<automation::Value> values) {
            arguments = values.size();
            values[0].toObject().put(L"Subject", L"Changed");
        });
        EXPECT_EQ(desk.answer(test.kind).subject, L"Changed");
        EXPECT_EQ(arguments, 2U);
        EXPECT_EQ(desk.outlook.inspectors().size(), 1U);

        log.cancelOn(test.line);
        desk.outlook.activate(desk.outlook.explorers().front());
        const host::ReplyOutcome outcome = desk.outlook.answer(test.kind, desk.item);
        EXPECT_FALSE(outcome.opened);
        EXPECT_TRUE(outcome.newInspectors.empty());
        EXPECT_EQ(desk.outlook.inspectors().size(), 1U);
        log.endAll();
    }
}

TEST(HostAnsweringTest, ToldOfWhatAHandlerShowsInstead) {
    Desk desk;
    EventLog log;
    log.watch(desk.item, outlook::events::item, L"item");
    log.on(L"item Reply", [&](std::span<automation::Value> arguments) {
        arguments.back().variable() = true;
        desk.item.call(L"ReplyAll").toObject().call(L"Display");
    });
    const host::ReplyOutcome outcome = desk.outlook.reply(desk.item);
    EXPECT_FALSE(outcome.opened);
    ASSERT_EQ(outcome.newInspectors.size(), 1U);
    EXPECT_EQ(desk.outlook.view(desk.outlook.itemOf(outcome.newInspectors[0])).answers, ReplyKind::ReplyAll);
    log.endAll();
}

TEST(HostAnsweringTest, OnlyAnItemThatAWindowShowsHasButtons) {
    Desk desk;
    const Object other = desk.outlook.receive(received());
    EXPECT_NE(errorOf([&] { desk.outlook.reply(other); }), 0);
    desk.outlook.openItem(other);
    EXPECT_TRUE(desk.outlook.reply(other).opened);
}

/// Only the later event interface tells of it.
TEST(HostAnsweringTest, ToTheReadingPaneHasNoWindowUntilItIsPoppedOut) {
    host::Outlook outlook({.version = L"15.0.4420.1017"});
    const Object explorer = outlook.explorers().front();
    const Object item = outlook.receive(received());
    outlook.select(explorer, {item});
    EventLog log;
    log.watch(explorer, outlook::events::explorer, L"old");
    log.watch(explorer, outlook::events::laterExplorer, L"later");
    log.watch(outlook.application().get(L"Inspectors").toObject(), outlook::events::inspectors,
              L"inspectors");
    const Object response = outlook.answerInline(explorer, ReplyKind::Reply, item).item;
    EXPECT_EQ(log.lines(), Lines{L"later 64658"});
    EXPECT_TRUE(outlook.inspectors().empty());
    EXPECT_TRUE(explorer.get(L"ActiveInlineResponse").toObject());
    for (const wchar_t* method : {L"Send", L"Reply", L"ReplyAll", L"Forward", L"Delete"}) {
        EXPECT_NE(errorOf([&] { response.call(method); }), 0);
    }
    EXPECT_NE(errorOf([&] { response.call(L"Close", 0); }), 0);

    log.clear();
    EXPECT_TRUE(outlook.popOut(explorer));
    ASSERT_GE(log.lines().size(), 2U);
    EXPECT_EQ(log.lines()[0], L"later 64662");
    EXPECT_EQ(log.lines()[1], L"inspectors New");
    EXPECT_FALSE(explorer.get(L"ActiveInlineResponse").toObject());
    EXPECT_NE(errorOf([&] { outlook.sendInline(explorer); }), 0);
    log.endAll();
}

}  // namespace
