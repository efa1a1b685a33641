#include <gtest/gtest.h>

#include "platform/civilTime.h"
#include "tests/scenarios/Bench.h"

namespace {

using host::SendState;
using Settings = std::map<std::wstring, std::wstring>;

constexpr double second = 1.0 / 86400;

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

    const double before = bench.world().now().days;
    const auto outcome = bench.send(message);
    const double after = bench.world().now().days;

    ASSERT_EQ(outcome.mail.deferred.has_value(), given.seconds.has_value());
    EXPECT_EQ(outcome.state, given.seconds.value_or(0) > 0 ? SendState::Deferred : SendState::Sent);
    if (given.seconds) {
        EXPECT_GE(outcome.mail.deferred->days, before + (*given.seconds - 1) * second);
        EXPECT_LE(outcome.mail.deferred->days, after + (*given.seconds + 1) * second);
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
        Case{"ListedNoGoesAtOnce", listed, {L"frmNotifyB4Delay=cmdNo"}, 0},
        Case{"NotListed", {{L"AutoDelayAll", L"0"}, {L"DelayedEmailAddrs", L"carl@example.com"}}, {}, {}},
        Case{"EmptyList", {{L"AutoDelayAll", L"0"}}, {}, {}},
        Case{"TimeIsNoNumber", with(unasked, {{L"DelayTime", L"soon"}}), {L"Veltro=OK"}, {}},
        Case{"TimeBeyond32Bits", with(unasked, {{L"DelayTime", L"9999999999"}}), {L"Veltro=OK"}, {}}),
    [](const auto& test) { return test.param.name; });

TEST(DelayDialog, CanSwitchItselfOffAndStillSayNo) {
    Bench bench({.settings = {{L"DelayEmails", L"True"}},
                 .answers = {L"frmNotifyB4Delay=chkNotifyB4Delaying=1; cmdNo"}});
    EXPECT_EQ(bench.send(plainMail()).state, SendState::Sent);
    EXPECT_EQ(bench.world().setting(L"NotifyBeforeDelaying"), L"False");
    EXPECT_EQ(bench.prompts().at(0).text, L"Delay emails - Veltro");
}

TEST(DeferredByTheUser, IsLeftAloneWhereTheTextOfItsDateComesLater) {
    for (int days = -31; days <= 31; days += 2) {
        Bench bench({.settings = {{L"DelayEmails", L"True"}, {L"NotifyBeforeDelaying", L"False"}}});
        const automation::Date now = bench.world().now();
        host::Message message = plainMail();
        message.deferredDeliveryTime = automation::Date{now.days + days};
        const auto today = platform::toCivilTime(now);
        const auto then = platform::toCivilTime(*message.deferredDeliveryTime);
        if (then.day == today.day) {
            continue;  // The month's name or the time of day decides.
        }
        const auto outcome = bench.send(message);
        ASSERT_TRUE(outcome.mail.deferred) << days;
        const bool kept = std::abs(outcome.mail.deferred->days - message.deferredDeliveryTime->days) < second;
        EXPECT_EQ(kept, then.day > today.day) << days << " days from now";
    }
}

}  // namespace
