#include "addin/missingLibrary.h"

#include "mail/OutlookVersion.h"
#include "mail/errorTrap.h"
#include "settings/modRegKeys.h"

namespace addin::missingLibrary {

namespace {

constexpr wchar_t told[] = L"1";

std::wstring text(const mail::Globals& globals) {
    const std::wstring& title = globals.product.title;
    const std::wstring needed =
        L", because the Redemption library is missing on this computer.\r\n\r\nUntil it is installed and "
        L"Outlook is started again, ";
    if (globals.provider->readsPeople()) {
        return title + L" cannot choose the account of your e-mails" + needed +
               L"preferred accounts are not available. Everything else is checked.";
    }
    return title + L" cannot read the recipients of your e-mails" + needed +
           L"subjects and attachments are checked. Recipients, and what depends on them, are not.";
}

}  // namespace

const mail::Provider& bestProvider(const mail::Globals& globals) {
    if (mail::hasRedemption(globals)) {
        return mail::redemptionProvider();
    }
    // Asked again: a guess would last as long as the connection.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (const auto own = mail::attempt([&] { return &mail::outlookProvider(globals); })) {
            return **own;
        }
    }
    return mail::untrustedProvider();
}

void tell(const mail::Globals& globals) {
    globals.platform.desktop.messageBox(text(globals), {platform::Buttons::Ok, platform::Icon::Warning},
                                        globals.product.title);
}

void tellOnce(const mail::Globals& globals) {
    if (modRegKeys::LibraryMissingTold.read(globals) != told) {
        modRegKeys::LibraryMissingTold.write(globals,
                                             told);  // First: what cannot be noted comes at each start.
        tell(globals);
    }
}

}  // namespace addin::missingLibrary
