#include "checks/occurrences.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace {

using checks::allOccur;
using Parts = std::vector<std::wstring>;

TEST(Occurrences, AreThoseOfPlainSearches) {
    const struct {
        const char* name;
        Parts parts;
        std::wstring text;
        bool expected;
    } cases[] = {
        {"nothing to find", {}, L"abc", true},
        {"empty part", {L""}, L"", true},
        {"empty text", {L"a"}, L"", false},
        {"one missing", {L"ab", L"bd"}, L"abcd", false},
        {"overlapping", {L"abc", L"bcd", L"cde"}, L"abcde", true},
        {"a part at the end of another", {L"abcd", L"bcd", L"d"}, L"abcd", true},
        {"only inside a start that fails", {L"aaab", L"aac"}, L"aaac", false},
        {"the same part twice", {L"ab", L"ab"}, L"xaby", true},
        {"longer than the text", {L"abcd"}, L"abc", false},
        {"together longer than the text", {L"abc", L"bcd", L"a", L"d"}, L"abcd", true},
        {"odd characters", {std::wstring(L"\0b", 2), L"\xD800"}, std::wstring(L"a\0b\xD800", 4), true},
    };
    for (const auto& given : cases) {
        EXPECT_EQ(allOccur(given.parts, given.text), given.expected) << given.name;
    }
}

/// A short alphabet makes parts that share starts and ends, and texts that hold about half of them.
TEST(Occurrences, AreThoseOfPlainSearchesInAnyMixture) {
    std::mt19937 random(1);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    const auto word = [&](std::size_t length, std::size_t letters) {
        std::wstring result(length, L'a');
        std::ranges::generate(result,
                              [&] { return static_cast<wchar_t>(L'a' + static_cast<int>(below(letters))); });
        return result;
    };
    int found = 0;
    for (int round = 0; round < 20'000; ++round) {
        const std::size_t letters = 1 + below(3);
        const std::wstring text = word(below(30), letters);
        Parts parts(below(6));
        std::ranges::generate(parts, [&] { return word(below(5), letters); });
        const bool expected = std::ranges::all_of(
            parts, [&text](const std::wstring& part) { return text.find(part) != std::wstring::npos; });
        ASSERT_EQ(allOccur(parts, text), expected) << "round " << round;
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 2'000);
    EXPECT_LT(found, 18'000);
}

}  // namespace
