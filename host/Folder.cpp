#include "host/Folder.h"

#include <algorithm>

#include "host/Item.h"
#include "host/NameSpace.h"
#include "host/outlookRows.h"

namespace host {

using automation::Object;
using automation::Value;

Folder::Folder(Core& core, std::wstring name, std::size_t store, int defaultItem)
    : Automated(core),
      name_(std::move(name)),
      entryId_(core.nextEntryId()),
      store_(store),
      defaultItem_(defaultItem) {}

namespace {

Object parentOf(Folder& folder) {
    const auto parent = folder.parent();
    return parent ? parent->object() : folder.core().nameSpace().object();
}

template <class Children>
Object childrenOf(Folder& folder) {
    return folder.core().makeObject<Children>(folder.self<Folder>());
}

void moveFolder(Folder& folder, Arguments arguments) {
    folder.moveTo(*required<Folder>(arguments[0]));
}

}  // namespace

constinit const Members<Folder> Folder::members = {
    applicationRow<Folder>,
    parentRow<Folder, parentOf>,
    classRow<Folder, 2>,
    sessionRow<Folder>,
    {.name = L"Name",
     .id = 12289,
     .get = use<&Folder::name_>,
     .put =
         [](Folder& folder, Arguments, const Value& value) {
             folder.checkWritable();
             folder.name_ = value.toText();
         }},
    {.name = L"EntryID", .id = 61470, .get = use<&Folder::entryId_>},
    {.name = L"StoreID",
     .id = 12552,
     .get = [](Folder& folder,
               Arguments) { return Value(folder.core().mailbox().stores().at(folder.store_).id); }},
    {.name = L"DefaultItemType", .id = 12550, .get = use<&Folder::defaultItem_>},
    {.name = L"Folders", .id = 8451, .get = use<childrenOf<Folders>>},
    {.name = L"Items", .id = 12544, .get = use<childrenOf<Items>>},
    {.name = L"MoveTo", .id = 61492, .call = use<moveFolder>, .least = 1, .most = 1},
    {.name = L"Delete", .id = 61509, .call = use<&Folder::remove>},
    {.name = L"FolderPath",
     .id = 64120,
     .get = use<&Folder::path>,
     .has = [](const Folder& folder) { return folder.core().majorVersion() > 9; }},
};

void Folder::checkUsable() const {
    if (deleted_) {
        raise::objectNotFound();
    }
}

std::wstring Folder::path() const {
    const auto above = parent();
    return above ? above->path() + L"\\" + name_ : L"\\\\" + name_;
}

void Folder::checkWritable() const {
    if (core().mailbox().stores().at(store_).store.readOnly) {
        raise::noPermission();
    }
}

std::shared_ptr<Folder> Folder::folder(std::wstring_view name) const {
    const auto found = std::ranges::find_if(
        folders_, [&](const auto& child) { return text::equalsIgnoringCase(child->name_, name); });
    return found == folders_.end() ? nullptr : *found;
}

std::shared_ptr<Folder> Folder::addFolder(const std::wstring& name, int defaultItem) {
    if (name.empty() || folder(name)) {
        raise::operationFailed();
    }
    checkWritable();
    auto child = core().make<Folder>(name, store_, defaultItem);
    child->parent_ = self<Folder>();
    folders_.push_back(child);
    return child;
}

void Folder::remove() {
    const auto above = parent();
    if (!above || core().mailbox().isDefault(*this)) {
        raise::operationFailed();
    }
    checkWritable();
    const auto keep = shared_from_this();
    std::erase_if(above->folders_, [&](const auto& child) { return child.get() == this; });
    discard();
}

void Folder::discard() {
    deleted_ = true;
    for (const auto& item : items_) {
        item->lost();
    }
    items_.clear();
    for (const auto& child : folders_) {
        child->discard();
    }
    folders_.clear();
}

void Folder::moveTo(Folder& target) {
    const auto above = parent();
    bool insideItself = false;
    for (auto folder = target.self<Folder>(); folder; folder = folder->parent()) {
        insideItself = insideItself || folder.get() == this;
    }
    if (!above || insideItself || target.folder(name_) || core().mailbox().isDefault(*this)) {
        raise::operationFailed();
    }
    checkWritable();
    target.checkWritable();
    auto moving = self<Folder>();
    std::erase(above->folders_, moving);
    parent_ = target.self<Folder>();
    target.folders_.push_back(std::move(moving));
}

void Folder::take(std::shared_ptr<Item> item) {
    item->placed(self<Folder>());
    items_.push_back(std::move(item));
}

void Folder::release(const Item& item) {
    std::erase_if(items_, [&](const auto& mine) { return mine.get() == &item; });
}

}  // namespace host
