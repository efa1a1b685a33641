#include "addin/missingLibrary.h"

#include "mail/SafeItems.h"
#include "mail/errorTrap.h"

namespace missingLibrary {

void lookFor(basGlobals::Globals& globals) {
    globals.redemptionMissing = !basGlobals::skipErrors(
        [&] { globals.platform.automation.createObject(redemption::progId::safeMailItem); });
}

void tell(const basGlobals::Globals& globals) {
    const std::wstring& title = globals.product.title;
    globals.platform.desktop.messageBox(
        title +
            L" cannot read e-mails, because the Redemption library is missing on this computer.\r\n\r\n"
            L"Until it is installed and Outlook is started again, only the subjects of your e-mails are "
            L"checked. Attachments, "
            L"recipients, delayed sending and preferred accounts are not.",
        {platform::Buttons::Ok, platform::Icon::Warning}, title);
}

}  // namespace missingLibrary
