#include "mail/basGlobals.h"

#include "mail/OutlookVersion.h"
#include "mail/Provider.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace mail {

namespace {

constexpr wchar_t unresolvedMessage[] = L"E-mail address cannot be resolved. Please check e-mail address.";

template <class OwnAddress>
std::wstring addressOf(const Globals& globals, const outlook::AddressEntry& entry, const std::wstring& type,
                       const OwnAddress& ownAddress) {
    if (text::equalsIgnoringCase(type, L"EX")) {
        return globals.provider->exchangeAddress(entry);
    }
    return text::equalsIgnoringCase(type, L"MAPIPDL") ? distributionListAddress : ownAddress();
}

std::wstring senderAddress(const Globals& globals, const outlook::Item& item) {
    const SafeItem safe(globals, item, item.itemClass());
    const std::wstring type = safe.senderType();
    std::wstring address;
    if (text::equalsIgnoringCase(type, L"SMTP")) {
        address = safe.senderAddress();
    } else if (text::equalsIgnoringCase(type, L"EX")) {
        return globals.provider->exchangeAddress(safe.sender());
    }
    return address.empty() ? globals.provider->smtpAddress(safe.sender()) : address;
}

std::wstring onBehalfAddress(const Globals& globals, const outlook::Item& item) {
    if (item.itemClass() != outlook::itemClass::mail) {
        return {};
    }
    const SafeItem safe(globals, item);
    return text::equalsIgnoringCase(safe.onBehalfType(), L"SMTP") ? safe.onBehalfAddress() : std::wstring();
}

void showUnresolved(Globals& globals, const std::wstring& title) {
    globals.platform.desktop.messageBox(unresolvedMessage, {}, title);
}

}  // namespace

bool itemUnreadable(const outlook::Item& item, std::source_location where) {
    const bool readable = skipErrors([&] { item.entryId(); }, where);
    if (!readable) {
        note(Skipped::ItemUnreadable, where);
    }
    return !readable;
}

std::wstring SenderEmailWithoutOnBehalf(Globals& globals, const outlook::Item& item) {
    const MapiCleanUp cleanUp(globals);
    const auto address = attempt([&] { return senderAddress(globals, item); });
    if (address && address->empty()) {
        showUnresolved(globals, L"Invalid E-mail Address - " + globals.product.title);
    }
    return address.value_or(L"");
}

std::wstring SenderEmail(Globals& globals, const outlook::Item& item) {
    const MapiCleanUp cleanUp(globals);
    std::wstring sender = SenderEmailWithoutOnBehalf(globals, item);
    std::wstring onBehalf = attempt([&] { return onBehalfAddress(globals, item); }).value_or(L"");
    const bool other = !onBehalf.empty() && !text::equalsIgnoringCase(onBehalf, sender);
    return other ? onBehalf : sender;
}

std::wstring RecipientEmail(Globals& globals, const outlook::Recipient& recipient, RecipientOptions options) {
    const MapiCleanUp cleanUp(globals);
    const auto read = [&]() -> std::wstring {
        if (options.resolveFirst) {
            const bool tied = outlookVersion(globals) < outlook2007;
            if (tied) {
                cleanUp.tieTo(globals.outlook.mapiNameSpace());
            }
            recipient.resolve();
            if (!recipient.resolved()) {
                showUnresolved(globals, globals.product.title + L" Invalid E-mail Address");
                return {};
            }
            if (options.recogniseLists && !tied && recipient.addressEntry().members()) {
                return distributionListAddress;
            }
        }
        return entryAddress(globals, recipient.addressEntry());
    };
    return attempt(read).value_or(L"");
}

std::wstring entryAddress(const Globals& globals, const outlook::AddressEntry& entry) {
    return addressOf(globals, entry, entry.type(), [&] { return entry.address(); });
}

std::wstring entryAddress(const Globals& globals, const outlook::AddressEntry& entry,
                          const std::wstring& type, const std::wstring& ownAddress) {
    return addressOf(globals, entry, type, [&] { return ownAddress; });
}

bool GoogleAppConnected(Globals& globals) {
    const auto connected = [&] {
        if (outlookVersion(globals) == outlook2000) {
            return false;
        }
        const auto session = globals.provider->session(globals);
        globals.platform.desktop.processPendingEvents();
        session->logonIfNeeded();
        globals.platform.desktop.processPendingEvents();
        return session->anyStore([&](const std::wstring& rootPath) {
            return text::equalsIgnoringCase(session->currentUserType(), L"GOOG") ||
                   text::containsIgnoringCase(rootPath, L"\\\\google");
        });
    };
    const MapiCleanUp cleanUp(globals);
    return attempt(connected).value_or(false);
}

automation::Object AddUserProperties(Globals& globals, const outlook::Item& item, const std::wstring& name,
                                     const std::wstring& value) {
    const MapiCleanUp cleanUp(globals);
    return trapErrors(
        globals, ErrorReport::usual(L"basGlobals.AddUserProperties").ofRefusals(),
        [&] {
            const automation::Object properties = item.object().get(L"UserProperties").toObject();
            // Otherwise it would also become a field that the folder offers for its views.
            constexpr bool addToFolderFields = false;
            automation::Object property =
                properties.call(L"Add", name, outlook::textProperty, addToFolderFields).toObject();
            property.put(L"Value", value);
            return property;
        },
        {});
}

bool DeleteUserProperties(Globals& globals, const outlook::Item& item, const std::wstring& name) {
    const MapiCleanUp cleanUp(globals);
    return trapErrors(
        globals, ErrorReport::usual(L"basGlobals_DeleteUserProperties"),
        [&] {
            const automation::Object properties = item.object().get(L"UserProperties").toObject();
            const automation::Object property = properties.call(L"Find", name).toObject();
            if (!property) {
                return false;
            }
            property.call(L"Delete");
            item.object().call(L"Save");
            return true;
        },
        false);
}

void deleteByEntryId(Globals& globals, const std::wstring& entryId) {
    const MapiCleanUp cleanUp(globals);
    skipErrors([&] { globals.provider->session(globals)->deleteMessage(entryId); });
}

}  // namespace mail
