#include <optional>

#include "checks/basVeltro.h"
#include "checks/frmNotifyB4Delay.h"
#include "mail/basGlobals.h"
#include "mail/errorTrap.h"
#include "platform/civilTime.h"
#include "platform/number.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

constexpr double secondsPerDay = 86400;

/// Seconds as a whole number. Throws automation::Error 13 for a text that is none, and 6 for one that does
/// not fit.
std::int32_t delaySeconds(const Globals& globals) {
    return automation::Value(modRegKeys::DelayTime.read(globals)).toInteger();
}

/// Compared as texts, the day of the month first; users have relied on it since the first version.
bool userHasDeferred(const Globals& globals, const outlook::Item& mail) {
    const std::wstring deferred = platform::dayMonthYearText(mail.deferredDeliveryTime());
    const std::wstring now = platform::dayMonthYearText(globals.platform.clock.now());
    return deferred > now && deferred != L"01-Jan-4501 00:00:00";
}

/// The delay answer: true unless the user is asked and says No.
bool notify(const Globals& globals, const std::wstring& which, std::int32_t seconds) {
    if (!modRegKeys::NotifyBeforeDelaying.read(globals)) {
        return true;
    }
    frmNotifyB4Delay form(globals, which + L" by " + std::to_wstring(seconds) + L" seconds");
    prompts::show(globals, form);
    return form.delays();
}

automation::Date fromNow(const Globals& globals, std::int32_t seconds) {
    return {globals.platform.clock.now().days + seconds / secondsPerDay};
}

void delayEveryMail(const Globals& globals, const outlook::Item& mail, std::int32_t seconds) {
    if (notify(globals, L"all e-mails", seconds)) {
        mail.setDeferredDeliveryTime(fromNow(globals, seconds));
    }
}

void delayListedMail(const Globals& globals, mail::OutgoingMail& mail, std::int32_t seconds) {
    const std::wstring listed = modRegKeys::DelayedEmailAddrs.read(globals);
    if (listed.empty() || !mail.readsPeople()) {
        return;
    }
    mail.stored();
    const auto address = firstListedRecipient(mail, listed);
    if (!address) {
        return;
    }
    // Unlike above a No sends the mail at once.
    const bool delays = notify(globals, L"e-mails to " + *address, seconds);
    mail.item().setDeferredDeliveryTime(fromNow(globals, delays ? seconds : 0));
}

}  // namespace

/// The time is a property of Outlook's own item, which its send keeps: nothing is saved for it.
void vtDelayEmailSending(Globals& globals, mail::OutgoingMail& mail, bool& /*cancel*/) {
    mail::trapErrors(globals, mail::ErrorReport::check(L"vtDelayEmailSending"), [&] {
        if (!modRegKeys::DelayEmails.read(globals) || mail::itemUnreadable(mail.item())) {
            return;
        }
        if (userHasDeferred(globals, mail.item())) {
            return;
        }
        const std::int32_t seconds = delaySeconds(globals);
        if (modRegKeys::AutoDelayAll.read(globals) == 1) {
            delayEveryMail(globals, mail.item(), seconds);
        } else {
            delayListedMail(globals, mail, seconds);
        }
    });
}

}  // namespace checks
