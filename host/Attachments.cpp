#include "host/Attachments.h"

#include <algorithm>

#include "host/Core.h"
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

Attachments::Attachments(Core& core, std::shared_ptr<Item> item, bool safe)
    : Collection(core), item_(std::move(item)), safe_(safe) {}

automation::Object Attachments::at(std::size_t index) const {
    return core().makeObject<AttachmentObject>(item_, list()[index], safe_);
}

automation::Object Attachments::add(Arguments arguments) {
    const std::wstring path = arguments.text(0);
    auto data = std::make_shared<Attachment>(Attachment{path.substr(path.find_last_of(L"\\/") + 1), {}});
    list().push_back(data);
    changed();
    const auto added = core().makeObject<AttachmentObject>(item_, std::move(data), safe_);
    core().raise(*item_->eventSource(), L"AttachmentAdd", 0xF00B, {added});
    return added;
}

void Attachments::changed() {
    noteChange(*item_, safe_);
}

constinit const Members<Attachments> Attachments::members = {
    countRow<Attachments>,
    itemRow<Attachments>,
    {.name = L"Add", .id = 101, .call = use<&Attachments::add>, .least = 1, .most = 4},
    removeRow<Attachments>,
};

AttachmentObject::AttachmentObject(Core& core, std::shared_ptr<Item> item, std::shared_ptr<Attachment> data,
                                   bool safe)
    : Automated(core), item_(std::move(item)), data_(std::move(data)), safe_(safe) {}

void AttachmentObject::checkUsable() const {
    item_->checkUsable();
    const AttachmentList& list = item_->side(safe_).attachments;
    if (std::ranges::find(list, data_) == list.end()) {
        raise::objectNotFound();
    }
}

void AttachmentObject::remove() {
    std::erase(item_->side(safe_).attachments, data_);
    noteChange(*item_, safe_);
}

Value AttachmentObject::property(std::uint32_t tag) const {
    switch (tag) {
        case 0x3712001E:
            return data_->contentId.empty() ? Value() : Value(data_->contentId);
        case 0x37140003:
            return data_->flags ? Value(*data_->flags) : Value();
        case 0x7FFE000B:
            return data_->hidden ? Value(*data_->hidden) : Value();
        case 0x3704001E:
        case 0x3707001E:
            return data_->fileName;
        default:
            return {};
    }
}

constinit const Members<AttachmentObject> AttachmentObject::members = {
    {.name = L"FileName", .id = 14084, .get = use<&AttachmentObject::data_, &Attachment::fileName>},
    {.name = L"DisplayName", .id = 12289, .get = use<&AttachmentObject::data_, &Attachment::fileName>},
    {.name = L"Delete", .id = 105, .call = use<&AttachmentObject::remove>},
    propertyAccessorRow<AttachmentObject>,
    {.name = L"Fields",
     .get = [](AttachmentObject& attachment,
               Arguments arguments) { return attachment.property(mapiTag(arguments[0])); },
     .least = 1,
     .most = 1,
     .has = [](const AttachmentObject& attachment) { return attachment.safe_; }},
};

}  // namespace host
