#include "program/native/ImportMessage.h"

#include <gmime/gmime.h>

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "host/LocalTime.h"
#include "platform/text.h"
#include "program/native/MailText.h"
#include "program/native/MessageParts.h"
#include "program/native/gmimePointers.h"

namespace program {

namespace {

/// GMime starts once and for all: it does not survive being shut down and started again.
void startMailLibrary() {
    [[maybe_unused]] static const bool started = (g_mime_init(), true);
}

/// Decoded header text on one line, as Outlook's one-line fields hold it.
std::wstring oneLine(const char* utf8) {
    std::wstring line = text::fromUtf8(toUtf8(utf8 ? utf8 : "", "utf-8"));
    std::ranges::replace_if(
        line, [](wchar_t c) { return c < L' ' || (c >= 0x7F && c < 0xA0); }, L' ');
    return std::wstring(text::trim(line));
}

void addAddresses(InternetAddressList* list, std::vector<host::Address>& addresses) {
    const int count = list ? internet_address_list_length(list) : 0;
    for (int index = 0; index < count; ++index) {
        InternetAddress* entry = internet_address_list_get_address(list, index);
        if (INTERNET_ADDRESS_IS_GROUP(entry)) {
            addAddresses(internet_address_group_get_members(INTERNET_ADDRESS_GROUP(entry)), addresses);
            continue;
        }
        host::Address address{
            .name = oneLine(internet_address_get_name(entry)),
            .address = oneLine(internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(entry)))};
        if (address.name.empty()) {
            address.name = address.address;
        }
        if (!address.name.empty()) {
            addresses.push_back(std::move(address));
        }
    }
}

std::vector<host::Address> addressesOf(GMimeMessage* message, GMimeAddressType type) {
    std::vector<host::Address> addresses;
    addAddresses(g_mime_message_get_addresses(message, type), addresses);
    return addresses;
}

std::optional<host::Address> firstOf(std::vector<host::Address> addresses) {
    return addresses.empty() ? std::nullopt : std::optional(std::move(addresses.front()));
}

std::optional<automation::Date> localTime(GDateTime* time) {
    const DateTimePointer local(time ? g_date_time_to_local(time) : nullptr);
    if (!local) {
        return std::nullopt;
    }
    const auto part = [](int value) { return static_cast<unsigned>(value); };
    return host::toDate({g_date_time_get_year(local.get()), part(g_date_time_get_month(local.get())),
                         part(g_date_time_get_day_of_month(local.get())), g_date_time_get_hour(local.get()),
                         g_date_time_get_minute(local.get()), g_date_time_get_second(local.get())});
}

/// The time in a header field that GMime knows no accessor for.
std::optional<automation::Date> timeOf(GMimeMessage* message, const char* field) {
    const char* value = g_mime_object_get_header(GMIME_OBJECT(message), field);
    const DateTimePointer time(value ? g_mime_utils_header_decode_date(value) : nullptr);
    return localTime(time.get());
}

bool looksLikeMail(GMimeMessage* message) {
    constexpr const char* fields[] = {"From",     "To",          "Cc",          "Bcc",          "Subject",
                                      "Date",     "Message-ID",  "Received",    "MIME-Version", "Sender",
                                      "Reply-To", "Return-Path", "Content-Type"};
    return std::ranges::any_of(fields, [message](const char* field) {
        return g_mime_header_list_get_header(g_mime_object_get_header_list(GMIME_OBJECT(message)), field) !=
               nullptr;
    });
}

/// Groups in groups are read by functions that call themselves, here and in the mail library: a field of
/// addresses that might hold so many of them is refused before anybody reads it. Each begins with a ":", of
/// which no true field holds as many.
constexpr std::ptrdiff_t mostColons = 2000;

bool startsAddresses(std::string_view line) {
    constexpr std::string_view fields[] = {"from", "sender", "reply-to", "to", "cc", "bcc"};
    const std::string_view name = line.substr(0, line.find_first_of(": \t"));
    return std::ranges::any_of(fields, [name](std::string_view field) {
        return std::ranges::equal(name, field,
                                  [](char found, char wanted) { return g_ascii_tolower(found) == wanted; });
    });
}

/// Looks at every line that could be such a field, as mails may hold other mails.
void refuseNestedGroups(std::string_view mail) {
    std::ptrdiff_t colons = 0;
    bool inAddresses = false;
    while (!mail.empty()) {
        const std::size_t end = std::min(mail.find_first_of("\r\n"), mail.size());
        const std::string_view line = mail.substr(0, end);
        const bool goesOn = line.empty() || line.front() == ' ' || line.front() == '\t';
        if (!goesOn) {
            inAddresses = startsAddresses(line);
            colons = 0;
        }
        colons += inAddresses ? std::ranges::count(line, ':') : 0;
        if (colons > mostColons) {
            throw std::runtime_error("holds a field of addresses that nests groups too deeply");
        }
        mail.remove_prefix(std::min(end + 1, mail.size()));
    }
}

/// Outlook parts addresses with ";", which users type into other programs, too; the mail library would drop
/// what follows. Within a group it is the group's end.
std::string withCommas(std::string_view addresses) {
    std::string result(addresses);
    bool quoted = false;
    bool inGroup = false;
    for (std::size_t index = 0; index < result.size(); ++index) {
        char& character = result[index];
        if (character == '\\') {
            ++index;
        } else if (character == '"') {
            quoted = !quoted;
        } else if (!quoted && character == ':') {
            inGroup = true;
        } else if (!quoted && character == ';') {
            character = inGroup ? ';' : ',';
            inGroup = false;
        }
    }
    return result;
}

void partWithCommas(GMimeMessage* message) {
    GMimeHeaderList* headers = g_mime_object_get_header_list(GMIME_OBJECT(message));
    for (int index = 0; index < g_mime_header_list_get_count(headers); ++index) {
        GMimeHeader* header = g_mime_header_list_get_header_at(headers, index);
        const char* raw = g_mime_header_get_raw_value(header);
        if (raw && startsAddresses(g_mime_header_get_name(header)) &&
            std::string_view(raw).find(';') != std::string_view::npos) {
            g_mime_header_set_raw_value(header, withCommas(raw).c_str());
        }
    }
}

MessagePointer construct(std::string_view mail) {
    const StreamPointer stream(g_mime_stream_mem_new_with_buffer(mail.data(), mail.size()));
    const ParserPointer parser(g_mime_parser_new_with_stream(stream.get()));
    if (mail.starts_with("From ")) {
        g_mime_parser_set_format(parser.get(), GMIME_FORMAT_MBOX);
    }
    const ParserOptionsPointer options(g_mime_parser_options_new());
    const char* charsets[] = {"utf-8", "windows-1252", nullptr};
    g_mime_parser_options_set_fallback_charsets(options.get(), charsets);
    return MessagePointer(g_mime_parser_construct_message(parser.get(), options.get()));
}

MessagePointer parse(std::string_view mail) {
    MessagePointer message = construct(mail);
    if (!message) {
        // The parser gives up on a header that was cut off within a field's name.
        message = construct(std::string(mail) + ":\n\n");
    }
    if (!message || !looksLikeMail(message.get())) {
        throw std::runtime_error("is no e-mail message");
    }
    return message;
}

}  // namespace

