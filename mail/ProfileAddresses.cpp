#include "mail/ProfileAddresses.h"

#include "mail/Provider.h"
#include "mail/errorTrap.h"

namespace mail {

namespace {

std::wstring accountAddress(Globals& globals, const Account& account) {
    std::wstring address = account.smtpAddress();
    return address.empty() && account.isExchange() ? ExchangeAccountSMTPAddress(globals) : address;
}

}  // namespace

std::optional<std::wstring> vtAccountsEmailAddress(Globals& globals) {
    return trapErrors(
        globals, ErrorReport::module(L"vtAccountsEmailAddress"),
        [&]() -> std::optional<std::wstring> {
            if (!globals.provider->hasAccounts()) {
                return std::nullopt;
            }
            const auto session = globals.provider->session(globals);
            std::wstring addresses;
            for (const auto& account : session->accounts()) {
                const std::wstring address = accountAddress(globals, *account);
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
                      [&] { return globals.provider->session(globals)->exchangeOwner(); }, {});
}

}  // namespace mail
