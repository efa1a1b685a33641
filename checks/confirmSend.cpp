#include <source_location>

#include "checks/basVeltro.h"
#include "mail/errorTrap.h"
#include "platform/number.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

constexpr std::int16_t confirmEveryMail = 1;
constexpr std::int16_t confirmListed = 2;

bool userConfirms(Globals& globals, mail::OutgoingMail& mail) {
    const std::wstring firstRecipient =
        mail.readsPeople() ? GetFirstTORecipient(globals, mail) : std::wstring();
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

bool mustConfirm(Globals& globals, mail::OutgoingMail& mail) {
    const std::int16_t choice = modRegKeys::DisplayConfirmation.read(globals);
    return choice == confirmEveryMail ||
           (choice == confirmListed && mail.readsPeople() && AtLeast1EmailInRecipt(globals, mail));
}

/// Held in 16 bits: a larger limit is an overflow, which goes back to Outlook.
std::int16_t recipientLimit(const Globals& globals) {
    return number::toInteger<std::int16_t>(modRegKeys::XRecipients.read(globals));
}

bool hasManyRecipients(const Globals& globals, mail::OutgoingMail& mail) {
    const std::int16_t limit = recipientLimit(globals);
    mail::skipErrors([&] { mail.stored(); });  // Else those that were saved before are counted.
    try {
        return mail.recipientCount() > limit;
    } catch (const automation::Error& error) {
        if (!mail::isRefusal(globals, error)) {
            throw;
        }
        mail::noteError(std::source_location::current());
        return false;
    }
}

}  // namespace

std::wstring GetFirstTORecipient(Globals& globals, mail::OutgoingMail& mail) {
    return mail::trapErrors(globals, mail::ErrorReport::usual(L"basVeltro.GetFirstTORecipient"),
                            [&] {
                                const std::wstring to = mail.stored().to();
                                return std::wstring(text::trim(text::before(to, L';')));
                            },
                            {});
}

bool AtLeast1EmailInRecipt(Globals& globals, mail::OutgoingMail& mail) {
    return mail::trapErrors(
        globals, mail::ErrorReport::usual(L"basVeltro.AtLeast1EmailInRecipt"),
        [&] {
            const std::wstring listed = modRegKeys::ConfirmEmailAddrs.read(globals);
            if (listed.empty()) {
                return false;
            }
            mail.stored();
            return firstListedRecipient(mail, listed).has_value();
        },
        false);
}

void confirmSend(Globals& globals, mail::OutgoingMail& mail, bool& cancel) {
    if (mustConfirm(globals, mail)) {
        cancel = !userConfirms(globals, mail);
    } else if (modRegKeys::ConfirmForXRecipients.read(globals) && mail.readsPeople() &&
               hasManyRecipients(globals, mail)) {
        cancel = !userConfirms(globals, mail);
    }
}

std::optional<std::wstring> firstListedRecipient(mail::OutgoingMail& mail, const std::wstring& listed) {
    const std::wstring upperList = text::upper(listed);
    return mail.findRecipientAddress([&](const std::wstring& address) {
        return upperList.find(text::upper(address)) != std::wstring::npos;
    });
}

}  // namespace checks
