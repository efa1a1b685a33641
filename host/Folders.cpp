#include <algorithm>

#include "host/Folder.h"
#include "host/Item.h"
#include "host/Mailbox.h"
#include "host/World.h"

namespace host {

using automation::Value;

Folders::Folders(World& world, std::shared_ptr<Folder> parent)
    : Automated(world), parent_(std::move(parent)) {}

void Folders::checkUsable() const {
    if (parent_) {
        parent_->checkUsable();
    }
}

std::vector<std::shared_ptr<Folder>> Folders::list() const {
    if (parent_) {
        return parent_->folders();
    }
    std::vector<std::shared_ptr<Folder>> roots;
    for (const Mailbox::StoreEntry& store : world().mailbox().stores()) {
        roots.push_back(store.root);
    }
    return roots;
}

namespace {

Value folderAt(Folders& folders, Arguments arguments) {
    const auto list = folders.list();
    if (!arguments[0].holds<std::wstring>()) {
        return list[position(arguments[0], list.size())]->object();
    }
    const std::wstring name = arguments.text(0);
    const auto found = std::ranges::find_if(
        list, [&](const auto& folder) { return text::equalsIgnoringCase(folder->name(), name); });
    if (found == list.end()) {
        raise::objectNotFound();
    }
    return (*found)->object();
}

Value addFolder(Folders& folders, Arguments arguments) {
    if (!folders.parent()) {
        raise::operationFailed();
    }
    const int type = arguments.has(1) ? arguments[1].toInteger() : folders.parent()->defaultItem();
    return folders.parent()->addFolder(arguments.text(0), type)->object();
}

/// The class of a new item by the item type that CreateItem and Items.Add take.
int classOfNewItem(int itemType) {
    switch (itemType) {
        case 0:
            return itemClass::mail;
        case 1:
            return itemClass::appointment;
        case 2:
            return itemClass::contact;
        case 3:
            return itemClass::task;
        case 4:
            return itemClass::journal;
        case 5:
            return itemClass::note;
        case 6:
            return itemClass::post;
        case 7:
            return itemClass::distributionList;
        default:
            raise::operationFailed();
    }
}

Value addItem(Items& items, Arguments arguments) {
    const Folder& folder = items.folder();
    folder.checkWritable();
    const int type = arguments.has(0) ? arguments[0].toInteger() : folder.defaultItem();
    const auto item = newItem(items.world(), type);
    // It lies in this folder only once it is saved.
    item->saveInto(items.folder().self<Folder>());
    return item->object();
}

/// By its number from 1 on, or by its default value, which is the subject.
Value itemAt(Items& items, Arguments arguments) {
    const auto& list = items.folder().items();
    if (!arguments[0].holds<std::wstring>()) {
        const auto& item = list[position(arguments[0], list.size())];
        item->opened();
        return item->object();
    }
    const std::wstring subject = arguments.text(0);
    const auto found = std::ranges::find_if(
        list, [&](const auto& item) { return text::equalsIgnoringCase(item->message().subject, subject); });
    if (found == list.end()) {
        raise::objectNotFound();
    }
    (*found)->opened();
    return (*found)->object();
}

}  // namespace

std::shared_ptr<Item> newItem(World& world, int itemType) {
    ItemContent content;
    content.itemClass = classOfNewItem(itemType);
    return world.make<Item>(std::move(content));
}

constinit const Member<Folders> Folders::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](Folders& folders,
               Arguments) { return Value(static_cast<std::int32_t>(folders.list().size())); }},
    {.name = L"Item", .id = 81, .get = folderAt, .least = 1, .most = 1},
    {.name = L"Add", .id = 95, .call = addFolder, .least = 1, .most = 2},
    {.name = L"Remove",
     .id = 84,
     .call =
         [](Folders& folders, Arguments arguments) {
             const auto list = folders.list();
             list[position(arguments[0], list.size())]->remove();
             return Value();
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<Folders>> Folders::members() {
    return table_;
}

Items::Items(World& world, std::shared_ptr<Folder> folder) : Automated(world), folder_(std::move(folder)) {}

constinit const Member<Items> Items::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](Items& items,
               Arguments) { return Value(static_cast<std::int32_t>(items.folder().items().size())); }},
    {.name = L"Item", .id = 81, .get = itemAt, .least = 1, .most = 1},
    {.name = L"Add", .id = 95, .call = addItem, .most = 1},
    {.name = L"Remove",
     .id = 84,
     .call =
         [](Items& items, Arguments arguments) {
             const auto& list = items.folder().items();
             const auto item = list[position(arguments[0], list.size())];
             item->remove();
             return Value();
         },
     .least = 1,
     .most = 1},
};

std::span<const Member<Items>> Items::members() {
    return table_;
}

}  // namespace host
