#include "mail/Provider.h"

#include "mail/errorTrap.h"
#include "mail/redemption.h"

namespace mail {

SafeItem::SafeItem(const Globals& globals, const outlook::Item& item, std::int32_t itemClass)
    : Front(globals.provider->open(globals, item, itemClass)), provider_(globals.provider) {}

std::wstring SafeItem::senderType() const {
    return provider_->senderType(object_);
}

std::wstring SafeItem::senderAddress() const {
    return provider_->senderAddress(object_);
}

outlook::AddressEntry SafeItem::sender() const {
    return provider_->sender(object_);
}

std::wstring SafeItem::onBehalfType() const {
    return provider_->onBehalfType(object_);
}

std::wstring SafeItem::onBehalfAddress() const {
    return provider_->onBehalfAddress(object_);
}

automation::Value SafeItem::deliveryTime() const {
    return provider_->deliveryTime(object_);
}

std::wstring SafeItem::pictureMark(const outlook::Attachment& attachment) const {
    return provider_->pictureMark(attachment);
}

void SafeItem::bringUpToDate() const {
    if (!provider_->readsUnsaved()) {
        save();
    }
}

void SafeItem::commit() const {
    provider_->commit(object_);
}

void SafeItem::prepareBody(std::wstring_view body) const {
    setBody(body);
    if (!provider_->readsUnsaved()) {
        commit();  // Else the window would open without it.
    }
}

bool hasRedemption(const Globals& globals) {
    return skipErrors([&] { globals.platform.automation.createObject(redemption::progId::safeMailItem); });
}

bool isRefusal(const Globals& globals, const automation::Error& error) noexcept {
    // E_ABORT is what Outlook answers. Its documentation says another number, with which the MAPI library
    // tells that a store cannot do something.
    constexpr std::uint32_t aborted = 0x80004004;
    constexpr std::uint32_t notSupported = 0x80040102;
    const auto number = static_cast<std::uint32_t>(error.number());
    return number == aborted || (number == notSupported && globals.provider != &redemptionProvider());
}

MapiCleanUp::MapiCleanUp(const Globals& globals) {
    skipErrors([&] {
        utils_ = globals.provider->mapiUtils(globals);
        if (utils_) {
            utils_.call(L"CleanUp");
        }
    });
}

MapiCleanUp::~MapiCleanUp() {
    if (utils_) {
        skipErrors([&] { utils_.call(L"CleanUp"); });
    }
}

void MapiCleanUp::tieTo(const outlook::NameSpace& nameSpace) const {
    if (utils_) {
        utils_.put(L"MAPIOBJECT", nameSpace.mapiObject());
    }
}

void cleanUpMapi(const Globals& globals) {
    if (const automation::Object utils = globals.provider->mapiUtils(globals)) {
        utils.call(L"CleanUp");
    }
}

}  // namespace mail
