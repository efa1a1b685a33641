#pragma once

#include "mail/Globals.h"
#include "mail/SafeItems.h"

namespace redemption {

/// Kinds of store and account, by the MAPI library's numbers.
inline constexpr std::int32_t primaryExchangeStore = 3;
inline constexpr std::int32_t exchangeAccount = 3;
/// Which order of the profile's accounts: that of the mail accounts.
inline constexpr std::int32_t mailAccountOrder = 2;

class Store : public outlook::Front {
  public:
    using Front::Front;
    std::int32_t kind() const { return object_.get(L"StoreKind").toInteger(); }
    /// The mailbox's owner; only the profile's own Exchange store has one.
    AddressEntry owner() const { return AddressEntry(object_.get(L"Owner").toObject()); }
    std::wstring rootFolderPath() const {
        return object_.get(L"IPMRootFolder").toObject().get(L"FolderPath").toText();
    }
};

class Account : public outlook::Front {
  public:
    using Front::Front;
    std::int32_t type() const { return object_.get(L"AccountType").toInteger(); }
    std::wstring name() const { return object_.get(L"Name").toText(); }
    /// What marks an item as one to be sent with this account.
    std::wstring stamp() const { return object_.get(L"Stamp").toText(); }
    std::wstring sendStamp() const { return object_.get(L"Fields", tag::accountSendStamp).toText(); }
    /// Fails for accounts that are no Internet accounts.
    std::wstring smtpAddress() const { return object_.get(L"SMTPAddress").toText(); }
};

/// A session of the MAPI library that shares Outlook's logged-on profile.
class Session : public outlook::Front {
  public:
    explicit Session(const mail::Globals& globals);

    void logonIfNeeded() const;
    outlook::Collection<Store> stores() const {
        return outlook::Collection<Store>(object_.get(L"Stores").toObject());
    }
    outlook::Collection<Account> accountsInOrder() const;
    /// The profile's account of this name; letter case does not count. Throws automation::Error when there is
    /// none.
    Account account(const std::wstring& name) const;
    std::wstring currentUserType() const;
    /// Puts a copy of the message in a .msg file into the Inbox, as a mail that was received now and not
    /// read.
    void receiveFile(const std::wstring& path, automation::Date now) const;
    automation::Object message(const std::wstring& entryId) const {
        return object_.call(L"GetMessageFromID", entryId).toObject();
    }
    automation::Object message(const std::wstring& entryId, const std::wstring& storeId) const {
        return object_.call(L"GetMessageFromID", entryId, storeId).toObject();
    }
};

/// Releases what the MAPI library has cached. Throws automation::Error.
void cleanUp(automation::Automation& automation);

/// Releases what the MAPI library has cached, when made and again at the end of the scope; it would otherwise
/// keep messages open that Outlook wants to move or delete.
class MapiCleanUp {
  public:
    explicit MapiCleanUp(automation::Automation& automation);
    ~MapiCleanUp();
    MapiCleanUp(const MapiCleanUp&) = delete;
    MapiCleanUp& operator=(const MapiCleanUp&) = delete;

    /// Ties the utility object to Outlook's session.
    void tieTo(const outlook::NameSpace& nameSpace) const;

  private:
    automation::Object utils_;
};

}  // namespace redemption
