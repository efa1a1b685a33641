#include "host/AddIns.h"

#include "host/Core.h"

namespace host {

using automation::Value;

AddIn::AddIn(Core& core, std::wstring progId, std::wstring description)
    : Automated(core), progId_(std::move(progId)), description_(std::move(description)) {}

constinit const Members<AddIn> AddIn::members = {
    {.name = L"Description", .id = 0, .get = use<&AddIn::description_>, .put = set<&AddIn::description_>},
    {.name = L"ProgId", .id = 3, .get = use<&AddIn::progId_>},
    {.name = L"Guid", .id = 4, .get = [](AddIn&, Arguments) { return Value(L""); }},
    {.name = L"Connect", .id = 6, .get = use<&AddIn::connected_>, .put = set<&AddIn::connected_>},
    {.name = L"Object",
     .id = 7,
     .get = use<&AddIn::object_>,
     .put = set<&AddIn::object_>,
     .putReference = set<&AddIn::object_>},
};

AddIn& AddIns::add(const std::wstring& progId, const std::wstring& description) {
    if (const auto known = find(progId)) {
        return *known;
    }
    list_.push_back(core().make<AddIn>(progId, description.empty() ? progId : description));
    return *list_.back();
}

void AddIns::releaseObjects() {
    for (const auto& addIn : list_) {
        addIn->releaseObject();
    }
}

constinit const Members<AddIns> AddIns::members = {
    itemRow<AddIns, 0>,
    countRow<AddIns, 1>,
};

}  // namespace host
