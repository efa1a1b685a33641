#include <algorithm>

#include "host/AddressEntry.h"
#include "host/ItemContent.h"
#include "host/hostErrors.h"

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
constexpr std::uint32_t senderEntry = 0x0C190102;
constexpr std::uint32_t bcc = 0x0E02001E;
constexpr std::uint32_t cc = 0x0E03001E;
constexpr std::uint32_t to = 0x0E04001E;
constexpr std::uint32_t deliveryTime = 0x0E060040;
constexpr std::uint32_t body = 0x1000001E;
constexpr std::uint32_t html = 0x1013001E;
}  // namespace tag

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

Value ItemContent::field(std::uint32_t property) const {
    // A sender who acts for nobody is his own principal.
    const auto& principal = onBehalfOf ? onBehalfOf : sender;
    switch (property) {
        case tag::messageClass:
            return Value(itemClass == host::itemClass::post     ? L"IPM.Post"
                         : itemClass == host::itemClass::report ? L"REPORT.IPM.Note.NDR"
                                                                : L"IPM.Note");
        case tag::subject:
            return subject;
        case tag::body:
            return body;
        case tag::html:
            return html.empty() ? Value() : Value(html);
        case tag::to:
            return names(1);
        case tag::cc:
            return names(2);
        case tag::bcc:
            return names(3);
        case tag::senderName:
            return part(sender, &Address::name);
        case tag::senderType:
            return part(sender, &Address::type);
        case tag::senderAddress:
            return part(sender, &Address::address);
        case tag::senderEntry:
            return sender ? Value(entryIdBytes(*sender)) : Value();
        case tag::onBehalfName:
            return part(principal, &Address::name);
        case tag::onBehalfType:
            return part(principal, &Address::type);
        case tag::onBehalfAddress:
            return part(principal, &Address::address);
        case tag::deliveryTime:
            return valueOf(deliveryTime);
        case tag::deferredSend:
            return valueOf(deferred);
        default: {
            const auto found = fields.find(property);
            return found == fields.end() ? Value() : found->second;
        }
    }
}

Part ItemContent::setField(std::uint32_t property, const Value& value) {
    switch (property) {
        case tag::subject:
            subject = value.toText();
            return Part::Subject;
        case tag::body:
            body = value.toText();
            return Part::Body;
        case tag::html:
            html = value.toText();
            return Part::Body;
        case tag::senderName:
            setPart(sender, &Address::name, value);
            return Part::Sender;
        case tag::senderType:
            setPart(sender, &Address::type, value);
            return Part::Sender;
        case tag::senderAddress:
            setPart(sender, &Address::address, value);
            return Part::Sender;
        case tag::onBehalfName:
            setPart(onBehalfOf, &Address::name, value);
            return Part::OnBehalfOf;
        case tag::onBehalfType:
            setPart(onBehalfOf, &Address::type, value);
            return Part::OnBehalfOf;
        case tag::onBehalfAddress:
            setPart(onBehalfOf, &Address::address, value);
            return Part::OnBehalfOf;
        case tag::deliveryTime:
            deliveryTime = value.toDate();
            return Part::DeliveryTime;
        case tag::deferredSend:
            deferred = value.toDate();
            return Part::Deferred;
        case tag::to:
        case tag::cc:
        case tag::bcc:
        case tag::messageClass:
        case tag::senderEntry:
            raise::noPermission();  // Computed by the store.
        default:
            fields[property] = storable(value);
            return Part::Fields;
    }
}

}  // namespace host
