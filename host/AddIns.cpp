#include "host/AddIns.h"

#include <algorithm>

#include "host/World.h"

namespace host {

using automation::Value;

AddIn::AddIn(World& world, std::wstring progId, std::wstring description)
    : Automated(world), progId_(std::move(progId)), description_(std::move(description)) {}

constinit const Member<AddIn> AddIn::table_[] = {
    {.name = L"Description",
     .id = 0,
     .get = [](AddIn& addIn, Arguments) { return Value(addIn.description_); },
     .put = [](AddIn& addIn, Arguments, const Value& value) { addIn.description_ = value.toText(); }},
    {.name = L"ProgId", .id = 3, .get = [](AddIn& addIn, Arguments) { return Value(addIn.progId_); }},
    {.name = L"Guid", .id = 4, .get = [](AddIn&, Arguments) { return Value(L""); }},
    {.name = L"Connect",
     .id = 6,
     .get = [](AddIn& addIn, Arguments) { return Value(addIn.connected_); },
     .put = [](AddIn& addIn, Arguments, const Value& value) { addIn.connected_ = value.toBool(); }},
    {.name = L"Object",
     .id = 7,
     .get = [](AddIn& addIn, Arguments) { return Value(addIn.object_); },
     .put = [](AddIn& addIn, Arguments, const Value& value) { addIn.object_ = value.toObject(); }},
};

std::span<const Member<AddIn>> AddIn::members() {
    return table_;
}

std::shared_ptr<AddIn> AddIns::find(std::wstring_view progId) const {
    const auto found = std::ranges::find_if(
        list_, [&](const auto& addIn) { return text::equalsIgnoringCase(addIn->progId(), progId); });
    return found == list_.end() ? nullptr : *found;
}

AddIn& AddIns::add(const std::wstring& progId, const std::wstring& description) {
    if (const auto known = find(progId)) {
        return *known;
    }
    list_.push_back(world().make<AddIn>(progId, description.empty() ? progId : description));
    return *list_.back();
}

void AddIns::releaseObjects() {
    for (const auto& addIn : list_) {
        addIn->releaseObject();
    }
}

constinit const Member<AddIns> AddIns::table_[] = {
    {.name = L"Item",
     .id = 0,
     .get =
         [](AddIns& addIns, Arguments arguments) {
             if (!arguments[0].holds<std::wstring>()) {
                 return Value(addIns.list_[position(arguments[0], addIns.list_.size())]->object());
             }
             const auto found = addIns.find(arguments.text(0));
             if (!found) {
                 raise::outOfBounds();
             }
             return Value(found->object());
         },
     .least = 1,
     .most = 1},
    {.name = L"Count",
     .id = 1,
     .get = [](AddIns& addIns, Arguments) { return Value(static_cast<std::int32_t>(addIns.list_.size())); }},
};

std::span<const Member<AddIns>> AddIns::members() {
    return table_;
}

}  // namespace host
