#include "platform/civilTime.h"

#include <gtest/gtest.h>

namespace {

TEST(CivilTime, WritesDatesInEnglishToTheSecond) {
    const struct {
        double days;
        const wchar_t* text;
    } cases[] = {
        {949998.0, L"01-Jan-4501 00:00:00"}, {0, L"30-Dec-1899 00:00:00"},
        {45352.5, L"01-Mar-2024 12:00:00"},  {45352.999999, L"02-Mar-2024 00:00:00"},
        {-1.25, L"29-Dec-1899 06:00:00"},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(platform::dayMonthYearText({given.days}), given.text);
    }
    EXPECT_DOUBLE_EQ(platform::toDate({2024, 3, 1, 12, 0, 0}).days, 45352.5);
    EXPECT_THROW(platform::toCivilTime({1e9}), automation::Error);
}

}  // namespace
