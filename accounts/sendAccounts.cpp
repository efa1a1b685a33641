#include <array>

#include "accounts/basSendAcct.h"
#include "accounts/clsSendAcct.h"
#include "mail/MapiSession.h"
#include "mail/SafeItems.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

/// The accounts of the profile and of items. A failure here is not reported: it must never stand in the way
/// of a send.
namespace {

using basGlobals::attempt;
namespace tag = redemption::tag;

/// The collection finds a name in any letter case, but only with its spaces. Throws automation::Error when
/// there is no such account.
redemption::Account accountNamed(const redemption::Session& session, const std::wstring& name) {
    if (const auto found = attempt([&] { return session.account(std::wstring(text::trim(name))); })) {
        return *found;
    }
    const auto accounts = session.accountsInOrder();
    const std::int32_t count = accounts.count();
    for (std::int32_t index = 1; index <= count; ++index) {
        redemption::Account account = accounts.item(index);
        if (text::equalsTrimmed(account.name(), name)) {
            return account;
        }
    }
    throw automation::Error(automation::errors::failed, L"There is no account " + name + L".");
}

struct Property {
    std::int32_t tag;
    automation::Value value;
};

/// Writes all of the properties and saves the item, or leaves it as it was: half a stamp would have Outlook
/// send with one account what claims to come from another.
void stamp(const redemption::SafeItem& item, const std::array<Property, 4>& properties) {
    std::array<Property, 4> before = properties;
    for (Property& property : before) {
        property.value = item.field(property.tag);
    }
    try {
        for (const Property& property : properties) {
            item.setField(property.tag, property.value);
        }
        item.saveWritten();
    } catch (...) {
        for (const Property& property : before) {
            basGlobals::skipErrors([&] { item.setField(property.tag, property.value); });
        }
        throw;
    }
}

}  // namespace

std::wstring clsSendAcct::LoadAccounts() {
    accounts_ = std::wstring(noAccount) + L";";
    for (const std::wstring& name : basSendAcct::AccountOrder(globals_)) {
        accounts_ += name + L";";
    }
    return accounts_;
}

std::wstring clsSendAcct::GetAccountInUse() {
    const auto first = [&] { return redemption::Session(globals_).accountsInOrder().item(1).name(); };
    return attempt(first).value_or(L"");
}

std::wstring clsSendAcct::GetSelectedMailAccount(const outlook::Item& item) {
    const redemption::MapiCleanUp cleanUp(globals_.platform.automation);
    const auto selected = [&]() -> std::wstring {
        const redemption::Session session(globals_);
        const redemption::Account account(session.message(item.entryId()).get(L"Account").toObject());
        return account ? account.name() : std::wstring();
    };
    return attempt(selected).value_or(L"");
}

bool clsSendAcct::PrefAcctExists(const std::wstring& account) {
    return basSendAcct::HasAccount(basSendAcct::AccountOrder(globals_), account);
}

bool clsSendAcct::SendUsingPrefAccount(const outlook::Item& item, const std::wstring& account) {
    return basGlobals::skipErrors([&] {
        const redemption::Session session(globals_);
        const redemption::Account chosen = accountNamed(session, account);
        const std::wstring sendStamp = chosen.sendStamp();
        const std::array<Property, 4> properties{{{tag::primarySendAccount, sendStamp},
                                                  {tag::nextSendAccount, sendStamp},
                                                  {tag::itemAccountName, chosen.name()},
                                                  {tag::itemAccountStamp, chosen.stamp()}}};
        stamp(redemption::SafeItem(globals_.platform.automation, item), properties);
    });
}
