#include <gtest/gtest.h>

#include <algorithm>

#include "tests/scenarios/Bench.h"

namespace {

/// A user's session: connect, open a mail that promises a file, send it, disconnect.
struct Session {
    bool sent = false;
    bool askedAndDenied = false;
    std::size_t calls = 0;
};

Session run(std::size_t failing) {
    Given setup{.connected = false};
    setup.answers = std::vector<std::wstring>(20, L"Veltro=OK");
    setup.answers.push_back(L"Attachment(s) missing=No");
    Bench bench(setup);
    bench.outlook().failCall(failing);
    bench.connect();
    Session session;
    session.sent = bench.send(plainMail(L"Budget", L"See attached")).state == host::SendState::Sent;
    bench.disconnect();
    bench.outlook().failCall(0);
    const auto names = bench.promptNames();
    session.askedAndDenied = std::ranges::find(names, attachmentPrompt) != names.end();
    session.calls = bench.outlook().calls();
    return session;
}

TEST(FailingCalls, NeverCancelASendThatNobodyDenied) {
    const Session whole = run(0);
    ASSERT_TRUE(whole.askedAndDenied);
    ASSERT_FALSE(whole.sent);
    for (std::size_t n = 1; n <= whole.calls; ++n) {
        const Session session = run(n);
        EXPECT_NE(session.sent, session.askedAndDenied) << "call " << n << " of " << whole.calls;
    }
}

}  // namespace
