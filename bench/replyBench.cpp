#include <benchmark/benchmark.h>

#include "bench/BenchWorld.h"
#include "checks/basVeltro.h"
#include "checks/pruneReply.h"
#include "checks/subjectCleaning.h"
#include "mail/basGlobals.h"

namespace {

std::wstring numbered(std::int64_t number, const wchar_t* domain) {
    return L"person" + std::to_wstring(number) + domain;
}

host::Message mailToMany(std::int64_t recipients) {
    host::Message message;
    message.from = host::Address{.name = L"Ann", .address = L"ann@example.com"};
    message.subject = L"Budget";
    for (std::int64_t number = 0; number < recipients; ++number) {
        const std::wstring address = numbered(number, L"@example.com");
        message.to.push_back({.name = address, .address = address});
    }
    return message;
}

/// 1,000 addresses that are none of the recipients'.
std::wstring otherAddresses() {
    std::wstring list;
    for (std::int64_t number = 0; number < 1000; ++number) {
        list += (number == 0 ? L"" : L";") + numbered(number, L"@other.example");
    }
    return list;
}

void countCalls(benchmark::State& state, std::size_t calls) {
    const auto perRecipient = static_cast<double>(calls) / static_cast<double>(state.range(0));
    state.counters["calls/recipient"] = benchmark::Counter(perRecipient, benchmark::Counter::kAvgIterations);
    state.SetComplexityN(state.range(0));
}

/// A Reply to All by a user with 1,000 addresses, one of them the last recipient's.
void replyAllCheck(benchmark::State& state) {
    BenchWorld world;
    world.settings.write(L"UseOutlookSettings", L"False");
    world.settings.write(L"EmailList",
                         otherAddresses() + L";" + numbered(state.range(0) - 1, L"@example.com"));
    world.settings.write(L"ReplyAllAny", L"False");
    world.settings.write(L"ReplyAllAutoRemove", L"False");
    const outlook::Item answered(world.outlook.receive(mailToMany(state.range(0))));
    const outlook::Item reply(world.outlook.receive({}));
    const std::size_t before = world.outlook.calls();
    for (auto _ : state) {
        bool cancel = false;
        checks::AnsweredMail mail(world.globals, answered);
        checks::vtReplyAllCheck(world.globals, mail, reply, cancel);
    }
    if (world.wasPrompted()) {
        state.SkipWithError("the check asked something");
    }
    countCalls(state, world.outlook.calls() - before);
}
BENCHMARK(replyAllCheck)
    ->RangeMultiplier(10)
    ->Range(10, 100'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

/// A Reply to All whose user has unticked the last half of the recipients: of others the simulated Outlook
/// would move those behind them, which is no time of the check's.
void pruning(benchmark::State& state) {
    BenchWorld world;
    const outlook::Item answered(world.outlook.receive(mailToMany(state.range(0))));
    std::wstring positions;
    for (std::int64_t position = state.range(0) / 2 + 1; position <= state.range(0); ++position) {
        positions += std::to_wstring(position) + L";";
    }
    for (auto _ : state) {
        state.PauseTiming();
        const outlook::Item reply(answered.object().call(L"ReplyAll").toObject());
        mail::AddUserProperties(world.globals, reply, checks::replyMark::removeRecipients, positions);
        state.ResumeTiming();
        checks::AnsweredMail mail(world.globals, answered);
        checks::pruneReply(world.globals, mail, reply);
        if (reply.recipients().count() != state.range(0) / 2 + 1) {
            state.SkipWithError("the wrong recipients were left");
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(pruning)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMillisecond)->Complexity();

/// A Reply to a mail of many recipients, all of which are offered.
void offeringRecipients(benchmark::State& state) {
    std::vector<platform::PromptAnswer> answers(
        static_cast<std::size_t>(state.max_iterations),
        {L"frmReplyMultRecipt", platform::FormAnswer{.entries = {}, .button = L"cmdOK"}});
    BenchWorld world({}, platform::AnswerList(std::move(answers)));
    host::Message message = mailToMany(state.range(0));
    message.cc.push_back({.name = L"Me", .address = L"me@example.org"});
    const outlook::Item answered(world.outlook.receive(message));
    for (auto _ : state) {
        const outlook::Item reply(answered.object().call(L"Reply").toObject());
        bool cancel = false;
        checks::AnsweredMail mail(world.globals, answered);
        checks::vtReplyCheck(world.globals, mail, reply, cancel);
        if (!cancel || world.wasPrompted()) {
            state.SkipWithError("the recipients were not offered");
        }
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(offeringRecipients)
    ->RangeMultiplier(10)
    ->Range(100, 100'000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

/// A send whose recipients are none of 1,000 listed ones.
void delayCheck(benchmark::State& state) {
    BenchWorld world;
    world.settings.write(L"DelayEmails", L"True");
    world.settings.write(L"AutoDelayAll", L"0");
    world.settings.write(L"DelayedEmailAddrs", otherAddresses());
    const outlook::Item item(world.outlook.store(L"Drafts", mailToMany(state.range(0))));
    const std::size_t before = world.outlook.calls();
    for (auto _ : state) {
        bool cancel = false;
        mail::OutgoingMail mail(world.globals, item);
        checks::vtDelayEmailSending(world.globals, mail, cancel);
    }
    if (world.wasPrompted()) {
        state.SkipWithError("the check asked something");
    }
    countCalls(state, world.outlook.calls() - before);
}
BENCHMARK(delayCheck)->RangeMultiplier(10)->Range(10, 10'000)->Unit(benchmark::kMillisecond)->Complexity();

/// All steps on a subject full of prefixes; the argument is its length.
void subjectCleaning(benchmark::State& state) {
    using namespace checks;
    BenchWorld world;
    mail::Globals& globals = world.globals;
    std::wstring subject;
    while (static_cast<std::int64_t>(subject.size()) < state.range(0)) {
        subject += L"RE: FW: SPAM-LOW: ";
    }
    subject.resize(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        std::wstring cleaned = removePhrases(subject, {L"SPAM-LOW:", L"SPAM-MED:", L"SPAM-HIGH:"});
        cleaned = MultipleRemove(globals, MultipleRemove(globals, cleaned, L"RE: "), L"FW: ");
        benchmark::DoNotOptimize(
            RemoveLastTagIfMultipleTogether(globals, TrimSpaceAfterFirstSpace(globals, cleaned)));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(subjectCleaning)->Arg(255)->Arg(10'000)->Arg(1'000'000)->Complexity();

}  // namespace
