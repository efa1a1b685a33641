#include "host/UserProperties.h"

#include <algorithm>

#include "host/Core.h"
#include "host/Folder.h"

namespace host {

using automation::Value;

namespace {

constexpr int textType = 1;

}  // namespace

UserProperties::UserProperties(Core& core, std::shared_ptr<Item> item)
    : Collection(core), item_(std::move(item)) {}

automation::Object UserProperties::wrap(std::shared_ptr<UserPropertyData> data) const {
    return data ? core().makeObject<UserProperty>(item_, std::move(data)) : automation::Object();
}

automation::Object UserProperties::add(Arguments arguments) {
    const std::wstring name = arguments.text(0);
    const int type = arguments[1].toInteger();
    constexpr std::size_t addToFolderFields = 2;
    if (name.empty()) {
        raise::operationFailed();
    }
    if (!arguments.has(addToFolderFields) || arguments[addToFolderFields].toBool()) {
        item_->folderOrDrafts()->addField(name);
    }
    auto data = find(name);
    if (!data) {
        data = std::make_shared<UserPropertyData>(
            UserPropertyData{name, type, type == textType ? Value(L"") : Value()});
        list().push_back(data);
        changed();
    }
    return wrap(std::move(data));
}

constinit const Members<UserProperties> UserProperties::members = {
    countRow<UserProperties>,
    itemRow<UserProperties>,
    {.name = L"Add", .id = 102, .call = use<&UserProperties::add>, .least = 2, .most = 4},
    {.name = L"Find",
     .id = 103,
     .call = use<&UserProperties::findByName>,
     .least = 1,
     .most = 2,
     .guarded = Guarded::Yes},
    removeRow<UserProperties, 82>,
};

UserProperty::UserProperty(Core& core, std::shared_ptr<Item> item, std::shared_ptr<UserPropertyData> data)
    : Automated(core), item_(std::move(item)), data_(std::move(data)) {}

void UserProperty::checkUsable() const {
    item_->checkUsable();
    const UserPropertyList& list = item_->content().userProperties;
    if (std::ranges::find(list, data_) == list.end()) {
        raise::objectNotFound();
    }
}

constinit const Members<UserProperty> UserProperty::members = {
    {.name = L"Value",
     .id = 0,
     .get = use<&UserProperty::data_, &UserPropertyData::value>,
     .put =
         [](UserProperty& property, Arguments, const Value& value) {
             property.data_->value =
                 property.data_->type == textType ? Value(value.toText()) : storable(value);
             property.item_->touch(Part::UserProperties);
         }},
    {.name = L"Name", .id = 112, .get = use<&UserProperty::data_, &UserPropertyData::name>},
    {.name = L"Type", .id = 109, .get = use<&UserProperty::data_, &UserPropertyData::type>},
    {.name = L"Delete",
     .id = 108,
     .call =
         [](UserProperty& property, Arguments) {
             std::erase(property.item_->content().userProperties, property.data_);
             property.item_->touch(Part::UserProperties);
             return Value();
         }},
};

}  // namespace host
