#include <algorithm>
#include <optional>

#include "accounts/basSendAcct.h"
#include "accounts/clsSendAcct.h"
#include "mail/OutgoingMail.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace accounts {

/// The accounts of the profile and of mails. A failure here is not reported: it must never stand in the way
/// of a send.
namespace {

using mail::attempt;

std::optional<mail::OutgoingMail::NamedAccount> accountNamed(mail::OutgoingMail& mail,
                                                             const std::wstring& name) {
    const auto accounts = mail.accounts();
    const auto found = std::ranges::find_if(
        accounts, [&](const auto& account) { return text::equalsTrimmed(account.name, name); });
    return found == accounts.end() ? std::nullopt : std::optional(*found);
}

}  // namespace

std::vector<std::wstring> clsSendAcct::LoadAccounts() {
    std::vector<std::wstring> names = basSendAcct::AccountOrder(globals_);
    names.insert(names.begin(), noAccount);
    return names;
}

std::wstring clsSendAcct::GetAccountInUse(mail::OutgoingMail& mail) {
    return attempt([&] { return mail.accounts().at(0).name; }).value_or(L"");
}

std::wstring clsSendAcct::GetSelectedMailAccount(mail::OutgoingMail& mail) {
    return attempt([&] { return mail.chosenAccount(); }).value_or(L"");
}

bool clsSendAcct::PrefAcctExists(mail::OutgoingMail& mail, const std::wstring& account) {
    return attempt([&] { return basSendAcct::HasAccount(mail.accounts(), account); }).value_or(false);
}

bool clsSendAcct::SendUsingPrefAccount(mail::OutgoingMail& mail, const std::wstring& account) {
    return mail::skipErrors([&] {
        const auto chosen = accountNamed(mail, account).value().account;
        chosen->use(mail.safe());
    });
}

}  // namespace accounts
