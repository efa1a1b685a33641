#include <gtest/gtest.h>

#include "platform/text.h"

namespace {

/// Windows-1252 natively; on Windows that of the machine, which is the same wherever these tests have run.
TEST(CodePage, HoldsWesternTextsAndReadsAnyBytes) {
    EXPECT_EQ(text::toCodePage(L"a\u20AC\u00FC\u2026\u00FF"), "a\x80\xFC\x85\xFF");
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    const std::wstring read = text::fromCodePage(all);
    EXPECT_EQ(read.size(), all.size());
    EXPECT_EQ(text::toCodePage(read), all);
    EXPECT_EQ(text::fromCodePage(""), L"");
    EXPECT_EQ(text::toCodePage(L""), "");
}

TEST(CodePage, MakesOtherTextsOfWhatItLacks) {
    for (const wchar_t* lacking : {L"\u4E2D", L"\u0101", L"\u0080", L"a\u03A9b"}) {
        EXPECT_NE(text::fromCodePage(text::toCodePage(lacking)), lacking) << text::toUtf8(lacking);
    }
}

}  // namespace
