#include <gtest/gtest.h>

#include "tests/scenarios/Bench.h"

namespace {

TEST(RibbonRaces, TheAddInGoesWhileACheckAsks) {
    Bench bench({.answers = {L"Attachment(s) missing=Yes"}});
    const auto window = bench.outlook().openNewMail(plainMail(L"Budget", L"See attached"));
    bench.meanwhile([&] {
        bench.meanwhile(nullptr);
        bench.disconnect(1);
    });
    bench.outlook().pressRibbon(window, L"Check now");
    EXPECT_EQ(bench.prompts().size(), 1U);
    EXPECT_TRUE(bench.outlook().errors().empty());
}

}  // namespace
