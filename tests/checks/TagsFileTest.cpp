#include <gtest/gtest.h>

#include <filesystem>

#include "checks/subjectCleaning.h"
#include "tests/TestWorld.h"

namespace {

/// The prefix file as it is shipped.
TEST(PrefixFile, AsShippedCleansTheUsualPrefixes) {
    const auto file = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "Tags.txt";
    TestWorld world;
    bool found = false;
    EXPECT_EQ(checks::FindReFwFromFile(world.globals, L"RE: RE: FWD: x", file.wstring(), found),
              L"RE:  FWD: x");
    EXPECT_TRUE(found);
    EXPECT_EQ(checks::FindReFwFromFile(world.globals, L"RE: RE: x", L"no\\such\\file", found), L"RE: RE: x");
    EXPECT_FALSE(found);
}

}  // namespace
