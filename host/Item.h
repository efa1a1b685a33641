#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Automated.h"
#include "host/Message.h"
#include "host/Outlook.h"

namespace host {

class Folder;
class Inspector;

struct RecipientData {
    int type = 1;
    Address address{};
    bool resolved = false;
    /// Where it stands in its list, or stood before others were removed: saves the search.
    std::size_t place = 0;
};
using RecipientList = std::vector<std::shared_ptr<RecipientData>>;
using AttachmentList = std::vector<std::shared_ptr<Attachment>>;

struct UserPropertyData {
    std::wstring name{};
    int type = 1;
    automation::Value value{};
};
using UserPropertyList = std::vector<std::shared_ptr<UserPropertyData>>;

/// What an item holds, apart from where it is kept.
struct ItemContent {
    int itemClass = itemClass::mail;
    std::optional<Address> sender{};
    std::optional<Address> onBehalfOf{};
    RecipientList recipients{};
    RecipientList replyTo{};
    std::wstring subject{};
    std::wstring body{};
    std::wstring html{};
    AttachmentList attachments{};
    UserPropertyList userProperties{};
    /// MAPI properties that were set by tag and are no other part of the content.
    std::map<std::uint32_t, automation::Value> fields{};
    std::optional<automation::Date> deliveryTime{};
    std::optional<automation::Date> deferred{};
    /// The account chosen in the window or through SendUsingAccount.
    std::wstring account{};
    bool unread = false;
    bool sent = false;
    bool saved = false;
    std::optional<ReplyKind> answers{};

    static ItemContent of(const Message& message);
    /// Shares nothing with this one.
    ItemContent copy() const;
};

/// An item of any class. Moved and deleted items fail every call; what was moved goes on as a new object.
class Item : public Automated<Item> {
  public:
    static constexpr std::wstring_view defaultName = L"Subject";
    static std::span<const Member<Item>> members();

    Item(World& world, ItemContent content);

    std::wstring className() const override;
    void checkUsable() const override;

    ItemContent& content() noexcept { return content_; }
    const ItemContent& content() const noexcept { return content_; }
    bool isMail() const noexcept { return content_.itemClass == itemClass::mail; }
    bool gone() const noexcept { return gone_; }
    const std::wstring& entryId() const noexcept { return entryId_; }
    std::shared_ptr<Folder> folder() const { return folder_.lock(); }
    /// The Drafts are the parent of an item that was never saved.
    std::shared_ptr<Folder> folderOrDrafts() const;
    EventSource* eventSource() override { return &events_; }
    ItemView view() const;

    /// What the MAPI library sees of a list of recipients: nothing of an item that was never saved.
    RecipientList& storedRecipients(RecipientList ItemContent::*list);
    /// The names of the recipients of one type, joined by "; ".
    std::wstring names(int recipientType) const;
    /// Replaces the recipients of one type by the names in a text; they wait to be resolved.
    void setNames(int recipientType, std::wstring_view names);
    /// True when all recipients are resolved.
    bool resolveAll();
    /// The account whose whole stamp stands on the item, or nothing: half a stamp counts for none, so that it
    /// is noticed.
    const Account* stampedAccount() const;
    /// The name of the account that the item leaves with.
    std::wstring sendingAccount() const;

    /// A property by its MAPI tag; empty when the item has it not.
    automation::Value field(std::uint32_t property) const;
    void setField(std::uint32_t property, const automation::Value& value);

    /// Notes a change made by automation and raises PropertyChange.
    void changed(std::wstring_view property);
    /// Raises Write; a new item goes to the Drafts. Nothing happens when a handler cancels. Throws when the
    /// store refuses changes.
    void save();
    /// Another Outlook on the same mailbox has stored another body.
    void writtenElsewhere(const std::wstring& body);
    /// The folder gives the item out: what was stored elsewhere takes the place of changes that can no longer
    /// be saved.
    void opened();
    /// Puts the content into another folder as a new item and leaves this one unusable.
    std::shared_ptr<Item> moveTo(Folder& target);
    /// Puts the item itself into another folder.
    std::shared_ptr<Item> putInto(Folder& target);
    /// Moves the item to the Deleted Items, or throws an unsaved one away; its window closes.
    void remove();
    /// The item's folder is gone, and the item with it.
    void lost();
    /// Where the first save puts a new item, instead of the Drafts.
    void saveInto(const std::shared_ptr<Folder>& folder) { firstFolder_ = folder; }
    /// Called by the folder that takes the item.
    void placed(const std::shared_ptr<Folder>& folder);

    std::weak_ptr<Inspector> hiddenInspector;

  private:
    static const Member<Item> table_[];
    ItemContent content_;
    std::wstring entryId_;
    bool gone_ = false;
    /// A body that another Outlook has stored while this one's changes were not saved.
    std::optional<std::wstring> storedElsewhere_;
    std::weak_ptr<Folder> folder_;
    std::weak_ptr<Folder> firstFolder_;
    /// Stands for the recipients of an item that was never saved.
    RecipientList nobody_;
    EventSource events_{0x0006303A, 0x0006302B};
};

/// A value as an item can keep it: text, number, date or an array of these. Throws automation::Error 13 for
/// anything else.
automation::Value storable(const automation::Value& value);

/// A new item by the item type that CreateItem takes (0 mail, 1 appointment, 2 contact...). It is not saved.
std::shared_ptr<Item> newItem(World& world, int itemType);

/// Resolves one recipient against the address book, as Outlook's Check Names does. False when it cannot.
bool resolve(const World& world, RecipientData& recipient);

/// The response that Outlook would open: recipients, subject with its prefix, quoted text.
///
/// A Reply to All goes to everybody but BCC recipients, once each; the user's own addresses stay in.
ItemContent makeResponse(const Item& answered, ReplyKind kind);

}  // namespace host
