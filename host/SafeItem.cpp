#include "host/SafeItem.h"

#include "host/AddressEntry.h"
#include "host/Attachments.h"
#include "host/Core.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/RdoAccounts.h"
#include "host/Recipients.h"
#include "host/mapiTag.h"

namespace host {

using automation::Object;
using automation::Value;

namespace {

bool isMail(const SafeItem& safe) {
    return safe.kind() == SafeItem::Kind::Mail || safe.kind() == SafeItem::Kind::Rdo;
}

bool isMessage(const SafeItem& safe) {
    return safe.kind() != SafeItem::Kind::Report;
}

bool isRdo(const SafeItem& safe) {
    return safe.kind() == SafeItem::Kind::Rdo;
}

template <RecipientList ItemContent::*List>
Value getRecipients(SafeItem& safe, Arguments) {
    return safe.core().makeObject<Recipients>(safe.item().self<Item>(), List, true);
}

template <int Type>
Value getNames(SafeItem& safe, Arguments) {
    return safe.message().names(Type);
}

Value getSender(SafeItem& safe, Arguments) {
    const auto& sender = safe.message().sender;
    return sender ? Value(safe.core().makeObject<AddressEntry>(*sender, true)) : Value(Object());
}

void setField(SafeItem& safe, Arguments index, const Value& value) {
    const std::uint32_t tag = mapiTag(index[0]);
    if (safe.core().profile().refusedFields.contains(tag)) {
        raise::noPermission();
    }
    safe.item().written(safe.message().setField(tag, value));
}

/// The store takes it at once.
void setUnread(SafeItem& safe, Arguments, const Value& value) {
    safe.item().content().unread = safe.message().unread = value.toBool();
}

Value getAccount(SafeItem& safe, Arguments) {
    Core& core = safe.core();
    const ItemContent& message = safe.message();
    const Account* const stamped = safe.item().stampedAccount(message);
    const Account* const account = stamped ? stamped : core.account(message.account);
    return account ? Value(core.makeObject<RdoAccount>(*account)) : Value(Object());
}

}  // namespace

SafeItem::SafeItem(Core& core, Kind kind, std::shared_ptr<HostObject> wrapped)
    : Wrapper(core), kind_(kind), wrapped_(std::move(wrapped)) {}

std::wstring SafeItem::className() const {
    switch (kind_) {
        case Kind::Mail:
            return L"SafeMailItem";
        case Kind::Post:
            return L"SafePostItem";
        case Kind::Report:
            return L"SafeReportItem";
        default:
            return L"RDOMail";
    }
}

Item& SafeItem::item() const {
    auto* const item = dynamic_cast<Item*>(wrapped_.get());
    if (!item) {
        throw automation::Error(automation::errors::failed, L"Item property must be set", L"Redemption");
    }
    item->checkUsable();
    return *item;
}

ItemContent& SafeItem::message() const {
    return item().message();
}

/// Nothing releases the item.
void SafeItem::setItem(SafeItem& safe, Arguments, const Value& value) {
    safe.wrapped_ = value.toObject() ? required<HostObject>(value) : nullptr;
}

constinit const Members<SafeItem> SafeItem::members = {
    {.name = L"Item",
     .id = 12245934,
     .get = use<&SafeItem::wrapped_>,
     .put = &SafeItem::setItem,
     .putReference = &SafeItem::setItem,
     .has = [](const SafeItem& safe) { return !isRdo(safe); }},
    {.name = L"Fields",
     .id = 12245937,
     .get = [](SafeItem& safe, Arguments arguments) { return safe.message().field(mapiTag(arguments[0])); },
     .put = setField,
     .least = 1,
     .most = 1},
    {.name = L"Sender", .id = 12245930, .get = getSender},
    {.name = L"Body",
     .id = 37120,
     .get = use<&SafeItem::message, &ItemContent::body>,
     .put =
         [](SafeItem& safe, Arguments, const Value& value) {
             ItemContent& message = safe.message();
             message.body = value.toText();
             message.html.clear();
             safe.item().written(Part::Body);
         }},
    {.name = L"HTMLBody", .id = 62468, .get = use<&SafeItem::message, &ItemContent::html>, .has = isMessage},
    {.name = L"Recipients", .id = 63508, .get = getRecipients<&ItemContent::recipients>},
    {.name = L"ReplyRecipients", .id = 61459, .get = getRecipients<&ItemContent::replyTo>, .has = isMail},
    {.name = L"Attachments",
     .id = 63509,
     .get =
         [](SafeItem& safe, Arguments) {
             return Value(safe.core().makeObject<Attachments>(safe.item().self<Item>(), true));
         }},
    {.name = L"To", .id = 3588, .get = getNames<1>, .has = isMail},
    {.name = L"CC", .id = 3587, .get = getNames<2>, .has = isMail},
    {.name = L"BCC", .id = 3586, .get = getNames<3>, .has = isMail},
    {.name = L"SenderName",
     .id = 3098,
     .get = [](SafeItem& safe, Arguments) { return Value(safe.message().field(0x0C1A001E).toText()); },
     .has = isMessage},
    {.name = L"SenderEmailAddress",
     .id = 3103,
     .get = [](SafeItem& safe, Arguments) { return Value(safe.message().field(0x0C1F001E).toText()); },
     .has = isMail},
    {.name = L"Account", .get = getAccount, .has = isRdo},
    {.name = L"UnRead", .get = use<&SafeItem::message, &ItemContent::unread>, .put = setUnread, .has = isRdo},
};

HostObject* SafeInspector::wrapped() const {
    return inspector_.get();
}

void SafeInspector::setItem(SafeInspector& safe, Arguments, const Value& value) {
    safe.inspector_ = value.toObject() ? required<Inspector>(value) : nullptr;
}

constinit const Members<SafeInspector> SafeInspector::members = {
    {.name = L"Item",
     .id = 12245934,
     .get = use<&SafeInspector::inspector_>,
     .put = &SafeInspector::setItem,
     .putReference = &SafeInspector::setItem},
    {.name = L"WordEditor",
     .get = [](SafeInspector& safe,
               Arguments) { return safe.inspector_ ? safe.inspector_->wordEditor() : Value(Object()); }},
};

}  // namespace host
