#include "host/UserProperties.h"

#include <algorithm>

#include "host/Folder.h"
#include "host/World.h"

namespace host {

using automation::Value;

namespace {

constexpr int textType = 1;

}  // namespace

UserProperties::UserProperties(World& world, std::shared_ptr<Item> item)
    : Automated(world), item_(std::move(item)) {}

std::shared_ptr<UserPropertyData> UserProperties::find(std::wstring_view name) const {
    const auto found = std::ranges::find_if(
        list(), [&](const auto& property) { return text::equalsIgnoringCase(property->name, name); });
    return found == list().end() ? nullptr : *found;
}

Value UserProperties::wrap(std::shared_ptr<UserPropertyData> data) {
    return data ? world().makeObject<UserProperty>(item_, std::move(data)) : automation::Object();
}

Value UserProperties::at(Arguments arguments) {
    if (!arguments[0].holds<std::wstring>()) {
        return wrap(list()[position(arguments[0], list().size())]);
    }
    auto data = find(arguments.text(0));
    if (!data) {
        raise::outOfBounds();
    }
    return wrap(std::move(data));
}

Value UserProperties::add(Arguments arguments) {
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
        item_->touch(Part::UserProperties);
    }
    return wrap(std::move(data));
}

constinit const Member<UserProperties> UserProperties::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](UserProperties& properties,
               Arguments) { return Value(static_cast<std::int32_t>(properties.list().size())); }},
    {.name = L"Item",
     .id = 81,
     .get = [](UserProperties& properties, Arguments arguments) { return properties.at(arguments); },
     .least = 1,
     .most = 1},
    {.name = L"Add",
     .id = 102,
     .call = [](UserProperties& properties, Arguments arguments) { return properties.add(arguments); },
     .least = 2,
     .most = 4},
    {.name = L"Find",
     .id = 103,
     .call = [](UserProperties& properties,
                Arguments arguments) { return properties.wrap(properties.find(arguments.text(0))); },
     .least = 1,
     .most = 2},
    {.name = L"Remove",
     .id = 82,
     .call =
         [](UserProperties& properties, Arguments arguments) {
             UserPropertyList& list = properties.list();
             const std::size_t index = position(arguments[0], list.size());
             list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
             properties.item_->touch(Part::UserProperties);
             return Value();
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<UserProperties>> UserProperties::members() {
    return table_;
}

UserProperty::UserProperty(World& world, std::shared_ptr<Item> item, std::shared_ptr<UserPropertyData> data)
    : Automated(world), item_(std::move(item)), data_(std::move(data)) {}

void UserProperty::checkUsable() const {
    item_->checkUsable();
    const UserPropertyList& list = item_->content().userProperties;
    if (std::ranges::find(list, data_) == list.end()) {
        raise::objectNotFound();
    }
}

constinit const Member<UserProperty> UserProperty::table_[] = {
    {.name = L"Value",
     .id = 0,
     .get = [](UserProperty& property, Arguments) { return property.data_->value; },
     .put =
         [](UserProperty& property, Arguments, const Value& value) {
             property.data_->value =
                 property.data_->type == textType ? Value(value.toText()) : storable(value);
             property.item_->touch(Part::UserProperties);
         }},
    {.name = L"Name",
     .id = 112,
     .get = [](UserProperty& property, Arguments) { return Value(property.data_->name); }},
    {.name = L"Type",
     .id = 109,
     .get = [](UserProperty& property, Arguments) { return Value(property.data_->type); }},
    {.name = L"Delete",
     .id = 108,
     .call =
         [](UserProperty& property, Arguments) {
             std::erase(property.item_->content().userProperties, property.data_);
             property.item_->touch(Part::UserProperties);
             return Value();
         }},
};

std::span<const Member<UserProperty>> UserProperty::members() {
    return table_;
}

}  // namespace host
