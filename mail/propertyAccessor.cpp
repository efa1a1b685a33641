#include "mail/propertyAccessor.h"

#include <string>
#include <string_view>

namespace mail::propertyAccessor {

namespace {

std::wstring nameOf(std::uint32_t tag) {
    constexpr std::wstring_view digits = L"0123456789ABCDEF";
    std::wstring name = L"http://schemas.microsoft.com/mapi/proptag/0x";
    for (int shift = 28; shift >= 0; shift -= 4) {
        name += digits[(tag >> shift) & 0xF];
    }
    return name;
}

/// MAPI_E_NOT_FOUND.
constexpr auto missing = static_cast<std::int32_t>(0x8004010F);

automation::Value readBy(const automation::Object& accessor, std::uint32_t tag) {
    try {
        return accessor.call(L"GetProperty", nameOf(tag));
    } catch (const automation::Error& error) {
        if (error.number() == missing) {
            return {};
        }
        throw;
    }
}

}  // namespace

automation::Object of(const automation::Object& object) {
    return object.get(L"PropertyAccessor").toObject();
}

automation::Value read(const automation::Object& object, std::uint32_t tag) {
    return readBy(of(object), tag);
}

std::wstring readId(const automation::Object& object, std::uint32_t tag) {
    const automation::Object accessor = of(object);
    const automation::Value bytes = readBy(accessor, tag);
    return bytes.isEmpty() ? std::wstring() : accessor.call(L"BinaryToString", bytes).toText();
}

void writeTime(const automation::Object& object, std::uint32_t tag, automation::Date local) {
    const automation::Object accessor = of(object);
    const automation::Value utc = accessor.call(L"LocalTimeToUTC", local);
    accessor.call(L"SetProperty", nameOf(tag), utc);
}

}  // namespace mail::propertyAccessor
