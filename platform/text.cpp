#include "platform/text.h"

#include <algorithm>

#include "platform/characters.h"

namespace text {

std::wstring_view trimLeft(std::wstring_view text) {
    const auto start = text.find_first_not_of(L' ');
    return start == std::wstring_view::npos ? std::wstring_view{} : text.substr(start);
}

std::wstring_view trim(std::wstring_view text) {
    text = trimLeft(text);
    return text.substr(0, text.find_last_not_of(L' ') + 1);
}

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring_view> items;
    if (text.empty()) {
        return items;
    }
    for (std::size_t start = 0;;) {
        const auto end = text.find(separator, start);
        if (end == std::wstring_view::npos) {
            items.push_back(text.substr(start));
            return items;
        }
        items.push_back(text.substr(start, end - start));
        start = end + 1;
    }
}

bool equalsIgnoringCase(std::wstring_view left, std::wstring_view right) {
    return std::ranges::equal(left, right, {}, upperCase, upperCase);
}

bool equalsTrimmed(std::wstring_view left, std::wstring_view right) {
    return equalsIgnoringCase(trim(left), trim(right));
}

bool containsIgnoringCase(std::wstring_view text, std::wstring_view part) {
    const auto isSame = [](wchar_t left, wchar_t right) { return upperCase(left) == upperCase(right); };
    return std::search(text.begin(), text.end(), part.begin(), part.end(), isSame) != text.end() ||
           part.empty();
}

std::wstring replaceAll(std::wstring_view text, std::wstring_view part, std::wstring_view replacement) {
    std::wstring result;
    if (part.empty()) {
        result = text;
        return result;
    }
    std::size_t start = 0;
    for (auto found = text.find(part); found != std::wstring_view::npos; found = text.find(part, start)) {
        result.append(text, start, found - start);
        result += replacement;
        start = found + part.size();
    }
    result.append(text, start);
    return result;
}

std::wstring_view before(std::wstring_view text, wchar_t separator) {
    return text.substr(0, text.find(separator));
}

std::wstring hexadecimal(std::span<const std::uint8_t> bytes) {
    constexpr wchar_t digits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (const std::uint8_t byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}

namespace {

constexpr char32_t replacementCharacter = 0xFFFD;

void appendUtf8(std::string& bytes, char32_t point) {
    const auto put = [&bytes](char32_t byte) {
        bytes += static_cast<char>(static_cast<unsigned char>(byte));
    };
    if (point < 0x80) {
        put(point);
    } else if (point < 0x800) {
        put(0xC0 | (point >> 6));
        put(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        put(0xE0 | (point >> 12));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    } else {
        put(0xF0 | (point >> 18));
        put(0x80 | ((point >> 12) & 0x3F));
        put(0x80 | ((point >> 6) & 0x3F));
        put(0x80 | (point & 0x3F));
    }
}

/// Reads one code point at `position` and moves past it; past one byte when it is no UTF-8.
char32_t readUtf8(std::string_view bytes, std::size_t& position) {
    const auto byteAt = [bytes](std::size_t index) -> char32_t {
        return index < bytes.size() ? static_cast<unsigned char>(bytes[index]) : 0U;
    };
    const char32_t lead = byteAt(position);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    char32_t point = length == 1 ? lead : lead & (0x7FU >> length);
    bool valid = lead < 0x80 || (lead >= 0xC2 && lead < 0xF5);
    for (std::size_t index = 1; valid && index < length; ++index) {
        const char32_t byte = byteAt(position + index);
        valid = (byte & 0xC0) == 0x80;
        point = (point << 6) | (byte & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    if (!valid || point < smallest[length] || point > 0x10FFFF) {
        ++position;
        return replacementCharacter;
    }
    position += length;
    return point;
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t position = 0; position < text.size();) {
        const char32_t point = takeCharacter(text, position);
        appendUtf8(bytes, point > 0x10FFFF ? replacementCharacter : point);
    }
    return bytes;
}

std::wstring fromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t position = 0; position < bytes.size();) {
        append(text, readUtf8(bytes, position));
    }
    return text;
}

}  // namespace text
