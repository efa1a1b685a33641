#include "host/RdoFolder.h"

#include "host/Core.h"
#include "host/Folder.h"
#include "host/RdoMessage.h"

namespace host {

using automation::Value;

void RdoFolder::checkUsable() const {
    folder_->checkUsable();
}

constinit const Members<RdoFolder> RdoFolder::members = {
    {.name = L"Name", .get = use<&RdoFolder::folder_, &Folder::name>},
    {.name = L"EntryID", .get = use<&RdoFolder::folder_, &Folder::entryId>},
    {.name = L"Items",
     .get = [](RdoFolder& folder,
               Arguments) { return Value(folder.core().makeObject<RdoItems>(folder.folder_)); }},
};

void RdoItems::checkUsable() const {
    folder_->checkUsable();
}

constinit const Members<RdoItems> RdoItems::members = {
    {.name = L"Count",
     .get = [](RdoItems& items, Arguments) { return answer(items.folder_->items().size()); }},
    {.name = L"Add",
     .call =
         [](RdoItems& items, Arguments arguments) {
             items.folder_->checkWritable();
             return Value(items.core().makeObject<RdoMessage>(arguments.text(0), items.folder_));
         },
     .least = 1,
     .most = 1},
};

}  // namespace host