host::Message importMessage(std::string_view mail) {
    if (mail.starts_with("\xEF\xBB\xBF")) {
        mail.remove_prefix(3);
    }
    mail.remove_prefix(std::min(mail.find_first_not_of("\r\n"), mail.size()));
    if (mail.empty()) {
        throw std::runtime_error("is empty");
    }
    refuseNestedGroups(mail);
    startMailLibrary();
    const MessagePointer parsed = parse(mail);
    partWithCommas(parsed.get());

    host::Message message;
    message.subject = oneLine(g_mime_message_get_subject(parsed.get()));
    message.from = firstOf(addressesOf(parsed.get(), GMIME_ADDRESS_TYPE_FROM));
    const auto sender = firstOf(addressesOf(parsed.get(), GMIME_ADDRESS_TYPE_SENDER));
    if (sender && message.from && sender->address != message.from->address) {
        message.onBehalfOf = std::exchange(message.from, sender);
    } else if (!message.from) {
        message.from = sender;
    }
    message.to = addressesOf(parsed.get(), GMIME_ADDRESS_TYPE_TO);
    message.cc = addressesOf(parsed.get(), GMIME_ADDRESS_TYPE_CC);
    message.bcc = addressesOf(parsed.get(), GMIME_ADDRESS_TYPE_BCC);
    message.replyTo = addressesOf(parsed.get(), GMIME_ADDRESS_TYPE_REPLY_TO);
    message.deliveryTime = localTime(g_mime_message_get_date(parsed.get()));
    message.deferredDeliveryTime = timeOf(parsed.get(), "Deferred-Delivery");
    readParts(parsed.get(), message);
    return message;
}

}  // namespace program
