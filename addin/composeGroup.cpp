#include "addin/composeGroup.h"

#include <optional>

#include "accounts/EntryStore.h"
#include "accounts/basSendAcct.h"
#include "addin/sendEvent.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "mail/propertyAccessor.h"
#include "platform/text.h"
#include "settings/prompts.h"

namespace addin::composeGroup {

namespace {

using automation::Object;
using mail::Globals;

/// String resources of the group.
namespace stringId {
constexpr std::uint32_t preferred = 562;
constexpr std::uint32_t noPreferred = 563;
constexpr std::uint32_t unknown = 564;
constexpr std::uint32_t caption = 559;
constexpr std::uint32_t nothingFound = 565;
constexpr std::uint32_t refused = 566;
}  // namespace stringId

struct Written {
    outlook::Item item;
    /// Nothing in the reading pane.
    outlook::Inspector window;
};

Written writtenIn(const Object& window) {
    constexpr std::int32_t explorerClass = 34;
    if (window.get(L"Class").toInteger() == explorerClass) {
        return {outlook::Explorer(window).activeInlineResponse(), {}};
    }
    const outlook::Inspector inspector(window);
    return {inspector.currentItem(), inspector};
}

/// Of an Exchange user what stands with the recipient itself: a look into the address book may have to wait
/// for the server. Throws automation::Error when nothing does.
std::wstring addressOf(const outlook::Recipient& recipient, const outlook::AddressEntry& entry) {
    if (!text::equalsIgnoringCase(entry.type(), L"EX")) {
        return entry.address();
    }
    namespace accessor = mail::propertyAccessor;
    std::wstring address = accessor::read(recipient.object(), accessor::tag::smtpAddress).toText();
    if (address.empty()) {
        throw automation::Error(automation::errors::failed, L"The recipient has no SMTP address.");
    }
    return address;
}

/// Empty when the first recipient has none, as in the step of a send that goes by it. Throws
/// automation::Error.
std::wstring preferredAccount(Globals& globals, const outlook::Item& mail) {
    const auto recipients = mail.recipients();
    if (recipients.count() < 1) {
        return {};
    }
    const outlook::Recipient recipient = recipients.item(1);
    const outlook::AddressEntry entry = recipient.addressEntry();
    if (!entry || entry.isList()) {
        return {};
    }
    const std::wstring address(text::trim(addressOf(recipient, entry)));
    const auto list = globals.sendAccounts;
    const std::wstring account =
        list ? accounts::basSendAcct::PreferredAccount(*list, address) : std::wstring();
    const bool none = text::trim(account).empty() || text::equalsTrimmed(account, accounts::noAccount);
    return none ? std::wstring() : account;
}

/// A longer name would push Outlook's own groups out of sight.
std::wstring shortened(const std::wstring& name) {
    constexpr std::size_t longest = 60;
    return name.size() <= longest ? name : name.substr(0, longest - 1) + L'…';
}

}  // namespace

std::wstring accountText(Globals& globals, const Object& window) {
    const auto account = mail::attempt([&]() -> std::wstring {
        const auto list = globals.sendAccounts;
        if (!list || list->count() == 0) {
            return {};  // Whoever the mail is to.
        }
        if (!globals.provider->readsPeople()) {
            throw automation::Error(automation::errors::failed, L"Outlook would ask the user.");
        }
        return preferredAccount(globals, writtenIn(window).item);
    });
    if (!account) {
        return globals.resourceOr(stringId::unknown, L"Preferred account: unknown");
    }
    return account->empty()
               ? globals.resourceOr(stringId::noPreferred, L"No preferred account")
               : text::replaceAll(globals.resourceOr(stringId::preferred, L"Preferred account: %"), L"%",
                                  shortened(*account));
}

void checkNow(Globals& globals, const Object& window) {
    const Written written = writtenIn(window);
    const std::size_t promptsBefore = globals.promptsShown;
    const std::size_t refusalsBefore = globals.refusals;
    bool cancel = false;
    mail::OutgoingMail mail(globals, written.item, true, written.window);
    sendEvent::check(globals, mail, cancel);
    mail.release();
    if (globals.promptsShown != promptsBefore || cancel) {
        return;
    }
    const std::wstring caption = globals.resourceOr(stringId::caption, L"Check now");
    const bool refused = globals.refusals != refusalsBefore;
    prompts::inform(globals, caption,
                    refused
                        ? globals.resourceOr(stringId::refused,
                                             L"This e-mail could not be checked, because Outlook did not let "
                                             L"it be read.")
                        : globals.resourceOr(stringId::nothingFound,
                                             L"Nothing to ask about: this e-mail could be sent as it is."));
}

}  // namespace addin::composeGroup
