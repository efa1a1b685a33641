#include "checks/ownAddresses.h"

#include <algorithm>
#include <set>

#include "mail/OutlookVersion.h"
#include "mail/ProfileAddresses.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"

namespace checks {

namespace {

using mail::ErrorReport;
using mail::Globals;

/// The user's own domains, from the text of the setting.
class OwnDomains {
  public:
    explicit OwnDomains(const std::wstring& domains) : upperText_(text::upper(domains)) {
        for (std::wstring_view domain : text::split(upperText_, L';')) {
            domain = text::trim(domain);
            if (domain.starts_with(L'@')) {
                domain.remove_prefix(1);
            }
            domains_.emplace(domain);
        }
        domains_.erase(L"");
    }

    bool empty() const { return upperText_.empty(); }

    /// True when the address from its "@" on stands anywhere in the text, or its domain is one of those
    /// listed.
    bool contain(const std::wstring& address) const {
        const auto at = address.find(L'@');
        if (at == std::wstring::npos) {
            return false;
        }
        const std::wstring domain = text::upper(std::wstring_view(address).substr(at));
        return domains_.contains(domain.substr(1)) || upperText_.find(domain) != std::wstring::npos;
    }

  private:
    std::wstring upperText_;
    /// Without their "@".
    std::set<std::wstring> domains_;
};

}  // namespace

std::optional<std::wstring> vtGetUserEmails(Globals& globals) {
    return mail::trapErrors(
        globals, ErrorReport::module(L"vtGetUserEmails"),
        [&]() -> std::optional<std::wstring> {
            const bool fromProfile = modRegKeys::UseOutlookSettings.read(globals) &&
                                     mail::outlookVersion(globals) != mail::outlook2000;
            if (fromProfile && globals.provider->hasAccounts()) {
                const auto addresses = mail::vtAccountsEmailAddress(globals);
                return addresses ? std::optional<std::wstring>(text::trim(*addresses)) : std::nullopt;
            }
            std::wstring listed(text::trim(modRegKeys::EmailList.read(globals)));
            // Where the profile cannot be read an empty list does not mean that the user has no address.
            return fromProfile && listed.empty() ? std::nullopt : std::optional(std::move(listed));
        },
        std::nullopt);
}

std::optional<bool> vtCheckIfUserInRecipients(Globals& globals, AnsweredMail& mail,
                                              const std::wstring& senderAddress) {
    return mail::trapErrors(
        globals, ErrorReport::module(L"vtCheckIfUserInRecipients"),
        [&]() -> std::optional<bool> {
            const auto& own = mail.ownAddresses();
            if (!own) {
                return std::nullopt;
            }
            if (senderAddress != noSender && own->contains(senderAddress)) {
                return true;
            }
            return std::ranges::any_of(mail.recipients(), [&own](const MailRecipient& recipient) {
                return own->contains(recipient.address);
            });
        },
        std::nullopt);
}

bool vtRecipientsAllSameDomain(Globals& globals, AnsweredMail& mail) {
    return mail::trapErrors(
        globals, ErrorReport::module(L"vtRecipientsAllSameDomain"),
        [&] {
            const OwnDomains own(modRegKeys::DomainName.read(globals));
            if (own.empty()) {
                return false;
            }
            return std::ranges::all_of(
                       mail.recipients(),
                       [&own](const MailRecipient& recipient) { return own.contain(recipient.address); }) &&
                   own.contain(mail.sender());
        },
        false);
}

}  // namespace checks
