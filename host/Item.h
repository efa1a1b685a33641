#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Automated.h"
#include "host/ItemContent.h"
#include "host/Outlook.h"
#include "host/PropertyAccessor.h"

namespace host {

class Folder;
class Inspector;

/// An item of any class. Moved and deleted items fail every call; what was moved goes on as a new object.
///
/// Outlook keeps what was changed in a window or through its object model to itself until it saves the item:
/// content(). The MAPI library works on the message below it, which holds what was saved last and what that
/// library has written since: message(). Outlook skips the saving of an item that it has not changed itself.
class Item : public Automated<Item>, public HasProperties {
  public:
    static constexpr std::wstring_view defaultName = L"Subject";
    static const Members<Item> members;

    /// An item that is `saved` counts as stored, though no folder has it yet.
    Item(Core& core, ItemContent content);

    std::wstring className() const override;
    void checkUsable() const override;

    ItemContent& content() noexcept { return content_; }
    const ItemContent& content() const noexcept { return content_; }
    ItemContent& message() noexcept { return message_; }
    const ItemContent& message() const noexcept { return message_; }
    /// The MAPI library's side, or Outlook's.
    ItemContent& side(bool ofMapi) noexcept { return ofMapi ? message_ : content_; }
    bool isMail() const noexcept { return content_.itemClass == itemClass::mail; }
    bool gone() const noexcept { return gone_; }
    const std::wstring& entryId() const noexcept { return entryId_; }
    std::shared_ptr<Folder> folder() const { return folder_.lock(); }
    /// The Drafts are the parent of an item that was never saved.
    std::shared_ptr<Folder> folderOrDrafts() const;
    EventSource* eventSource() override { return &events_; }
    ItemView view() const;

    /// True when all recipients are resolved.
    bool resolveAll();
    /// The account whose stamp stands on one side of the item, or nothing: the two properties that decide, in
    /// one of which alone it counts for none, so that half a stamp is noticed.
    const Account* stampedAccount(const ItemContent& side) const;
    /// The name of the account that the item leaves with.
    std::wstring sendingAccount() const;

    automation::Value property(std::uint32_t tag) const override { return content_.field(tag); }
    void setProperty(std::uint32_t tag, const automation::Value& value) override;
    void deleteProperty(std::uint32_t tag) override;

    /// Whether Outlook's side of a part has changes that nobody has saved.
    bool unsaved(Part part) const { return dirty_.contains(part); }
    /// Notes that Outlook's side of a part was changed.
    void touch(Part part);
    /// The same, for a change that raises PropertyChange.
    void changed(Part part, std::wstring_view property);
    /// Notes that the MAPI library has written a part of the message.
    void written(Part part) { written_.add(part); }
    /// Raises Write; a new item goes to the Drafts. Nothing happens when the item has no changes of Outlook's
    /// own, or a handler cancels. Throws when the store refuses changes.
    void save();
    /// Another Outlook on the same mailbox has stored another body.
    void writtenElsewhere(const std::wstring& body);
    /// The folder gives the item out: what was stored elsewhere takes the place of changes that can no longer
    /// be saved.
    void opened();
    /// Outlook opens the item anew: changes that nobody has saved do not show, unless a window holds them.
    void readAnew();
    /// Outlook is about to send: what the MAPI library has written and nobody has saved does not go along.
    void forgetWritten();
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
    /// It is written in a main window's reading pane, where it cannot be closed, sent or answered by its own
    /// methods.
    void writtenInline(bool isInline) { inline_ = isInline; }
    bool isInline() const noexcept { return inline_; }
    /// Called by the folder that takes the item.
    void placed(const std::shared_ptr<Folder>& folder);

    std::weak_ptr<Inspector> hiddenInspector;

  private:
    void settle();

    ItemContent content_;
    ItemContent message_;
    /// What was changed since the last save, by Outlook and by the MAPI library.
    Parts dirty_;
    Parts written_;
    std::wstring entryId_;
    bool gone_ = false;
    bool inline_ = false;
    /// A body that another Outlook has stored while this one's changes were not saved.
    std::optional<std::wstring> storedElsewhere_;
    std::weak_ptr<Folder> folder_;
    std::weak_ptr<Folder> firstFolder_;
    EventSource events_{0x0006303A, 0x0006302B};
};

/// A new item by the item type that CreateItem takes (0 mail, 1 appointment, 2 contact...). It is not saved.
std::shared_ptr<Item> newItem(Core& core, int itemType);

/// Resolves one recipient against the address book, as Outlook's Check Names does. False when it cannot.
bool resolve(const Core& core, RecipientData& recipient);

/// The response that Outlook would open: recipients, subject with its prefix, quoted text.
///
/// A Reply to All goes to everybody but BCC recipients, once each; the user's own addresses stay in.
ItemContent makeResponse(const Item& answered, ReplyKind kind);

}  // namespace host
