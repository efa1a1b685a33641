#include "platform/text.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace text {

namespace {

/// Windows counts in integers.
int lengthOf(std::size_t size) {
    if (size > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        throw std::length_error("a text is too long for the code page");
    }
    return static_cast<int>(size);
}

}  // namespace

wchar_t upperCase(wchar_t character) {
    if (character < 0x80) {  // Nearly everything that is ever compared.
        return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A')
                                                      : character;
    }
    wchar_t upper = character;
    return LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, &character, 1, &upper, 1) == 1 ? upper : character;
}

std::wstring upper(std::wstring_view text) {
    std::wstring result(text);
    // One call for each stretch: a call for each character of a long Cyrillic body would be felt.
    constexpr std::size_t longest = 1 << 20;
    for (std::size_t start = 0; start < text.size(); start += longest) {
        const auto length = static_cast<int>(std::min(longest, text.size() - start));
        LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, text.data() + start, length, result.data() + start,
                     length);
    }
    return result;
}

std::string toCodePage(std::wstring_view text) {
    const int length = lengthOf(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string bytes(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, bytes.data(), size, nullptr, nullptr);
    return bytes;
}

std::wstring fromCodePage(std::string_view bytes) {
    const int size = lengthOf(bytes.size());
    const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), length);
    return text;
}

}  // namespace text
