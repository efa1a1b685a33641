#pragma once

namespace accounts::rowset {

/// Tabs and line breaks among them. XML readers take those of a value for spaces, and refuse the others.
inline constexpr bool isControl(wchar_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

}  // namespace accounts::rowset
