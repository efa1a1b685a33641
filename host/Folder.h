#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/Collection.h"

namespace host {

class Item;

/// MAPIFolder. Owns its subfolders and items.
class Folder : public Automated<Folder> {
  public:
    static constexpr std::wstring_view defaultName = L"Name";
    static const Members<Folder> members;

    Folder(Core& core, std::wstring name, std::size_t store, int defaultItem);

    std::wstring className() const override { return L"MAPIFolder"; }
    void checkUsable() const override;

    const std::wstring& name() const noexcept { return name_; }
    const std::wstring& entryId() const noexcept { return entryId_; }
    /// The place of the folder's store in the profile.
    std::size_t store() const noexcept { return store_; }
    int defaultItem() const noexcept { return defaultItem_; }
    std::shared_ptr<Folder> parent() const { return parent_.lock(); }
    /// "\\Store\Folder\Subfolder".
    std::wstring path() const;
    /// Throws when the folder's store refuses changes.
    void checkWritable() const;

    const std::vector<std::shared_ptr<Folder>>& folders() const noexcept { return folders_; }
    std::shared_ptr<Folder> folder(std::wstring_view name) const;
    /// Throws when there is one of this name.
    std::shared_ptr<Folder> addFolder(const std::wstring& name, int defaultItem);
    void remove();
    void moveTo(Folder& target);

    /// The user's fields, which its views offer as columns.
    const std::set<std::wstring>& fields() const noexcept { return fields_; }
    void addField(const std::wstring& name) { fields_.insert(name); }

    const std::vector<std::shared_ptr<Item>>& items() const noexcept { return items_; }
    void take(std::shared_ptr<Item> item);
    void release(const Item& item);

  private:
    void discard();

    std::wstring name_;
    std::wstring entryId_;
    std::size_t store_;
    int defaultItem_;
    bool deleted_ = false;
    std::weak_ptr<Folder> parent_;
    std::vector<std::shared_ptr<Folder>> folders_;
    std::set<std::wstring> fields_;
    std::vector<std::shared_ptr<Item>> items_;
};

/// The subfolders of a folder, or the root folders of the stores.
class Folders : public Collection<Folders> {
  public:
    static const Members<Folders> members;

    /// Without a parent: the roots.
    Folders(Core& core, std::shared_ptr<Folder> parent);

    std::wstring className() const override { return L"Folders"; }
    void checkUsable() const override;
    std::vector<std::shared_ptr<Folder>> list() const;
    static bool isNamed(const std::shared_ptr<Folder>& folder, std::wstring_view name) {
        return text::equalsIgnoringCase(folder->name(), name);
    }
    const std::shared_ptr<Folder>& parent() const noexcept { return parent_; }

  private:
    std::shared_ptr<Folder> parent_;
};

/// The items of a folder.
class Items : public Collection<Items> {
  public:
    static const Members<Items> members;

    Items(Core& core, std::shared_ptr<Folder> folder) : Collection(core), folder_(std::move(folder)) {}
    /// Some of them, as Restrict finds them.
    Items(Core& core, std::shared_ptr<Folder> folder, std::vector<std::shared_ptr<Item>> found)
        : Collection(core), folder_(std::move(folder)), found_(std::move(found)) {}

    std::wstring className() const override { return L"Items"; }
    void checkUsable() const override { folder_->checkUsable(); }
    Folder& folder() const { return *folder_; }
    const std::vector<std::shared_ptr<Item>>& list() const noexcept {
        return found_ ? *found_ : folder_->items();
    }
    std::shared_ptr<Item> at(std::size_t index) const;
    /// By its default value, which is the subject.
    static bool isNamed(const std::shared_ptr<Item>& item, std::wstring_view subject);

  private:
    /// Those of the list that a filter names.
    std::vector<std::shared_ptr<Item>> matching(Arguments arguments) const;
    automation::Object findFirst(Arguments arguments) const;
    automation::Object restrictTo(Arguments arguments) const;

    std::shared_ptr<Folder> folder_;
    std::optional<std::vector<std::shared_ptr<Item>>> found_;
};

}  // namespace host
