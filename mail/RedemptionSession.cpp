#include "mail/RedemptionSession.h"

#include <array>

#include "mail/errorTrap.h"
#include "mail/redemption.h"

namespace mail {

namespace {

using automation::Object;
namespace tag = redemption::tag;

/// Kinds of store and account, by the library's numbers.
constexpr std::int32_t primaryExchangeStore = 3;
constexpr std::int32_t exchangeAccount = 3;
/// Which order of the profile's accounts: that of the mail accounts.
constexpr std::int32_t mailAccountOrder = 2;

/// The properties that say which account a mail leaves with. Outlook goes by the first two; the others are
/// written for whoever reads them, and a store may refuse these.
class Stamp {
  public:
    explicit Stamp(const SafeItem& mail) : mail_(mail) {
        for (std::size_t index = 0; index < decisive; ++index) {
            before_[index] = field(tags[index]);
            stampedBefore_ = stampedBefore_ || !before_[index].toText().empty();
        }
    }

    /// Writes them and saves the item, or leaves it as it was: half a stamp would have Outlook send with one
    /// account what claims to come from another. Throws automation::Error.
    void replace(const std::array<std::wstring, 4>& values) {
        try {
            for (std::size_t index = 0; index < decisive; ++index) {
                write(index, values[index]);
            }
            for (std::size_t index = decisive; index < tags.size(); ++index) {
                skipErrors([&] { writeWelcome(index, values[index]); });
            }
            mail_.commit();  // Outlook's send keeps nothing that was written here and not saved.
        } catch (...) {
            for (std::size_t index = 0; index < begun_; ++index) {
                skipErrors([&] { setField(tags[index], before_[index]); });
            }
            throw;
        }
    }

  private:
    static constexpr std::array<std::int32_t, 4> tags{tag::primarySendAccount, tag::nextSendAccount,
                                                      tag::itemAccountName, tag::itemAccountStamp};
    static constexpr std::size_t decisive = 2;

    automation::Value field(std::int32_t tag) const { return mail_.object().get(L"Fields", tag); }
    /// An empty value takes the property off the item.
    void setField(std::int32_t tag, const automation::Value& value) const {
        mail_.object().put(L"Fields", tag, value);
    }
    void write(std::size_t index, const std::wstring& value) {
        begun_ = index + 1;
        setField(tags[index], value);
    }
    /// A mail without the decisive ones has none of these.
    void writeWelcome(std::size_t index, const std::wstring& value) {
        if (stampedBefore_) {
            before_[index] = field(tags[index]);
        }
        write(index, value);
    }

    SafeItem mail_;
    std::array<automation::Value, 4> before_;
    bool stampedBefore_ = false;
    std::size_t begun_ = 0;
};

class RedemptionAccount final : public Account {
  public:
    RedemptionAccount(Object object, std::wstring name)
        : object_(std::move(object)), name_(std::move(name)) {}

    std::wstring name() const override { return name_; }
    /// The library has none of accounts that are no Internet accounts.
    std::wstring smtpAddress() const override {
        return attempt([&] { return object_.get(L"SMTPAddress").toText(); }).value_or(L"");
    }
    bool isExchange() const override { return object_.get(L"AccountType").toInteger() == exchangeAccount; }
    void use(const SafeItem& mail) const override {
        const std::wstring sendStamp = object_.get(L"Fields", tag::accountSendStamp).toText();
        Stamp(mail).replace({sendStamp, sendStamp, name_, object_.get(L"Stamp").toText()});
    }

  private:
    Object object_;
    std::wstring name_;
};

class RedemptionSession final : public Session {
  public:
    explicit RedemptionSession(const Globals& globals)
        : object_(globals.platform.automation.createObject(redemption::progId::session)) {
        object_.put(L"MAPIOBJECT", globals.outlook.mapiNameSpace().mapiObject());
    }

    void logonIfNeeded() const override {
        if (!object_.get(L"LoggedOn").toBool()) {
            object_.call(L"Logon");
        }
    }
    std::vector<std::shared_ptr<const Account>> accounts() const override;
    std::wstring chosenAccount(const outlook::Item& mail) const override {
        const Object account = message(mail.entryId()).get(L"Account").toObject();
        return account ? account.get(L"Name").toText() : std::wstring();
    }
    std::wstring currentUserType() const override {
        return object_.get(L"CurrentUser").toObject().get(L"Type").toText();
    }
    std::wstring exchangeOwner() const override;
    bool anyStore(const std::function<bool(const std::wstring&)>& wanted) const override;
    void markAsRead(const outlook::Item& item) const override {
        const outlook::Folder folder(item.object().get(L"Parent").toObject());
        const std::wstring entryId = item.entryId();
        object_.call(L"GetMessageFromID", entryId, folder.storeId()).toObject().put(L"UnRead", false);
    }
    void deleteMessage(const std::wstring& entryId) const override { message(entryId).call(L"Delete"); }
    void receiveFile(const std::wstring& path, automation::Date now) const override;

  private:
    Object message(const std::wstring& entryId) const {
        return object_.call(L"GetMessageFromID", entryId).toObject();
    }
    outlook::Collection<outlook::Front> stores() const {
        return outlook::Collection<outlook::Front>(object_.get(L"Stores").toObject());
    }

    Object object_;
};

std::vector<std::shared_ptr<const Account>> RedemptionSession::accounts() const {
    const Object all = object_.get(L"Accounts").toObject();
    const outlook::Collection<outlook::Front> ordered(all.call(L"GetOrder", mailAccountOrder).toObject());
    std::vector<std::shared_ptr<const Account>> accounts;
    for (const outlook::Front account : ordered) {
        accounts.push_back(
            std::make_shared<RedemptionAccount>(account.object(), account.object().get(L"Name").toText()));
    }
    return accounts;
}

std::wstring RedemptionSession::exchangeOwner() const {
    logonIfNeeded();
    for (const outlook::Front store : stores()) {
        if (store.object().get(L"StoreKind").toInteger() == primaryExchangeStore) {
            return store.object().get(L"Owner").toObject().get(L"SMTPAddress").toText();
        }
    }
    return {};
}

bool RedemptionSession::anyStore(const std::function<bool(const std::wstring&)>& wanted) const {
    for (const outlook::Front store : stores()) {
        const Object root = store.object().get(L"IPMRootFolder").toObject();
        if (wanted(root.get(L"FolderPath").toText())) {
            return true;
        }
    }
    return false;
}

void RedemptionSession::receiveFile(const std::wstring& path, automation::Date now) const {
    logonIfNeeded();
    const Object message = object_.call(L"GetMessageFromMsgFile", path).toObject();
    const Object inbox = object_.call(L"GetDefaultFolder", outlook::folderId::inbox).toObject();
    const Object copy = inbox.get(L"Items").toObject().call(L"Add", L"IPM.Note").toObject();
    // Before the first save alone a message can be marked as one that was sent.
    copy.put(L"Sent", true);
    message.call(L"CopyTo", copy);
    // The copy may have brought the file's own.
    copy.put(L"MessageClass", L"IPM.Note");
    copy.put(L"UnRead", true);
    // Without times it would stand below all mails of the Inbox.
    copy.put(L"SentOn", now);
    copy.put(L"ReceivedTime", now);
    copy.call(L"Save");
}

}  // namespace

std::unique_ptr<Session> redemptionSession(const Globals& globals) {
    return std::make_unique<RedemptionSession>(globals);
}

}  // namespace mail
