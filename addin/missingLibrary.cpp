#include "addin/missingLibrary.h"

#include "mail/SafeItems.h"
#include "mail/errorTrap.h"

namespace addin::missingLibrary {

void lookFor(mail::Globals& globals) {
    globals.redemptionMissing = !mail::skipErrors(
        [&] { globals.platform.automation.createObject(redemption::progId::safeMailItem); });
}

void tell(const mail::Globals& globals) {
    const std::wstring& title = globals.product.title;
    globals.platform.desktop.messageBox(
        title +
            L" cannot read e-mails, because the Redemption library is missing on this computer.\r\n\r\nUntil "
            L"it is installed and Outlook is started again, only the subjects of your e-mails are checked. "
            L"Attachments, recipients, delayed sending and preferred accounts are not.",
        {platform::Buttons::Ok, platform::Icon::Warning}, title);
}

}  // namespace addin::missingLibrary
