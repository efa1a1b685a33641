#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "platform/automation.h"

/// Outlook's object model as the add-in uses it: its numbers, its events and thin typed fronts of its
/// objects. Every call may throw automation::Error, as any of Outlook's can fail.
namespace outlook {

/// Class property of the items, by Outlook's numbers.
namespace itemClass {
inline constexpr std::int32_t appointment = 26;
inline constexpr std::int32_t contact = 40;
inline constexpr std::int32_t document = 41;
inline constexpr std::int32_t journal = 42;
inline constexpr std::int32_t mail = 43;
inline constexpr std::int32_t note = 44;
inline constexpr std::int32_t post = 45;
inline constexpr std::int32_t report = 46;
inline constexpr std::int32_t task = 48;
inline constexpr std::int32_t distributionList = 69;
}  // namespace itemClass

namespace folderId {
inline constexpr std::int32_t deletedItems = 3;
inline constexpr std::int32_t outbox = 4;
inline constexpr std::int32_t inbox = 6;
inline constexpr std::int32_t drafts = 16;
}  // namespace folderId

/// EditorType of an item window. From version 12 on it is Word in every window.
inline constexpr std::int32_t editorWord = 4;

/// Type of a text user property.
inline constexpr std::int32_t textProperty = 1;

/// The event interfaces of version 9: later versions answer to them too, with the same dispatch ids.
namespace events {
inline constexpr automation::EventInterface application{0x0006304E};
inline constexpr automation::EventInterface explorers{0x00063078};
inline constexpr automation::EventInterface explorer{0x0006304F};
/// That of later versions, which alone tells of responses in the reading pane.
inline constexpr automation::EventInterface laterExplorer{0x0006300F};
inline constexpr automation::EventInterface inspectors{0x00063079};
inline constexpr automation::EventInterface inspector{0x0006307D};
inline constexpr automation::EventInterface item{0x0006303A};
/// Office's, of the buttons in menus and toolbars.
inline constexpr automation::EventInterface commandBarButton{0x000C0351};

inline constexpr std::int32_t applicationItemSend = 0xF002;
inline constexpr std::int32_t applicationQuit = 0xF007;
inline constexpr std::int32_t newExplorer = 0xF001;
inline constexpr std::int32_t newInspector = 0xF001;
inline constexpr std::int32_t explorerActivate = 0xF001;
inline constexpr std::int32_t explorerSelectionChange = 0xF007;
inline constexpr std::int32_t explorerClose = 0xF008;
inline constexpr std::int32_t explorerInlineResponse = 0xFC92;
inline constexpr std::int32_t explorerInlineResponseClose = 0xFC96;
inline constexpr std::int32_t inspectorActivate = 0xF001;
inline constexpr std::int32_t inspectorClose = 0xF008;
inline constexpr std::int32_t itemClose = 0xF004;
inline constexpr std::int32_t itemSend = 0xF005;
inline constexpr std::int32_t itemPropertyChange = 0xF009;
inline constexpr std::int32_t itemReply = 0xF466;
inline constexpr std::int32_t itemReplyAll = 0xF467;
inline constexpr std::int32_t itemForward = 0xF468;
inline constexpr std::int32_t commandBarButtonClick = 1;
}  // namespace events

/// Base of the fronts: a reference to an object, or nothing; const, as with a pointer, is the reference.
class Front {
  public:
    Front() = default;
    explicit Front(automation::Object object) : object_(std::move(object)) {}

    const automation::Object& object() const { return object_; }
    explicit operator bool() const { return static_cast<bool>(object_); }

  protected:
    automation::Object object_;
};

/// Any collection of the object model; counts from 1. A loop over one asks for Count once, at its start, and
/// for each Item when its turn comes.
template <class Element>
class Collection : public Front {
  public:
    using Front::Front;
    std::int32_t count() const { return object_.get(L"Count").toInteger(); }
    Element item(std::int32_t index) const { return Element(object_.get(L"Item", index).toObject()); }

    struct End {
        std::int32_t count;
    };
    class Iterator {
      public:
        explicit Iterator(const Collection& collection) : collection_(&collection) {}
        Element operator*() const { return collection_->item(index_); }
        Iterator& operator++() {
            ++index_;
            return *this;
        }
        bool operator==(End end) const { return index_ > end.count; }

