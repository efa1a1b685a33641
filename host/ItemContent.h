#pragma once

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/Outlook.h"

namespace host {

/// What of an item is changed, saved and read as one.
enum class Part {
    Sender,
    OnBehalfOf,
    Recipients,
    ReplyTo,
    Subject,
    /// In its plain and its HTML form.
    Body,
    Attachments,
    UserProperties,
    Fields,
    DeliveryTime,
    Deferred,
    Account,
    Unread
};
inline constexpr std::size_t partCount = 13;
static_assert(static_cast<std::size_t>(Part::Unread) + 1 == partCount);

/// A set of parts.
class Parts {
  public:
    void add(Part part) { bits_.set(static_cast<std::size_t>(part)); }
    void remove(Part part) { bits_.reset(static_cast<std::size_t>(part)); }
    bool contains(Part part) const { return bits_.test(static_cast<std::size_t>(part)); }
    bool empty() const { return bits_.none(); }
    void clear() { bits_.reset(); }

  private:
    std::bitset<partCount> bits_;
};

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

/// What an address is shown as.
inline const std::wstring& nameOf(const Address& address) {
    return address.name.empty() ? address.address : address.name;
}

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
    /// Takes over one part of another content, of which it shares nothing.
    void take(Part part, const ItemContent& from);

    /// The names of the recipients of one type, joined by "; ".
    std::wstring names(int recipientType) const;
    /// Replaces the recipients of one type by the names in a text; they wait to be resolved.
    void setNames(int recipientType, std::wstring_view names);
    /// A property by its MAPI tag; empty when the item has it not.
    automation::Value field(std::uint32_t property) const;
    /// Says which part it has changed. Throws for what the store computes itself.
    Part setField(std::uint32_t property, const automation::Value& value);
};

/// A value as an item can keep it: text, number, date or an array of these. Throws automation::Error 13 for
/// anything else.
automation::Value storable(const automation::Value& value);

}  // namespace host
