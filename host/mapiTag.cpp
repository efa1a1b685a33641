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
    const auto tag = static_cast<std::uint32_t>(static_cast<std::int64_t>(number));
    constexpr std::uint32_t unicodeText = 0x001F;
    constexpr std::uint32_t text = 0x001E;
    return (tag & 0xFFFF) == unicodeText ? (tag & 0xFFFF0000) | text : tag;
}

}  // namespace host
