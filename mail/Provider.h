#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "mail/Globals.h"
#include "platform/outlook.h"

/// How the add-in reads mails and profiles. Outlook asks the user before it lets a program read certain
/// things; never may it ask because of the add-in. There are two ways around: the Redemption library, and
/// from Outlook 2003 on the trust that Outlook has in the Application that it hands to OnConnection.
namespace mail {

class Provider;

/// An item to be read. Whatever reads throws automation::Error.
class SafeItem : public outlook::Front {
  public:
    /// Read as the globals' provider does.
    SafeItem(const Globals& globals, const outlook::Item& item,
             std::int32_t itemClass = outlook::itemClass::mail);

    std::wstring to() const { return object_.get(L"To").toText(); }
    std::wstring body() const { return object_.get(L"Body").toText(); }
    void setBody(std::wstring_view body) const { object_.put(L"Body", body); }
    std::wstring htmlBody() const { return object_.get(L"HTMLBody").toText(); }
    outlook::Collection<outlook::Attachment> attachments() const {
        return outlook::Collection<outlook::Attachment>(object_.get(L"Attachments").toObject());
    }
    outlook::Collection<outlook::Recipient> recipients() const {
        return outlook::Collection<outlook::Recipient>(object_.get(L"Recipients").toObject());
    }
    outlook::Collection<outlook::Recipient> replyRecipients() const {
        return outlook::Collection<outlook::Recipient>(object_.get(L"ReplyRecipients").toObject());
    }

    /// "SMTP", "EX" or another provider's name.
    std::wstring senderType() const;
    /// In the form of its own address book.
    std::wstring senderAddress() const;
    /// Nothing where it cannot be had.
    outlook::AddressEntry sender() const;
    /// What stands on a mail that was sent on somebody else's behalf; empty on others.
    std::wstring onBehalfType() const;
    std::wstring onBehalfAddress() const;
    /// In local time; empty for a mail that never was delivered.
    automation::Value deliveryTime() const;
    /// Where its HTML body shows an attachment: a text that then occurs in it. Empty for one that cannot
    /// stand there.
    std::wstring pictureMark(const outlook::Attachment& attachment) const;

    /// What the user has typed can be read from now on.
    void bringUpToDate() const;
    void save() const { object_.call(L"Save"); }
    /// Stores what was written here.
    void commit() const;
    /// The body of a mail that is about to be shown for the first time.
    void prepareBody(std::wstring_view body) const;

  private:
    const Provider* provider_;
};

/// An account of the profile.
class Account {
  public:
    virtual ~Account() = default;
    virtual std::wstring name() const = 0;
    /// Empty for one that has no address of its own.
    virtual std::wstring smtpAddress() const = 0;
    virtual bool isExchange() const = 0;
    /// Has the mail leave with this account, and saves it. Throws automation::Error when it cannot, and
    /// leaves the mail as it was.
    virtual void use(const SafeItem& mail) const = 0;
};

/// The profile that Outlook is logged on to. Everything throws automation::Error.
class Session {
  public:
    virtual ~Session() = default;
    virtual void logonIfNeeded() const = 0;
    /// The mail accounts in their order.
    virtual std::vector<std::shared_ptr<const Account>> accounts() const = 0;
    /// The name of the account that was chosen for the mail; empty when none was.
    virtual std::wstring chosenAccount(const outlook::Item& mail) const = 0;
    /// "SMTP", "EX" or another provider's name.
    virtual std::wstring currentUserType() const = 0;
    /// The SMTP address of the owner of the user's own Exchange mailbox; empty where there is none.
    virtual std::wstring exchangeOwner() const = 0;
    /// True when `wanted` accepts the path of the root folder of one of the stores.
    virtual bool anyStore(const std::function<bool(const std::wstring& rootPath)>& wanted) const = 0;
    virtual void markAsRead(const outlook::Item& item) const = 0;
    virtual void deleteMessage(const std::wstring& entryId) const = 0;
    /// Puts a copy of the message in a .msg file into the Inbox, as a mail that was received now and not
    /// read.
    virtual void receiveFile(const std::wstring& path, automation::Date now) const = 0;
};

/// One way to read, chosen once per connection. Has no state, so that what holds on to it outlives every
/// connection.
class Provider {
  public:
    /// False where Outlook would ask the user before it tells who a mail is from or to.
    virtual bool readsPeople() const noexcept = 0;
    /// False where the profile's accounts cannot be had.
    virtual bool hasAccounts() const noexcept = 0;
    /// Reads what the user has typed without a save.
    virtual bool readsUnsaved() const noexcept = 0;
    /// False where Word cannot be reached from Outlook without a question: then Outlook's process asks.
    virtual bool reachesWord() const noexcept = 0;

    virtual automation::Object open(const Globals& globals, const outlook::Item& item,
                                    std::int32_t itemClass) const = 0;
    /// What gives the document of an item window that is Word's.
    virtual automation::Object openWindow(const Globals& globals,
                                          const outlook::Inspector& inspector) const = 0;
    virtual void commit(const automation::Object& item) const = 0;
    virtual std::wstring senderType(const automation::Object& item) const = 0;
    virtual std::wstring senderAddress(const automation::Object& item) const = 0;
    virtual outlook::AddressEntry sender(const automation::Object& item) const = 0;
    virtual std::wstring onBehalfType(const automation::Object& item) const = 0;
    virtual std::wstring onBehalfAddress(const automation::Object& item) const = 0;
    virtual automation::Value deliveryTime(const automation::Object& item) const = 0;
    virtual std::wstring pictureMark(const outlook::Attachment& attachment) const = 0;
    virtual std::wstring smtpAddress(const outlook::AddressEntry& entry) const = 0;
    /// Of an entry of Exchange's address book.
    virtual std::wstring exchangeAddress(const outlook::AddressEntry& entry) const = 0;
    virtual std::unique_ptr<Session> session(const Globals& globals) const = 0;
    /// What the MAPI library offers beside the session; nothing where there is no such library.
    virtual automation::Object mapiUtils(const Globals& globals) const = 0;

  protected:
    ~Provider() = default;
};

/// The Redemption library.
const Provider& redemptionProvider() noexcept;
/// Outlook's own object model, as the version offers it.
const Provider& outlookProvider(const Globals& globals);
/// The same where nothing trusts the add-in: in Word's process, and up to Outlook 2002.
const Provider& untrustedProvider() noexcept;

/// Whether the Redemption library can be had.
bool hasRedemption(const Globals& globals);

/// True for what Outlook answers when the user or the administrator has refused a call: nothing is known
/// then. It is no failure of which anybody need be told.
bool isRefusal(const Globals& globals, const automation::Error& error) noexcept;

/// Releases what the MAPI library has cached, when made and again at the end of the scope; it would otherwise
/// keep messages open that Outlook wants to move or delete.
class MapiCleanUp {
  public:
    explicit MapiCleanUp(const Globals& globals);
    ~MapiCleanUp();
    MapiCleanUp(const MapiCleanUp&) = delete;
    MapiCleanUp& operator=(const MapiCleanUp&) = delete;

    /// Ties the utility object to Outlook's session.
    void tieTo(const outlook::NameSpace& nameSpace) const;

  private:
    automation::Object utils_;
};

/// Releases what the MAPI library has cached. Throws automation::Error.
void cleanUpMapi(const Globals& globals);

}  // namespace mail
