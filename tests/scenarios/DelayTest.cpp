#include <gtest/gtest.h>

#include "platform/civilTime.h"
#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;
using Settings = std::map<std::wstring, std::wstring>;

constexpr int secondsPerDay = 86400;

struct Case {
    const char* name;
    Settings settings;
    std::vector<std::wstring> answers;
    /// Seconds from the send to the delivery; none: not deferred.
    std::optional<int> seconds;
    std::wstring status = {};
};

class Delay : public testing::TestWithParam<Case> {};

TEST_P(Delay, HoldsTheMailBack) {
    const Case& given = GetParam();
    auto settings = given.settings;
    settings.emplace(L"DelayEmails", L"True");
    Bench bench({.settings = settings, .answers = given.answers});
    host::Message message = plainMail();
    message.cc = {{.name = L"Ann", .address = L"ann@example.com"},
                  {.name = L"Labs", .address = L"r&d@example.com"}};

    const auto outcome = bench.send(message);

    ASSERT_EQ(outcome.mail.deferred.has_value(), given.seconds.has_value());
    EXPECT_EQ(outcome.state, given.seconds.value_or(0) > 0 ? SendState::Deferred : SendState::Sent);
    if (given.seconds) {
        EXPECT_DOUBLE_EQ(outcome.mail.deferred->days,
                         bench.now().days + static_cast<double>(*given.seconds) / secondsPerDay);
    }
    ASSERT_EQ(bench.prompts().size(), given.answers.size());
    if (!given.status.empty()) {
        EXPECT_EQ(bench.prompts()[0].control(L"lblDelayStatus").caption, given.status);
    }
}

const Settings unasked{{L"NotifyBeforeDelaying", L"False"}};

Settings with(Settings settings, const Settings& more) {
    settings.insert(more.begin(), more.end());
    return settings;
}

const Settings listed{{L"AutoDelayAll", L"0"}, {L"DelayedEmailAddrs", L"ANN@example.com"}};

INSTANTIATE_TEST_SUITE_P(
    Settings, Delay,
    testing::Values(
        Case{"Off", {{L"DelayEmails", L"False"}}, {}, {}}, Case{"All", unasked, {}, 60},
        Case{"AllOwnTime", with(unasked, {{L"DelayTime", L"90.5"}}), {}, 90},
        Case{"AllEmptyTime", with(unasked, {{L"DelayTime", L""}}), {}, 0},
        Case{"AllYes", {}, {L"frmNotifyB4Delay=cmdYes"}, 60, L"all e-mails by 60 seconds"},
        Case{"AllNo", {}, {L"frmNotifyB4Delay=cmdNo"}, {}}, Case{"Listed", with(unasked, listed), {}, 60},
        Case{"ListedYes",
             listed,
             {L"frmNotifyB4Delay=cmdYes"},
             60,
             L"e-mails to ann@example.com by 60 seconds"},
        Case{"ListedWithAnAmpersand",
             {{L"AutoDelayAll", L"0"}, {L"DelayedEmailAddrs", L"r&d@example.com"}},
             {L"frmNotifyB4Delay=cmdYes"},
             60,
             L"e-mails to r&d@example.com by 60 seconds"},
        Case{
            "ListedIsTheOnlyCheck", with(with(unasked, listed), {{L"CheckAttachMissing", L"False"}}), {}, 60},
        Case{"ListedNoGoesAtOnce", listed, {L"frmNotifyB4Delay=cmdNo"}, 0},
        Case{"NotListed", {{L"AutoDelayAll", L"0"}, {L"DelayedEmailAddrs", L"carl@example.com"}}, {}, {}},
        Case{"EmptyList", {{L"AutoDelayAll", L"0"}}, {}, {}},
        Case{"TimeIsNoNumber", with(unasked, {{L"DelayTime", L"soon"}}), {L"Veltro=OK"}, {}},
        Case{"TimeBeyond32Bits", with(unasked, {{L"DelayTime", L"9999999999"}}), {L"Veltro=OK"}, {}}),
    [](const auto& test) { return test.param.name; });

/// Outlook takes the time for local time, also one that the clocks leave out or show twice.
TEST(Delay, CountsFromTheLocalTime) {
    const struct {
        const char* name;
        platform::CivilTime now;
        const wchar_t* delay;
        const wchar_t* expected;
    } cases[] = {
        {"over midnight", {2024, 5, 15, 23, 59, 30}, L"60", L"16-May-2024 00:00:30"},
        {"until midnight", {2024, 5, 15, 23, 59, 0}, L"60", L"16-May-2024 00:00:00"},
        {"over the month's end", {2024, 4, 30, 23, 59, 59}, L"1", L"01-May-2024 00:00:00"},
        {"over the year's end", {2024, 12, 31, 23, 59, 59}, L"2", L"01-Jan-2025 00:00:01"},
        {"into a leap day", {2024, 2, 28, 23, 59, 59}, L"1", L"29-Feb-2024 00:00:00"},
        {"without a leap day", {2023, 2, 28, 23, 59, 59}, L"1", L"01-Mar-2023 00:00:00"},
        {"where clocks go forward", {2024, 3, 31, 1, 59, 30}, L"60", L"31-Mar-2024 02:00:30"},
        {"where clocks go back", {2024, 10, 27, 2, 59, 30}, L"60", L"27-Oct-2024 03:00:30"},
        {"undated mail where no date comes after today",
         {2024, 4, 1, 12, 0, 0},
         L"60",
         L"01-Apr-2024 12:01:00"},
        {"a whole day", {2024, 2, 29, 12, 0, 0}, L"86400", L"01-Mar-2024 12:00:00"},
    };
    for (const auto& given : cases) {
        Bench bench({.settings = {{L"DelayEmails", L"True"},
                                  {L"NotifyBeforeDelaying", L"False"},
                                  {L"DelayTime", given.delay}},
                     .now = platform::toDate(given.now)});
        const auto outcome = bench.send(plainMail());
        ASSERT_TRUE(outcome.mail.deferred) << given.name;
        EXPECT_EQ(platform::dayMonthYearText(*outcome.mail.deferred), given.expected) << given.name;
    }
}

TEST(DelayDialog, CanSwitchItselfOffAndStillSayNo) {
    Bench bench({.settings = {{L"DelayEmails", L"True"}},
                 .answers = {L"frmNotifyB4Delay=chkNotifyB4Delaying=1; cmdNo"}});
    EXPECT_EQ(bench.send(plainMail()).state, SendState::Sent);
    EXPECT_EQ(bench.world().setting(L"NotifyBeforeDelaying"), L"False");
    EXPECT_EQ(bench.prompts().at(0).text, L"Delay emails - Veltro");
}

TEST(DeferredByTheUser, IsLeftAloneWhereTheTextOfItsDateComesLater) {
    for (int days = -30; days <= 30; days += 2) {
        Bench bench({.settings = {{L"DelayEmails", L"True"}, {L"NotifyBeforeDelaying", L"False"}}});
        const automation::Date now = bench.now();
        host::Message message = plainMail();
        message.deferredDeliveryTime = automation::Date{now.days + days};
        const auto today = platform::toCivilTime(now);
        const auto then = platform::toCivilTime(*message.deferredDeliveryTime);
        const auto outcome = bench.send(message);
        ASSERT_TRUE(outcome.mail.deferred) << days;
        const bool kept = *outcome.mail.deferred == *message.deferredDeliveryTime;
        EXPECT_EQ(kept, then.day > today.day) << days << " days from now";
    }
}

}  // namespace
