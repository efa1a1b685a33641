#include "checks/basVeltro.h"
#include "checks/frmNoSubject.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

void vtEmptySubjectCheck(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel) {
    mail::trapErrors(globals, mail::ErrorReport::check(L"vtEmptySubjectCheck"), [&] {
        if (!modRegKeys::CheckEmptySubject.read(globals)) {
            return;
        }
        const std::wstring subject = mail.subject();
        if (!text::trim(subject).empty()) {
            return;
        }
        frmNoSubject form(globals, subject);
        prompts::show(globals, form);
        if (form.cancelled()) {
            cancel = true;
        } else {
            // As it stands: a user who leaves it empty on purpose is not asked twice.
            mail.item().setSubject(form.subject());
        }
    });
}

}  // namespace checks
