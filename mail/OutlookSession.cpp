#include "mail/OutlookSession.h"

#include "mail/errorTrap.h"
#include "mail/propertyAccessor.h"

namespace mail {

namespace {

using automation::Object;

/// Kinds of store and account, by Outlook's numbers.
constexpr std::int32_t primaryExchangeMailbox = 0;
constexpr std::int32_t exchangeAccount = 0;

constexpr wchar_t sendUsingAccount[] = L"SendUsingAccount";

class OutlookAccount final : public Account {
  public:
    OutlookAccount(Object object, std::wstring name) : object_(std::move(object)), name_(std::move(name)) {}

    std::wstring name() const override { return name_; }
    std::wstring smtpAddress() const override { return object_.get(L"SmtpAddress").toText(); }
    bool isExchange() const override { return object_.get(L"AccountType").toInteger() == exchangeAccount; }
    /// Outlook takes the account by reference only: a plain write has no effect, and no error either.
    void use(const SafeItem& mail) const override {
        const Object before = mail.object().get(sendUsingAccount).toObject();
        try {
            mail.object().putReference(sendUsingAccount, object_);
            mail.save();
        } catch (...) {
            skipErrors([&] { mail.object().putReference(sendUsingAccount, before); });
            throw;
        }
    }

  private:
    Object object_;
    std::wstring name_;
};

class OutlookSession final : public Session {
  public:
    explicit OutlookSession(const outlook::NameSpace& nameSpace) : nameSpace_(nameSpace) {}

    void logonIfNeeded() const override {}
    std::vector<std::shared_ptr<const Account>> accounts() const override;
    std::wstring chosenAccount(const outlook::Item& mail) const override {
        const Object account = mail.object().get(sendUsingAccount).toObject();
        return account ? account.get(L"DisplayName").toText() : std::wstring();
    }
    std::wstring currentUserType() const override { return currentUser().type(); }
    std::wstring exchangeOwner() const override;
    bool anyStore(const std::function<bool(const std::wstring&)>& wanted) const override;
    void markAsRead(const outlook::Item& item) const override {
        item.object().put(L"UnRead", false);
        item.save();
    }
    void deleteMessage(const std::wstring& entryId) const override { nameSpace_.item(entryId).remove(); }
    void receiveFile(const std::wstring& path, automation::Date now) const override;

  private:
    outlook::AddressEntry currentUser() const {
        return outlook::Recipient(nameSpace_.object().get(L"CurrentUser").toObject()).addressEntry();
    }
    outlook::Collection<outlook::Front> stores() const {
        return outlook::Collection<outlook::Front>(nameSpace_.object().get(L"Stores").toObject());
    }

    outlook::NameSpace nameSpace_;
};

std::vector<std::shared_ptr<const Account>> OutlookSession::accounts() const {
    const outlook::Collection<outlook::Front> all(nameSpace_.object().get(L"Accounts").toObject());
    std::vector<std::shared_ptr<const Account>> accounts;
    for (const outlook::Front account : all) {
        accounts.push_back(std::make_shared<OutlookAccount>(account.object(),
                                                            account.object().get(L"DisplayName").toText()));
    }
    return accounts;
}

/// Outlook tells of no store whose it is; the user's own mailbox is the user's.
std::wstring OutlookSession::exchangeOwner() const {
    for (const outlook::Front store : stores()) {
        if (store.object().get(L"ExchangeStoreType").toInteger() == primaryExchangeMailbox) {
            return attempt([&] { return exchangeAddressOf(currentUser()); }).value_or(L"");
        }
    }
    return {};
}

bool OutlookSession::anyStore(const std::function<bool(const std::wstring&)>& wanted) const {
    for (const outlook::Front store : stores()) {
        if (wanted(outlook::Folder(store.object().call(L"GetRootFolder").toObject()).path())) {
            return true;
        }
    }
    return false;
}

void OutlookSession::receiveFile(const std::wstring& path, automation::Date now) const {
    const outlook::Item opened(nameSpace_.object().call(L"OpenSharedItem", path).toObject());
    const outlook::Item received = opened.moveTo(nameSpace_.defaultFolder(outlook::folderId::inbox));
    // It is in the Inbox now: without a time of its own it stands there all the same.
    for (const std::uint32_t tag : {propertyAccessor::tag::submitTime, propertyAccessor::tag::deliveryTime}) {
        skipErrors([&] { propertyAccessor::writeTime(received.object(), tag, now); });
    }
    skipErrors([&] {
        received.object().put(L"UnRead", true);
        received.save();
    });
}

}  // namespace

std::unique_ptr<Session> outlookSession(const Globals& globals) {
    return std::make_unique<OutlookSession>(globals.outlook.mapiNameSpace());
}

std::wstring exchangeAddressOf(const outlook::AddressEntry& entry) {
    for (const wchar_t* const asPerson : {L"GetExchangeUser", L"GetExchangeDistributionList"}) {
        const Object exchange = entry.object().call(asPerson).toObject();
        std::wstring address = exchange ? exchange.get(L"PrimarySmtpAddress").toText() : std::wstring();
        if (!address.empty()) {
            return address;
        }
    }
    std::wstring address =
        propertyAccessor::read(entry.object(), propertyAccessor::tag::smtpAddress).toText();
    if (address.empty()) {
        throw automation::Error(automation::errors::failed, L"The address is unknown.");
    }
    return address;
}

}  // namespace mail
