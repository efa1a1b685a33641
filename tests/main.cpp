#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "tests/scenarios/AddInWorld.h"

namespace {

/// What the scenarios are called, as a filter.
std::string scenarios() {
    std::string names;
    const testing::UnitTest& all = *testing::UnitTest::GetInstance();
    for (int suite = 0; suite < all.total_test_suite_count(); ++suite) {
        const testing::TestSuite& tests = *all.GetTestSuite(suite);
        for (int test = 0; test < tests.total_test_count(); ++test) {
            const testing::TestInfo& info = *tests.GetTestInfo(test);
            if (std::string_view(info.file()).find("scenarios") != std::string_view::npos) {
                names.append(names.empty() ? "" : ":").append(tests.name()).append(".").append(info.name());
            }
        }
    }
    return names;
}

}  // namespace

/// `--provider=outlook`: the scenarios alone, and with Outlook's own object model instead of the Redemption
/// library.
int main(int count, char** arguments) {
    testing::InitGoogleMock(&count, arguments);
    for (int index = 1; index < count; ++index) {
        const std::string_view argument = arguments[index];
        if (argument != "--provider=outlook") {
            std::fprintf(stderr, "unknown argument %s\n", arguments[index]);
            return 2;
        }
        usualProvider = Provider::Outlook;
        if (GTEST_FLAG_GET(filter) == "*") {
            GTEST_FLAG_SET(filter, scenarios());
        }
    }
    return RUN_ALL_TESTS();
}
