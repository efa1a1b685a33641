#include "mail/basGlobals.h"

#include "mail/MapiSession.h"
#include "mail/OutlookVersion.h"
#include "mail/errorTrap.h"
#include "platform/text.h"

namespace mail {

namespace {

using redemption::AddressEntry;
using redemption::MapiCleanUp;
namespace tag = redemption::tag;

constexpr wchar_t unresolvedMessage[] = L"E-mail address cannot be resolved. Please check e-mail address.";

std::wstring_view safeItemClass(std::int32_t itemClass) {
    switch (itemClass) {
        case outlook::itemClass::post:
            return redemption::progId::safePostItem;
        case outlook::itemClass::report:
            return redemption::progId::safeReportItem;
        default:
            return redemption::progId::safeMailItem;
    }
}

/// The primary address among an Exchange entry's proxy addresses; secondary ones have a lower-case prefix.
std::wstring primaryProxy(const AddressEntry& entry) {
    constexpr std::wstring_view prefix = L"SMTP:";
    const automation::Value proxies = entry.field(tag::proxyAddresses);
    if (!proxies.holds<automation::Array>()) {
        return {};
    }
    for (const automation::Value& proxy : proxies.toArray()) {
        const std::wstring text = proxy.toText();
        if (text.starts_with(prefix)) {
            return text.substr(prefix.size());
        }
    }
    return {};
}

/// An Exchange entry whose proxy addresses cannot be read may still know its SMTP address.
std::wstring exchangeAddress(const AddressEntry& entry) {
    std::wstring address = attempt([&] { return primaryProxy(entry); }).value_or(L"");
    return address.empty() ? entry.smtpAddress() : address;
}

template <class OwnAddress>
std::wstring addressOf(const AddressEntry& entry, const std::wstring& type, const OwnAddress& ownAddress) {
    if (text::equalsIgnoringCase(type, L"EX")) {
        return exchangeAddress(entry);
    }
    return text::equalsIgnoringCase(type, L"MAPIPDL") ? distributionListAddress : ownAddress();
}

std::wstring senderAddress(Globals& globals, const outlook::Item& item) {
    const redemption::SafeItem safe(globals.platform.automation, safeItemClass(item.itemClass()), item);
    const std::wstring type = safe.field(tag::senderAddressType).toText();
    const AddressEntry sender = safe.sender();
    std::wstring address;
    if (text::equalsIgnoringCase(type, L"SMTP")) {
        address = sender.address();
    } else if (text::equalsIgnoringCase(type, L"EX")) {
        return exchangeAddress(sender);
    }
    return address.empty() ? sender.smtpAddress() : address;
}

std::wstring onBehalfAddress(Globals& globals, const outlook::Item& item) {
    if (item.itemClass() != outlook::itemClass::mail) {
        return {};
    }
    const redemption::SafeItem safe(globals.platform.automation, item);
    const std::wstring type = safe.field(tag::onBehalfAddressType).toText();
    return text::equalsIgnoringCase(type, L"SMTP") ? safe.field(tag::onBehalfAddress).toText()
                                                   : std::wstring();
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
    const MapiCleanUp cleanUp(globals.platform.automation);
    const auto address = attempt([&] { return senderAddress(globals, item); });
    if (address && address->empty()) {
        showUnresolved(globals, L"Invalid E-mail Address - " + globals.product.title);
    }
    return address.value_or(L"");
}

std::wstring SenderEmail(Globals& globals, const outlook::Item& item) {
    const MapiCleanUp cleanUp(globals.platform.automation);
    std::wstring sender = SenderEmailWithoutOnBehalf(globals, item);
    std::wstring onBehalf = attempt([&] { return onBehalfAddress(globals, item); }).value_or(L"");
    const bool other = !onBehalf.empty() && !text::equalsIgnoringCase(onBehalf, sender);
    return other ? onBehalf : sender;
}

std::wstring RecipientEmail(Globals& globals, const redemption::Recipient& recipient,
                            RecipientOptions options) {
    const MapiCleanUp cleanUp(globals.platform.automation);
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
        return entryAddress(recipient.addressEntry());
    };
    return attempt(read).value_or(L"");
}

std::wstring entryAddress(const AddressEntry& entry) {
    return addressOf(entry, entry.type(), [&] { return entry.address(); });
}

std::wstring entryAddress(const AddressEntry& entry, const std::wstring& type,
                          const std::wstring& ownAddress) {
    return addressOf(entry, type, [&] { return ownAddress; });
}

bool GoogleAppConnected(Globals& globals) {
    const auto connected = [&] {
        if (outlookVersion(globals) == outlook2000) {
            return false;
        }
        const redemption::Session session(globals);
        globals.platform.desktop.processPendingEvents();
        session.logonIfNeeded();
        globals.platform.desktop.processPendingEvents();
        const auto stores = session.stores();
        const std::int32_t count = stores.count();
        for (std::int32_t index = 1; index <= count; ++index) {
            if (text::equalsIgnoringCase(session.currentUserType(), L"GOOG") ||
                text::containsIgnoringCase(stores.item(index).rootFolderPath(), L"\\\\google")) {
                return true;
            }
        }
        return false;
    };
    const MapiCleanUp cleanUp(globals.platform.automation);
    return attempt(connected).value_or(false);
}

automation::Object AddUserProperties(Globals& globals, const outlook::Item& item, const std::wstring& name,
                                     const std::wstring& value) {
    const MapiCleanUp cleanUp(globals.platform.automation);
    return trapErrors(
        globals, ErrorReport::usual(L"basGlobals.AddUserProperties"),
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
    const MapiCleanUp cleanUp(globals.platform.automation);
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
    const MapiCleanUp cleanUp(globals.platform.automation);
    skipErrors([&] { redemption::Session(globals).message(entryId).call(L"Delete"); });
}

}  // namespace mail
