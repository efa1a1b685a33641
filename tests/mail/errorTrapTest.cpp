#include "mail/errorTrap.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "tests/TestWorld.h"

namespace {

TEST(ErrorReports, SpeakToTheUserWhateverWasThrown) {
    const struct {
        std::function<void()> body;
        std::wstring text;
    } cases[] = {
        {[] { throw automation::Error(76, L"Path not found"); }, L"m.p - Error 76: Path not found"},
        {[] { throw std::bad_alloc(); }, L"m.p - Error 7: Out of memory"},
        {[] { throw std::out_of_range("vector::_M_range_check"); }, L"m.p - Error 51: Internal error"},
        {[] { throw 1; }, L"m.p - Error 51: Internal error"},
    };
    for (const auto& given : cases) {
        TestWorld world({L"Veltro=OK"});
        mail::trapErrors(world.globals, mail::ErrorReport::usual(L"m.p"), given.body);
        ASSERT_EQ(world.log.messages.size(), 1U);
        EXPECT_EQ(world.log.messages[0].text, given.text);
    }
}

}  // namespace
