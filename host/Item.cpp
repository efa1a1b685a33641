#include "host/Item.h"

#include <algorithm>
#include <utility>

#include "host/Core.h"
#include "host/Folder.h"
#include "host/Inspector.h"

namespace host {

using automation::Value;

namespace {

/// What stands on an item that is to leave from another account. Items carry its name and its stamp, too, in
/// properties by which Outlook does not go.
namespace stampTag {
constexpr std::uint32_t primarySendAccount = 0x0E28001E;
constexpr std::uint32_t nextSendAccount = 0x0E29001E;
}  // namespace stampTag

/// Takes over some parts of another content, which need not be noted any more.
void takeParts(ItemContent& content, Parts& parts, const ItemContent& from) {
    for (std::size_t index = 0; index < partCount; ++index) {
        if (const auto part = static_cast<Part>(index); parts.contains(part)) {
            content.take(part, from);
        }
    }
    parts.clear();
}

}  // namespace

Item::Item(Core& core, ItemContent content)
    : Automated(core),
      content_(std::move(content)),
      message_(content_.saved ? content_.copy() : ItemContent{.itemClass = content_.itemClass}) {}

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
    return where ? where : core().mailbox().defaultFolder(defaultFolder::drafts);
}

bool Item::resolveAll() {
    bool all = true;
    for (const auto& recipient : content_.recipients) {
        if (!recipient->resolved && resolve(core(), *recipient)) {
            touch(Part::Recipients);
        }
        all = all && recipient->resolved;
    }
    return all;
}

const Account* Item::stampedAccount(const ItemContent& side) const {
    const std::wstring sendStamp = side.field(stampTag::primarySendAccount).toText();
    if (sendStamp.empty() || side.field(stampTag::nextSendAccount).toText() != sendStamp) {
        return nullptr;
    }
    const auto& accounts = core().profile().accounts;
    const auto found = std::ranges::find_if(
        accounts, [&](const Account& account) { return core().sendStampOf(account) == sendStamp; });
    return found == accounts.end() ? nullptr : &*found;
}

std::wstring Item::sendingAccount() const {
    if (const Account* stamped = stampedAccount(content_)) {
        return stamped->name;
    }
    if (!content_.account.empty()) {
        return content_.account;
    }
    const auto& accounts = core().profile().accounts;
    return accounts.empty() ? std::wstring() : accounts.front().name;
}

void Item::setProperty(std::uint32_t tag, const Value& value) {
    constexpr std::uint32_t body = 0x1000;
    constexpr std::uint32_t html = 0x1013;
    if (tag >> 16 == body || tag >> 16 == html) {
        raise::operationFailed();  // Its object model has members for them.
    }
    touch(content_.setField(tag, value));
}

void Item::deleteProperty(std::uint32_t tag) {
    if (content_.fields.erase(tag) == 0) {
        raise::objectNotFound();
    }
    touch(Part::Fields);
}

void Item::touch(Part part) {
    dirty_.add(part);
    content_.saved = false;
}

void Item::changed(Part part, std::wstring_view property) {
    touch(part);
    core().raise(events_, L"PropertyChange", 0xF009, {Value(property)});
}

void Item::save() {
    if (content_.saved) {
        return;
    }
    const auto where = folder() ? folder() : firstFolder_.lock();
    const auto target = where ? where : core().mailbox().defaultFolder(defaultFolder::drafts);
    if (!target) {
        raise::operationFailed();
    }
    target->checkWritable();
    if (storedElsewhere_) {
        raise::messageChanged();
    }
    if (core().raiseCancellable(events_, L"Write", 0xF002) || gone_) {
        return;
    }
    settle();
    if (!folder()) {
        target->take(self<Item>());
    }
}

/// Brings both sides together: of a part that Outlook has changed its own form is stored, else that which the
/// MAPI library has written. Of an item that was never saved all the rest is stored, too.
void Item::settle() {
    const bool first = entryId_.empty();
    for (std::size_t index = 0; index < partCount; ++index) {
        const auto part = static_cast<Part>(index);
        if (dirty_.contains(part) || (first && !written_.contains(part))) {
            message_.take(part, content_);
        } else if (written_.contains(part)) {
            content_.take(part, message_);
        }
    }
    dirty_.clear();
    written_.clear();
    content_.saved = true;
}

void Item::writtenElsewhere(const std::wstring& body) {
    storedElsewhere_ = body;
    if (content_.saved && written_.empty()) {
        opened();
    }
}

void Item::opened() {
    if (storedElsewhere_) {
        content_.body = *std::exchange(storedElsewhere_, std::nullopt);
        content_.html.clear();
        content_.saved = true;
        forgetWritten();
        dirty_.clear();
        message_.take(Part::Body, content_);
    }
}

void Item::readAnew() {
    if (folder() && !core().windows().inspectorOf(*this)) {
        takeParts(content_, dirty_, message_);
        content_.saved = true;
    }
}

void Item::forgetWritten() {
    takeParts(message_, written_, content_);
}

void Item::placed(const std::shared_ptr<Folder>& folder) {
    folder_ = folder;
    entryId_ = core().nextEntryId();
}

void Item::lost() {
    gone_ = true;
    folder_.reset();
}

std::shared_ptr<Item> Item::moveTo(Folder& target) {
    const auto keep = shared_from_this();
    if (!content_.saved) {
        settle();
    }
    // A folder that takes a draft counts it among its unread mails.
    content_.unread = content_.unread || !content_.sent;
    const auto moved = core().make<Item>(std::exchange(content_, {.itemClass = content_.itemClass}));
    if (const auto from = folder()) {
        from->release(*this);
    }
    lost();
    target.take(moved);
    if (const auto inspector = core().windows().inspectorOf(*this)) {
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
    settle();
    target.take(keep);
    return keep;
}

void Item::remove() {
    const auto keep = shared_from_this();
    if (const auto where = folder()) {
        where->checkWritable();
    }
    if (const auto inspector = core().windows().inspectorOf(*this)) {
        core().windows().close(inspector);
    }
    if (gone_) {  // By a handler of Close.
        return;
    }
    const auto where = folder();
    const auto deleted = core().mailbox().defaultFolder(defaultFolder::deletedItems);
    if (where && where != deleted && deleted) {
        moveTo(*deleted);
        return;
    }
    if (where) {
        where->release(*this);
    }
    lost();
}

bool resolve(const Core& core, RecipientData& recipient) {
    if (recipient.resolved) {
        return true;
    }
    if (!recipient.address.resolvable) {
        return false;
    }
    const std::wstring typed(nameOf(recipient.address));
    for (const Address& known : core.profile().addressBook) {
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
