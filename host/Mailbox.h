#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/Profile.h"

namespace host {

class Folder;
class Item;
class Core;

/// Outlook's numbers of the default folders.
namespace defaultFolder {
inline constexpr int deletedItems = 3;
inline constexpr int outbox = 4;
inline constexpr int sentMail = 5;
inline constexpr int inbox = 6;
inline constexpr int calendar = 9;
inline constexpr int contacts = 10;
inline constexpr int journal = 11;
inline constexpr int notes = 12;
inline constexpr int tasks = 13;
inline constexpr int drafts = 16;
}  // namespace defaultFolder

/// The profile's stores, each a tree of folders.
class Mailbox {
  public:
    struct StoreEntry {
        Store store;
        std::wstring id;
        std::shared_ptr<Folder> root;
    };

    explicit Mailbox(Core& core) : core_(core) {}
    /// Makes the stores and folders of the profile; once.
    void fill(const Profile& profile);

    const std::vector<StoreEntry>& stores() const noexcept { return stores_; }
    /// Nothing for a number that is no default folder.
    std::shared_ptr<Folder> defaultFolder(int id) const;
    /// Default folders can be neither deleted nor moved.
    bool isDefault(const Folder& folder) const;
    /// The folder of a path below the root of the default store (parts joined by "\"), or nothing.
    std::shared_ptr<Folder> find(std::wstring_view path) const;
    std::shared_ptr<Folder> findOrAdd(std::wstring_view path);
    /// Puts an item into a folder, which is made when missing.
    std::shared_ptr<Item> store(const StoredMessage& stored);
    std::shared_ptr<Item> itemById(std::wstring_view entryId) const;
    std::shared_ptr<Folder> folderById(std::wstring_view entryId) const;

  private:
    Core& core_;
    std::vector<StoreEntry> stores_;
    std::map<int, std::shared_ptr<Folder>> defaultFolders_;
};

}  // namespace host
