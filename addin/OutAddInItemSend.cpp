#include "accounts/accountStep.h"
#include "accounts/basSendAcct.h"
#include "addin/OutAddIn.h"
#include "checks/basVeltro.h"
#include "mail/OutgoingMail.h"
#include "mail/OutlookVersion.h"
#include "mail/basGlobals.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

namespace addin {

/// The stage of a send that Outlook's application raises, after the item's own.
namespace {

using mail::Globals;

/// A send by another program has no window that could be activated; it is none of the add-in's business.
bool hasWindow(Globals& globals) {
    return mail::skipErrors([&] {
        if (!globals.outlook) {
            globals.outlook =
                outlook::Application(globals.platform.automation.createObject(L"Outlook.Application"));
        }
        globals.outlook.activeInspector().activate();
    });
}

/// On every way out.
class Release {
  public:
    explicit Release(mail::OutgoingMail& mail) : mail_(mail) {}
    ~Release() { mail_.release(); }
    Release(const Release&) = delete;
    Release& operator=(const Release&) = delete;

  private:
    mail::OutgoingMail& mail_;
};

/// A response that stays must not have a program's mail taken for it.
class SendEnd {
  public:
    explicit SendEnd(WindowWrappers& wrappers) : wrappers_(wrappers) {}
    ~SendEnd() { wrappers_.sendEnds(); }
    SendEnd(const SendEnd&) = delete;
    SendEnd& operator=(const SendEnd&) = delete;

  private:
    WindowWrappers& wrappers_;
};

void delaySending(Globals& globals, mail::OutgoingMail& mail, bool& cancel) {
    if (!mail.editsInWord()) {
        checks::vtDelayEmailSending(globals, mail, cancel);
    } else if (mail::outlookVersion(globals) != mail::outlook2000 && !mail::itemUnreadable(mail.item())) {
        basWordMail::runCheck(globals, mail.window(), L"vtDelayEmailSendingWord", mail.item(), cancel);
    }
}

}  // namespace

/// The one that raised its Send, so that what was made for it then serves here too.
std::shared_ptr<mail::OutgoingMail> OutAddIn::outgoingMail(const outlook::Item& item) {
    auto mail = globals_.outgoing.lock();
    if (!mail || !mail->is(item)) {
        mail = std::make_shared<mail::OutgoingMail>(globals_, item, std::nullopt, windowOf(item));
    }
    mail->forget();  // Other add-ins have seen the mail since.
    return mail;
}

/// The window that the item is written in, where that may be Word's. A window that could not be wrapped has
/// no wrapper.
outlook::Inspector OutAddIn::windowOf(const outlook::Item& item) const {
    const auto find = [&] {
        if (mail::outlookVersion(globals_) >= mail::outlook2007) {
            return outlook::Inspector();
        }
        if (const outlook::Inspector watched = wrappers_.inspectorOf(item)) {
            return watched;
        }
        const outlook::Inspector active = globals_.outlook.activeInspector();
        return active.currentItem().object() == item.object() ? active : outlook::Inspector();
    };
    return mail::attempt(find).value_or(outlook::Inspector());
}

void OutAddIn::objOutlook_ItemSend(const outlook::Item& item, bool& cancel) {
    const SendEnd end(wrappers_);
    if (!wrappers_.writesInline(item) && !hasWindow(globals_)) {
        return;
    }
    const auto list = accounts::basSendAcct::OpenList(globals_);
    const auto found = list->CreatePostrouteFolder();
    const auto mail = outgoingMail(item);
    if (!found || !mail->isMail() || cancel) {
        return;
    }
    const Release release(*mail);
    checks::confirmSend(globals_, *mail, cancel);
    if (cancel) {
        return;
    }
    delaySending(globals_, *mail, cancel);
    if (!globals_.outlook) {
        return;  // The user has taken the add-in off meanwhile.
    }
    accounts::accountStep::checkPreferredAccount(globals_, *list, *mail, *found, cancel);
}

}  // namespace addin
