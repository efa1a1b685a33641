#include "host/PropertyAccessor.h"

#include "host/mapiTag.h"
#include "host/outlookRows.h"

namespace host {

using automation::Binary;
using automation::Date;
using automation::Value;

namespace {

namespace type {
constexpr std::uint32_t integer = 0x0003;
constexpr std::uint32_t flag = 0x000B;
constexpr std::uint32_t text = 0x001E;
constexpr std::uint32_t time = 0x0040;
constexpr std::uint32_t binary = 0x0102;
}  // namespace type

/// The tag that a property's name holds. Throws for every other name.
std::uint32_t tagOf(const std::wstring& name) {
    constexpr std::wstring_view prefix = L"http://schemas.microsoft.com/mapi/proptag/0x";
    constexpr std::size_t digits = 8;
    if (name.size() != prefix.size() + digits || !name.starts_with(prefix)) {
        raise::noSuchProperty(name);
    }
    std::uint32_t tag = 0;
    for (const wchar_t character : std::wstring_view(name).substr(prefix.size())) {
        const auto value = hexadecimalDigit(character);
        if (!value) {
            raise::noSuchProperty(name);
        }
        tag = tag * 16 + *value;
    }
    return withPlainText(tag);
}

/// What stands between the time here and MAPI's, in days.
double aheadOfUtc(const HostObject& object) {
    constexpr double minutesOfDay = 24 * 60;
    return object.core().profile().minutesAheadOfUtc / minutesOfDay;
}

/// Outlook 2007 refuses what does not fit into 4 KB.
void checkSize(const HostObject& object, const Value& value) {
    constexpr int outlook2007 = 12;
    constexpr std::size_t most = 4096;
    const std::size_t size = value.holds<std::wstring>() ? value.toText().size() * 2
                             : value.holds<Binary>()     ? value.toBinary().size()
                                                         : 0;
    if (object.core().majorVersion() == outlook2007 && size > most) {
        raise::outOfMemory();
    }
}

/// The tag's type is what the value is.
void checkType(std::uint32_t tag, const Value& value) {
    const std::uint32_t wanted = tag & 0xFFFF;
    const bool fits = wanted == type::integer  ? value.holds<std::int32_t>()
                      : wanted == type::flag   ? value.holds<bool>()
                      : wanted == type::text   ? value.holds<std::wstring>()
                      : wanted == type::time   ? value.holds<Date>()
                      : wanted == type::binary ? value.holds<Binary>()
                                               : value.holds<automation::Array>();
    if (!fits) {
        raise::typeMismatch();
    }
}

Value textOfBinary(PropertyAccessor&, Arguments arguments) {
    return text::hexadecimal(arguments[0].toBinary());
}

Value binaryOfText(PropertyAccessor&, Arguments arguments) {
    const auto bytes = fromHexadecimal(text::upper(arguments.text(0)));
    if (!bytes) {
        raise::operationFailed();
    }
    return *bytes;
}

template <int Sign>
Value shiftTime(PropertyAccessor& accessor, Arguments arguments) {
    return Date{arguments[0].toDate().days + Sign * aheadOfUtc(accessor)};
}

}  // namespace

void HasProperties::setProperty(std::uint32_t, const Value&) {
    raise::noPermission();
}

void HasProperties::deleteProperty(std::uint32_t) {
    raise::noPermission();
}

Value PropertyAccessor::read(Arguments arguments) const {
    const std::wstring name = arguments.text(0);
    Value value = properties_.property(tagOf(name));
    if (value.isEmpty()) {
        raise::noSuchProperty(name);
    }
    checkSize(*this, value);
    return value.holds<Date>() ? Value(Date{value.toDate().days - aheadOfUtc(*this)}) : value;
}

/// What cannot be read comes as an error value, which is empty here.
Value PropertyAccessor::readAll(Arguments arguments) const {
    automation::Array values;
    for (const Value& name : arguments[0].toArray()) {
        try {
            values.push_back(read(Arguments(std::span(&name, 1))));
        } catch (const automation::Error&) {
            values.emplace_back();
        }
    }
    return values;
}

void PropertyAccessor::write(Arguments arguments) {
    const std::uint32_t tag = tagOf(arguments.text(0));
    const Value& value = arguments[1];
    if (core().profile().refusedFields.contains(tag)) {
        raise::noPermission();
    }
    checkType(tag, value);
    properties_.setProperty(
        tag, value.holds<Date>() ? Value(Date{value.toDate().days + aheadOfUtc(*this)}) : value);
}

/// Answers an error value for each that was refused, which is empty here: so nothing tells them apart.
Value PropertyAccessor::writeAll(Arguments arguments) {
    const automation::Array& names = arguments[0].toArray();
    const automation::Array& values = arguments[1].toArray();
    if (names.size() != values.size()) {
        raise::operationFailed();
    }
    for (std::size_t index = 0; index < names.size(); ++index) {
        const Value pair[] = {names[index], values[index]};
        try {
            write(Arguments(pair));
        } catch (const automation::Error&) {  // The others are still written.
        }
    }
    return automation::Array(names.size());
}

void PropertyAccessor::remove(Arguments arguments) {
    properties_.deleteProperty(tagOf(arguments.text(0)));
}

constinit const Members<PropertyAccessor> PropertyAccessor::members = {
    applicationRow<PropertyAccessor>,
    {.name = L"Parent", .id = 61441, .get = use<&PropertyAccessor::owner_>},
    classRow<PropertyAccessor, 112>,
    sessionRow<PropertyAccessor>,
    {.name = L"GetProperty", .id = 64251, .call = use<&PropertyAccessor::read>, .least = 1, .most = 1},
    {.name = L"SetProperty", .id = 64252, .call = use<&PropertyAccessor::write>, .least = 2, .most = 2},
    {.name = L"GetProperties", .call = use<&PropertyAccessor::readAll>, .least = 1, .most = 1},
    {.name = L"SetProperties", .call = use<&PropertyAccessor::writeAll>, .least = 2, .most = 2},
    {.name = L"DeleteProperty", .call = use<&PropertyAccessor::remove>, .least = 1, .most = 1},
    {.name = L"BinaryToString", .call = textOfBinary, .least = 1, .most = 1},
    {.name = L"StringToBinary", .call = binaryOfText, .least = 1, .most = 1},
    {.name = L"UTCToLocalTime", .call = shiftTime<1>, .least = 1, .most = 1},
    {.name = L"LocalTimeToUTC", .call = shiftTime<-1>, .least = 1, .most = 1},
};

}  // namespace host
