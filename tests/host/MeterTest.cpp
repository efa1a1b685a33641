#include <gtest/gtest.h>

#include "tests/host/EventLog.h"

namespace {

using automation::Object;

TEST(HostMeterTest, CountsAutomationCallsButNotTheUsersActs) {
    host::Outlook outlook({});
    EventLog log;
    const Object inspector = outlook.openNewMail(mailTo(L"bob@example.com"));
    EXPECT_EQ(outlook.calls(), 0U);
    log.watch(outlook.application(), outlook::events::application, L"application");
    const std::size_t before = outlook.calls();
    log.on(L"application ItemSend", [](std::span<automation::Value> arguments) {
        arguments[0].toObject().get(L"Subject");
        arguments[0].toObject().get(L"Recipients").toObject().get(L"Count");
    });
    outlook.meter()->record(true);
    outlook.send(inspector);
    EXPECT_EQ(outlook.calls() - before, 3U);
    EXPECT_EQ(outlook.meter()->log(),
              (std::vector<std::wstring>{L"MailItem.Subject", L"MailItem.Recipients", L"Recipients.Count"}));
}

TEST(HostMeterTest, FailsTheCallItIsToldToAndNoOther) {
    host::Outlook outlook({});
    const Object application = outlook.application();
    for (const std::size_t n : {1U, 2U, 3U}) {
        outlook.failCall(n);
        for (std::size_t call = 1; call <= 4; ++call) {
            const std::int32_t number = errorOf([&] { application.get(L"Version"); });
            EXPECT_EQ(number, call == n ? automation::errors::failed : 0) << n << " " << call;
        }
    }
    outlook.failCall(2, 3);
    std::vector<bool> failed;
    for (std::size_t call = 1; call <= 6; ++call) {
        failed.push_back(errorOf([&] { application.get(L"Version"); }) != 0);
    }
    EXPECT_EQ(failed, (std::vector<bool>{false, true, true, true, false, false}));
    outlook.failCall(1);
    outlook.failCall(0);
    EXPECT_NO_THROW(application.get(L"Version"));
    outlook.failCall(1);
    const host::SendOutcome outcome = outlook.send(outlook.openNewMail(mailTo(L"bob@example.com")));
    EXPECT_EQ(outcome.state, host::SendState::Sent) << "the user's acts are not failed";
    EXPECT_NE(errorOf([&] { outlook.automation().createObject(L"vtRedemption.vtMAPIUtils"); }), 0);
}

TEST(HostMeterTest, LetsSomethingHappenDuringACall) {
    host::Outlook outlook({});
    const Object draft = outlook.store(L"Drafts", {.subject = L"Budget"});
    outlook.duringCall(2, [&] {
        draft.put(L"Subject", draft.get(L"Subject").toText() + L", new");
        outlook.typeBody(draft, L"Hello");
    });
    draft.get(L"Class");
    EXPECT_EQ(outlook.view(draft).body, L"");
    EXPECT_EQ(draft.get(L"Subject").toText(), L"Budget, new") << "it comes before what the call does";
    EXPECT_EQ(draft.get(L"Subject").toText(), L"Budget, new") << "once";
    EXPECT_EQ(outlook.view(draft).body, L"Hello");
    EXPECT_EQ(outlook.calls(), 5U);
}

TEST(HostMeterTest, ObjectsGoWithTheirLastReference) {
    std::shared_ptr<host::Meter> meter;
    Object kept;
    {
        host::Outlook outlook({});
        meter = outlook.meter();
        const std::size_t before = outlook.liveObjects();
        {
            const Object mail = outlook.application().call(L"CreateItem", 0).toObject();
            mail.get(L"GetInspector");
            EXPECT_GT(outlook.liveObjects(), before);
        }
        EXPECT_EQ(outlook.liveObjects(), before) << "a mail that nobody saved or shows";
        const Object addIn = outlook.makeAddIn(L"Veltro.Connect");
        addIn.put(L"Object", addIn);
        kept = outlook.receive(mailTo(L"me@example.org"));
        outlook.openItem(kept);
        outlook.application().call(L"Quit");
        EXPECT_TRUE(outlook.explorers().empty());
    }
    EXPECT_EQ(meter->liveObjects(), 1U);
    kept = {};
    EXPECT_EQ(meter->liveObjects(), 0U);
}

}  // namespace
