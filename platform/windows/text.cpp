#include "platform/text.h"

#include <windows.h>

#include <algorithm>

namespace text {

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

}  // namespace text
