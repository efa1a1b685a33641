#include "platform/text.h"

#include <locale.h>
#include <wctype.h>

namespace text {

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

}  // namespace text
