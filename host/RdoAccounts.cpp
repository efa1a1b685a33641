#include "host/RdoAccounts.h"

#include "host/Core.h"
#include "host/mapiTag.h"

namespace host {

using automation::Value;

namespace {

/// Redemption's account categories.
constexpr int storeAccounts = 1;
constexpr int mailAccounts = 2;
constexpr int addressBookAccounts = 3;

bool isMailAccount(const Account& account) {
    return account.type != AccountType::Ldap;
}

bool isInternetAccount(const Account& account) {
    return account.type == AccountType::Pop3 || account.type == AccountType::Imap ||
           account.type == AccountType::Http;
}

Value orderOf(RdoAccounts& accounts, Arguments arguments) {
    const int category = arguments[0].toInteger();
    if (category < storeAccounts || category > addressBookAccounts) {
        raise::operationFailed();
    }
    std::vector<const Account*> list;
    for (const Account& account : accounts.core().profile().accounts) {
        const bool belongs = category == mailAccounts          ? isMailAccount(account)
                             : category == addressBookAccounts ? account.type == AccountType::Ldap
                                                               : account.type == AccountType::Exchange;
        if (belongs) {
            list.push_back(&account);
        }
    }
    return accounts.core().makeObject<RdoAccounts>(std::move(list), true);
}

}  // namespace

RdoAccount::RdoAccount(Core& core, const Account& account) : Automated(core), account_(&account) {}

bool RdoAccount::sameAs(const Target& other) const {
    const auto* const account = dynamic_cast<const RdoAccount*>(&other);
    return account && account->account_ == account_;
}

constinit const Members<RdoAccount> RdoAccount::members = {
    {.name = L"AccountType", .get = use<&RdoAccount::account_, &Account::type>},
    {.name = L"Name", .id = 4, .get = use<&RdoAccount::account_, &Account::name>},
    {.name = L"ID",
     .id = 6,
     .get =
         [](RdoAccount& account, Arguments) {
             const Account* const first = account.core().profile().accounts.data();
             return Value(static_cast<std::int32_t>(account.account_ - first) + 1);
         }},
    {.name = L"Stamp",
     .id = 7,
     .get = [](RdoAccount& account, Arguments) { return Value(account.core().stampOf(*account.account_)); }},
    {.name = L"Fields",
     .id = 13,
     .get =
         [](RdoAccount& account, Arguments arguments) {
             switch (mapiTag(arguments[0])) {
                 case 0x000E001E:
                 case 0x000E001F:
                     return Value(account.core().sendStampOf(*account.account_));
                 case 0x0001001F:
                 case 0x0002001F:
                     return Value(account.account_->name);
                 default:
                     return Value();
             }
         },
     .least = 1,
     .most = 1},
    {.name = L"SMTPAddress",
     .get = use<&RdoAccount::account_, &Account::address>,
     .has = [](const RdoAccount& account) { return isInternetAccount(*account.account_); }},
};

RdoAccounts::RdoAccounts(Core& core, std::vector<const Account*> list, bool ordered)
    : Collection(core), list_(std::move(list)), ordered_(ordered) {}

automation::Object RdoAccounts::at(std::size_t index) const {
    return core().makeObject<RdoAccount>(*list_[index]);
}

constinit const Members<RdoAccounts> RdoAccounts::members = {
    countRow<RdoAccounts, dispatchId::unlisted>,
    itemRow<RdoAccounts, dispatchId::defaultMember>,
    {.name = L"GetOrder",
     .call = orderOf,
     .least = 1,
     .most = 1,
     .has = [](const RdoAccounts& accounts) { return !accounts.ordered(); }},
};

}  // namespace host
