#include "host/Recipients.h"

#include <algorithm>

#include "host/AddressEntry.h"
#include "host/Core.h"
#include "host/mapiTag.h"

namespace host {

using automation::Value;

namespace {

void noteChange(Item& item, RecipientList ItemContent::*list, bool safe) {
    const bool replyTo = list == &ItemContent::replyTo;
    const Part part = replyTo ? Part::ReplyTo : Part::Recipients;
    if (safe) {
        item.written(part);
    } else {
        item.changed(part, replyTo ? L"ReplyRecipients" : L"To");
    }
}

/// Resolves a recipient of the list, and notes what that has changed.
bool resolveListed(Item& item, RecipientList ItemContent::*list, RecipientData& recipient, bool safe) {
    if (recipient.resolved || !resolve(item.core(), recipient)) {
        return recipient.resolved;
    }
    noteChange(item, list, safe);
    return true;
}

}  // namespace

Recipients::Recipients(Core& core, std::shared_ptr<Item> item, RecipientList ItemContent::*list, bool safe)
    : Collection(core), item_(std::move(item)), list_(list), safe_(safe) {}

automation::Object Recipients::at(std::size_t index) const {
    const auto& data = list()[index];
    data->place = index;
    return core().makeObject<Recipient>(item_, list_, data, safe_);
}

Value Recipients::add(Arguments arguments) {
    const std::wstring name(text::trim(arguments.text(0)));
    if (name.empty()) {
        raise::operationFailed();
    }
    auto data = std::make_shared<RecipientData>(RecipientData{1, {.name = name}, false});
    list().push_back(data);
    changed();
    return core().makeObject<Recipient>(item_, list_, std::move(data), safe_);
}

bool Recipients::resolveAll() {
    bool all = true;
    for (const auto& recipient : list()) {
        all = resolveListed(*item_, list_, *recipient, safe_) && all;
    }
    return all;
}

void Recipients::changed() {
    noteChange(*item_, list_, safe_);
}

constinit const Members<Recipients> Recipients::members = {
    countRow<Recipients>,
    itemRow<Recipients>,
    {.name = L"Add", .id = 111, .call = use<&Recipients::add>, .least = 1, .most = 1},
    removeRow<Recipients>,
    {.name = L"ResolveAll", .id = 126, .call = use<&Recipients::resolveAll>},
};

Recipient::Recipient(Core& core, std::shared_ptr<Item> item, RecipientList ItemContent::*list,
                     std::shared_ptr<RecipientData> data, bool safe)
    : Automated(core), item_(std::move(item)), list_(list), data_(std::move(data)), safe_(safe) {}

void Recipient::checkUsable() const {
    if (!item_) {
        return;
    }
    item_->checkUsable();
    place();
}

RecipientList::iterator Recipient::place() const {
    RecipientList& list = item_->side(safe_).*list_;
    if (data_->place < list.size() && list[data_->place] == data_) {
        return list.begin() + static_cast<std::ptrdiff_t>(data_->place);
    }
    const auto found = std::ranges::find(list, data_);
    if (found == list.end()) {
        raise::objectNotFound();
    }
    return found;
}

void Recipient::changed() {
    if (item_) {
        noteChange(*item_, list_, safe_);
    }
}

bool Recipient::sameAs(const Target& other) const {
    const auto* const recipient = dynamic_cast<const Recipient*>(&other);
    return recipient && recipient->data_ == data_ && recipient->safe_ == safe_;
}

std::wstring Recipient::name() const {
    return nameOf(address());
}

/// A name that is not resolved stands for no entry yet. An entry of Exchange has the name that the address
/// book gives it now, whatever the mail calls the recipient.
automation::Object Recipient::addressEntry() const {
    if (!data_->resolved) {
        return {};
    }
    Address entry = address();
    for (const Address& known : core().profile().addressBook) {
        if (entry.type == L"EX" && entryIdOf(known) == entryIdOf(entry)) {
            entry.name = known.name;
        }
    }
    return core().makeObject<AddressEntry>(std::move(entry), safe_);
}

void Recipient::remove() {
    if (!item_) {
        raise::operationFailed();
    }
    (item_->side(safe_).*list_).erase(place());
    changed();
}

bool Recipient::resolveSelf() {
    return item_ ? resolveListed(*item_, list_, *data_, safe_) : resolve(core(), *data_);
}

Value Recipient::property(std::uint32_t tag) const {
    switch (tag) {
        case 0x0C150003:
            return data_->type;
        case 0x3001001E:
            return address().name;
        case 0x3002001E:
            return address().type;
        case 0x3003001E:
            return address().address;
        case 0x39FE001E: {
            const bool isSmtp = text::equalsIgnoringCase(address().type, L"SMTP");
            const std::wstring& smtp = isSmtp ? address().address : address().smtpAddress;
            return smtp.empty() ? Value() : Value(smtp);
        }
        default:
            return {};
    }
}

constinit const Members<Recipient> Recipient::members = {
    {.name = L"Name", .id = 12289, .get = use<&Recipient::name>, .guarded = Guarded::Yes},
    {.name = L"Address",
     .id = 12291,
     .get = use<&Recipient::address, &Address::address>,
     .guarded = Guarded::Yes},
    {.name = L"AddressEntry", .id = 121, .get = use<&Recipient::addressEntry>, .guarded = Guarded::Yes},
    {.name = L"Type",
     .id = 3093,
     .get = use<&Recipient::data_, &RecipientData::type>,
     .put =
         [](Recipient& recipient, Arguments, const Value& value) {
             const int type = value.toInteger();
             if (type < 0 || type > 3) {
                 raise::operationFailed();
             }
             recipient.data_->type = type;
             recipient.changed();
         },
     .guarded = Guarded::Yes},
    {.name = L"Resolved",
     .id = 100,
     .get = use<&Recipient::data_, &RecipientData::resolved>,
     .guarded = Guarded::Yes},
    {.name = L"EntryID", .id = 61470, .get = use<&Recipient::address, entryIdOf>, .guarded = Guarded::Yes},
    {.name = L"DisplayType",
     .id = 14592,
     .get = use<&Recipient::address, displayTypeOf>,
     .guarded = Guarded::Yes},
    {.name = L"Delete", .id = 110, .call = use<&Recipient::remove>, .guarded = Guarded::Yes},
    {.name = L"Resolve", .id = 113, .call = use<&Recipient::resolveSelf>, .most = 1, .guarded = Guarded::Yes},
    propertyAccessorRow<Recipient>,
    {.name = L"Fields",
     .get = [](Recipient& recipient,
               Arguments arguments) { return recipient.property(mapiTag(arguments[0])); },
     .least = 1,
     .most = 1,
     .has = [](const Recipient& recipient) { return recipient.safe_; }},
};

}  // namespace host
