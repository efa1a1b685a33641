#pragma once

#include <string>
#include <string_view>

/// Text of mails, files and command lines on its way to a terminal.
namespace platform {

/// True for a character that could drive a terminal or turn round the text beside it: controls of both sets,
/// line and paragraph separators, and the embeddings, overrides and isolates of right-to-left text. Plain
/// direction marks, which such languages need, are none of them.
bool drivesTerminal(wchar_t character);

/// The text in UTF-8 that every reader accepts: what is no character becomes U+FFFD.
std::string plainUtf8(std::wstring_view text);

/// The text as a terminal may show it, in UTF-8: line breaks as the terminal's own, tabs as they are, other
/// characters that drive it as "?", and what is no character as U+FFFD.
std::string terminalText(std::wstring_view text);

/// The same on one line: what would begin another is a "?" too.
std::string terminalLine(std::wstring_view text);

}  // namespace platform
