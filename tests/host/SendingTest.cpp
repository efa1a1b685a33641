#include <gtest/gtest.h>

#include "tests/host/EventLog.h"
#include "tests/host/stamps.h"

namespace {

using automation::Date;
using automation::Object;
using host::SendState;
using Lines = std::vector<std::wstring>;

constexpr Date noon{45292.5};

/// A mail open in a window, with everything that tells of its send watched.
class HostSendingTest : public testing::Test {
  protected:
    void open(host::Profile profile = {}, const host::Message& message = mailTo(L"bob@example.com")) {
        outlook_ = std::make_unique<host::Outlook>(std::move(profile), [] { return noon; });
        if (!outlook_->explorers().empty()) {
            log_.watch(outlook_->explorers().front(), outlook::events::explorer, L"explorer");
        }
        inspector_ = outlook_->openNewMail(message);
        item_ = outlook_->itemOf(inspector_);
        log_.watch(inspector_, outlook::events::inspector, L"inspector");
        log_.watch(item_, outlook::events::item, L"item");
        log_.watch(outlook_->application(), outlook::events::application, L"application");
        log_.clear();
    }

    std::unique_ptr<host::Outlook> outlook_;
    EventLog log_;
    Object inspector_;
    Object item_;
};

TEST_F(HostSendingTest, RaisesEventsInOutlooksOrder) {
    open();
    const host::SendOutcome outcome = outlook_->send(inspector_);
    EXPECT_EQ(outcome.state, SendState::Sent);
    EXPECT_EQ(log_.lines(), (Lines{L"item Send", L"application ItemSend", L"item Write", L"item Close",
                                   L"inspector Deactivate", L"inspector Close", L"explorer Activate"}));
    EXPECT_EQ(outcome.mail.folderPath, L"\\\\Personal Folders\\Sent Items");
    EXPECT_EQ(outcome.mail.account, L"Work");
    EXPECT_TRUE(outlook_->inspectors().empty());
    EXPECT_NE(errorOf([&] { item_.get(L"EntryID"); }), 0) << "what was sent is no draft any more";
}

TEST_F(HostSendingTest, CancelLeavesTheWindowOpenAndRaisesNothingFurther) {
    const std::pair<const wchar_t*, Lines> cases[] = {
        {L"item Send", {L"item Send"}},
        {L"application ItemSend", {L"item Send", L"application ItemSend"}},
    };
    for (const auto& [line, seen] : cases) {
        SCOPED_TRACE(std::string(line, line + std::wcslen(line)));
        log_ = EventLog();
        open();
        log_.cancelOn(line);
        EXPECT_EQ(outlook_->send(inspector_).state, SendState::Cancelled);
        EXPECT_EQ(log_.lines(), seen);
        EXPECT_EQ(outlook_->inspectors(), std::vector<Object>{inspector_});
        EXPECT_EQ(item_.get(L"Subject").toText(), L"Budget");
        log_.endAll();
    }
}

TEST_F(HostSendingTest, AFailingHandlerDoesNotCancel) {
    open();
    log_.on(L"application ItemSend",
            [](std::span<automation::Value>) { throw automation::Error(7, L"handler broke"); });
    EXPECT_EQ(outlook_->send(inspector_).state, SendState::Sent);
    ASSERT_EQ(outlook_->errors().size(), 1U);
    EXPECT_EQ(outlook_->errors()[0].event, L"ItemSend");
    EXPECT_EQ(outlook_->errors()[0].number, 7);
}

TEST_F(HostSendingTest, AMailThatAHandlerDeletesIsNotSent) {
    open();
    log_.on(L"application ItemSend",
            [](std::span<automation::Value> arguments) { arguments[0].toObject().call(L"Delete"); });
    const host::SendOutcome outcome = outlook_->send(inspector_);
    EXPECT_EQ(outcome.state, SendState::Cancelled);
    EXPECT_FALSE(outcome.failure.empty());
    EXPECT_TRUE(outlook_->itemsIn(L"Sent Items").empty());
}

TEST_F(HostSendingTest, WaitsInTheOutboxOnlyForATimeToCome) {
    struct Case {
        double days;
        SendState state;
        const wchar_t* folder;
    };
    const Case cases[] = {
        {noon.days + 1.0 / 1440, SendState::Deferred, L"Outbox"},
        {noon.days, SendState::Sent, L"Sent Items"},
        {noon.days - 1, SendState::Sent, L"Sent Items"},
        {949998.0, SendState::Sent, L"Sent Items"},
    };
    for (const Case& test : cases) {
        log_ = EventLog();
        open();
        item_.put(L"DeferredDeliveryTime", Date{test.days});
        EXPECT_EQ(outlook_->send(inspector_).state, test.state) << test.days;
        EXPECT_EQ(outlook_->itemsIn(test.folder).size(), 1U) << test.days;
        log_.endAll();
    }
}

TEST_F(HostSendingTest, LeavesWithTheStampedElseTheChosenAccount) {
    host::Profile profile;
    profile.accounts = {{.name = L"Work", .address = L"me@example.org"},
                        {.name = L"Home", .address = L"me@home.example"},
                        {.name = L"Club", .address = L"me@club.example"}};
    struct Case {
        const wchar_t* chosen;
        const wchar_t* stamped;
        const wchar_t* expected;
    };
    for (const Case& test : {Case{L"", L"", L"Work"}, {L"Home", L"", L"Home"}, {L"Home", L"Club", L"Club"}}) {
        log_ = EventLog();
        auto message = mailTo(L"bob@example.com");
        message.account = test.chosen;
        open(profile, message);
        if (*test.stamped) {
            stampItem(*outlook_, item_, test.stamped);
        }
        const host::SendOutcome outcome = outlook_->send(inspector_);
        EXPECT_EQ(outcome.mail.account, test.expected);
        EXPECT_EQ(outcome.item.get(L"SenderName").toText(), test.expected);
        log_.endAll();
    }
}

TEST_F(HostSendingTest, RefusesNamesThatItDoesNotKnow) {
    host::Profile profile;
    profile.addressBook = {{.name = L"Ann Archer", .address = L"ann@example.com"}};
    struct Case {
        const wchar_t* to;
        SendState state;
        const wchar_t* address;
    };
    const Case cases[] = {
        {L"ann archer", SendState::Sent, L"ann@example.com"},
        {L"Zoe <zoe@example.com>", SendState::Sent, L"zoe@example.com"},
        {L"zoe@example.com", SendState::Sent, L"zoe@example.com"},
        {L"Nobody", SendState::Cancelled, nullptr},
        {L"", SendState::Cancelled, nullptr},
    };
    for (const Case& test : cases) {
        log_ = EventLog();
        open(profile);
        item_.put(L"To", test.to);
        const host::SendOutcome outcome = outlook_->send(inspector_);
        EXPECT_EQ(outcome.state, test.state);
        if (test.address) {
            ASSERT_EQ(outcome.mail.recipients.size(), 1U);
            EXPECT_EQ(outcome.mail.recipients[0].address.address, test.address);
        } else {
            EXPECT_FALSE(outcome.failure.empty());
            EXPECT_EQ(log_.lines(), Lines{L"item PropertyChange"}) << "before any event of a send";
        }
        log_.endAll();
    }
}

TEST_F(HostSendingTest, AProgramsSendNeedsNoWindow) {
    open();
    const Object mail = outlook_->application().call(L"CreateItem", 0).toObject();
    mail.put(L"To", L"bob@example.com");
    log_.cancelOn(L"application ItemSend");
    EXPECT_EQ(errorOf([&] { mail.call(L"Send"); }), -2147467260) << "Operation aborted";
    log_.on(L"application ItemSend", {[](std::span<automation::Value>) {}});
    log_.clear();
    EXPECT_EQ(outlook_->sendByProgram(mail).state, SendState::Sent);
    EXPECT_EQ(log_.lines(), Lines{L"application ItemSend"});
    EXPECT_EQ(outlook_->inspectors().size(), 1U) << "another mail's window stays";
}

}  // namespace
