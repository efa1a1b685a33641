#include <benchmark/benchmark.h>

#include "bench/BenchWorld.h"
#include "platform/native/CurlHttp.h"

namespace {

/// A start with an update check due, whose service cannot be reached (1), or with none (0).
void startBesideTheUpdateCheck(benchmark::State& state) {
    const bool due = state.range(0) != 0;
    std::size_t calls = 0;
    for (auto _ : state) {
        state.PauseTiming();
        {
            BenchWorld world;
            platform::native::CurlHttp http(world.desktop.events());
            const platform::Platform& ports = world.ports.platform;
            platform::Platform online{ports.automation, ports.desktop, ports.settings, ports.registry,
                                      ports.resources,  ports.clock,   ports.system,   http};
            world.settings.write(L"LastCheckUpdateDate", due ? L"1/1/2024" : L"DoNotCheck");
            world.settings.write(L"dtmLastUpdateDate", L"1/1/2024");
            world.ports.registry.setText(platform::RootKey::LocalMachine, L"SOFTWARE\\Corvane\\Veltro",
                                         L"UpdateService", L"http://127.0.0.1:1");
            addin::Connect connection(online);
            const auto application = world.outlook.application();
            const auto addIn = world.outlook.makeAddIn(L"Veltro.Connect");
            const std::size_t before = world.outlook.calls();
            state.ResumeTiming();
            connection.OnConnection(application, 1, addIn);
            state.PauseTiming();
            calls += world.outlook.calls() - before;
            connection.OnDisconnection(0);
        }
        state.ResumeTiming();
    }
    state.counters["calls"] =
        benchmark::Counter(static_cast<double>(calls), benchmark::Counter::kAvgIterations);
}
BENCHMARK(startBesideTheUpdateCheck)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

/// The request itself and its end, as they keep Outlook's window waiting.
void beginAndAbandonARequest(benchmark::State& state) {
    platform::native::EventLoop events;
    platform::native::CurlHttp http(events);
    const auto address = *platform::WebAddress::parse(L"http://127.0.0.1:1/");
    for (auto _ : state) {
        http.get(address, [](const platform::Http::Answer&) {}).reset();
    }
}
BENCHMARK(beginAndAbandonARequest)->Unit(benchmark::kMicrosecond);

}  // namespace
