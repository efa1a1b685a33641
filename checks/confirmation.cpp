#include <cmath>

#include "checks/basVeltro.h"
#include "mail/SafeItems.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/number.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace basVeltro {

namespace {

using basGlobals::Globals;

constexpr std::int16_t confirmEveryMail = 1;
constexpr std::int16_t confirmListed = 2;

bool userConfirms(Globals& globals, const outlook::Item& item) {
    const std::wstring firstRecipient = GetFirstTORecipient(globals, item);
    const std::wstring question = firstRecipient.empty()
                                      ? L"Do you wish to send this email?"
                                      : L"Do you wish to send this email to " + firstRecipient + L"?";
    const auto answer = prompts::ask(globals, L"Confirm Email Send",
                                     question +
                                         L"\r\n\r\n(If you do not wish to see this message please go to the "
                                         L"Veltro settings screen and click Send-Confirm)",
                                     {platform::Buttons::YesNo, platform::Icon::Information});
    return answer == platform::Answer::Yes;
}

bool mustConfirm(Globals& globals, const outlook::Item& item) {
    const std::int16_t choice = modRegKeys::DisplayConfirmation.read(globals);
    return choice == confirmEveryMail || (choice == confirmListed && AtLeast1EmailInRecipt(globals, item));
}

/// Held in 16 bits: a larger limit is an overflow, which goes back to Outlook.
std::int16_t recipientLimit(const Globals& globals) {
    const std::wstring limit = modRegKeys::XRecipients.read(globals);
    return number::toInteger<std::int16_t>(std::floor(number::leading(limit)));
}

bool hasManyRecipients(const Globals& globals, const outlook::Item& item) {
    const std::int16_t limit = recipientLimit(globals);
    const redemption::SafeItem mail(globals.platform.automation, item);
    basGlobals::skipErrors([&] { mail.save(); });  // Commits what was typed, so that it can be counted.
    return mail.recipients().count() > limit;
}

}  // namespace

std::wstring GetFirstTORecipient(Globals& globals, const outlook::Item& item) {
    return basGlobals::trapErrors(globals, basGlobals::ErrorReport::usual(L"basVeltro.GetFirstTORecipient"),
                                  [&] {
                                      const std::wstring to =
                                          redemption::SafeItem(globals.platform.automation, item).to();
                                      return std::wstring(text::trim(text::before(to, L';')));
                                  },
                                  {});
}

bool AtLeast1EmailInRecipt(Globals& globals, const outlook::Item& item) {
    return basGlobals::trapErrors(
        globals, basGlobals::ErrorReport::usual(L"basVeltro.AtLeast1EmailInRecipt"),
        [&] {
            const std::wstring listed = modRegKeys::ConfirmEmailAddrs.read(globals);
            if (listed.empty()) {
                return false;
            }
            const redemption::SafeItem mail(globals.platform.automation, item);
            mail.save();
            return firstListedRecipient(globals, mail, listed).has_value();
        },
        false);
}

void confirmSend(Globals& globals, const outlook::Item& item, bool& cancel) {
    if (mustConfirm(globals, item)) {
        cancel = !userConfirms(globals, item);
    } else if (modRegKeys::ConfirmForXRecipients.read(globals) && hasManyRecipients(globals, item)) {
        cancel = !userConfirms(globals, item);
    }
}

std::optional<std::wstring> firstListedRecipient(Globals& globals, const redemption::SafeItem& mail,
                                                 const std::wstring& listed) {
    const std::wstring upperList = text::upper(listed);
    return basGlobals::findRecipientAddress(globals, mail, [&](const std::wstring& address) {
        return upperList.find(text::upper(address)) != std::wstring::npos;
    });
}

}  // namespace basVeltro
