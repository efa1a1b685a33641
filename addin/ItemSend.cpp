#include "accounts/accountStep.h"
#include "accounts/basSendAcct.h"
#include "addin/OutAddIn.h"
#include "checks/basVeltro.h"
#include "mail/OutlookVersion.h"
#include "mail/SafeItems.h"
#include "mail/basGlobals.h"
#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

/// The stage of a send that Outlook's application raises, after the item's own.
namespace {

using basGlobals::Globals;

/// A send by another program has no window that could be activated; it is none of the add-in's business.
bool hasWindow(Globals& globals) {
    return basGlobals::skipErrors([&] {
        if (!globals.outlook) {
            globals.outlook =
                outlook::Application(globals.platform.automation.createObject(L"Outlook.Application"));
        }
        globals.outlook.activeInspector().activate();
    });
}

/// Without the library that reads items there is nothing to ask by: the mail leaves.
bool canReadItems(const Globals& globals) {
    return basGlobals::skipErrors(
        [&] { globals.platform.automation.createObject(redemption::progId::safeInspector); });
}

void delaySending(Globals& globals, const outlook::Item& item, bool& cancel) {
    if (basGlobals::itemUnreadable(item)) {
        return;
    }
    if (!basWordMail::editsInWord(globals)) {
        basVeltro::vtDelayEmailSending(globals, item, cancel);
    } else if (basGlobals::outlookVersion(globals) != basGlobals::outlook2000) {
        basGlobals::skipErrors([&] {
            basWordMail::runMacro(globals, globals.outlook.activeInspector(), L"vtDelayEmailSendingWord",
                                  item, cancel);
        });
    }
}

}  // namespace

void OutAddIn::objOutlook_ItemSend(const outlook::Item& item, bool& cancel) {
    if (!hasWindow(globals_)) {
        return;
    }
    const auto list = basSendAcct::OpenList(globals_);
    if (!list->CreatePostrouteFolder() || item.itemClass() != outlook::itemClass::mail ||
        !canReadItems(globals_) || cancel) {
        return;
    }
    basVeltro::confirmSend(globals_, item, cancel);
    if (cancel) {
        return;
    }
    delaySending(globals_, item, cancel);
    accountStep::checkPreferredAccount(globals_, *list, item, cancel);
}
