#include "platform/terminalText.h"

#include <gtest/gtest.h>

namespace {

TEST(TerminalText, LetsNothingThroughThatDrivesATerminal) {
    const struct {
        std::wstring text;
        const char* shown;
        const char* onOneLine;
    } cases[] = {
        {L"plain \u00E9\u20AC", "plain \u00E9\u20AC", "plain \u00E9\u20AC"},
        {L"a\r\nb\nc\td", "a\nb\nc\td", "a?b?c?d"},
        {L"\x1B[2J\a\b\x7F", "?[2J???", "?[2J???"},
        {L"carriage\rreturn", "carriage?return", "carriage?return"},
        {L"\u009B2J\u0085", "?2J?", "?2J?"},
        {L"invoice\u202Egpj.exe", "invoice?gpj.exe", "invoice?gpj.exe"},
        {L"\u202A\u202B\u202C\u202D\u2066\u2067\u2068\u2069", "????????", "????????"},
        {L"\u2028\u2029", "??", "??"},
        {L"\u05D0\u200F \u200Eb", "\u05D0\u200F \u200Eb", "\u05D0\u200F \u200Eb"},
        {std::wstring(1, static_cast<wchar_t>(0xD800)) + L"x", "\uFFFDx", "\uFFFDx"},
        {std::wstring(L"x") + static_cast<wchar_t>(0xDC9B), "x\uFFFD", "x\uFFFD"},
        {L"\U0001F600", "\U0001F600", "\U0001F600"},
    };
    for (const auto& [text, shown, onOneLine] : cases) {
        EXPECT_EQ(platform::terminalText(text), shown);
        EXPECT_EQ(platform::terminalLine(text), onOneLine);
    }
}

}  // namespace
