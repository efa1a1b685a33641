#include "platform/characters.h"

namespace text {

namespace {

/// The first low surrogate; the high ones lie before it.
constexpr char32_t firstLow = 0xDC00;

template <class Text>
void appendUnits(Text& text, char32_t point) {
    using Unit = typename Text::value_type;
    if (sizeof(Unit) == 2 && point >= 0x10000) {
        text += static_cast<Unit>(0xD800 + ((point - 0x10000) >> 10));
        text += static_cast<Unit>(firstLow + ((point - 0x10000) & 0x3FF));
    } else {
        text += static_cast<Unit>(point);
    }
}

}  // namespace

char32_t takeCharacter(std::wstring_view text, std::size_t& position) {
    const auto unit = static_cast<char32_t>(text[position++]);
    const auto next = position < text.size() ? static_cast<char32_t>(text[position]) : 0;
    if (!isSurrogate(unit) || unit >= firstLow || !isSurrogate(next) || next < firstLow) {
        return unit;
    }
    ++position;
    return 0x10000 + ((unit - 0xD800) << 10) + (next - firstLow);
}

void append(std::wstring& text, char32_t character) {
    appendUnits(text, character);
}

std::u16string toUtf16(std::wstring_view text) {
    std::u16string units;
    for (const wchar_t character : text) {
        appendUnits(units, static_cast<char32_t>(character));
    }
    return units;
}

std::wstring fromUtf16(std::u16string_view units) {
    const std::wstring halves(units.begin(), units.end());
    std::wstring text;
    for (std::size_t position = 0; position < halves.size();) {
        append(text, takeCharacter(halves, position));
    }
    return text;
}

}  // namespace text
