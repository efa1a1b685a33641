#include "host/Attachments.h"

#include <algorithm>

#include "host/World.h"
#include "host/mapiTag.h"

namespace host {

using automation::Value;

namespace {

void noteChange(Item& item, bool safe) {
    if (safe) {
        item.written(Part::Attachments);
    } else {
        item.touch(Part::Attachments);
    }
}

}  // namespace

Attachments::Attachments(World& world, std::shared_ptr<Item> item, bool safe)
    : Automated(world), item_(std::move(item)), safe_(safe) {}

constinit const Member<Attachments> Attachments::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](Attachments& attachments,
               Arguments) { return Value(static_cast<std::int32_t>(attachments.list().size())); }},
    {.name = L"Item",
     .id = 81,
     .get =
         [](Attachments& attachments, Arguments arguments) {
             const AttachmentList& list = attachments.list();
             return Value(attachments.world().makeObject<AttachmentObject>(
                 attachments.item_, list[position(arguments[0], list.size())], attachments.safe_));
         },
     .least = 1,
     .most = 1},
    {.name = L"Add",
     .id = 101,
     .call =
         [](Attachments& attachments, Arguments arguments) {
             const std::wstring path = arguments.text(0);
             auto data =
                 std::make_shared<Attachment>(Attachment{path.substr(path.find_last_of(L"\\/") + 1), {}});
             attachments.list().push_back(data);
             noteChange(*attachments.item_, attachments.safe_);
             const auto added = attachments.world().makeObject<AttachmentObject>(
                 attachments.item_, std::move(data), attachments.safe_);
             attachments.world().raise(*attachments.item_->eventSource(), L"AttachmentAdd", 0xF00B, {added});
             return Value(added);
         },
     .least = 1,
     .most = 4},
    {.name = L"Remove",
     .id = 84,
     .call =
         [](Attachments& attachments, Arguments arguments) {
             AttachmentList& list = attachments.list();
             const std::size_t index = position(arguments[0], list.size());
             list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
             noteChange(*attachments.item_, attachments.safe_);
             return Value();
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<Attachments>> Attachments::members() {
    return table_;
}

AttachmentObject::AttachmentObject(World& world, std::shared_ptr<Item> item, std::shared_ptr<Attachment> data,
                                   bool safe)
    : Automated(world), item_(std::move(item)), data_(std::move(data)), safe_(safe) {}

void AttachmentObject::checkUsable() const {
    item_->checkUsable();
    const AttachmentList& list = attachmentsOf(*item_, safe_);
    if (std::ranges::find(list, data_) == list.end()) {
        raise::objectNotFound();
    }
}

constinit const Member<AttachmentObject> AttachmentObject::table_[] = {
    {.name = L"FileName",
     .id = 14084,
     .get = [](AttachmentObject& attachment, Arguments) { return Value(attachment.data_->fileName); }},
    {.name = L"DisplayName",
     .id = 12289,
     .get = [](AttachmentObject& attachment, Arguments) { return Value(attachment.data_->fileName); }},
    {.name = L"Delete",
     .id = 105,
     .call =
         [](AttachmentObject& attachment, Arguments) {
             std::erase(attachmentsOf(*attachment.item_, attachment.safe_), attachment.data_);
             noteChange(*attachment.item_, attachment.safe_);
             return Value();
         }},
    {.name = L"Fields",
     .get =
         [](AttachmentObject& attachment, Arguments arguments) {
             const std::wstring& contentId = attachment.data_->contentId;
             switch (mapiTag(arguments[0])) {
                 case 0x3712001E:
                     return contentId.empty() ? Value() : Value(contentId);
                 case 0x3704001E:
                 case 0x3707001E:
                     return Value(attachment.data_->fileName);
                 default:
                     return Value();
             }
         },
     .least = 1,
     .most = 1,
     .has = [](const AttachmentObject& attachment) { return attachment.safe_; }},
};

std::span<const Member<AttachmentObject>> AttachmentObject::members() {
    return table_;
}

}  // namespace host
