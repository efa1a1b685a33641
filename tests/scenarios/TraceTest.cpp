#include <gtest/gtest.h>

#include <algorithm>

#include "platform/outlook.h"
#include "tests/scenarios/replies.h"

namespace {

using namespace replies;

bool has(const std::vector<std::string>& lines, const std::string& procedure, const std::string& reason) {
    return std::ranges::any_of(lines, [&](const std::string& line) {
        return line.find(procedure + " (") != std::string::npos && line.ends_with("): " + reason);
    });
}

/// Someone who wonders why a check never ran finds the reason.
TEST(Trace, ExplainsWhyNothingWasAsked) {
    const struct {
        const char* procedure;
        const char* reason;
        void (*act)(Bench& bench);
        /// Of an Outlook that misses the library; empty: it is there.
        std::wstring withoutLibrary{};
        std::vector<std::wstring> answers{};
    } cases[] = {
        {"Step::run",
         "not to be read without the Redemption library",
         [](Bench& bench) { bench.send(plainMail()); },
         L"11.0.0.5510",
         {L"Veltro=OK"}},
        {"readsPeople",
         "not to be read without the Redemption library",
         [](Bench& bench) {
             bench.outlook().reply(selected(bench, mailTo({bob, me})));
         },
         L"10.0.0.2627",
         {L"Veltro=OK"}},
        {"onItemEvent", "left to another window",
         [](Bench& bench) {
             const auto item = selected(bench, mailTo({me}));
             bench.outlook().openItem(item);
             bench.outlook().reply(item);
         }},
        {"onAnswered", "left to another window",
         [](Bench& bench) {
             const auto item = selected(bench, mailTo({me}));
             bench.outlook().openItem(item);
             bench.outlook().openNewMail(plainMail());
             item.call(L"Reply");  // As a program does, whatever window is in front.
         }},
        {"handle",
         "the add-in's own answer",
         [](Bench& bench) {
             bench.outlook().reply(selected(bench, mailTo({bob, me})));
         },
         {},
         {L"frmReplyMultRecipt=cmdOK"}},
        {"handle", "cancelled before",
         [](Bench& bench) {
             const auto item = bench.outlook().receive(mailTo({me}));
             const auto otherAddIn = automation::subscribe(
                 item, outlook::events::item, [](std::int32_t event, std::span<automation::Value> arguments) {
                     if (event == outlook::events::itemReply) {
                         arguments.back().variable() = true;
                     }
                 });
             bench.outlook().select(bench.outlook().explorers().front(), {item});
             bench.outlook().reply(item);
         }},
    };
    for (const auto& given : cases) {
        Given setup{.answers = given.answers};
        if (!given.withoutLibrary.empty()) {
            setup.profile.version = given.withoutLibrary;
            setup.profile.redemptionRegistered = false;
        }
        Bench bench(setup);
        given.act(bench);
        const auto lines = bench.world().debugLines();
        EXPECT_TRUE(has(lines, given.procedure, given.reason))
            << given.procedure << ": " << testing::PrintToString(lines);
    }
}

}  // namespace
