#include "mail/OutlookVersion.h"

#include <gtest/gtest.h>

namespace {

using mail::OutlookVersion;

TEST(OutlookVersion, IsWhatStandsBeforeTheFirstPoint) {
    EXPECT_EQ(OutlookVersion(L"9.0.0.2711"), mail::outlook2000);
    EXPECT_EQ(OutlookVersion(L"10.0"), mail::outlook2002);
    EXPECT_LT(OutlookVersion(L"9.0.0.2711"), mail::outlook2002) << "not compared as text";
    EXPECT_GT(OutlookVersion(L"16.0.4266"), mail::outlook2007);
    EXPECT_LT(OutlookVersion(L""), mail::outlook2000);
}

}  // namespace
