#include "addin/ExplorerWrap.h"

#include "addin/WindowWrappers.h"
#include "addin/replyEvents.h"
#include "mail/errorTrap.h"

namespace {

namespace events = outlook::events;

/// Selecting while a window closes fails in ways that mean nothing to the user.
bool isHarmless(const automation::Error& error) {
    return error.description() ==
               L"The Explorer has been closed and cannot be used for further operations. Review your code "
               L"and "
               L"restart Outlook." ||
           error.description() == L"The operation failed.";
}

}  // namespace

void ExplorerWrap::setExplorer(const outlook::Explorer& explorer) {
    explorer_ = explorer;
    explorerEvents_ = automation::subscribe(
        explorer.object(), events::explorer,
        [self = weak_from_this()](std::int32_t event, std::span<automation::Value>) {
            if (const auto wrapper = self.lock()) {  // Held while it handles the closing of its window.
                wrapper->onExplorerEvent(event);
            }
        });
}

void ExplorerWrap::onExplorerEvent(std::int32_t event) {
    switch (event) {
        case events::explorerSelectionChange:
            m_objExpl_SelectionChange();
            break;
        case events::explorerClose:
            m_objExpl_Close();
            break;
        default:
            break;
    }
}

void ExplorerWrap::m_objExpl_SelectionChange() {
    try {
        if (!showsOutbox()) {
            watch(selectedMail());
        }
    } catch (...) {
        const automation::Error error = basGlobals::currentError();
        if (!isHarmless(error)) {
            basGlobals::reportError(globals_, basGlobals::ErrorReport::usual(L"m_objExpl_SelectionChange"),
                                    error);
        }
    }
}

void ExplorerWrap::watch(const outlook::Item& item) {
    itemEvents_.end();
    mailItem_ = item;
    if (item) {
        itemEvents_ = automation::subscribe(
            item.object(), events::item,
            [self = weak_from_this()](std::int32_t event, std::span<automation::Value> arguments) {
                if (const auto wrapper = self.lock()) {  // Held: a check may close or change the selection.
                    wrapper->onItemEvent(event, arguments);
                }
            });
    }
}

void ExplorerWrap::onItemEvent(std::int32_t event, std::span<automation::Value> arguments) {
    const outlook::Item item = mailItem_;
    if (replyEvents::isAnswer(event) && !isOpenInActiveInspector()) {
        replyEvents::handle(globals_, item, event, arguments);
    }
}

/// Then the inspector's wrapper handles the event. Compared by id, as one item comes in different objects and
/// many share a subject.
bool ExplorerWrap::isOpenInActiveInspector() const {
    bool same = false;
    basGlobals::skipErrors([&] {
        const outlook::Inspector inspector = globals_.outlook.activeInspector();
        same = inspector && inspector.currentItem().entryId() == mailItem_.entryId();
    });
    return same;
}

/// Touching an item in the Outbox would keep Outlook from sending it.
bool ExplorerWrap::showsOutbox() const {
    const outlook::Folder outbox = globals_.outlook.mapiNameSpace().defaultFolder(outlook::folderId::outbox);
    return explorer_.currentFolder().entryId() == outbox.entryId();
}

outlook::Item ExplorerWrap::selectedMail() const {
    const auto selection = explorer_.selection();
    if (selection.count() < 1) {
        return {};
    }
    outlook::Item item = selection.item(1);
    return item.itemClass() == outlook::itemClass::mail ? item : outlook::Item();
}

void ExplorerWrap::m_objExpl_Close() {
    basGlobals::trapErrors(globals_, basGlobals::ErrorReport::usual(L"m_objExpl_Close"), [&] {
        auto self = shared_from_this();
        wrappers_.KillExpl(key_, self);
    });
    explorerEvents_.end();
    watch({});
    explorer_ = {};
}

void ExplorerWrap::SetCorrectItemSelection() const {
    basGlobals::skipErrors([&] { globals_.outlook.activeExplorer().selection().item(1).subject(); });
}
