#include <benchmark/benchmark.h>

#include "bench/BenchWorld.h"
#include "checks/basVeltro.h"

namespace {

constexpr std::int64_t largeBody = 10'000'000;

/// Ordinary prose without a keyword.
std::wstring prose(std::size_t length) {
    constexpr std::wstring_view sentence =
        L"We met on Tuesday and agreed that the figures for the next quarter need another look before Ann "
        L"can present them to everybody else; please come back to me about the open points.\r\n";
    std::wstring text;
    text.reserve(length + sentence.size());
    while (text.size() < length) {
        text += sentence;
    }
    text.resize(length);
    return text;
}

void reportRate(benchmark::State& state) {
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

/// The measure of the check below: one plain copy of the body.
void copyOfBody(benchmark::State& state) {
    const std::wstring body = prose(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        std::wstring copy = body;
        benchmark::DoNotOptimize(copy.data());
    }
    reportRate(state);
}
BENCHMARK(copyOfBody)->Arg(largeBody);

/// The check of a mail that it lets go without a question.
void runCheck(benchmark::State& state, BenchWorld& world, const host::Message& message) {
    const outlook::Item item(world.outlook.itemOf(world.outlook.openNewMail(message)));
    bool cancel = false;
    for (auto _ : state) {
        mail::OutgoingMail mail(world.globals, item);
        checks::vtAttachMissingCheck(world.globals, mail, cancel);
    }
    if (cancel || world.wasPrompted()) {
        state.SkipWithError("the check asked something");
    }
}

/// The second argument is the number of keywords, 0 the default ones.
void attachmentCheck(benchmark::State& state) {
    BenchWorld world;
    if (state.range(1) > 0) {
        std::wstring keywords;
        for (std::int64_t word = 0; word < state.range(1); ++word) {
            keywords += (word == 0 ? L"keyword" : L";keyword") + std::to_wstring(word);
        }
        world.settings.write(L"AttachKeyWords", keywords);
    }
    host::Message message;
    message.subject = L"Figures";
    message.body = prose(static_cast<std::size_t>(state.range(0)));
    runCheck(state, world, message);
    reportRate(state);
}
BENCHMARK(attachmentCheck)
    ->Args({10'000, 0})
    ->Args({100'000, 0})
    ->Args({1'000'000, 0})
    ->Args({largeBody, 0})
    ->Args({largeBody, 1})
    ->Args({largeBody, 100})
    ->Args({largeBody, 1000});

/// Pictures whose content ids share a long start with each other and with the HTML, which shows them at its
/// end. The arguments: how many, and how many characters of the ids are the same.
void picturesThatLookAlike(benchmark::State& state) {
    BenchWorld world;
    host::Message message;
    message.html = std::wstring(2'000'000, L'a');
    for (std::int64_t number = 0; number < state.range(0); ++number) {
        const std::wstring id =
            std::wstring(static_cast<std::size_t>(state.range(1)), L'a') + std::to_wstring(number);
        message.attachments.push_back({.fileName = L"picture.png", .contentId = id});
        message.html += id;
    }
    runCheck(state, world, message);
}
BENCHMARK(picturesThatLookAlike)
    ->Args({1, 800})
    ->Args({10, 800})
    ->Args({1000, 800})
    ->Args({1000, 30'000})
    ->Unit(benchmark::kMillisecond);

/// What mails look like: a few pictures, the last of which stands at the end of the HTML.
void picturesOfANewsletter(benchmark::State& state) {
    BenchWorld world;
    host::Message message;
    message.html = prose(static_cast<std::size_t>(state.range(0)));
    for (std::int64_t number = 0; number < 10; ++number) {
        const std::wstring id = L"image00" + std::to_wstring(number) + L".png@01DC3A5B.12345670";
        message.attachments.push_back({.fileName = L"picture.png", .contentId = id});
        message.html += L"<img src=\"cid:" + id + L"\">";
    }
    runCheck(state, world, message);
}
BENCHMARK(picturesOfANewsletter)->Arg(10'000)->Arg(2'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
