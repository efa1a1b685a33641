#include <benchmark/benchmark.h>

#include <sstream>

#include "bench/BenchWorld.h"
#include "platform/MemorySettingsStore.h"
#include "settings/EncryptPswd.h"
#include "settings/SettingsFileReader.h"
#include "settings/frmIntroWizard.h"

namespace {

constexpr std::size_t lineLength = 60;

/// Lines of settings, or of one signature, up to a size.
std::string fileOf(std::int64_t size, bool signature) {
    std::string file = "' Veltro Settings\r\nSettingsID=8\r\n";
    if (signature) {
        file += "IgnoreTextValue=<VTSig>";
    }
    for (int number = 0; file.size() < static_cast<std::size_t>(size); ++number) {
        std::string line = "Key" + std::to_string(number % 100) + '=';
        line.resize(lineLength, 'x');
        file += line + "\r\n";
    }
    return file + (signature ? "</VTSig>\r\n" : "");
}

void importFile(benchmark::State& state, bool signature, const wchar_t* appliedId) {
    const std::string bytes = fileOf(state.range(0), signature);
    for (auto _ : state) {
        platform::MemorySettingsStore store;
        store.write(L"SettingsID", appliedId);
        std::istringstream file(bytes);
        benchmark::DoNotOptimize(settings::SettingsFileReader().read(file, store));
    }
    state.SetBytesProcessed(state.iterations() * state.range(0));
}

void importOfSettings(benchmark::State& state) {
    importFile(state, false, L"7");
}
BENCHMARK(importOfSettings)->Arg(2'000)->Arg(1'000'000)->Arg(100'000'000)->Unit(benchmark::kMicrosecond);

void importOfSignature(benchmark::State& state) {
    importFile(state, true, L"7");
}
BENCHMARK(importOfSignature)->Arg(1'000'000)->Arg(100'000'000)->Unit(benchmark::kMicrosecond);

/// The file of every other start.
void importOfAppliedFile(benchmark::State& state) {
    importFile(state, false, L"8");
}
BENCHMARK(importOfAppliedFile)->Arg(2'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

void scrambling(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(settings::EncryptPswd(L"abc_12"));
    }
}
BENCHMARK(scrambling)->Unit(benchmark::kMillisecond);

/// With so many entries in each of its lists.
void openingTheSettings(benchmark::State& state) {
    BenchWorld world;
    std::wstring addresses;
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        addresses += L"user" + std::to_wstring(number) + L"@example.org;";
    }
    for (const wchar_t* list :
         {L"SpamKeyWords", L"AttachKeyWords", L"ConfirmEmailAddrs", L"DelayedEmailAddrs", L"EmailList"}) {
        world.settings.write(list, addresses);
    }
    for (auto _ : state) {
        const settings::frmIntroWizard form(world.globals, nullptr);
        benchmark::DoNotOptimize(form.controls().size());
    }
}
BENCHMARK(openingTheSettings)->Arg(10)->Arg(10'000)->Unit(benchmark::kMicrosecond);

}  // namespace
