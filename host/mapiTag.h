#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/automation.h"

namespace host {

/// A MAPI property tag as callers give it: tags from 0x80000000 on arrive as negative integers or as doubles.
/// Throws automation::Error 13 for anything else.
std::uint32_t mapiTag(const automation::Value& value);
/// The tag with the type of 8-bit texts where it is that of Unicode ones, 001F, as either reads a text; of
/// lists of them, too.
std::uint32_t withPlainText(std::uint32_t tag);

/// The value of a digit of a hexadecimal number in capitals.
std::optional<std::uint32_t> hexadecimalDigit(wchar_t character);
/// The bytes that pairs of such digits stand for; nothing for any other text.
std::optional<automation::Binary> fromHexadecimal(std::wstring_view digits);

}  // namespace host
