#include "checks/ownAddresses.h"

#include <algorithm>

#include "mail/ProfileAddresses.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"

namespace basVeltro {

namespace {

using basGlobals::ErrorReport;
using basGlobals::Globals;

/// The part from the "@" on occurs in the text of the user's domains; a mail address without one does not.
bool isInternal(const std::wstring& upperDomains, const std::wstring& address) {
    const auto at = address.find(L'@');
    return at != std::wstring::npos &&
           upperDomains.find(text::upper(std::wstring_view(address).substr(at))) != std::wstring::npos;
}

}  // namespace

std::optional<std::wstring> vtGetUserEmails(Globals& globals) {
    return basGlobals::trapErrors(
        globals, ErrorReport::module(L"vtGetUserEmails"),
        [&]() -> std::optional<std::wstring> {
            const bool fromProfile = modRegKeys::UseOutlookSettings.read(globals) &&
                                     basGlobals::OutlookMajorVersion(globals) != L"9";
            const auto addresses = fromProfile ? basGlobals::vtAccountsEmailAddress(globals)
                                               : std::optional(modRegKeys::EmailList.read(globals));
            return addresses ? std::optional<std::wstring>(text::trim(*addresses)) : std::nullopt;
        },
        std::nullopt);
}

std::optional<bool> vtCheckIfUserInRecipients(Globals& globals, AnsweredMail& mail,
                                              const std::wstring& senderAddress) {
    return basGlobals::trapErrors(
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
    return basGlobals::trapErrors(
        globals, ErrorReport::module(L"vtRecipientsAllSameDomain"),
        [&] {
            const std::wstring domains = text::upper(modRegKeys::DomainName.read(globals));
            if (domains.empty()) {
                return false;
            }
            return std::ranges::all_of(mail.recipients(),
                                       [&domains](const MailRecipient& recipient) {
                                           return isInternal(domains, recipient.address);
                                       }) &&
                   isInternal(domains, mail.sender());
        },
        false);
}

}  // namespace basVeltro
