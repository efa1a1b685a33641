#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Text as the settings and checks treat it: sequences of UTF-16 units on Windows and of code points
/// natively; lone surrogates pass through everything unharmed.
namespace text {

/// The separators of every text that the product shows or stores.
inline constexpr std::wstring_view lineBreak = L"\r\n";
inline constexpr std::wstring_view paragraphBreak = L"\r\n\r\n";

/// The simple upper-case form of one character, whatever the user's locale; never changes a text's length.
/// Each world implements it, and upper().
wchar_t upperCase(wchar_t character);

/// Every character in its upper-case form.
std::wstring upper(std::wstring_view text);

/// Removes spaces (U+0020) at both ends; no other white space.
std::wstring_view trim(std::wstring_view text);
std::wstring_view trimLeft(std::wstring_view text);

/// The items between the separators; an empty text has none.
std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator);

bool equalsIgnoringCase(std::wstring_view left, std::wstring_view right);
/// True when the upper-cased trimmed texts are equal.
bool equalsTrimmed(std::wstring_view left, std::wstring_view right);
/// An empty part is found in every text.
bool containsIgnoringCase(std::wstring_view text, std::wstring_view part);

/// Replaces every occurrence, found from left to right; an empty part changes nothing.
std::wstring replaceAll(std::wstring_view text, std::wstring_view part, std::wstring_view replacement);

/// The text before the first `separator`, or all of it.
std::wstring_view before(std::wstring_view text, wchar_t separator);

/// Two upper-case digits for each byte.
std::wstring hexadecimal(std::span<const std::uint8_t> bytes);

/// UTF-8 for files and terminals. Lone surrogates keep their own three-byte form, so that both ways round
/// give the same text; bytes that are no UTF-8 become U+FFFD.
std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view bytes);

/// The system's 8-bit code page, natively Windows-1252. Each world implements both ways. A character that the
/// code page lacks becomes another, so that the way back gives another text; any bytes can be read.
std::string toCodePage(std::wstring_view text);
std::wstring fromCodePage(std::string_view bytes);

}  // namespace text
