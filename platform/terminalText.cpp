#include "platform/terminalText.h"

#include <algorithm>

#include "platform/characters.h"
#include "platform/text.h"

namespace platform {

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

}  // namespace

bool drivesTerminal(wchar_t character) {
    const bool control = character < L' ' || (character >= 0x7F && character < 0xA0);
    const bool separatorOrOverride = character >= 0x2028 && character <= 0x202E;
    const bool isolate = character >= 0x2066 && character <= 0x2069;
    return control || separatorOrOverride || isolate;
}

std::string plainUtf8(std::wstring_view text) {
    std::wstring plain;
    for (std::size_t position = 0; position < text.size();) {
        const char32_t character = text::takeCharacter(text, position);
        text::append(plain, text::isSurrogate(character) ? replacementCharacter : character);
    }
    return text::toUtf8(plain);
}

std::string terminalText(std::wstring_view text) {
    std::wstring shown = text::replaceAll(text, text::lineBreak, L"\n");
    std::ranges::replace_if(
        shown, [](wchar_t c) { return c != L'\n' && c != L'\t' && drivesTerminal(c); }, L'?');
    return plainUtf8(shown);
}

std::string terminalLine(std::wstring_view text) {
    std::string shown = terminalText(text);
    std::ranges::replace_if(
        shown, [](char c) { return c == '\n' || c == '\t'; }, '?');
    return shown;
}

}  // namespace platform
