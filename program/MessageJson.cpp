#include "program/MessageJson.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>

#include "host/LocalTime.h"
#include "platform/characters.h"
#include "platform/text.h"

namespace program {

namespace {

constexpr char utf16[] = "utf16";
/// Distribution lists hold lists; nobody nests them deeper.
constexpr int deepestMembers = 16;

std::vector<std::uint16_t> toUnits(const std::wstring& text) {
    const std::u16string units = text::toUtf16(text);
    return {units.begin(), units.end()};
}

bool hasLoneSurrogate(const std::wstring& text) {
    bool found = false;
    for (std::size_t position = 0; position < text.size() && !found;) {
        found = text::isSurrogate(text::takeCharacter(text, position));
    }
    return found;
}

char16_t unitFrom(const Json& json) {
    constexpr std::uint32_t largest = 0xFFFF;
    if (!json.is_number_unsigned() || json.get<std::uint64_t>() > largest) {
        throw std::runtime_error("utf16 holds something else than numbers up to 65535");
    }
    return static_cast<char16_t>(json.get<std::uint16_t>());
}

std::wstring fromUnits(const Json& units) {
    std::u16string text;
    for (const Json& unit : units) {
        text += unitFrom(unit);
    }
    return text::fromUtf16(text);
}

Json texts(const std::vector<std::wstring>& values) {
    Json array = Json::array();
    for (const std::wstring& value : values) {
        array.push_back(textToJson(value));
    }
    return array;
}

Json toJson(const host::Address& address);

Json toJson(const std::vector<host::Address>& addresses) {
    Json array = Json::array();
    for (const host::Address& address : addresses) {
        array.push_back(toJson(address));
    }
    return array;
}

Json toJson(const host::Address& address) {
    Json json{{"name", textToJson(address.name)}, {"address", textToJson(address.address)}};
    if (address.type != L"SMTP") {
        json["type"] = textToJson(address.type);
    }
    if (!address.proxies.empty()) {
        json["proxies"] = texts(address.proxies);
    }
    if (!address.smtpAddress.empty()) {
        json["smtpAddress"] = textToJson(address.smtpAddress);
    }
    if (!address.members.empty()) {
        json["members"] = toJson(address.members);
    }
    if (address.distributionList) {
        json["distributionList"] = true;
    }
    if (!address.resolvable) {
        json["resolvable"] = false;
    }
    return json;
}

Json toJson(const std::optional<automation::Date>& date) {
    return date ? Json(host::toIsoTime(*date)) : Json(nullptr);
}

Json toJson(const MessageFile& file) {
    const host::Message& message = file.message;
    Json json{{"file", textToJson(file.name)}};
    if (message.itemClass != host::itemClass::mail) {
        json["class"] = message.itemClass;
    }
    if (message.from) {
        json["from"] = toJson(*message.from);
    }
    if (message.onBehalfOf) {
        json["onBehalfOf"] = toJson(*message.onBehalfOf);
    }
    json["to"] = toJson(message.to);
    json["cc"] = toJson(message.cc);
    json["bcc"] = toJson(message.bcc);
    json["replyTo"] = toJson(message.replyTo);
    json["subject"] = textToJson(message.subject);
    json["body"] = textToJson(message.body);
    json["html"] = textToJson(message.html);
    json["attachments"] = Json::array();
    for (const host::Attachment& attachment : message.attachments) {
        json["attachments"].push_back(
            {{"fileName", textToJson(attachment.fileName)}, {"contentId", textToJson(attachment.contentId)}});
    }
    json["deliveryTime"] = toJson(message.deliveryTime);
    json["deferredDeliveryTime"] = toJson(message.deferredDeliveryTime);
    json["account"] = textToJson(message.account);
    return json;
}

const char* kindOf(const Json& json) {
    return json.is_array()     ? "a list"
           : json.is_object()  ? "an object"
           : json.is_number()  ? "a number"
           : json.is_boolean() ? "true or false"
                               : "null";
}

/// Null when the object has no such member, or a null one.
const Json* member(const Json& object, const char* name) {
    if (!object.is_object()) {
        throw std::runtime_error("an object was expected");
    }
    const auto found = object.find(name);
    return found == object.end() || found->is_null() ? nullptr : &*found;
}

/// What `read` makes of a value; a complaint begins with the value's name.
template <class Read>
auto named(const std::string& name, const Json& json, Read read) {
    try {
        return read(json);
    } catch (const std::runtime_error& error) {
        throw std::runtime_error(name + ": " + error.what());
    }
}

std::wstring textOf(const Json& object, const char* name) {
    const Json* json = member(object, name);
    return json ? named(name, *json, textFromJson) : std::wstring();
}

/// A text that Outlook shows on one line: a line break in it could pass for the end of a row of a list.
std::wstring lineFrom(const Json& json) {
    std::wstring line = textFromJson(json);
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); }, L' ');
    return line;
}

std::wstring lineOf(const Json& object, const char* name) {
    const Json* json = member(object, name);
    return json ? named(name, *json, lineFrom) : std::wstring();
}

