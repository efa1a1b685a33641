#include "mail/errorTrap.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "mail/Provider.h"
#include "tests/TestWorld.h"

namespace {

TEST(ErrorReports, SpeakToTheUserWhateverWasThrown) {
    using mail::ErrorReport;
    const auto missing = [] { throw automation::Error(76, L"Path not found"); };
    const struct {
        ErrorReport report;
        std::function<void()> body;
        std::wstring text;
    } cases[] = {
        {ErrorReport::usual(L"m.p"), missing, L"m.p - Error 76: Path not found"},
        {ErrorReport::check(L"p"), missing, L"p - Error: 76 Path not found"},
        {ErrorReport::module(L"p"), missing, L"Error 76 (Path not found) in procedure p of Module basVeltro"},
        {ErrorReport::usual(L"m.p"), [] { throw std::bad_alloc(); }, L"m.p - Error 7: Out of memory"},
        {ErrorReport::usual(L"m.p"), [] { throw std::out_of_range("vector::_M_range_check"); },
         L"m.p - Error 51: Internal error"},
        {ErrorReport::usual(L"m.p"), [] { throw 1; }, L"m.p - Error 51: Internal error"},
    };
    for (const auto& [report, body, text] : cases) {
        TestWorld world({L"Veltro=OK"});
        mail::trapErrors(world.globals, report, body);
        ASSERT_EQ(world.log.messages.size(), 1U);
        EXPECT_EQ(world.log.messages[0].text, text);
        EXPECT_EQ(world.log.messages[0].title, L"Veltro");
    }
}

/// Outlook's refusals are known to whoever refused; with the MAPI library the second number means another
/// thing.
TEST(ErrorReports, KeepQuietAboutRefusalsUnlessTheUserHasDecided) {
    constexpr auto aborted = static_cast<std::int32_t>(0x80004004);
    constexpr auto notSupported = static_cast<std::int32_t>(0x80040102);
    const struct {
        std::int32_t number;
        bool ownObjects;
        bool decided;
        bool told;
    } cases[] = {{aborted, true, false, false},      {aborted, false, false, false},
                 {aborted, true, true, true},        {notSupported, true, false, false},
                 {notSupported, false, false, true}, {notSupported, true, true, true}};
    for (const auto& given : cases) {
        TestWorld world({L"Veltro=OK"}, {.redemptionRegistered = !given.ownObjects});
        if (given.ownObjects) {
            world.globals.provider = &mail::outlookProvider(world.globals);
        }
        auto report = mail::ErrorReport::usual(L"m.p");
        mail::trapErrors(world.globals, given.decided ? std::move(report).ofRefusals() : std::move(report),
                         [&] { throw automation::Error(given.number, L"Refused"); });
        EXPECT_EQ(world.log.messages.size(), given.told ? 1U : 0U) << given.number << given.ownObjects;
    }
}

}  // namespace
