#include "host/RdoMessage.h"

#include "host/Core.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "host/MsgFile.h"

namespace host {

using automation::Value;

namespace {

constexpr std::uint32_t submitTime = 0x00390040;

}  // namespace

RdoMessage::RdoMessage(Core& core, const std::wstring& messageClass, std::shared_ptr<Folder> folder)
    : Automated(core), folder_(std::move(folder)) {
    content_.itemClass = itemClassOf(messageClass);
}

RdoMessage::RdoMessage(Core& core, const MsgFile& file) : Automated(core), content_(contentOf(file)) {}

ItemContent& RdoMessage::changeable() {
    if (saved_) {
        raise::noPermission();
    }
    return content_;
}

/// Whether a copy takes over the flags of a message is not known: here it is a draft, and read, when either
/// was.
void RdoMessage::copyTo(Arguments arguments) {
    ItemContent& target = required<RdoMessage>(arguments[0])->changeable();
    ItemContent copy = content_.copy();
    copy.sent = copy.sent && target.sent;
    copy.unread = copy.unread && target.unread;
    target = std::move(copy);
}

void RdoMessage::save() {
    if (!folder_) {
        raise::noPermission();
    }
    folder_->checkUsable();
    folder_->checkWritable();
    changeable().saved = true;
    folder_->take(core().make<Item>(content_.copy()));
    saved_ = true;
}

constinit const Members<RdoMessage> RdoMessage::members = {
    {.name = L"Subject", .id = 55, .get = use<&RdoMessage::content_, &ItemContent::subject>},
    {.name = L"Body", .id = 37120, .get = use<&RdoMessage::content_, &ItemContent::body>},
    {.name = L"MessageClass",
     .get = [](RdoMessage& message, Arguments) { return message.content_.field(0x001A001E); },
     .put = [](RdoMessage& message, Arguments,
               const Value& value) { message.changeable().itemClass = itemClassOf(value.toText()); }},
    {.name = L"Sent",
     .get = use<&RdoMessage::content_, &ItemContent::sent>,
     .put = [](RdoMessage& message, Arguments,
               const Value& value) { message.changeable().sent = value.toBool(); }},
    {.name = L"UnRead",
     .get = use<&RdoMessage::content_, &ItemContent::unread>,
     .put = [](RdoMessage& message, Arguments,
               const Value& value) { message.changeable().unread = value.toBool(); }},
    {.name = L"ReceivedTime",
     .put = [](RdoMessage& message, Arguments,
               const Value& value) { message.changeable().deliveryTime = value.toDate(); }},
    {.name = L"SentOn",
     .put = [](RdoMessage& message, Arguments,
               const Value& value) { message.changeable().setField(submitTime, value.toDate()); }},
    {.name = L"CopyTo", .call = use<&RdoMessage::copyTo>, .least = 1, .most = 1},
    {.name = L"Save", .call = use<&RdoMessage::save>},
};

}  // namespace host
