#include "host/Mailbox.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "host/Core.h"
#include "host/Folder.h"
#include "host/Item.h"
#include "platform/text.h"

namespace host {

namespace {

struct DefaultFolder {
    const wchar_t* name;
    int id;
    int defaultItem;
};

/// DefaultItemType: 0 mail, 1 appointment, 2 contact, 3 task, 4 journal, 5 note.
constexpr DefaultFolder defaultFolders[] = {
    {L"Deleted Items", defaultFolder::deletedItems, 0},
    {L"Inbox", defaultFolder::inbox, 0},
    {L"Outbox", defaultFolder::outbox, 0},
    {L"Sent Items", defaultFolder::sentMail, 0},
    {L"Calendar", defaultFolder::calendar, 1},
    {L"Contacts", defaultFolder::contacts, 2},
    {L"Journal", defaultFolder::journal, 4},
    {L"Notes", defaultFolder::notes, 5},
    {L"Tasks", defaultFolder::tasks, 3},
    {L"Drafts", defaultFolder::drafts, 0},
};

/// The first result that `visit` gives for the folder or one below it.
template <class Result>
Result search(const std::shared_ptr<Folder>& folder,
              const std::function<Result(const std::shared_ptr<Folder>&)>& visit) {
    if (Result found = visit(folder)) {
        return found;
    }
    for (const auto& child : folder->folders()) {
        if (auto found = search<Result>(child, visit)) {
            return found;
        }
    }
    return nullptr;
}

template <class Result>
Result searchAll(const std::vector<Mailbox::StoreEntry>& stores,
                 const std::function<Result(const std::shared_ptr<Folder>&)>& visit) {
    for (const Mailbox::StoreEntry& store : stores) {
        if (auto found = search<Result>(store.root, visit)) {
            return found;
        }
    }
    return nullptr;
}

}  // namespace

void Mailbox::fill(const Profile& profile) {
    for (const Store& store : profile.stores) {
        auto root = core_.make<Folder>(store.name, stores_.size(), 0);
        stores_.push_back({store, core_.nextEntryId(), std::move(root)});
    }
    // The store is filled as it stands before it begins to refuse changes.
    const bool readOnly = std::exchange(stores_.front().store.readOnly, false);
    for (const DefaultFolder& folder : defaultFolders) {
        defaultFolders_[folder.id] = stores_.front().root->addFolder(folder.name, folder.defaultItem);
    }
    for (const std::wstring& path : profile.folders) {
        findOrAdd(path);
    }
    for (const StoredMessage& stored : profile.messages) {
        this->store(stored);
    }
    stores_.front().store.readOnly = readOnly;
}

std::shared_ptr<Folder> Mailbox::defaultFolder(int id) const {
    const auto found = defaultFolders_.find(id);
    return found == defaultFolders_.end() ? nullptr : found->second;
}

bool Mailbox::isDefault(const Folder& folder) const {
    return std::ranges::any_of(defaultFolders_,
                               [&](const auto& entry) { return entry.second.get() == &folder; });
}

std::shared_ptr<Folder> Mailbox::find(std::wstring_view path) const {
    auto folder = stores_.front().root;
    for (const std::wstring_view part : text::split(path, L'\\')) {
        folder = folder ? folder->folder(part) : nullptr;
    }
    return folder;
}

std::shared_ptr<Folder> Mailbox::findOrAdd(std::wstring_view path) {
    auto folder = stores_.front().root;
    for (const std::wstring_view part : text::split(path, L'\\')) {
        const auto child = folder->folder(part);
        folder = child ? child : folder->addFolder(std::wstring(part), 0);
    }
    return folder;
}

std::shared_ptr<Item> Mailbox::store(const StoredMessage& stored) {
    auto content = ItemContent::of(stored.message);
    content.sent = stored.message.from.has_value();
    content.saved = true;
    const auto item = core_.make<Item>(std::move(content));
    findOrAdd(stored.folder)->take(item);
    return item;
}

std::shared_ptr<Item> Mailbox::itemById(std::wstring_view entryId) const {
    using Result = std::shared_ptr<Item>;
    return searchAll<Result>(stores_, [&](const std::shared_ptr<Folder>& folder) -> Result {
        for (const auto& item : folder->items()) {
            if (text::equalsIgnoringCase(item->entryId(), entryId)) {
                return item;
            }
        }
        return nullptr;
    });
}

std::shared_ptr<Folder> Mailbox::folderById(std::wstring_view entryId) const {
    using Result = std::shared_ptr<Folder>;
    return searchAll<Result>(stores_, [&](const Result& folder) -> Result {
        return text::equalsIgnoringCase(folder->entryId(), entryId) ? folder : nullptr;
    });
}

}  // namespace host
