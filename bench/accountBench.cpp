#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <string>

#include "accounts/AccountRows.h"
#include "accounts/basSendAcct.h"
#include "accounts/emptyList.h"
#include "bench/BenchWorld.h"
#include "platform/text.h"

namespace {

constexpr std::int64_t smallList = 1'000;
constexpr std::int64_t largeList = 100'000;

std::wstring addressOf(std::int64_t number) {
    std::wstring digits = std::to_wstring(number);
    digits.insert(0, 7 - digits.size(), L'0');
    return L"recipient" + digits + L"@example.org";
}

std::wstring listOf(std::int64_t count) {
    accounts::AccountRows rows(accounts::emptyList);
    for (std::int64_t number = 0; number < count; ++number) {
        rows.add();
        rows.set({addressOf(number), number % 2 == 0 ? L"Work" : L"R&D <lab>"});
    }
    return accounts::rowset::writeRowset(rows.rowset());
}

/// All texts here are ASCII, so that characters are bytes.
void reportRate(benchmark::State& state, std::size_t characters) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * characters));
}

void readList(benchmark::State& state) {
    const std::wstring body = listOf(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(accounts::AccountRows(body));
    }
    reportRate(state, body.size());
}
BENCHMARK(readList)->Arg(smallList)->Arg(largeList);

void writeList(benchmark::State& state) {
    const std::wstring body = listOf(state.range(0));
    const accounts::AccountRows rows(body);
    for (auto _ : state) {
        benchmark::DoNotOptimize(accounts::rowset::writeRowset(rows.rowset()));
    }
    reportRate(state, body.size());
}
BENCHMARK(writeList)->Arg(smallList)->Arg(largeList);

/// The measure of readList: a general parser that tells of every element and keeps nothing.
void libxmlEvents(benchmark::State& state) {
    const std::string body = text::toUtf8(listOf(state.range(0)));
    std::size_t elements = 0;
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void* context, const xmlChar*, const xmlChar*, const xmlChar*, int,
                                const xmlChar**, int, int,
                                const xmlChar**) { ++*static_cast<std::size_t*>(context); };
    for (auto _ : state) {
        if (xmlSAXUserParseMemory(&handler, &elements, body.data(), static_cast<int>(body.size())) != 0) {
            state.SkipWithError("libxml2 refused the list");
        }
    }
    benchmark::DoNotOptimize(elements);
    reportRate(state, body.size());
}
BENCHMARK(libxmlEvents)->Arg(smallList)->Arg(largeList);

/// And one that keeps a tree of it.
void libxmlTree(benchmark::State& state) {
    const std::string body = text::toUtf8(listOf(state.range(0)));
    for (auto _ : state) {
        xmlDocPtr document = xmlReadMemory(body.data(), static_cast<int>(body.size()), nullptr, nullptr,
                                           XML_PARSE_NONET | XML_PARSE_HUGE);
        benchmark::DoNotOptimize(document);
        xmlFreeDoc(document);
    }
    reportRate(state, body.size());
}
BENCHMARK(libxmlTree)->Arg(smallList)->Arg(largeList);

/// The stored list of a mailbox, and a mail to somebody on it or not.
class ListWorld : public BenchWorld {
  public:
    explicit ListWorld(std::int64_t count) {
        outlook.store(host::settingsFolder, {.subject = L"Email Address", .body = listOf(count)});
        list.Initialise();
        list.LoadList();
    }

    accounts::clsSendAcct list{globals};
};

/// From the mailbox, as at every send.
void loadList(benchmark::State& state) {
    ListWorld world(state.range(0));
    for (auto _ : state) {
        world.list.LoadList();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(loadList)->Arg(smallList)->Arg(largeList)->Unit(benchmark::kMillisecond);

/// One entry changed, which reads and writes the whole list.
void changeEntry(benchmark::State& state) {
    ListWorld world(state.range(0));
    for (auto _ : state) {
        world.list.AbsolutePosition(1);
        world.list.Edit();
        if (!world.list.Update()) {
            state.SkipWithError("the list could not be stored");
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(changeEntry)->Arg(smallList)->Arg(largeList)->Unit(benchmark::kMillisecond);

/// The second argument is the row of the recipient; one behind the last is on no list.
void membership(benchmark::State& state) {
    ListWorld world(state.range(0));
    host::Message message;
    message.to = {{.name = L"Bob", .address = addressOf(state.range(1))}};
    mail::OutgoingMail mail(world.globals, outlook::Item(world.outlook.store(L"Drafts", message)));
    for (auto _ : state) {
        const auto found = accounts::basSendAcct::ListMembership(world.list, mail);
        if (found.listed != (state.range(1) < state.range(0))) {
            state.SkipWithError("the wrong answer");
        }
    }
}
BENCHMARK(membership)->Args({largeList, 0})->Args({largeList, largeList})->Unit(benchmark::kMicrosecond);

void preferredAccount(benchmark::State& state) {
    ListWorld world(state.range(0));
    const std::wstring address = addressOf(state.range(1));
    for (auto _ : state) {
        benchmark::DoNotOptimize(accounts::basSendAcct::PreferredAccount(world.list, address));
    }
}
BENCHMARK(preferredAccount)
    ->Args({largeList, 0})
    ->Args({largeList, largeList})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
