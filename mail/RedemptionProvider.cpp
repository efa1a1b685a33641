#include "mail/Provider.h"
#include "mail/RedemptionSession.h"
#include "mail/errorTrap.h"
#include "mail/redemption.h"

namespace mail {

namespace {

using automation::Object;
namespace tag = redemption::tag;

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

automation::Value field(const Object& object, std::int32_t tag) {
    return object.get(L"Fields", tag);
}

/// The primary address among an Exchange entry's proxy addresses; secondary ones have a lower-case prefix.
std::wstring primaryProxy(const Object& entry) {
    constexpr std::wstring_view prefix = L"SMTP:";
    const automation::Value proxies = field(entry, tag::proxyAddresses);
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

/// The library's objects stand in front of Outlook's and pass on what they have not themselves. They work on
/// the stored message: what was typed is not in it before a save.
class RedemptionProvider final : public Provider {
  public:
    bool readsPeople() const noexcept override { return true; }
    bool hasAccounts() const noexcept override { return true; }
    bool readsUnsaved() const noexcept override { return false; }
    bool reachesWord() const noexcept override { return true; }

    Object open(const Globals& globals, const outlook::Item& item, std::int32_t itemClass) const override {
        Object safe = globals.platform.automation.createObject(safeItemClass(itemClass));
        safe.put(L"Item", item.object());
        return safe;
    }
    Object openWindow(const Globals& globals, const outlook::Inspector& inspector) const override {
        Object safe = globals.platform.automation.createObject(redemption::progId::safeInspector);
        safe.put(L"Item", inspector.object());
        return safe;
    }
    /// Outlook takes its own item for unmodified by what was written here, and skips the save of an
    /// unmodified one: so it is modified first, by its own subject.
    void commit(const Object& item) const override {
        item.put(L"Subject", item.get(L"Subject").toText());
        item.call(L"Save");
    }
    std::wstring senderType(const Object& item) const override {
        return field(item, tag::senderAddressType).toText();
    }
    std::wstring senderAddress(const Object& item) const override { return sender(item).address(); }
    outlook::AddressEntry sender(const Object& item) const override {
        return outlook::AddressEntry(item.get(L"Sender").toObject());
    }
    std::wstring onBehalfType(const Object& item) const override {
        return field(item, tag::onBehalfAddressType).toText();
    }
    std::wstring onBehalfAddress(const Object& item) const override {
        return field(item, tag::onBehalfAddress).toText();
    }
    automation::Value deliveryTime(const Object& item) const override {
        return field(item, tag::deliveryTime);
    }
    std::wstring pictureMark(const outlook::Attachment& attachment) const override {
        return field(attachment.object(), tag::attachContentId).toText();
    }
    std::wstring smtpAddress(const outlook::AddressEntry& entry) const override {
        return entry.object().get(L"SMTPAddress").toText();
    }
    /// An entry whose proxy addresses cannot be read may still know its SMTP address.
    std::wstring exchangeAddress(const outlook::AddressEntry& entry) const override {
        std::wstring address = attempt([&] { return primaryProxy(entry.object()); }).value_or(L"");
        return address.empty() ? smtpAddress(entry) : address;
    }
    std::unique_ptr<Session> session(const Globals& globals) const override {
        return redemptionSession(globals);
    }
    Object mapiUtils(const Globals& globals) const override {
        return globals.platform.automation.createObject(redemption::progId::mapiUtils);
    }
};

constinit const RedemptionProvider redemptionLibrary;

}  // namespace

const Provider& redemptionProvider() noexcept {
    return redemptionLibrary;
}

}  // namespace mail
