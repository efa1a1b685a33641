#include "host/Recipients.h"

#include <algorithm>

#include "host/AddressEntry.h"
#include "host/World.h"
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
    if (recipient.resolved || !resolve(item.world(), recipient)) {
        return recipient.resolved;
    }
    noteChange(item, list, safe);
    return true;
}

}  // namespace

Recipients::Recipients(World& world, std::shared_ptr<Item> item, RecipientList ItemContent::*list, bool safe)
    : Automated(world), item_(std::move(item)), list_(list), safe_(safe) {}

Value Recipients::at(Arguments arguments) {
    const RecipientList& recipients = list();
    std::shared_ptr<RecipientData> data;
    if (arguments[0].holds<std::wstring>()) {
        const std::wstring name = arguments.text(0);
        const auto found = std::ranges::find_if(recipients, [&](const auto& recipient) {
            return text::equalsIgnoringCase(recipient->address.name, name);
        });
        if (found == recipients.end()) {
            raise::objectNotFound();
        }
        data = *found;
    } else {
        const std::size_t place = position(arguments[0], recipients.size());
        data = recipients[place];
        data->place = place;
    }
    return world().makeObject<Recipient>(item_, list_, std::move(data), safe_);
}

Value Recipients::add(Arguments arguments) {
    const std::wstring name(text::trim(arguments.text(0)));
    if (name.empty()) {
        raise::operationFailed();
    }
    auto data = std::make_shared<RecipientData>(RecipientData{1, {.name = name}, false});
    list().push_back(data);
    changed();
    return world().makeObject<Recipient>(item_, list_, std::move(data), safe_);
}

void Recipients::changed() {
    noteChange(*item_, list_, safe_);
}

constinit const Member<Recipients> Recipients::table_[] = {
    {.name = L"Count",
     .id = 80,
     .get = [](Recipients& recipients,
               Arguments) { return Value(static_cast<std::int32_t>(recipients.list().size())); }},
    {.name = L"Item",
     .id = 81,
     .get = [](Recipients& recipients, Arguments arguments) { return recipients.at(arguments); },
     .least = 1,
     .most = 1},
    {.name = L"Add",
     .id = 111,
     .call = [](Recipients& recipients, Arguments arguments) { return recipients.add(arguments); },
     .least = 1,
     .most = 1},
    {.name = L"Remove",
     .id = 84,
     .call =
         [](Recipients& recipients, Arguments arguments) {
             RecipientList& list = recipients.list();
             const std::size_t index = position(arguments[0], list.size());
             list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
             recipients.changed();
             return Value();
         },
     .least = 1,
     .most = 1},
    {.name = L"ResolveAll",
     .id = 126,
     .call =
         [](Recipients& recipients, Arguments) {
             bool all = true;
             for (const auto& recipient : recipients.list()) {
                 all =
                     resolveListed(*recipients.item_, recipients.list_, *recipient, recipients.safe_) && all;
             }
             return Value(all);
         }},
};

std::span<const Member<Recipients>> Recipients::members() {
    return table_;
}

Recipient::Recipient(World& world, std::shared_ptr<Item> item, RecipientList ItemContent::*list,
                     std::shared_ptr<RecipientData> data, bool safe)
    : Automated(world), item_(std::move(item)), list_(list), data_(std::move(data)), safe_(safe) {}

void Recipient::checkUsable() const {
    if (!item_) {
        return;
    }
    item_->checkUsable();
    place();
}

RecipientList::iterator Recipient::place() const {
    RecipientList& list = listOf(*item_, list_, safe_);
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

constinit const Member<Recipient> Recipient::table_[] = {
    {.name = L"Name",
     .id = 12289,
     .get =
         [](Recipient& recipient, Arguments) {
             const Address& address = recipient.data_->address;
             return Value(address.name.empty() ? address.address : address.name);
         }},
    {.name = L"Address",
     .id = 12291,
     .get = [](Recipient& recipient, Arguments) { return Value(recipient.data_->address.address); }},
    {.name = L"AddressEntry",
     .id = 121,
     .get =
         [](Recipient& recipient, Arguments) {
             // A name that is not resolved stands for no entry yet.
             return recipient.data_->resolved ? Value(recipient.world().makeObject<AddressEntry>(
                                                    recipient.data_->address, recipient.safe_))
                                              : Value(automation::Object());
         }},
    {.name = L"Type",
     .id = 3093,
     .get = [](Recipient& recipient, Arguments) { return Value(recipient.data_->type); },
     .put =
         [](Recipient& recipient, Arguments, const Value& value) {
             const int type = value.toInteger();
             if (type < 0 || type > 3) {
                 raise::operationFailed();
             }
             recipient.data_->type = type;
             recipient.changed();
         }},
    {.name = L"Resolved",
     .id = 100,
     .get = [](Recipient& recipient, Arguments) { return Value(recipient.data_->resolved); }},
    {.name = L"EntryID",
     .id = 61470,
     .get =
         [](Recipient& recipient, Arguments) {
             return Value(recipient.data_->address.type + L":" + recipient.data_->address.address);
         }},
    {.name = L"DisplayType",
     .id = 14592,
     .get = [](Recipient& recipient, Arguments) { return Value(displayTypeOf(recipient.data_->address)); }},
    {.name = L"Delete",
     .id = 110,
     .call =
         [](Recipient& recipient, Arguments) {
             if (!recipient.item_) {
                 raise::operationFailed();
             }
             listOf(*recipient.item_, recipient.list_, recipient.safe_).erase(recipient.place());
             recipient.changed();
             return Value();
         }},
    {.name = L"Resolve",
     .id = 113,
     .call =
         [](Recipient& recipient, Arguments) {
             RecipientData& data = *recipient.data_;
             return Value(recipient.item_
                              ? resolveListed(*recipient.item_, recipient.list_, data, recipient.safe_)
                              : resolve(recipient.world(), data));
         },
     .most = 1},
    {.name = L"Fields",
     .get =
         [](Recipient& recipient, Arguments arguments) {
             const Address& address = recipient.data_->address;
             switch (mapiTag(arguments[0])) {
                 case 0x0C150003:
                     return Value(recipient.data_->type);
                 case 0x3001001E:
                     return Value(address.name);
                 case 0x3002001E:
                     return Value(address.type);
                 case 0x3003001E:
                     return Value(address.address);
                 default:
                     return Value();
             }
         },
     .least = 1,
     .most = 1,
     .has = [](const Recipient& recipient) { return recipient.safe_; }},
};

std::span<const Member<Recipient>> Recipient::members() {
    return table_;
}

}  // namespace host
