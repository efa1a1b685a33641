#include "host/ItemAlias.h"

#include "host/Item.h"

namespace host {

ItemAlias::ItemAlias(Core& core, std::shared_ptr<Item> item) : HostObject(core), item_(std::move(item)) {}

std::wstring ItemAlias::className() const {
    return item_->className();
}

void ItemAlias::checkUsable() const {
    item_->checkUsable();
}

EventSource* ItemAlias::eventSource() {
    return item_->eventSource();
}

std::shared_ptr<HostObject> ItemAlias::behind() {
    return item_;
}

HostObject::Found ItemAlias::findMember(std::wstring_view name) {
    return {item_->memberId(name), true};
}

std::wstring ItemAlias::memberName(std::int32_t member) {
    return item_->nameOfMember(member);
}

automation::Value ItemAlias::perform(std::int32_t member, automation::Access access,
                                     std::span<const automation::Value> arguments) {
    return item_->dispatch(member, access, arguments);
}

}  // namespace host
