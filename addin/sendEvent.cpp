#include "addin/sendEvent.h"

#include "checks/basVeltro.h"
#include "mail/OutlookVersion.h"
#include "mail/basGlobals.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

namespace addin::sendEvent {

namespace {

void checkSubject(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel) {
    // Of its own window, not the active one: to a program that sends, none may be active.
    const auto inWord = mail::attempt([&] { return mail.editsInWord(); });
    if (!inWord.value_or(false)) {
        checks::vtEmptySubjectCheck(globals, mail, cancel);
    } else if (mail::outlookVersion(globals) != mail::outlook2000) {
        basWordMail::runCheck(globals, mail.window(), L"vtEmptySubjectCheckWord", mail.item(), cancel);
    }
}

}  // namespace

void check(mail::Globals& globals, mail::OutgoingMail& mail, bool& cancel) {
    checkSubject(globals, mail, cancel);
    if (!cancel) {
        checks::vtAttachMissingCheck(globals, mail, cancel);
    }
}

void handle(mail::Globals& globals, const std::shared_ptr<mail::OutgoingMail>& mail, bool& cancel) {
    globals.outgoing = mail;
    mail::trapErrors(globals, mail::ErrorReport::check(L"m_ObjMail_Send"), [&] {
        if (!mail::itemUnreadable(mail->item())) {
            check(globals, *mail, cancel);
        }
    });
    if (cancel) {
        mail->release();
    }
}

}  // namespace addin::sendEvent
