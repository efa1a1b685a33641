#include <algorithm>
#include <iterator>

#include "host/Core.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "host/Mailbox.h"

namespace host {

using automation::Value;

Folders::Folders(Core& core, std::shared_ptr<Folder> parent) : Collection(core), parent_(std::move(parent)) {}

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
    for (const Mailbox::StoreEntry& store : core().mailbox().stores()) {
        roots.push_back(store.root);
    }
    return roots;
}

namespace {

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
    const auto item = newItem(items.core(), type);
    // It lies in this folder only once it is saved.
    item->saveInto(items.folder().self<Folder>());
    return item->object();
}

}  // namespace

std::shared_ptr<Item> newItem(Core& core, int itemType) {
    ItemContent content;
    content.itemClass = classOfNewItem(itemType);
    return core.make<Item>(std::move(content));
}

constinit const Members<Folders> Folders::members = {
    countRow<Folders>,
    itemRow<Folders>,
    {.name = L"Add", .id = 95, .call = addFolder, .least = 1, .most = 2},
    removeRow<Folders>,
};

std::shared_ptr<Item> Items::at(std::size_t index) const {
    const auto& item = list()[index];
    item->opened();
    return item;
}

bool Items::isNamed(const std::shared_ptr<Item>& item, std::wstring_view subject) {
    return text::equalsIgnoringCase(item->message().subject, subject);
}

namespace {

/// The subject that a filter wants: `[Subject] = 'text'`, with quotes of either kind, which are doubled
/// inside of the text. Of what else Outlook understands nothing is simulated.
std::wstring wantedSubject(std::wstring_view filter) {
    constexpr std::wstring_view property = L"[Subject]";
    filter = text::trim(filter);
    if (!text::equalsIgnoringCase(filter.substr(0, property.size()), property)) {
        raise::cannotParse();
    }
    filter = text::trim(filter.substr(property.size()));
    if (!filter.starts_with(L'=')) {
        raise::cannotParse();
    }
    filter = text::trim(filter.substr(1));
    const wchar_t quote = filter.empty() ? L' ' : filter.front();
    if ((quote != L'\'' && quote != L'"') || filter.size() < 2 || filter.back() != quote) {
        raise::cannotParse();
    }
    filter = filter.substr(1, filter.size() - 2);
    std::wstring subject;
    for (std::size_t place = 0; place < filter.size(); ++place) {
        subject += filter[place];
        if (filter[place] == quote && (++place == filter.size() || filter[place] != quote)) {
            raise::cannotParse();
        }
    }
    return subject;
}

}  // namespace

std::vector<std::shared_ptr<Item>> Items::matching(Arguments arguments) const {
    const std::wstring subject = wantedSubject(arguments.text(0));
    std::vector<std::shared_ptr<Item>> found;
    std::ranges::copy_if(list(), std::back_inserter(found),
                         [&](const auto& item) { return isNamed(item, subject); });
    return found;
}

automation::Object Items::findFirst(Arguments arguments) const {
    const auto found = matching(arguments);
    if (found.empty()) {
        return {};
    }
    found.front()->opened();
    return found.front()->object();
}

automation::Object Items::restrictTo(Arguments arguments) const {
    return core().makeObject<Items>(folder_, matching(arguments));
}

constinit const Members<Items> Items::members = {
    countRow<Items>,
    itemRow<Items>,
    {.name = L"Add", .id = 95, .call = addItem, .most = 1},
    removeRow<Items>,
    {.name = L"Find", .id = 98, .call = use<&Items::findFirst>, .least = 1, .most = 1},
    {.name = L"Restrict", .id = 100, .call = use<&Items::restrictTo>, .least = 1, .most = 1},
};

}  // namespace host
