#include "platform/text.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <iterator>

namespace text {

namespace {

/// What Windows-1252 has for the bytes from 0x80 to 0x9F; all others stand for the character of their number.
/// As on Windows the five that the code page does not use stand for the control characters of Latin-1.
constexpr wchar_t upperControls[] = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178,
};
constexpr unsigned char firstUpperControl = 0x80;

wchar_t fromByte(unsigned char byte) {
    const bool isControl = byte >= firstUpperControl && byte < firstUpperControl + std::size(upperControls);
    return isControl ? upperControls[byte - firstUpperControl] : wchar_t{byte};
}

char toByte(wchar_t character) {
    const auto* const found = std::ranges::find(upperControls, character);
    if (found != std::end(upperControls)) {
        return static_cast<char>(firstUpperControl + (found - upperControls));
    }
    const bool isOwnNumber = character < firstUpperControl || (character >= 0xA0 && character <= 0xFF);
    return isOwnNumber ? static_cast<char>(character) : '?';
}

}  // namespace

wchar_t upperCase(wchar_t character) {
    if (character < 0x80) {  // Nearly everything that is ever compared.
        return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A')
                                                      : character;
    }
    // C.UTF-8 is part of the C library and knows every character; the user's locale is not asked.
    static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return locale ? static_cast<wchar_t>(towupper_l(static_cast<wint_t>(character), locale)) : character;
}

std::wstring upper(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& character : result) {
        character = upperCase(character);
    }
    return result;
}

std::string toCodePage(std::wstring_view text) {
    std::string bytes(text.size(), '\0');
    std::ranges::transform(text, bytes.begin(), &toByte);
    return bytes;
}

std::wstring fromCodePage(std::string_view bytes) {
    std::wstring text(bytes.size(), L'\0');
    std::ranges::transform(bytes, text.begin(),
                           [](char byte) { return fromByte(static_cast<unsigned char>(byte)); });
    return text;
}

}  // namespace text
