#include "mail/errorTrap.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

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

}  // namespace
