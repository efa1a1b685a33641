#include "addin/ExplorerWrap.h"

#include "addin/WindowWrappers.h"
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
            mailItem_ = selectedMail();
        }
    } catch (...) {
        const automation::Error error = basGlobals::currentError();
        if (!isHarmless(error)) {
            basGlobals::reportError(globals_, basGlobals::ErrorReport::usual(L"m_objExpl_SelectionChange"),
                                    error);
        }
    }
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
    mailItem_ = {};
    explorer_ = {};
}

void ExplorerWrap::SetCorrectItemSelection() const {
    basGlobals::skipErrors([&] { globals_.outlook.activeExplorer().selection().item(1).subject(); });
}
