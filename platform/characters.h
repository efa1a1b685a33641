#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Text character by character, where texts alone will not do.
namespace text {

/// Editors put it in the place of ordinary spaces.
inline constexpr wchar_t nonBreakingSpace = 0xA0;

/// Tabs and line breaks among them. XML readers take those of a value for spaces, and refuse the others.
constexpr bool isControl(wchar_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}
/// Half of a pair of UTF-16 units, which stands for one character beyond U+FFFF.
constexpr bool isSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xE000;
}
/// The character at `position`, which moves past it: both halves of a pair, or a lone one as it stands.
char32_t takeCharacter(std::wstring_view text, std::size_t& position);
/// Adds a character, as a pair where a wchar_t has no room for it.
void append(std::wstring& text, char32_t character);
std::u16string toUtf16(std::wstring_view text);
std::wstring fromUtf16(std::u16string_view units);

}  // namespace text
