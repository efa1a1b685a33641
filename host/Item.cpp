#include "host/Item.h"

#include <algorithm>
#include <utility>

#include "host/Folder.h"
#include "host/Inspector.h"
#include "host/World.h"

namespace host {

using automation::Value;

namespace {

/// What stands on an item that is to leave from another account; see field().
namespace stampTag {
constexpr std::uint32_t primarySendAccount = 0x0E28001E;
constexpr std::uint32_t nextSendAccount = 0x0E29001E;
constexpr std::uint32_t accountName = 0x812C001E;
constexpr std::uint32_t accountStamp = 0x812D001E;
}  // namespace stampTag

void addRecipients(RecipientList& list, const std::vector<Address>& addresses, int type) {
    for (const Address& address : addresses) {
        list.push_back(std::make_shared<RecipientData>(RecipientData{type, address, address.resolvable}));
    }
}

template <class T>
void detach(std::vector<std::shared_ptr<T>>& list) {
    for (auto& element : list) {
        element = std::make_shared<T>(*element);
    }
}

std::wstring_view nameOf(const Address& address) {
    return address.name.empty() ? address.address : address.name;
}

}  // namespace

ItemContent ItemContent::of(const Message& message) {
    ItemContent content;
    content.itemClass = message.itemClass;
    content.sender = message.from;
    content.onBehalfOf = message.onBehalfOf;
    addRecipients(content.recipients, message.to, 1);
    addRecipients(content.recipients, message.cc, 2);
    addRecipients(content.recipients, message.bcc, 3);
    addRecipients(content.replyTo, message.replyTo, 0);
    content.subject = message.subject;
    content.body = message.body;
    content.html = message.html;
    for (const Attachment& attachment : message.attachments) {
        content.attachments.push_back(std::make_shared<Attachment>(attachment));
    }
    content.deliveryTime = message.deliveryTime;
    content.deferred = message.deferredDeliveryTime;
    content.account = message.account;
    return content;
}

ItemContent ItemContent::copy() const {
    ItemContent result = *this;
    detach(result.recipients);
    detach(result.replyTo);
    detach(result.attachments);
    detach(result.userProperties);
    return result;
}

Item::Item(World& world, ItemContent content) : Automated(world), content_(std::move(content)) {}

std::wstring Item::className() const {
    switch (content_.itemClass) {
        case itemClass::mail:
            return L"MailItem";
        case itemClass::post:
            return L"PostItem";
        case itemClass::report:
            return L"ReportItem";
        default:
            return L"Item";
    }
}

void Item::checkUsable() const {
    if (gone_) {
        raise::itemGone();
    }
}

ItemView Item::view() const {
    ItemView view;
    view.itemClass = content_.itemClass;
    view.subject = content_.subject;
    view.body = content_.body;
    view.html = content_.html;
    for (const auto& recipient : content_.recipients) {
        view.recipients.push_back({recipient->type, recipient->address, recipient->resolved});
    }
    for (const auto& attachment : content_.attachments) {
        view.attachments.push_back(*attachment);
    }
    view.deferred = content_.deferred;
    view.account = sendingAccount();
    for (const auto& property : content_.userProperties) {
        view.userProperties[property->name] = property->value.toText();
    }
    view.entryId = entryId_;
    const auto where = folder();
    view.folderPath = where ? where->path() : std::wstring();
    view.unread = content_.unread;
    view.answers = content_.answers;
    return view;
}

std::shared_ptr<Folder> Item::folderOrDrafts() const {
    const auto where = folder();
    return where ? where : world().mailbox().defaultFolder(defaultFolder::drafts);
}

RecipientList& Item::storedRecipients(RecipientList ItemContent::*list) {
    if (folder()) {
        return content_.*list;
    }
    nobody_.clear();
    return nobody_;
}

std::wstring Item::names(int recipientType) const {
    std::wstring result;
    for (const auto& recipient : content_.recipients) {
        if (recipient->type == recipientType) {
            result += result.empty() ? L"" : L"; ";
            result += nameOf(recipient->address);
        }
    }
    return result;
}

void Item::setNames(int recipientType, std::wstring_view names) {
    std::erase_if(content_.recipients,
                  [&](const auto& recipient) { return recipient->type == recipientType; });
    for (const std::wstring_view part : text::split(names, L';')) {
        if (const std::wstring_view name = text::trim(part); !name.empty()) {
            content_.recipients.push_back(std::make_shared<RecipientData>(
                RecipientData{recipientType, {.name = std::wstring(name)}, false}));
        }
    }
}

bool Item::resolveAll() {
    bool all = true;
    for (const auto& recipient : content_.recipients) {
        all = resolve(world(), *recipient) && all;
    }
    return all;
}

const Account* Item::stampedAccount() const {
    const auto text = [this](std::uint32_t tag) { return field(tag).toText(); };
    const Account* const account = world().account(text(stampTag::accountName));
    if (!account || text(stampTag::accountStamp) != world().stampOf(*account)) {
        return nullptr;
    }
    const std::wstring sendStamp = world().sendStampOf(*account);
    const bool whole =
        text(stampTag::primarySendAccount) == sendStamp && text(stampTag::nextSendAccount) == sendStamp;
    return whole ? account : nullptr;
}

std::wstring Item::sendingAccount() const {
    if (const Account* stamped = stampedAccount()) {
        return stamped->name;
    }
    if (!content_.account.empty()) {
        return content_.account;
    }
    const auto& accounts = world().profile().accounts;
    return accounts.empty() ? std::wstring() : accounts.front().name;
}

void Item::changed(std::wstring_view property) {
    content_.saved = false;
    world().raise(events_, L"PropertyChange", 0xF009, {Value(property)});
}

void Item::save() {
    const auto where = folder() ? folder() : firstFolder_.lock();
    const auto target = where ? where : world().mailbox().defaultFolder(defaultFolder::drafts);
    if (!target) {
        raise::operationFailed();
    }
    target->checkWritable();
    if (storedElsewhere_) {
        raise::messageChanged();
    }
    if (world().raiseCancellable(events_, L"Write", 0xF002) || gone_) {
        return;
    }
    if (!folder()) {
        target->take(self<Item>());
    }
    content_.saved = true;
}

void Item::writtenElsewhere(const std::wstring& body) {
    storedElsewhere_ = body;
    if (content_.saved) {
        opened();
    }
}

void Item::opened() {
    if (storedElsewhere_) {
        content_.body = *std::exchange(storedElsewhere_, std::nullopt);
        content_.html.clear();
        content_.saved = true;
    }
}

void Item::placed(const std::shared_ptr<Folder>& folder) {
    folder_ = folder;
    entryId_ = world().nextEntryId();
}

void Item::lost() {
    gone_ = true;
    folder_.reset();
}

std::shared_ptr<Item> Item::moveTo(Folder& target) {
    const auto keep = shared_from_this();
    const auto moved = world().make<Item>(std::move(content_));
    content_ = {.itemClass = moved->content_.itemClass};
    if (const auto from = folder()) {
        from->release(*this);
    }
    lost();
    moved->content_.saved = true;
    target.take(moved);
    if (const auto inspector = world().windows().inspectorOf(*this)) {
        inspector->setItem(moved);
    } else if (const auto hidden = hiddenInspector.lock()) {
        hidden->setItem(moved);
        moved->hiddenInspector = hidden;
    }
    return moved;
}

std::shared_ptr<Item> Item::putInto(Folder& target) {
    auto keep = self<Item>();
    if (const auto from = folder()) {
        from->release(*this);
    }
    content_.saved = true;
    target.take(keep);
    return keep;
}

void Item::remove() {
    const auto keep = shared_from_this();
    if (const auto where = folder()) {
        where->checkWritable();
    }
    if (const auto inspector = world().windows().inspectorOf(*this)) {
        world().windows().close(inspector);
    }
    if (gone_) {  // By a handler of Close.
        return;
    }
    const auto where = folder();
    const auto deleted = world().mailbox().defaultFolder(defaultFolder::deletedItems);
    if (where && where != deleted && deleted) {
        moveTo(*deleted);
        return;
    }
    if (where) {
        where->release(*this);
    }
    lost();
}

bool resolve(const World& world, RecipientData& recipient) {
    if (recipient.resolved) {
        return true;
    }
    if (!recipient.address.resolvable) {
        return false;
    }
    const std::wstring typed(nameOf(recipient.address));
    for (const Address& known : world.profile().addressBook) {
        if (text::equalsIgnoringCase(known.name, typed) || text::equalsIgnoringCase(known.address, typed)) {
            if (!known.resolvable) {
                return false;
            }
            recipient.address = known;
            recipient.resolved = true;
            return true;
        }
    }
    if (recipient.address.address.empty()) {
        const auto open = typed.find(L'<');
        const auto close = typed.find(L'>', open == std::wstring::npos ? 0 : open);
        const bool bracketed = open != std::wstring::npos && close != std::wstring::npos;
        const std::wstring mailbox = bracketed ? typed.substr(open + 1, close - open - 1) : typed;
        if (mailbox.find(L'@') == std::wstring::npos) {
            return false;
        }
        const std::wstring name(text::trim(bracketed ? typed.substr(0, open) : typed));
        recipient.address = {.name = name.empty() ? mailbox : name, .address = mailbox};
    }
    recipient.resolved = true;
    return true;
}

}  // namespace host
