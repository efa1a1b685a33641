#include "mail/OutgoingMail.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "tests/TestWorld.h"

namespace {

host::Message budget() {
    host::Message message;
    message.to = {{.name = L"Bob", .address = L"bob@example.org"}};
    message.subject = L"Budget";
    return message;
}

/// A mail that is being sent, and the calls that it takes to look at all of it.
class Sending : public TestWorld {
  public:
    void lookAtAll() {
        mail.isMail();
        mail.subject();
        mail.editsInWord();
        mail.stored();
        mail.findRecipientAddress([](const std::wstring&) { return false; });
        mail.firstRecipient();
        mail.accounts();
    }
    std::size_t callsToLookAtAll() {
        const std::size_t before = outlook.calls();
        lookAtAll();
        return outlook.calls() - before;
    }
    std::size_t saves() const {
        return static_cast<std::size_t>(std::ranges::count(outlook.meter()->log(), L"SafeMailItem.Save"));
    }

    automation::Object item = outlook.itemOf(outlook.openNewMail(budget()));
    mail::OutgoingMail mail{globals, outlook::Item(item)};
};

TEST(OutgoingMail, IsAskedOnceForEachThing) {
    Sending sending;
    sending.outlook.meter()->record(true);
    EXPECT_GT(sending.callsToLookAtAll(), 10U);
    EXPECT_EQ(sending.callsToLookAtAll(), 0U);
    EXPECT_EQ(sending.saves(), 1U);
}

/// Other add-ins have had the mail between the two events of its send, the user and programs during a prompt.
TEST(OutgoingMail, IsAskedAgainInTheNextEventAndAfterAPrompt) {
    const std::function<void(Sending&)> ends[] = {[](Sending& sending) { sending.mail.forget(); },
                                                  [](Sending& sending) { ++sending.globals.promptsShown; }};
    for (const auto& end : ends) {
        Sending sending;
        sending.outlook.meter()->record(true);
        sending.lookAtAll();
        sending.item.put(L"Subject", L"Other");
        sending.item.put(L"To", L"carl@example.org");
        sending.item.get(L"Recipients").toObject().call(L"ResolveAll");
        EXPECT_EQ(sending.mail.subject(), L"Budget");
        end(sending);
        EXPECT_EQ(sending.mail.subject(), L"Other");
        sending.mail.stored();
        EXPECT_EQ(sending.saves(), 2U);
        EXPECT_EQ(sending.mail.recipientAddress(1), L"carl@example.org");
    }
}

/// What a call gives may be older than what was done at a prompt that opened inside of it.
TEST(OutgoingMail, KeepsNothingThatWasReadWhileAPromptWasOpen) {
    Sending sending;
    sending.outlook.duringCall(1, [&] { ++sending.globals.promptsShown; });
    sending.mail.subject();
    sending.item.put(L"Subject", L"Other");
    EXPECT_EQ(sending.mail.subject(), L"Other");
}

/// A second send of the same mail inside of a call ends first, and lets everything go.
TEST(OutgoingMail, IsReadOnAfterItWasReleasedInsideOfACall) {
    bool inside = true;
    for (std::size_t call = 1; inside; ++call) {
        Sending sending;
        inside = false;
        sending.outlook.duringCall(call, [&] {
            inside = true;
            sending.mail.release();
        });
        sending.lookAtAll();
        EXPECT_EQ(sending.mail.recipientAddress(1), L"bob@example.org") << "call " << call;
        EXPECT_EQ(sending.mail.accounts().size(), 1U) << "call " << call;
        sending.outlook.duringCall(0, nullptr);
    }
}

TEST(OutgoingMail, HoldsNothingOnceReleased) {
    Sending sending;
    const std::size_t before = sending.outlook.liveObjects();
    sending.lookAtAll();
    EXPECT_GT(sending.outlook.liveObjects(), before);
    sending.outlook.meter()->record(true);
    sending.mail.release();
    EXPECT_LE(sending.outlook.liveObjects(), before + 1) << "the name space stays with the application";
    EXPECT_EQ(sending.outlook.meter()->log().back(), L"MAPIUtils.CleanUp");
}

/// Else a setting that lists addresses would be found to list nobody, or everybody.
TEST(OutgoingMail, PassesOverRecipientsWithoutAnAddress) {
    TestWorld world;
    host::Message message = budget();
    message.to = {{.name = L"Hidden", .address = L"/o=x/cn=hidden", .type = L"EX"},
                  {.name = L"Team", .address = L"team", .type = L"MAPIPDL"},
                  message.to[0],
                  {.name = L"Carl", .address = L"carl@example.org"}};
    mail::OutgoingMail sent(world.globals, outlook::Item(world.outlook.receive(message)));
    std::vector<std::wstring> offered;
    const auto found = sent.findRecipientAddress([&](const std::wstring& address) {
        offered.push_back(address);
        return address.starts_with(L"carl");
    });
    EXPECT_EQ(found, L"carl@example.org");
    EXPECT_EQ(offered, (std::vector<std::wstring>{L"bob@example.org", L"carl@example.org"}));
}

TEST(OutgoingMail, HasAnUnknownAddressWhereOneCannotBeRead) {
    Sending sending;
    sending.mail.stored();
    sending.outlook.failCall(1);
    EXPECT_EQ(sending.mail.recipientAddress(1), L"");
    EXPECT_EQ(sending.mail.recipientAddress(1), L"bob@example.org") << "a failure is not kept";
}

}  // namespace
