#include "host/sending.h"

#include "host/Application.h"
#include "host/Core.h"
#include "host/Explorer.h"
#include "host/Folder.h"
#include "host/Inspector.h"
#include "host/Item.h"

namespace host {

namespace {

constexpr const wchar_t* noRecipients =
    L"There must be at least one name or distribution list in the To, Cc, or Bcc box.";
constexpr const wchar_t* notRecognized = L"Outlook does not recognize one or more names.";

SendOutcome cancelled(const std::shared_ptr<Item>& item, std::wstring failure = {}) {
    return {SendState::Cancelled, item->object(), item->view(), std::move(failure)};
}

/// Why Outlook itself will not send the item, after it has resolved the names; nothing when it will.
const wchar_t* refusalOf(Item& item) {
    if (item.content().recipients.empty()) {
        return noRecipients;
    }
    return item.resolveAll() ? nullptr : notRecognized;
}

/// Puts the sent item where it belongs.
SendOutcome deliver(Core& core, const std::shared_ptr<Item>& item) {
    ItemContent& content = item->content();
    item->forgetWritten();
    const std::wstring account = item->sendingAccount();
    const Account* const used = core.account(account);
    content.account = account;
    content.sender = used ? Core::addressOf(*used) : core.currentUser();
    content.sent = true;
    const bool waits = content.deferred && *content.deferred > core.now();
    if (!waits) {
        content.deliveryTime = core.now();
    }
    const auto folder = core.mailbox().defaultFolder(waits ? defaultFolder::outbox : defaultFolder::sentMail);
    const auto sent = core.profile().sentItemsStay ? item->putInto(*folder) : item->moveTo(*folder);
    return {waits ? SendState::Deferred : SendState::Sent, sent->object(), sent->view(), {}};
}

}  // namespace

SendOutcome send(Core& core, const std::shared_ptr<Item>& item) {
    item->checkUsable();
    if (item->content().sent) {
        raise::operationFailed();
    }
    if (const wchar_t* const refusal = refusalOf(*item)) {
        return cancelled(item, refusal);
    }
    const std::wstring account = item->content().account;
    if (core.raiseCancellable(*item->eventSource(), L"Send", 0xF005)) {
        return cancelled(item);
    }
    if (core.raiseCancellable(*core.application().eventSource(), L"ItemSend", 0xF002, {item->object()})) {
        return cancelled(item);
    }
    if (item->gone()) {
        return cancelled(item, L"The item has been moved or deleted.");
    }
    if (const wchar_t* const refusal = refusalOf(*item)) {
        return cancelled(item, refusal);  // A handler has changed the recipients.
    }
    // Whether one that a handler has set counts without a save is not known.
    if (item->unsaved(Part::Account)) {
        item->content().account = account;
    }
    if (core.raiseCancellable(*item->eventSource(), L"Write", 0xF002)) {
        return cancelled(item);
    }
    if (const auto explorer =
            core.windows().topExplorer([&](const Explorer& each) { return each.inlineResponse() == item; })) {
        explorer->closeInline();
    }
    const auto inspector = core.windows().inspectorOf(*item);
    if (inspector) {
        // Nothing holds a sent item's window back any more.
        core.raiseCancellable(*item->eventSource(), L"Close", 0xF004);
        core.windows().close(inspector);
    }
    if (item->gone()) {
        return cancelled(item, L"The item has been moved or deleted.");
    }
    return deliver(core, item);
}

std::shared_ptr<Item> raiseAnswer(Item& item, ReplyKind kind) {
    item.checkUsable();
    struct Event {
        const wchar_t* name;
        std::int32_t id;
    };
    constexpr Event events[] = {{L"Reply", 0xF466}, {L"ReplyAll", 0xF467}, {L"Forward", 0xF468}};
    const Event& event = events[static_cast<std::size_t>(kind)];
    Core& core = item.core();
    const auto response = core.make<Item>(makeResponse(item, kind));
    const bool stopped =
        core.raiseCancellable(*item.eventSource(), event.name, event.id, {response->object()});
    return stopped ? nullptr : response;
}

}  // namespace host