bool flagOf(const Json& object, const char* name, bool whenAbsent) {
    const Json* json = member(object, name);
    if (json && !json->is_boolean()) {
        throw std::runtime_error(std::string(name) + " is neither true nor false");
    }
    return json ? json->get<bool>() : whenAbsent;
}

int classOf(const Json& object) {
    constexpr std::uint64_t largest = 0xFFFF;
    const Json* json = member(object, "class");
    if (!json) {
        return host::itemClass::mail;
    }
    if (!json->is_number_unsigned() || json->get<std::uint64_t>() > largest) {
        throw std::runtime_error("class is no number of an item class, such as 43 for a mail");
    }
    return json->get<int>();
}

/// The elements of an array member, each read by `read`.
template <class Read>
auto listOf(const Json& object, const char* name, Read read) {
    std::vector<decltype(read(object))> list;
    if (const Json* json = member(object, name)) {
        if (!json->is_array()) {
            throw std::runtime_error(std::string(name) + " is no list");
        }
        for (const Json& element : *json) {
            list.push_back(named(name + (' ' + std::to_string(list.size() + 1)), element, read));
        }
    }
    return list;
}

host::Address addressFrom(const Json& json, int depth = 0) {
    if (depth > deepestMembers) {
        throw std::runtime_error("distribution lists are nested too deeply");
    }
    host::Address address{.name = lineOf(json, "name"), .address = lineOf(json, "address")};
    if (member(json, "type")) {
        address.type = lineOf(json, "type");
    }
    address.proxies = listOf(json, "proxies", lineFrom);
    address.smtpAddress = lineOf(json, "smtpAddress");
    address.members =
        listOf(json, "members", [depth](const Json& entry) { return addressFrom(entry, depth + 1); });
    address.distributionList = flagOf(json, "distributionList", false);
    address.resolvable = flagOf(json, "resolvable", true);
    return address;
}

std::vector<host::Address> addressesOf(const Json& object, const char* name) {
    return listOf(object, name, [](const Json& json) { return addressFrom(json); });
}

std::optional<host::Address> addressOf(const Json& object, const char* name) {
    const Json* json = member(object, name);
    const auto read = [](const Json& entry) { return addressFrom(entry); };
    return json ? std::optional(named(name, *json, read)) : std::nullopt;
}

std::optional<automation::Date> dateOf(const Json& object, const char* name) {
    const Json* json = member(object, name);
    if (!json) {
        return std::nullopt;
    }
    const auto date =
        json->is_string() ? host::parseIsoTime(json->get_ref<const std::string&>()) : std::nullopt;
    if (!date) {
        throw std::runtime_error(std::string(name) + " is no time such as 2024-05-01T09:30:00");
    }
    return date;
}

MessageFile messageFrom(const Json& json) {
    host::Message message;
    message.itemClass = classOf(json);
    message.from = addressOf(json, "from");
    message.onBehalfOf = addressOf(json, "onBehalfOf");
    message.to = addressesOf(json, "to");
    message.cc = addressesOf(json, "cc");
    message.bcc = addressesOf(json, "bcc");
    message.replyTo = addressesOf(json, "replyTo");
    message.subject = textOf(json, "subject");
    message.body = textOf(json, "body");
    message.html = textOf(json, "html");
    message.attachments = listOf(json, "attachments", [](const Json& entry) {
        return host::Attachment{textOf(entry, "fileName"), textOf(entry, "contentId")};
    });
    message.deliveryTime = dateOf(json, "deliveryTime");
    message.deferredDeliveryTime = dateOf(json, "deferredDeliveryTime");
    message.account = textOf(json, "account");
    return {textOf(json, "file"), message};
}

}  // namespace

nlohmann::ordered_json textToJson(const std::wstring& text) {
    if (hasLoneSurrogate(text)) {
        return {{utf16, toUnits(text)}};
    }
    return text::toUtf8(text);
}

std::wstring textFromJson(const nlohmann::ordered_json& json) {
    if (json.is_string()) {
        return text::fromUtf8(json.get_ref<const std::string&>());
    }
    const Json* units = json.is_object() ? member(json, utf16) : nullptr;
    if (!units || !units->is_array()) {
        throw std::runtime_error(std::string("a text was expected, not ") + kindOf(json));
    }
    return fromUnits(*units);
}

std::string toJson(const std::vector<MessageFile>& messages) {
    Json array = Json::array();
    for (const MessageFile& file : messages) {
        array.push_back(toJson(file));
    }
    return jsonText(array, 1);
}

std::vector<MessageFile> parseMessages(std::string_view json) {
    const Json array = parseJson(json);
    if (!array.is_array()) {
        throw std::runtime_error("a list of messages was expected, not " + std::string(kindOf(array)));
    }
    std::vector<MessageFile> messages;
    for (const Json& element : array) {
        try {
            messages.push_back(messageFrom(element));
        } catch (const std::runtime_error& error) {
            throw std::runtime_error("message " + std::to_string(messages.size() + 1) + ": " + error.what());
        }
    }
    return messages;
}

}  // namespace program