      private:
        const Collection* collection_;
        std::int32_t index_ = 1;
    };
    Iterator begin() const { return Iterator(*this); }
    End end() const { return {count()}; }
};

class AddressEntry : public Front {
  public:
    using Front::Front;
    std::wstring name() const { return object_.get(L"Name").toText(); }
    /// "SMTP", "EX", "MAPIPDL" or another provider's name.
    std::wstring type() const { return object_.get(L"Type").toText(); }
    /// In the form of its own address book.
    std::wstring address() const { return object_.get(L"Address").toText(); }
    /// Nothing unless the entry is a distribution list.
    automation::Object members() const { return object_.get(L"Members").toObject(); }
    bool isList() const {
        constexpr std::int32_t distributionList = 1;
        constexpr std::int32_t personalList = 5;
        const std::int32_t type = object_.get(L"DisplayType").toInteger();
        return type == distributionList || type == personalList;
    }
};

class Recipient : public Front {
  public:
    using Front::Front;
    std::wstring name() const { return object_.get(L"Name").toText(); }
    /// Nothing for one that was never resolved.
    AddressEntry addressEntry() const { return AddressEntry(object_.get(L"AddressEntry").toObject()); }
    bool resolved() const { return object_.get(L"Resolved").toBool(); }
    bool resolve() const { return object_.call(L"Resolve").toBool(); }
    void remove() const { object_.call(L"Delete"); }
};

class Attachment : public Front {
  public:
    using Front::Front;
    std::wstring fileName() const { return object_.get(L"FileName").toText(); }
};

/// An item of any class.
class Item : public Front {
  public:
    using Front::Front;
    std::int32_t itemClass() const { return object_.get(L"Class").toInteger(); }
    /// Empty for an item that was never saved; fails for one that was moved or deleted.
    std::wstring entryId() const { return object_.get(L"EntryID").toText(); }
    /// Of a mail, also of one that was received.
    bool sent() const { return object_.get(L"Sent").toBool(); }
    std::wstring subject() const { return object_.get(L"Subject").toText(); }
    void setSubject(const std::wstring& subject) const { object_.put(L"Subject", subject); }
    /// Of a mail.
    void setTo(const std::wstring& names) const { object_.put(L"To", names); }
    /// Writing raises no security prompt, unlike reading.
    void setBody(const std::wstring& body) const { object_.put(L"Body", body); }
    automation::Date deferredDeliveryTime() const { return object_.get(L"DeferredDeliveryTime").toDate(); }
    void setDeferredDeliveryTime(automation::Date time) const { object_.put(L"DeferredDeliveryTime", time); }
    Collection<Recipient> recipients() const {
        return Collection<Recipient>(object_.get(L"Recipients").toObject());
    }
    void display() const { object_.call(L"Display"); }
    void save() const { object_.call(L"Save"); }
    void remove() const { object_.call(L"Delete"); }
    /// The item in its new folder; this one is unusable from then on.
    Item moveTo(const Front& folder) const { return Item(object_.call(L"Move", folder.object()).toObject()); }
};

/// Those of a folder.
class Items : public Collection<Item> {
  public:
    using Collection::Collection;
    /// Those that a filter such as "[Subject] = 'text'" accepts; letter case does not count.
    Collection<Item> matching(const std::wstring& filter) const {
        return Collection<Item>(object_.call(L"Restrict", filter).toObject());
    }
};

class Folder : public Front {
  public:
    using Front::Front;
    std::wstring name() const { return object_.get(L"Name").toText(); }
    std::wstring entryId() const { return object_.get(L"EntryID").toText(); }
    std::wstring storeId() const { return object_.get(L"StoreID").toText(); }
    /// "\\Store\Folder"; fails in version 9, which has no such member.
    std::wstring path() const { return object_.get(L"FolderPath").toText(); }
    Collection<Folder> folders() const { return Collection<Folder>(object_.get(L"Folders").toObject()); }
    Folder folder(const std::wstring& folderName) const {
        return Folder(folders().object().get(L"Item", folderName).toObject());
    }
    Folder addFolder(const std::wstring& folderName) const {
        return Folder(folders().object().call(L"Add", folderName).toObject());
    }
    Items items() const { return Items(object_.get(L"Items").toObject()); }
    Folder parent() const { return Folder(object_.get(L"Parent").toObject()); }
    void moveTo(const Folder& target) const { object_.call(L"MoveTo", target.object()); }
    void remove() const { object_.call(L"Delete"); }
};

class NameSpace : public Front {
  public:
    using Front::Front;
    Folder defaultFolder(std::int32_t id) const {
        return Folder(object_.call(L"GetDefaultFolder", id).toObject());
    }
    Item item(const std::wstring& entryId) const {
        return Item(object_.call(L"GetItemFromID", entryId).toObject());
    }
    /// The MAPI library's objects are given this, and then share Outlook's session.
    automation::Object mapiObject() const { return object_.get(L"MAPIOBJECT").toObject(); }
};

class Explorer : public Front {
  public:
    using Front::Front;
    std::wstring caption() const { return object_.get(L"Caption").toText(); }
    Folder currentFolder() const { return Folder(object_.get(L"CurrentFolder").toObject()); }
    Collection<Item> selection() const { return Collection<Item>(object_.get(L"Selection").toObject()); }
    /// The response written in the reading pane; nothing when there is none. From version 15 on.
    Item activeInlineResponse() const { return Item(object_.get(L"ActiveInlineResponse").toObject()); }
};

class Inspector : public Front {
  public:
    using Front::Front;
    Item currentItem() const { return Item(object_.get(L"CurrentItem").toObject()); }
    void activate() const { object_.call(L"Activate"); }
    std::int32_t editorType() const { return object_.get(L"EditorType").toInteger(); }
};

class Application : public Front {
  public:
    using Front::Front;
    Collection<Explorer> explorers() const {
        return Collection<Explorer>(object_.get(L"Explorers").toObject());
    }
    Collection<Inspector> inspectors() const {
        return Collection<Inspector>(object_.get(L"Inspectors").toObject());
    }
    /// Nothing when no explorer is open.
    Explorer activeExplorer() const { return Explorer(object_.call(L"ActiveExplorer").toObject()); }
    /// Nothing when no inspector is open.
    Inspector activeInspector() const { return Inspector(object_.call(L"ActiveInspector").toObject()); }
    Item createMail() const {
        constexpr std::int32_t mailItem = 0;
        return Item(object_.call(L"CreateItem", mailItem).toObject());
    }
    /// The name space and the version stay the same while Outlook runs, so that each is asked for once.
    NameSpace mapiNameSpace() const {
        NameSpace found = nameSpace_;
        if (!found) {
            found = NameSpace(object_.call(L"GetNamespace", L"MAPI").toObject());
            if (object_) {  // Unless Outlook was let go meanwhile.
                nameSpace_ = found;
            }
        }
        return found;
    }
    std::wstring version() const {
        if (version_.empty()) {
            version_ = object_.get(L"Version").toText();
        }
        return version_;
    }

  private:
    mutable NameSpace nameSpace_;
    mutable std::wstring version_;
};

}  // namespace outlook
