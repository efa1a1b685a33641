#include "mail/Trace.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "mail/errorTrap.h"
#include "platform/native/FixedSystemInfo.h"

namespace {

using mail::Skipped;
using mail::Trace;

struct Window {
    std::optional<std::wstring> caption(const std::function<void()>& fail) const {
        return mail::attempt([&] {
            fail();
            return std::wstring(L"Inbox");
        });
    }
};

TEST(Trace, NamesProcedureAndNumberButNoText) {
    platform::native::FixedSystemInfo system(L".");
    const Trace trace(system);
    const Window window;
    const std::pair<std::function<void()>, std::string> cases[] = {
        {[] { throw automation::Error(-5, L"Budget of Bob"); }, "error -5"},
        {[] { throw std::bad_alloc(); }, "error 7"},
        {[] { throw std::out_of_range("Budget of Bob"); }, "error 51"},
        {[] { throw 1; }, "error 51"},
    };
    for (const auto& [fail, number] : cases) {
        window.caption(fail);
        const std::string line = system.debugLines().back();
        EXPECT_NE(line.find("Window::caption (TraceTest.cpp:"), std::string::npos) << line;
        EXPECT_TRUE(line.ends_with("): " + number)) << line;
        EXPECT_EQ(line.find('/'), std::string::npos) << line;
        EXPECT_EQ(trace.entries().back().text(), line);
    }
    mail::note(Skipped::OwnAnswer);
    EXPECT_TRUE(system.debugLines().back().ends_with("): the add-in's own answer"));
    EXPECT_EQ(trace.entries().back().number, 0);
    EXPECT_EQ(system.debugLines().size(), std::size(cases) + 1);
}

TEST(Trace, KeepsTheLastEntries) {
    platform::native::FixedSystemInfo system(L".");
    Trace trace(system);
    for (std::int32_t number = 1; number <= 300; ++number) {
        trace.add({Skipped::Failure, number, std::source_location::current()});
    }
    const auto entries = trace.entries();
    ASSERT_EQ(entries.size(), Trace::capacity);
    EXPECT_EQ(entries.front().number, 300 - 255);
    EXPECT_EQ(entries.back().number, 300);
}

/// In one process several may live at a time, and none is left behind.
TEST(Trace, IsTheThreadsLatestThatLives) {
    platform::native::FixedSystemInfo system(L".");
    auto first = std::make_unique<Trace>(system);
    auto second = std::make_unique<Trace>(system);
    const Trace third(system);
    mail::note(Skipped::OwnAnswer);
    EXPECT_EQ(third.entries().size(), 1U);
    second.reset();
    first.reset();
    mail::note(Skipped::OwnAnswer);
    EXPECT_EQ(third.entries().size(), 2U);
    { const Trace inner(system); }
    mail::note(Skipped::OwnAnswer);
    EXPECT_EQ(third.entries().size(), 3U);
}

}  // namespace
