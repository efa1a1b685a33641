#include "addin/ExplorerWrap.h"

#include "accounts/basSendAcct.h"
#include "accounts/frmEmailAddress.h"
#include "addin/eventArguments.h"
#include "addin/missingLibrary.h"
#include "addin/replyEvents.h"
#include "addin/sendEvent.h"
#include "addin/settingsWizard.h"
#include "mail/OutgoingMail.h"
#include "mail/OutlookVersion.h"
#include "mail/errorTrap.h"
#include "platform/files.h"
#include "settings/prompts.h"
#include "support/frmAbout.h"
#include "support/supportEmail.h"
#include "update/basAutoUpdate.h"

namespace addin {

namespace {

namespace events = outlook::events;

}  // namespace

void ExplorerWrap::setExplorer(const outlook::Explorer& explorer) {
    explorer_ = explorer;
    const auto version = mail::attempt([&] { return mail::outlookVersion(globals_); });
    hasInlineResponses_ = version && *version >= mail::outlook2013;
    hasMenu_ = !version || *version < mail::outlook2010;
    explorerEvents_ = automation::subscribe(
        explorer.object(), hasInlineResponses_ ? events::laterExplorer : events::explorer,
        [self = weak_from_this()](std::int32_t event, std::span<automation::Value> arguments) {
            if (const auto wrapper = self.lock()) {  // Held while it handles the closing of its window.
                wrapper->onExplorerEvent(event, arguments);
            }
        });
}

void ExplorerWrap::InitButton() {
    if (!hasMenu_ || !buttons_.empty() || std::exchange(buildingMenu_, true)) {
        return;  // Outlook's calls let events in: an Activate must not build a second menu beside the first.
    }
    mail::skipErrors([&] {
        const menu::Buttons built = menu::build(globals_, explorer_, key_);
        std::vector<automation::Subscription> listening;
        for (std::size_t index = 0; index < built.size(); ++index) {
            listening.push_back(automation::subscribe(
                built[index], events::commandBarButton,
                [self = weak_from_this(), command = static_cast<menu::Command>(index)](
                    std::int32_t event, std::span<automation::Value>) {
                    const auto wrapper = self.lock();  // Held: the window may close while a dialog is open.
                    if (wrapper && event == events::commandBarButtonClick) {
                        run(wrapper->globals_, command);
                    }
                }));
        }
        buttonEvents_ = std::move(listening);
        buttons_ = built;
    });
    buildingMenu_ = false;
}

void ExplorerWrap::run(mail::Globals& globals, menu::Command command) {
    switch (command) {
        case menu::Command::AccountList:
            gcmdTWl_Veltro_List_Click(globals);
            break;
        case menu::Command::Settings:
            gcmdTWL_Veltro_Settings_Click(globals);
            break;
        case menu::Command::Help:
            gcmdTWL_Veltro_Help_Click(globals);
            break;
        case menu::Command::CheckUpdates:
            gcmdTWL_Veltro_CheckUpdate_Click(globals);
            break;
        case menu::Command::ContactSupport:
            gcmdTWL_Veltro_ContactSupport_Click(globals);
            break;
        case menu::Command::About:
            gcmdTWl_Veltro_About_Click(globals);
            break;
    }
}

void ExplorerWrap::gcmdTWL_Veltro_Settings_Click(mail::Globals& globals) {
    mail::trapErrors(globals, mail::ErrorReport::usual(L"ExplorerWrap.gcmdTWL_Veltro_Settings_Click"),
                     [&] { settingsWizard::open(globals); });
}

void ExplorerWrap::gcmdTWL_Veltro_CheckUpdate_Click(mail::Globals& globals) {
    mail::trapErrors(globals, mail::ErrorReport::usual(L"ExplorerWrap.gcmdTWL_Veltro_CheckUpdate_Click"),
                     [&] { update::basAutoUpdate::CheckForUpdates(globals); });
}

void ExplorerWrap::gcmdTWL_Veltro_ContactSupport_Click(mail::Globals& globals) {
    support::ComposeSupportEmail(globals);
}

void ExplorerWrap::gcmdTWl_Veltro_About_Click(mail::Globals& globals) {
    mail::trapErrors(globals, mail::ErrorReport::usual(L"ExplorerWrap.gcmdTWl_Veltro_About_Click"), [&] {
        support::frmAbout form(globals);
        globals.platform.desktop.showModal(form);
    });
}

void ExplorerWrap::gcmdTWL_Veltro_Help_Click(mail::Globals& globals) {
    mail::trapErrors(globals, mail::ErrorReport::usual(L"ExplorerWrap.gcmdTWL_Veltro_Help_Click"), [&] {
        prompts::showHelp(globals, globals.product.helpFile, L"Getting%20Started/Introduction.htm",
                          platform::HelpView::Contents);
    });
}

void ExplorerWrap::gmnuTutorial_Click() {
    openHelpFile(L"ExplorerWrap.gmnuTutorial_Click", L"Postroute_tutorial.chm");
}

void ExplorerWrap::gmnuHelp_Click() {
    openHelpFile(L"ExplorerWrap.gmnuHelp_Click", L"Postroute_manual.chm");
}

void ExplorerWrap::openHelpFile(const wchar_t* procedure, const std::wstring& name) {
    mail::trapErrors(globals_, mail::ErrorReport::usual(procedure), [&] {
        prompts::showHelp(globals_, platform::joinPath(globals_.platform.system.addInFolder(), name), {},
                          platform::HelpView::Topic);
    });
}

void ExplorerWrap::gcmdTWl_Veltro_List_Click(mail::Globals& globals) {
    const auto report = mail::ErrorReport::usual(L"ExplorerWrap.gcmdTWl_Veltro_List_Click");
    mail::trapErrors(globals, report, [&] {
        if (mail::outlookVersion(globals) < mail::outlook2003) {
            globals.platform.desktop.messageBox(
                L"Account Sentry is only supported in Outlook 2003 and above.",
                {platform::Buttons::Ok, platform::Icon::Information},
                prompts::titled(globals, L"Account Sentry"));
            return;
        }
        if (!globals.provider->hasAccounts()) {
            missingLibrary::tell(globals);
            return;
        }
        const auto list = accounts::basSendAcct::OpenList(globals);
        accounts::frmEmailAddress window(globals, *list);
        globals.platform.desktop.showModal(window);
    });
}

void ExplorerWrap::onExplorerEvent(std::int32_t event, std::span<automation::Value> arguments) {
    switch (event) {
        case events::explorerActivate:
            InitButton();
            break;
        case events::explorerSelectionChange:
            m_objExpl_SelectionChange();
            break;
        case events::explorerInlineResponse:
            mail::skipErrors(
                [&] { watchInline(outlook::Item(eventArguments::at(arguments, 0).toObject())); });
            break;
        case events::explorerInlineResponseClose:
            mail::skipErrors([&] { watchInline({}); });
            break;
        case events::explorerClose:
            m_objExpl_Close();
            break;
        default:
            break;
    }
}

/// Popped out, the response gets a window of its own, and that a wrapper.
void ExplorerWrap::watchInline(const outlook::Item& response) {
    inlineEvents_.end();
    inlineItem_ = response;
    inlineMail_.reset();
    if (response) {
        inlineEvents_ = automation::subscribe(
            response.object(), events::item,
            [self = weak_from_this()](std::int32_t event, std::span<automation::Value> arguments) {
                if (const auto wrapper = self.lock()) {  // Held: the window may close while a check asks.
                    wrapper->onInlineEvent(event, arguments);
                }
            });
        globals_.tellPreferredAccountChanges();
    }
}

void ExplorerWrap::onInlineEvent(std::int32_t event, std::span<automation::Value> arguments) {
    if (eventArguments::changeRecipients(event, arguments)) {
        globals_.tellPreferredAccountChanges();
    }
    if (event != events::itemSend) {
        return;
    }
    mail::skipErrors([&] {
        eventArguments::Cancel cancel(eventArguments::at(arguments, 0));
        const auto mail = inlineMail_ = std::make_shared<mail::OutgoingMail>(globals_, inlineItem_, true);
        sendEvent::handle(globals_, mail, cancel.flag());
        if (cancel.flag()) {
            inlineMail_.reset();
        }
    });
}

/// Outlook may hand out the response as another object than before. One that was never saved has no id; then
/// it is the one whose Send has just been seen.
bool ExplorerWrap::writesInline(const outlook::Item& item) const {
    if (!inlineItem_) {
        return false;
    }
    const auto same = [&] {
        const std::wstring id = item.entryId();
        return inlineItem_.object() == item.object() ||
               (id.empty() ? inlineMail_ != nullptr : id == inlineItem_.entryId());
    };
    return mail::attempt(same).value_or(false);
}

void ExplorerWrap::watchSelection() {
    const std::size_t change = ++changes_;
    mail::skipErrors([&] { watch(showsOutbox() ? outlook::Item() : selectedMail(), change); });
    if (hasInlineResponses_) {
        mail::skipErrors([&] { watchInline(explorer_.activeInlineResponse()); });
    }
}

void ExplorerWrap::m_objExpl_SelectionChange() {
    const std::size_t change = ++changes_;
    try {
        watch(showsOutbox() ? outlook::Item() : selectedMail(), change);
    } catch (...) {
        const automation::Error error = mail::currentError();
        if (!isHarmless(error)) {
            mail::reportError(globals_, mail::ErrorReport::usual(L"m_objExpl_SelectionChange"), error);
        }
    }
}

/// Selecting while a window closes fails in ways that mean nothing to the user. Outlook words them in the
/// user's language, and its number for a closed window differs between versions.
bool ExplorerWrap::isHarmless(const automation::Error& error) const {
    return error.number() == automation::errors::failed ||
           error.description() ==
               L"The Explorer has been closed and cannot be used for further operations. Review your code "
               L"and restart Outlook." ||
           error.description() == L"The operation failed." || !mail::skipErrors([&] { explorer_.caption(); });
}

/// Outlook's calls let events in: what is no longer the latest change must not take the place of the latest.
void ExplorerWrap::watch(const outlook::Item& item, std::size_t change) {
    automation::Subscription subscription;
    if (item) {
        subscription = automation::subscribe(
            item.object(), events::item,
            [self = weak_from_this()](std::int32_t event, std::span<automation::Value> arguments) {
                if (const auto wrapper = self.lock()) {  // Held: a check may close or change the selection.
                    wrapper->onItemEvent(event, arguments);
                }
            });
    }
    if (change == changes_) {
        mailItem_ = item;
        itemEvents_ = std::move(subscription);
    }
}

void ExplorerWrap::onItemEvent(std::int32_t event, std::span<automation::Value> arguments) {
    const outlook::Item item = mailItem_;
    if (!replyEvents::isAnswer(event)) {
        return;
    }
    if (keeper_.othersAct(*this)) {
        mail::note(mail::Skipped::OtherWindowActs);
    } else {
        replyEvents::handle(globals_, item, event, arguments);
    }
}

bool ExplorerWrap::watches(const outlook::Item& item) const {
    return mailItem_ && item.entryId() == mailItem_.entryId();
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
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"m_objExpl_Close"),
                     [&] { keeper_.closed(shared_from_this()); });
    release();
}

void ExplorerWrap::release() {
    explorerEvents_.end();
    watch({}, ++changes_);
    watchInline({});
    buttonEvents_.clear();
    buttons_ = {};
    explorer_ = {};
}

void ExplorerWrap::SetCorrectItemSelection() const {
    mail::skipErrors([&] { globals_.outlook.activeExplorer().selection().item(1).subject(); });
}

}  // namespace addin
