#include <benchmark/benchmark.h>

#include "bench/BenchWorld.h"

namespace {

/// One mail window more, beside as many as the argument says.
void openWindow(benchmark::State& state) {
    BenchWorld world;
    world.settings.write(L"ShowStartupWizard", L"False");
    world.connect();
    for (std::int64_t window = 0; window < state.range(0); ++window) {
        world.outlook.openNewMail({});
    }
    std::size_t calls = 0;
    for (auto _ : state) {
        const std::size_t before = world.outlook.calls();
        const auto inspector = world.outlook.openNewMail({});
        calls += world.outlook.calls() - before;
        state.PauseTiming();
        world.outlook.closeInspector(inspector);
        state.ResumeTiming();
    }
    state.counters["calls"] =
        benchmark::Counter(static_cast<double>(calls), benchmark::Counter::kAvgIterations);
}
BENCHMARK(openWindow)->Arg(0)->Arg(1'000)->Unit(benchmark::kMicrosecond);

/// A program's send of a mail whose window it has asked for and never shown.
void sendHidden(benchmark::State& state) {
    BenchWorld world;
    world.settings.write(L"ShowStartupWizard", L"False");
    world.connect();
    const std::size_t before = world.outlook.liveObjects();
    std::size_t sends = 0;
    for (auto _ : state) {
        const auto mail = world.outlook.application().call(L"CreateItem", 0).toObject();
        mail.put(L"To", L"bob@example.org");
        mail.put(L"Subject", L"Budget");
        mail.get(L"GetInspector");
        mail.call(L"Send");
        ++sends;
    }
    // Beyond the sent items themselves.
    state.counters["objects kept"] = static_cast<double>(world.outlook.liveObjects() - before - sends);
}
BENCHMARK(sendHidden)->Iterations(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace
