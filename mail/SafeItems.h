#pragma once

#include <cstdint>
#include <string>

#include "platform/outlook.h"

/// Fronts of the Redemption objects, which read items and profiles without Outlook's security prompt.
namespace redemption {

namespace progId {
inline constexpr wchar_t safeMailItem[] = L"vtRedemption.vtSafeMailItem";
inline constexpr wchar_t safePostItem[] = L"vtRedemption.vtSafePostItem";
inline constexpr wchar_t safeReportItem[] = L"vtRedemption.vtSafeReportItem";
inline constexpr wchar_t safeInspector[] = L"vtRedemption.vtSafeInspector";
inline constexpr wchar_t session[] = L"vtRedemption.vtRDOSession";
inline constexpr wchar_t mapiUtils[] = L"vtRedemption.vtMAPIUtils";
}  // namespace progId

/// MAPI property tags, as the signed numbers in which automation carries them.
namespace tag {
constexpr std::int32_t of(std::uint32_t tag) {
    return static_cast<std::int32_t>(tag);
}
/// Of an account: what its items' send-account properties hold.
inline constexpr std::int32_t accountSendStamp = of(0x000E001F);
inline constexpr std::int32_t onBehalfAddressType = of(0x0064001E);
inline constexpr std::int32_t onBehalfAddress = of(0x0065001E);
inline constexpr std::int32_t senderAddressType = of(0x0C1E001E);
inline constexpr std::int32_t deliveryTime = of(0x0E060040);
inline constexpr std::int32_t primarySendAccount = of(0x0E28001E);
inline constexpr std::int32_t nextSendAccount = of(0x0E29001E);
inline constexpr std::int32_t attachContentId = of(0x3712001E);
inline constexpr std::int32_t proxyAddresses = of(0x800F101E);
/// In the range of named properties, yet fixed: items carry them under these numbers whatever the store.
inline constexpr std::int32_t itemAccountName = of(0x812C001E);
inline constexpr std::int32_t itemAccountStamp = of(0x812D001E);
}  // namespace tag

/// An address entry that also tells what Outlook's own does not.
class AddressEntry : public outlook::AddressEntry {
  public:
    using outlook::AddressEntry::AddressEntry;
    std::wstring smtpAddress() const { return object_.get(L"SMTPAddress").toText(); }
    automation::Value field(std::int32_t tag) const { return object_.get(L"Fields", tag); }
    /// Nothing unless the entry is a distribution list.
    automation::Object members() const { return object_.get(L"Members").toObject(); }
};

class Recipient : public outlook::Recipient {
  public:
    using outlook::Recipient::Recipient;
    AddressEntry addressEntry() const { return AddressEntry(outlook::Recipient::addressEntry().object()); }
    bool resolved() const { return object_.get(L"Resolved").toBool(); }
    bool resolve() const { return object_.call(L"Resolve").toBool(); }
};

class Attachment : public outlook::Front {
  public:
    using Front::Front;
    std::wstring fileName() const { return object_.get(L"FileName").toText(); }
    /// Empty for an attachment that no HTML body can refer to.
    std::wstring contentId() const { return object_.get(L"Fields", tag::attachContentId).toText(); }
};

/// A safe mail, post or report item.
class SafeItem : public outlook::Front {
  public:
    using Front::Front;
    /// A new safe item of the class over an Outlook item.
    SafeItem(automation::Automation& automation, std::wstring_view progId, const outlook::Item& item)
        : Front(automation.createObject(progId)) {
        object_.put(L"Item", item.object());
    }
    SafeItem(automation::Automation& automation, const outlook::Item& mail)
        : SafeItem(automation, progId::safeMailItem, mail) {}

    std::wstring subject() const { return object_.get(L"Subject").toText(); }
    std::wstring to() const { return object_.get(L"To").toText(); }
    std::wstring body() const { return object_.get(L"Body").toText(); }
    void setBody(std::wstring_view body) const { object_.put(L"Body", body); }
    std::wstring htmlBody() const { return object_.get(L"HTMLBody").toText(); }
    AddressEntry sender() const { return AddressEntry(object_.get(L"Sender").toObject()); }
    outlook::Collection<Attachment> attachments() const {
        return outlook::Collection<Attachment>(object_.get(L"Attachments").toObject());
    }
    outlook::Collection<Recipient> recipients() const {
        return outlook::Collection<Recipient>(object_.get(L"Recipients").toObject());
    }
    outlook::Collection<Recipient> replyRecipients() const {
        return outlook::Collection<Recipient>(object_.get(L"ReplyRecipients").toObject());
    }
    automation::Value field(std::int32_t tag) const { return object_.get(L"Fields", tag); }
    /// An empty value takes the property off the item.
    void setField(std::int32_t tag, const automation::Value& value) const {
        object_.put(L"Fields", tag, value);
    }
    void save() const { object_.call(L"Save"); }
    /// Stores what was written here. Outlook takes its own item for unmodified by that, and skips the save of
    /// an unmodified one: so it is modified first, by its own subject.
    void commit() const {
        object_.put(L"Subject", subject());
        save();
    }
};

}  // namespace redemption
