#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/automation.h"

namespace host {

// Members have initializers so that designated ones may leave them out.

/// One address as the profile's address book knows it.
struct Address {
    std::wstring name{};
    /// In the form that `type` gives: a mailbox for SMTP, a distinguished name for EX.
    std::wstring address{};
    /// SMTP, EX, or MAPIPDL for a personal distribution list.
    std::wstring type = L"SMTP";
    /// Proxy addresses of an EX entry ("SMTP:" in capitals for the primary one); none makes the property
    /// absent.
    std::vector<std::wstring> proxies{};
    /// What an EX entry answers as its SMTP address.
    std::wstring smtpAddress{};
    /// The members of a distribution list.
    std::vector<Address> members{};
    /// An Exchange distribution list (MAPIPDL always is a list).
    bool distributionList = false;
    /// False for an entry whose name Outlook cannot resolve.
    bool resolvable = true;
};

/// Whether an address is one already; a mere name waits for the address book.
inline bool isResolved(const Address& address) {
    return address.resolvable && !address.address.empty();
}

struct Attachment {
    std::wstring fileName{};
    /// Without the angle brackets; empty when there is none.
    std::wstring contentId{};
    /// Its flags and whether it is hidden, as programs of the senders set them; none: not told.
    std::optional<int> flags{};
    std::optional<bool> hidden{};
};

/// Outlook's numbers of the item classes.
namespace itemClass {
inline constexpr int appointment = 26;
inline constexpr int contact = 40;
inline constexpr int document = 41;
inline constexpr int journal = 42;
inline constexpr int mail = 43;
inline constexpr int note = 44;
inline constexpr int post = 45;
inline constexpr int report = 46;
inline constexpr int task = 48;
inline constexpr int distributionList = 69;
}  // namespace itemClass

/// What an item holds when it is made: a mail the user has written, or one that was received.
struct Message {
    int itemClass = itemClass::mail;
    std::optional<Address> from{};
    std::optional<Address> onBehalfOf{};
    std::vector<Address> to{};
    std::vector<Address> cc{};
    std::vector<Address> bcc{};
    std::vector<Address> replyTo{};
    std::wstring subject{};
    /// Plain text; lines end in CR LF.
    std::wstring body{};
    /// Empty for a mail in plain text.
    std::wstring html{};
    std::vector<Attachment> attachments{};
    /// The header lines of a mail that came over the Internet.
    std::wstring headers{};
    /// When a received mail was delivered, in local time; none: when receive() put it into the Inbox.
    std::optional<automation::Date> deliveryTime{};
    /// The deferred delivery time that the user has set.
    std::optional<automation::Date> deferredDeliveryTime{};
    /// The account that the user has chosen in the item's window; empty for the default account.
    std::wstring account{};
};

}  // namespace host
