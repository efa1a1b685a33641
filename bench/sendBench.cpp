#include <benchmark/benchmark.h>

#include "bench/BenchWorld.h"
#include "program/SettingsFolder.h"

namespace {

host::Message smallMail() {
    host::Message message;
    message.to = {{.name = L"Bob", .address = L"bob@example.org"}};
    message.subject = L"Budget";
    message.body = L"Hello Bob, see you on Tuesday.";
    return message;
}

/// Two accounts, and one address on the list of preferred accounts.
host::Profile profileWithList(const std::wstring& listed) {
    host::Profile profile;
    profile.accounts.push_back({.name = L"Home", .address = L"me@example.net"});
    profile.messages = {{host::settingsFolder, program::preferredAccountsItem({{listed, L"Home"}})}};
    return profile;
}

enum class Sender { Alone, WithAddIn, WithOthersPreferredAccount, WithPreferredAccount, WithAllChecks };

/// What reads the mails.
enum class Reader { Redemption, OwnObjects };

host::Profile readBy(Reader reader, host::Profile profile) {
    if (reader == Reader::OwnObjects) {
        profile.redemptionRegistered = false;
        profile.version = L"16.0.17328.20550";
    }
    return profile;
}

host::Profile profileOf(Sender sender) {
    switch (sender) {
        case Sender::WithOthersPreferredAccount:
            return profileWithList(L"ann@example.org");
        case Sender::WithPreferredAccount:
        case Sender::WithAllChecks:
            return profileWithList(L"bob@example.org");
        default:
            return {};
    }
}

/// Without a question.
void switchEverythingOn(platform::SettingsStore& settings) {
    settings.write(L"DisplayConfirmation", L"2");
    settings.write(L"ConfirmEmailAddrs", L"nobody@example.org");
    settings.write(L"ConfirmForXRecipients", L"True");
    settings.write(L"DelayEmails", L"True");
    settings.write(L"AutoDelayAll", L"0");
    settings.write(L"DelayedEmailAddrs", L"bob@example.org");
    settings.write(L"NotifyBeforeDelaying", L"False");
    settings.write(L"MsgAddAddress", L"0");
}

/// One press of Send in an open window.
void send(benchmark::State& state, Sender sender, Reader reader = Reader::Redemption) {
    BenchWorld world(readBy(reader, profileOf(sender)));
    world.settings.write(L"ShowStartupWizard", L"False");
    world.settings.write(L"MsgAddAddress", L"1");
    world.settings.write(L"DoNotShowSelect", L"1");
    if (sender == Sender::WithAllChecks) {
        switchEverythingOn(world.settings);
    }
    if (sender != Sender::Alone) {
        world.connect();
    }
    std::size_t calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const auto inspector = world.outlook.openNewMail(smallMail());
        const std::size_t before = world.outlook.calls();
        state.ResumeTiming();
        world.outlook.send(inspector);
        calls += world.outlook.calls() - before;
    }
    if (world.wasPrompted()) {
        state.SkipWithError("the send asked something");
    }
    state.counters["calls"] =
        benchmark::Counter(static_cast<double>(calls), benchmark::Counter::kAvgIterations);
}
BENCHMARK_CAPTURE(send, withoutAddIn, Sender::Alone)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(send, withAddIn, Sender::WithAddIn)->Unit(benchmark::kMicrosecond);
/// To somebody who is not on the list, of which the recipient must be read to know.
BENCHMARK_CAPTURE(send, notOnTheList, Sender::WithOthersPreferredAccount)->Unit(benchmark::kMicrosecond);
/// The simulated mailbox finds an item by walking through all that were sent: few, so that this counts
/// little.
BENCHMARK_CAPTURE(send, switchedToPreferredAccount, Sender::WithPreferredAccount)
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);

BENCHMARK_CAPTURE(send, allChecks, Sender::WithAllChecks)->Iterations(100)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(send, allChecksByOwnObjects, Sender::WithAllChecks, Reader::OwnObjects)
    ->Iterations(100)
    ->Unit(benchmark::kMicrosecond);

/// With one explorer open, and a stored list.
void onConnection(benchmark::State& state, Reader reader) {
    std::size_t calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto world = std::make_unique<BenchWorld>(readBy(reader, profileWithList(L"bob@example.org")));
        world->settings.write(L"ShowStartupWizard", L"False");
        state.ResumeTiming();
        world->connect();
        state.PauseTiming();
        calls += world->outlook.calls();
        world->connection.OnDisconnection(0);
        world.reset();
        state.ResumeTiming();
    }
    state.counters["calls"] =
        benchmark::Counter(static_cast<double>(calls), benchmark::Counter::kAvgIterations);
}
BENCHMARK_CAPTURE(onConnection, redemption, Reader::Redemption)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(onConnection, ownObjects, Reader::OwnObjects)->Unit(benchmark::kMicrosecond);

}  // namespace
