#include <algorithm>

#include "host/Item.h"
#include "host/World.h"

namespace host {

using automation::Value;

namespace {

/// MAPI property tags that stand for parts of an item's content.
namespace tag {
constexpr std::uint32_t messageClass = 0x001A001E;
constexpr std::uint32_t subject = 0x0037001E;
constexpr std::uint32_t onBehalfName = 0x0042001E;
constexpr std::uint32_t onBehalfType = 0x0064001E;
constexpr std::uint32_t onBehalfAddress = 0x0065001E;
constexpr std::uint32_t deferredSend = 0x3FEF0040;
constexpr std::uint32_t senderName = 0x0C1A001E;
constexpr std::uint32_t senderType = 0x0C1E001E;
constexpr std::uint32_t senderAddress = 0x0C1F001E;
constexpr std::uint32_t bcc = 0x0E02001E;
constexpr std::uint32_t cc = 0x0E03001E;
constexpr std::uint32_t to = 0x0E04001E;
constexpr std::uint32_t deliveryTime = 0x0E060040;
constexpr std::uint32_t body = 0x1000001E;
constexpr std::uint32_t html = 0x1013001E;
}  // namespace tag

/// The Unicode form of a text property has the same content as its 8-bit form.
std::uint32_t canonical(std::uint32_t property) {
    return (property & 0xFFFF) == 0x001F ? (property & 0xFFFF0000) | 0x001E : property;
}

template <class T>
Value valueOf(const std::optional<T>& value) {
    return value ? Value(*value) : Value();
}

Value part(const std::optional<Address>& address, std::wstring Address::*member) {
    return address ? Value((*address).*member) : Value();
}

void setPart(std::optional<Address>& address, std::wstring Address::*member, const Value& value) {
    if (!address) {
        address.emplace();
    }
    (*address).*member = value.toText();
}

}  // namespace

Value storable(const Value& value) {
    const auto isPlain = [](const Value& part) {
        return !part.isReference() && !part.holds<automation::Object>() && !part.holds<automation::Array>();
    };
    const bool allowed =
        value.holds<automation::Array>() ? std::ranges::all_of(value.toArray(), isPlain) : isPlain(value);
    if (!allowed) {
        raise::typeMismatch();
    }
    return value;
}

Value Item::field(std::uint32_t property) const {
    const std::uint32_t wanted = canonical(property);
    // A sender who acts for nobody is his own principal.
    const auto& principal = content_.onBehalfOf ? content_.onBehalfOf : content_.sender;
    switch (wanted) {
        case tag::messageClass:
            return Value(content_.itemClass == itemClass::post     ? L"IPM.Post"
                         : content_.itemClass == itemClass::report ? L"REPORT.IPM.Note.NDR"
                                                                   : L"IPM.Note");
        case tag::subject:
            return content_.subject;
        case tag::body:
            return content_.body;
        case tag::html:
            return content_.html.empty() ? Value() : Value(content_.html);
        case tag::to:
            return names(1);
        case tag::cc:
            return names(2);
        case tag::bcc:
            return names(3);
        case tag::senderName:
            return part(content_.sender, &Address::name);
        case tag::senderType:
            return part(content_.sender, &Address::type);
        case tag::senderAddress:
            return part(content_.sender, &Address::address);
        case tag::onBehalfName:
            return part(principal, &Address::name);
        case tag::onBehalfType:
            return part(principal, &Address::type);
        case tag::onBehalfAddress:
            return part(principal, &Address::address);
        case tag::deliveryTime:
            return valueOf(content_.deliveryTime);
        case tag::deferredSend:
            return valueOf(content_.deferred);
        default: {
            const auto found = content_.fields.find(wanted);
            return found == content_.fields.end() ? Value() : found->second;
        }
    }
}

void Item::setField(std::uint32_t property, const Value& value) {
    const std::uint32_t wanted = canonical(property);
    content_.saved = false;
    switch (wanted) {
        case tag::subject:
            content_.subject = value.toText();
            break;
        case tag::body:
            content_.body = value.toText();
            break;
        case tag::html:
            content_.html = value.toText();
            break;
        case tag::senderName:
            setPart(content_.sender, &Address::name, value);
            break;
        case tag::senderType:
            setPart(content_.sender, &Address::type, value);
            break;
        case tag::senderAddress:
            setPart(content_.sender, &Address::address, value);
            break;
        case tag::onBehalfName:
            setPart(content_.onBehalfOf, &Address::name, value);
            break;
        case tag::onBehalfType:
            setPart(content_.onBehalfOf, &Address::type, value);
            break;
        case tag::onBehalfAddress:
            setPart(content_.onBehalfOf, &Address::address, value);
            break;
        case tag::deliveryTime:
            content_.deliveryTime = value.toDate();
            break;
        case tag::deferredSend:
            content_.deferred = value.toDate();
            break;
        case tag::to:
        case tag::cc:
        case tag::bcc:
        case tag::messageClass:
            raise::noPermission();  // Computed by the store.
        default:
            content_.fields[wanted] = storable(value);
    }
}

}  // namespace host
