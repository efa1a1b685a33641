#include "mail/ProfileAddresses.h"

#include "mail/MapiSession.h"
#include "mail/errorTrap.h"

namespace mail {

namespace {

/// Most are Internet accounts, which alone have an address to read.
std::wstring accountAddress(Globals& globals, const redemption::Account& account) {
    std::wstring address = attempt([&] { return account.smtpAddress(); }).value_or(L"");
    const bool isExchange = address.empty() && account.type() == redemption::exchangeAccount;
    return isExchange ? ExchangeAccountSMTPAddress(globals) : address;
}

}  // namespace

std::optional<std::wstring> vtAccountsEmailAddress(Globals& globals) {
    return trapErrors(
        globals, ErrorReport::module(L"vtAccountsEmailAddress"),
        [&]() -> std::optional<std::wstring> {
            const redemption::Session session(globals);
            std::wstring addresses;
            for (const redemption::Account account : session.accountsInOrder()) {
                const std::wstring address = accountAddress(globals, account);
                if (!address.empty()) {
                    addresses += (addresses.empty() ? L"" : L";") + address;
                }
            }
            return addresses;
        },
        std::nullopt);
}

std::wstring ExchangeAccountSMTPAddress(Globals& globals) {
    return trapErrors(globals, ErrorReport::module(L"ExchangeAccountSMTPAddress"),
                      [&]() -> std::wstring {
                          const redemption::Session session(globals);
                          session.logonIfNeeded();
                          for (const redemption::Store store : session.stores()) {
                              if (store.kind() == redemption::primaryExchangeStore) {
                                  return store.owner().smtpAddress();
                              }
                          }
                          return {};
                      },
                      {});
}

}  // namespace mail
