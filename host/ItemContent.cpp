#include "host/ItemContent.h"

#include <algorithm>

#include "platform/text.h"

namespace host {

namespace {

constexpr std::uint32_t tagOfHeaders = 0x007D001E;

void addRecipients(RecipientList& list, const std::vector<Address>& addresses, int type) {
    for (const Address& address : addresses) {
        list.push_back(std::make_shared<RecipientData>(RecipientData{type, address, isResolved(address)}));
    }
}

template <class T>
void detach(std::vector<std::shared_ptr<T>>& list) {
    for (auto& element : list) {
        element = std::make_shared<T>(*element);
    }
}

/// Replaces a list by copies of another one's elements.
template <class T>
void takeList(std::vector<std::shared_ptr<T>>& list, const std::vector<std::shared_ptr<T>>& from) {
    list = from;
    detach(list);
}

}  // namespace

ItemContent ItemContent::of(const Message& message) {
    ItemContent content;
    content.itemClass = message.itemClass;
    content.sender = message.from;
    content.onBehalfOf = message.onBehalfOf;
    addRecipients(content.recipients, message.to, 1);
    addRecipients(content.recipients, message.cc, 2);
    addRecipients(content.recipients, message.bcc, 3);
    addRecipients(content.replyTo, message.replyTo, 0);
    content.subject = message.subject;
    content.body = message.body;
    content.html = message.html;
    for (const Attachment& attachment : message.attachments) {
        content.attachments.push_back(std::make_shared<Attachment>(attachment));
    }
    if (!message.headers.empty()) {
        content.fields[tagOfHeaders] = message.headers;
    }
    content.deliveryTime = message.deliveryTime;
    content.deferred = message.deferredDeliveryTime;
    content.account = message.account;
    return content;
}

ItemContent ItemContent::copy() const {
    ItemContent result = *this;
    detach(result.recipients);
    detach(result.replyTo);
    detach(result.attachments);
    detach(result.userProperties);
    return result;
}

void ItemContent::take(Part part, const ItemContent& from) {
    switch (part) {
        case Part::Sender:
            sender = from.sender;
            break;
        case Part::OnBehalfOf:
            onBehalfOf = from.onBehalfOf;
            break;
        case Part::Recipients:
            takeList(recipients, from.recipients);
            break;
        case Part::ReplyTo:
            takeList(replyTo, from.replyTo);
            break;
        case Part::Subject:
            subject = from.subject;
            break;
        case Part::Body:
            body = from.body;
            html = from.html;
            break;
        case Part::Attachments:
            takeList(attachments, from.attachments);
            break;
        case Part::UserProperties:
            takeList(userProperties, from.userProperties);
            break;
        case Part::Fields:
            fields = from.fields;
            break;
        case Part::DeliveryTime:
            deliveryTime = from.deliveryTime;
            break;
        case Part::Deferred:
            deferred = from.deferred;
            break;
        case Part::Account:
            account = from.account;
            break;
        case Part::Unread:
            unread = from.unread;
            break;
    }
}

std::wstring ItemContent::names(int recipientType) const {
    std::wstring result;
    for (const auto& recipient : recipients) {
        if (recipient->type == recipientType) {
            result += result.empty() ? L"" : L"; ";
            result += nameOf(recipient->address);
        }
    }
    return result;
}

void ItemContent::setNames(int recipientType, std::wstring_view names) {
    std::erase_if(recipients, [&](const auto& recipient) { return recipient->type == recipientType; });
    for (const std::wstring_view part : text::split(names, L';')) {
        if (const std::wstring_view name = text::trim(part); !name.empty()) {
            recipients.push_back(std::make_shared<RecipientData>(
                RecipientData{recipientType, {.name = std::wstring(name)}, false}));
        }
    }
}

}  // namespace host
