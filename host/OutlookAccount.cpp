#include "host/OutlookAccount.h"

#include "host/outlookRows.h"

namespace host {

namespace {

/// Outlook's number of an account's type, which is another one than Redemption's.
int typeOf(const Account& account) {
    constexpr int exchange = 0;
    constexpr int imap = 1;
    constexpr int pop3 = 2;
    constexpr int http = 3;
    constexpr int other = 5;
    switch (account.type) {
        case AccountType::Exchange:
            return exchange;
        case AccountType::Imap:
            return imap;
        case AccountType::Pop3:
            return pop3;
        case AccountType::Http:
            return http;
        default:
            return other;
    }
}

}  // namespace

OutlookAccount::OutlookAccount(Core& core, std::wstring name) : Automated(core), name_(std::move(name)) {}

bool OutlookAccount::sameAs(const Target& other) const {
    const auto* const account = dynamic_cast<const OutlookAccount*>(&other);
    return account && text::equalsIgnoringCase(account->name_, name_);
}

const Account& OutlookAccount::account() const {
    const Account* const found = core().account(name_);
    if (!found) {
        raise::objectNotFound();
    }
    return *found;
}

constinit const Members<OutlookAccount> OutlookAccount::members = {
    applicationRow<OutlookAccount>,
    parentRow<OutlookAccount, sessionOf>,
    classRow<OutlookAccount, 105>,
    sessionRow<OutlookAccount>,
    {.name = L"DisplayName", .id = 12289, .get = use<&OutlookAccount::name_>},
    {.name = L"AccountType", .id = 64210, .get = use<&OutlookAccount::account, typeOf>},
    {.name = L"UserName",
     .id = 64211,
     .get = use<&OutlookAccount::account, &Account::address>,
     .guarded = Guarded::Yes},
    {.name = L"SmtpAddress",
     .id = 64212,
     .get = use<&OutlookAccount::account, &Account::address>,
     .guarded = Guarded::Yes},
};

std::vector<const Account*> OutlookAccounts::list() const {
    std::vector<const Account*> accounts;
    for (const Account& account : core().profile().accounts) {
        if (account.type != AccountType::Ldap) {
            accounts.push_back(&account);
        }
    }
    return accounts;
}

automation::Object OutlookAccounts::at(std::size_t index) const {
    return core().makeObject<OutlookAccount>(list()[index]->name);
}

constinit const Members<OutlookAccounts> OutlookAccounts::members = {
    applicationRow<OutlookAccounts>, parentRow<OutlookAccounts, sessionOf>,
    classRow<OutlookAccounts, 106>,  sessionRow<OutlookAccounts>,
    countRow<OutlookAccounts>,       itemRow<OutlookAccounts>,
};

}  // namespace host
