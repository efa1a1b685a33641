#include <algorithm>
#include <array>
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
namespace tag = redemption::tag;

std::optional<mail::OutgoingMail::NamedAccount> accountNamed(mail::OutgoingMail& mail,
                                                             const std::wstring& name) {
    const auto accounts = mail.accounts();
    const auto found = std::ranges::find_if(
        accounts, [&](const auto& account) { return text::equalsTrimmed(account.name, name); });
    return found == accounts.end() ? std::nullopt : std::optional(*found);
}

/// The properties that say which account a mail leaves with. Outlook goes by the first two; the others are
/// written for whoever reads them, and a store may refuse these.
class Stamp {
  public:
    explicit Stamp(const redemption::SafeItem& item) : item_(item) {
        for (std::size_t index = 0; index < decisive; ++index) {
            before_[index] = item_.field(tags[index]);
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
                mail::skipErrors([&] { writeWelcome(index, values[index]); });
            }
            item_.commit();  // Outlook's send keeps nothing that was written here and not saved.
        } catch (...) {
            for (std::size_t index = 0; index < begun_; ++index) {
                mail::skipErrors([&] { item_.setField(tags[index], before_[index]); });
            }
            throw;
        }
    }

  private:
    static constexpr std::array<std::int32_t, 4> tags{tag::primarySendAccount, tag::nextSendAccount,
                                                      tag::itemAccountName, tag::itemAccountStamp};
    static constexpr std::size_t decisive = 2;

    void write(std::size_t index, const std::wstring& value) {
        begun_ = index + 1;
        item_.setField(tags[index], value);
    }
    /// A mail without the decisive ones has none of these.
    void writeWelcome(std::size_t index, const std::wstring& value) {
        if (stampedBefore_) {
            before_[index] = item_.field(tags[index]);
        }
        write(index, value);
    }

    redemption::SafeItem item_;
    std::array<automation::Value, 4> before_;
    bool stampedBefore_ = false;
    std::size_t begun_ = 0;
};

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
        const auto [name, chosen] = accountNamed(mail, account).value();
        const std::wstring sendStamp = chosen.sendStamp();
        Stamp(mail.safe()).replace({sendStamp, sendStamp, name, chosen.stamp()});
    });
}

}  // namespace accounts
