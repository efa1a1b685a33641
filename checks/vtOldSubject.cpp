#include <cmath>

#include "checks/basVeltro.h"
#include "checks/frmOldSubject.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

namespace {

using mail::Globals;

/// The number of midnights since the mail was delivered; 0 for one that never was.
double ageInDays(const Globals& globals, const outlook::Item& answered) {
    const automation::Value delivered = mail::SafeItem(globals, answered).deliveryTime();
    if (delivered.isEmpty()) {
        return 0;
    }
    return std::floor(globals.platform.clock.now().days) - std::floor(delivered.toDate().days);
}

}  // namespace

std::wstring vtOldSubject(Globals& globals, const outlook::Item& answered, const outlook::Item& reply) {
    std::wstring result = noSubjectChange;
    mail::trapErrors(globals, mail::ErrorReport::usual(L"basVeltro.vtOldSubject"), [&] {
        if (!modRegKeys::PromptReplyOnOlderEmails.read(globals)) {
            return;
        }
        const double days = modRegKeys::OldEmailDays.read(globals);
        if (ageInDays(globals, answered) <= days) {
            return;
        }
        const std::wstring subject = reply.subject();
        frmOldSubject form(globals, days, subject);
        prompts::show(globals, form);
        if (form.confirmed() && form.subject() != subject) {
            reply.setSubject(form.subject());
            result = form.subject();
        }
    });
    return result;
}

}  // namespace checks
