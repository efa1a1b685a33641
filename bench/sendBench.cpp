#include <benchmark/benchmark.h>

#include "bench/BenchWorld.h"

namespace {

host::Message smallMail() {
    host::Message message;
    message.to = {{.name = L"Bob", .address = L"bob@example.org"}};
    message.subject = L"Budget";
    message.body = L"Hello Bob, see you on Tuesday.";
    return message;
}

/// One press of Send in an open window; the second form has the add-in connected.
void send(benchmark::State& state, bool withAddIn) {
    BenchWorld world;
    world.settings.write(L"ShowStartupWizard", L"False");
    if (withAddIn) {
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
BENCHMARK_CAPTURE(send, withoutAddIn, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(send, withAddIn, true)->Unit(benchmark::kMicrosecond);

/// With one explorer open.
void onConnection(benchmark::State& state) {
    std::size_t calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        auto world = std::make_unique<BenchWorld>();
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
BENCHMARK(onConnection)->Unit(benchmark::kMicrosecond);

}  // namespace
