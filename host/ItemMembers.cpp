#include "host/AddressEntry.h"
#include "host/Attachments.h"
#include "host/Folder.h"
#include "host/Inspector.h"
#include "host/Item.h"
#include "host/OutlookAccount.h"
#include "host/Recipients.h"
#include "host/UserProperties.h"
#include "host/outlookRows.h"
#include "host/sending.h"

namespace host {

using automation::Date;
using automation::Value;

namespace {

/// What DeferredDeliveryTime holds when there is none: 1 January 4501.
constexpr Date noDate{949998.0};

bool onlyMail(const Item& item) {
    return item.isMail();
}

/// Mail and post items have a sender and can be answered.
bool isMessage(const Item& item) {
    return item.isMail() || item.content().itemClass == itemClass::post;
}

bool hasRecipients(const Item& item) {
    const int number = item.content().itemClass;
    return item.isMail() || number == itemClass::appointment || number == itemClass::task;
}

bool hasSendUsingAccount(const Item& item) {
    return item.isMail() && since<12>(item);
}

bool hasSender(const Item& item) {
    return isMessage(item) && since<14>(item);
}

bool hasSenderAddress(const Item& item) {
    return isMessage(item) && since<11>(item);
}

template <int Type>
Value getNames(Item& item, Arguments) {
    return item.content().names(Type);
}

template <int Type>
void setNames(Item& item, Arguments, const Value& value) {
    item.content().setNames(Type, value.toText());
    item.changed(Part::Recipients, Type == 1 ? L"To" : Type == 2 ? L"CC" : L"BCC");
}

template <std::wstring Address::*Part>
Value getSender(Item& item, Arguments) {
    const auto& sender = item.content().sender;
    return sender ? Value((*sender).*Part) : Value(L"");
}

Value getSenderEntry(Item& item, Arguments) {
    const auto& sender = item.content().sender;
    return sender ? Value(item.core().makeObject<AddressEntry>(*sender, false)) : Value(automation::Object());
}

template <RecipientList ItemContent::*List>
Value getRecipients(Item& item, Arguments) {
    return item.core().makeObject<Recipients>(item.self<Item>(), List, false);
}

std::wstring escaped(std::wstring_view body) {
    std::wstring result(body);
    result = text::replaceAll(result, L"&", L"&amp;");
    result = text::replaceAll(result, L"<", L"&lt;");
    result = text::replaceAll(result, L">", L"&gt;");
    return text::replaceAll(result, L"\r\n", L"<br>\r\n");
}

template <ReplyKind Kind>
Value respond(Item& item, Arguments) {
    const auto response = raiseAnswer(item, Kind);
    if (!response) {
        raise::operationAborted();
    }
    return response->object();
}

Value sendItem(Item& item, Arguments) {
    const SendOutcome outcome = send(item.core(), item.self<Item>());
    if (!outcome.failure.empty()) {
        throw automation::Error(automation::errors::failed, outcome.failure, L"Microsoft Office Outlook");
    }
    if (outcome.state == SendState::Cancelled) {
        raise::operationAborted();
    }
    return {};
}

Value closeItem(Item& item, Arguments arguments) {
    constexpr int saveChanges = 0;
    const SaveAnswer answer = arguments[0].toInteger() == saveChanges ? SaveAnswer::Yes : SaveAnswer::No;
    if (const auto inspector = item.core().windows().inspectorOf(item)) {
        item.core().windows().closeInspector(inspector, answer);
    }
    return {};
}

Value displayItem(Item& item, Arguments) {
    item.core().windows().show(item.self<Item>());
    return {};
}

Value moveItem(Item& item, Arguments arguments) {
    const auto target = required<Folder>(arguments[0]);
    target->checkUsable();
    target->checkWritable();
    return item.moveTo(*target)->object();
}

Value inspectorOf(Item& item, Arguments) {
    auto inspector = item.core().windows().inspectorOf(item);
    if (!inspector) {
        inspector = item.hiddenInspector.lock();
    }
    if (!inspector) {
        inspector = item.core().windows().makeInspector(item.self<Item>());
    }
    return inspector->object();
}

Value getAccount(Item& item, Arguments) {
    const Account* const account = item.core().account(item.content().account);
    return account ? Value(item.core().makeObject<OutlookAccount>(account->name))
                   : Value(automation::Object());
}

/// Outlook takes an account by reference only, and says nothing when it gets one otherwise.
void ignoreAccount(Item&, Arguments, const Value&) {}

void setAccount(Item& item, Arguments, const Value& value) {
    item.content().account = required<OutlookAccount>(value)->name();
    item.changed(Part::Account, L"SendUsingAccount");
}

/// What an item cannot do while it is an inline response.
template <auto Call>
Value inWindow(Item& item, Arguments arguments) {
    if (item.isInline()) {
        raise::operationFailed();
    }
    return use<Call>(item, arguments);
}

}  // namespace

constinit const Members<Item> Item::members = {
    applicationRow<Item>,
    parentRow<Item, &Item::folderOrDrafts>,
    {.name = L"Class", .id = 61450, .get = use<&Item::content_, &ItemContent::itemClass>},
    sessionRow<Item>,
    {.name = L"Subject",
     .id = 55,
     .get = use<&Item::content_, &ItemContent::subject>,
     .put =
         [](Item& item, Arguments, const Value& value) {
             item.content_.subject = value.toText();
             item.changed(Part::Subject, L"Subject");
         }},
    {.name = L"Body",
     .id = 37120,
     .get = use<&Item::content_, &ItemContent::body>,
     .put =
         [](Item& item, Arguments, const Value& value) {
             item.content_.body = value.toText();
             item.content_.html.clear();
             item.changed(Part::Body, L"Body");
         },
     .guarded = Guarded::Since2003},
    {.name = L"HTMLBody",
     .id = 62468,
     .get =
         [](Item& item, Arguments) {
             const ItemContent& content = item.content_;
             return Value(content.html.empty() ? L"<html><body>" + escaped(content.body) + L"</body></html>"
                                               : content.html);
         },
     .put =
         [](Item& item, Arguments, const Value& value) {
             item.content_.html = value.toText();  // The text body is not derived from it.
             item.changed(Part::Body, L"HTMLBody");
         },
     .has = isMessage,
     .guarded = Guarded::Since2003},
    {.name = L"To",
     .id = 3588,
     .get = getNames<1>,
     .put = host::setNames<1>,
     .has = onlyMail,
     .guarded = Guarded::Yes},
    {.name = L"CC",
     .id = 3587,
     .get = getNames<2>,
     .put = host::setNames<2>,
     .has = onlyMail,
     .guarded = Guarded::Yes},
    {.name = L"BCC",
     .id = 3586,
     .get = getNames<3>,
     .put = host::setNames<3>,
     .has = onlyMail,
     .guarded = Guarded::Yes},
    {.name = L"Recipients",
     .id = 63508,
     .get = getRecipients<&ItemContent::recipients>,
     .has = hasRecipients,
     .guarded = Guarded::Yes},
    {.name = L"ReplyRecipients",
     .id = 61459,
     .get = getRecipients<&ItemContent::replyTo>,
     .has = onlyMail,
     .guarded = Guarded::Yes},
    {.name = L"Attachments",
     .id = 63509,
     .get = [](Item& item,
               Arguments) { return Value(item.core().makeObject<Attachments>(item.self<Item>(), false)); }},
    {.name = L"UserProperties",
     .id = 63510,
     .get = [](Item& item,
               Arguments) { return Value(item.core().makeObject<UserProperties>(item.self<Item>())); }},
    {.name = L"EntryID", .id = 61470, .get = use<&Item::entryId_>},
    {.name = L"Saved", .id = 61603, .get = use<&Item::content_, &ItemContent::saved>},
    {.name = L"Sent", .id = 62466, .get = use<&Item::content_, &ItemContent::sent>, .has = onlyMail},
    {.name = L"DeferredDeliveryTime",
     .id = 15,
     .get = [](Item& item, Arguments) { return Value(item.content_.deferred.value_or(noDate)); },
     .put =
         [](Item& item, Arguments, const Value& value) {
             const Date date = value.toDate();
             item.content_.deferred = date == noDate ? std::nullopt : std::optional(date);
             item.changed(Part::Deferred, L"DeferredDeliveryTime");
         },
     .has = onlyMail},
    {.name = L"ReceivedTime",
     .id = 3590,
     .get = [](Item& item, Arguments) { return Value(item.content_.deliveryTime.value_or(noDate)); },
     .has = isMessage},
    {.name = L"UnRead",
     .id = 61468,
     .get = use<&Item::content_, &ItemContent::unread>,
     .put =
         [](Item& item, Arguments, const Value& value) {
             item.content_.unread = value.toBool();
             item.changed(Part::Unread, L"UnRead");
         }},
    {.name = L"MessageClass",
     .id = 26,
     .get = [](Item& item, Arguments) { return item.content_.field(0x001A001E); }},
    {.name = L"SenderName",
     .id = 3098,
     .get = getSender<&Address::name>,
     .has = isMessage,
     .guarded = Guarded::Yes},
    {.name = L"SenderEmailType",
     .id = 3102,
     .get = getSender<&Address::type>,
     .has = hasSenderAddress,
     .guarded = Guarded::Yes},
    {.name = L"SenderEmailAddress",
     .id = 3103,
     .get = getSender<&Address::address>,
     .has = hasSenderAddress,
     .guarded = Guarded::Yes},
    {.name = L"Sender", .get = getSenderEntry, .has = hasSender, .guarded = Guarded::Yes},
    {.name = L"SentOnBehalfOfName",
     .id = 66,
     .get = [](Item& item, Arguments) { return Value(item.content_.field(0x0042001E).toText()); },
     .has = onlyMail,
     .guarded = Guarded::Yes},
    {.name = L"Reply", .id = 63504, .call = inWindow<respond<ReplyKind::Reply>>, .has = isMessage},
    {.name = L"ReplyAll", .id = 63505, .call = inWindow<respond<ReplyKind::ReplyAll>>, .has = onlyMail},
    {.name = L"Forward", .id = 63507, .call = inWindow<respond<ReplyKind::Forward>>, .has = isMessage},
    {.name = L"Send", .id = 61557, .call = inWindow<sendItem>, .has = hasRecipients, .guarded = Guarded::Yes},
    {.name = L"Save", .id = 61512, .call = use<&Item::save>},
    {.name = L"Close", .id = 61475, .call = inWindow<closeItem>, .least = 1, .most = 1},
    {.name = L"Display", .id = 61606, .call = displayItem, .most = 1},
    {.name = L"Delete", .id = 61514, .call = inWindow<&Item::remove>},
    {.name = L"Move", .id = 61492, .call = inWindow<moveItem>, .least = 1, .most = 1},
    {.name = L"GetInspector", .id = 61502, .get = inspectorOf},
    {.name = L"SendUsingAccount",
     .id = 64209,
     .get = getAccount,
     .put = ignoreAccount,
     .putReference = setAccount,
     .has = hasSendUsingAccount},
    propertyAccessorRow<Item>,
};

}  // namespace host
