#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "mail/Globals.h"

/// The steps by which the subject of a reply or forward is cleaned. Each is linear in the subject. One that
/// takes the globals reports an error of its own under its own name and then leaves the subject as it was.
namespace checks {

/// Deletes every occurrence of the phrases, in their order, letter case ignored.
std::wstring removePhrases(std::wstring subject, const std::vector<std::wstring_view>& phrases);

/// Keeps the first occurrence of the tag and deletes the later ones, letter case ignored.
std::wstring MultipleRemove(mail::Globals& globals, std::wstring subject, std::wstring_view tag);

/// Leaves exactly one space behind the first word.
std::wstring TrimSpaceAfterFirstSpace(mail::Globals& globals, std::wstring subject);

/// Keeps the first of several prefixes that stand together at the start and drops those that follow it. Knows
/// "RE:" and "FW:" alone, whatever the prefix file holds.
std::wstring RemoveLastTagIfMultipleTogether(mail::Globals& globals, std::wstring subject);

/// True when an element equals the word, blanks around them and letter case ignored.
bool WordInArray(mail::Globals& globals, const std::vector<std::wstring_view>& words, std::wstring_view word);

/// The prefixes of the file's text, one a line, without blanks around them; blank lines and a byte-order mark
/// are passed over. The bytes are UTF-16 with its mark, UTF-8, or else of the Western 8-bit code page.
std::vector<std::wstring> prefixesOf(std::string_view bytes);

/// Reads the prefix file. One that is not there has none, nor has one that cannot be read.
std::vector<std::wstring> GetTagsArrayFromFile(mail::Globals& globals, const std::wstring& path);

/// Applies MultipleRemove for each prefix of the file; `found` tells whether it had any.
std::wstring FindReFwFromFile(mail::Globals& globals, std::wstring subject, const std::wstring& path,
                              bool& found);

}  // namespace checks
