#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

/// The user goes on working while the add-in shows a box at its start.
namespace {

using automation::Object;

TEST(StartUpBox, LeavesNoWindowUnguardedThatOpensBehindIt) {
    Bench bench({.settings = {{L"ShowStartupWizard", L""}},
                 .answers = {L"frmIntroWizard=cmdNav(1)", L"BCCed e-mail=No", L"BCCed e-mail=No"},
                 .connected = false});
    const Object item = bench.outlook().receive(plainMail());
    Object opened;
    bench.meanwhile([&] {
        bench.meanwhile(nullptr);
        opened = bench.outlook().openExplorer();
        bench.outlook().select(opened, {item});
    });
    bench.connect();
    ASSERT_TRUE(opened);
    bench.outlook().answerIn(opened, host::ReplyKind::ReplyAll, item);
    EXPECT_EQ(bench.prompts().size(), 2U);
    bench.outlook().closeExplorer(bench.outlook().explorers().front());
    bench.outlook().answerIn(opened, host::ReplyKind::ReplyAll, item);
    EXPECT_EQ(bench.prompts().size(), 3U) << "watched once, and by itself";
}

}  // namespace
