#include "host/mapiTag.h"

#include <cmath>

#include "host/hostErrors.h"

namespace host {

std::uint32_t mapiTag(const automation::Value& value) {
    const double number = value.toNumber();
    constexpr double least = -2147483648.0;
    constexpr double most = 4294967295.0;
    if (std::isnan(number) || number < least || number > most) {
        raise::typeMismatch();
    }
    return withPlainText(static_cast<std::uint32_t>(static_cast<std::int64_t>(number)));
}

std::uint32_t withPlainText(std::uint32_t tag) {
    constexpr std::uint32_t unicodeText = 0x001F;
    constexpr std::uint32_t text = 0x001E;
    constexpr std::uint32_t many = 0x1000;
    const std::uint32_t type = tag & 0xFFFF;
    return (type & ~many) == unicodeText ? (tag & 0xFFFF0000) | (type & many) | text : tag;
}

std::optional<std::uint32_t> hexadecimalDigit(wchar_t character) {
    const std::size_t value = std::wstring_view(L"0123456789ABCDEF").find(character);
    return value == std::wstring_view::npos ? std::nullopt : std::optional(static_cast<std::uint32_t>(value));
}

std::optional<automation::Binary> fromHexadecimal(std::wstring_view digits) {
    automation::Binary bytes;
    for (; digits.size() > 1; digits.remove_prefix(2)) {
        const auto high = hexadecimalDigit(digits[0]);
        const auto low = hexadecimalDigit(digits[1]);
        if (!high || !low) {
            return std::nullopt;
        }
        bytes.push_back(static_cast<std::uint8_t>(*high * 16 + *low));
    }
    return digits.empty() ? std::optional(std::move(bytes)) : std::nullopt;
}

}  // namespace host
