#include "platform/text.h"

#include <windows.h>

namespace text {

wchar_t upperCase(wchar_t character) {
    if (character < 0x80) {  // Nearly everything that is ever compared.
        return character >= L'a' && character <= L'z' ? static_cast<wchar_t>(character - L'a' + L'A')
                                                      : character;
    }
    wchar_t upper = character;
    return LCMapStringW(LOCALE_INVARIANT, LCMAP_UPPERCASE, &character, 1, &upper, 1) == 1 ? upper : character;
}

}  // namespace text
