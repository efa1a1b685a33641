#include "settings/frmIntroWizard.h"

#include <algorithm>
#include <string>
#include <utility>

#include "mail/OutlookVersion.h"
#include "mail/ProfileAddresses.h"
#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/frmLockFields.h"
#include "settings/frmUnlockFields.h"
#include "settings/lockFields.h"
#include "settings/modLoadSettings.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"
#include "settings/wizardValidation.h"

namespace settings {

frmIntroWizard::frmIntroWizard(mail::Globals& globals, std::function<void()> showAttachmentSettings)
    : Form(L"frmIntroWizard", L"Settings", 470, 277),
      globals_(globals),
      showAttachmentSettings_(std::move(showAttachmentSettings)) {
    shownSteps_ = {&intro_,         &steps_.reply,       &steps_.subject, &steps_.attachment,
                   &steps_.account, &steps_.sendConfirm, &steps_.delay,   &steps_.ownAddresses};
    std::vector<forms::Frame*> pages{
        &intro_,         &steps_.reply,       &steps_.subject, &steps_.attachment,
        &steps_.account, &steps_.sendConfirm, &steps_.delay,   &steps_.ownAddresses};
    if (modRegKeys::ShowStartupWizard.read(globals) == L"False") {
        intro_.setVisible(false);
        shownSteps_.erase(shownSteps_.begin());
        pages.erase(pages.begin());
    }
    TabStripWizard.onChange = [this] { pageChanged(); };
    TabStripWizard.setPages(std::move(pages));
    const auto older = mail::attempt([&] { return mail::outlookVersion(globals) < mail::outlook2003; });
    steps_.account.lblAgStatus.setVisible(older.value_or(false));
    fields_.load();
    ApplyLockSettings(false);
    connectButtons();
    connectFields();
}

std::function<void()> frmIntroWizard::trapped(const wchar_t* procedure, Handler handler) {
    return [this, report = mail::ErrorReport::usual(L"frmIntroWizard." + std::wstring(procedure)), handler] {
        mail::trapErrors(globals_, report, [&] { (this->*handler)(); });
    };
}

/// A check that fails holds nothing up.
std::function<bool()> frmIntroWizard::trappedCheck(const wchar_t* procedure, std::function<bool()> check) {
    return [this, report = mail::ErrorReport::usual(L"frmIntroWizard." + std::wstring(procedure)),
            check = std::move(check)] { return mail::trapErrors(globals_, report, check, true); };
}

void frmIntroWizard::connectButtons() {
    cmdHelp.onClick = trapped(L"cmdNav_Click", &frmIntroWizard::cmdHelp_Click);
    cmdCancel.onClick = [this] { hide(); };
    cmdBack.onClick = [this] { turnPage(-1); };
    cmdNext.onClick = [this] { turnPage(1); };
    cmdSave.onClick = trapped(L"cmdNav_Click", &frmIntroWizard::cmdSave_Click);
    cmdLockControls.onClick = trapped(L"cmdLockControls_Click", &frmIntroWizard::cmdLockControls_Click);
    cmdSaveSettings.onClick = trapped(L"cmdSaveSettings_Click", &frmIntroWizard::cmdSaveSettings_Click);
}

void frmIntroWizard::connectFields() {
    SubjectStep& subject = steps_.subject;
    subject.lblOlderEmailLink.onClick =
        trapped(L"lblOlderEmailLink_Click", &frmIntroWizard::lblOlderEmailLink_Click);
    subject.txtOldEmailsDays.onLeave = trappedCheck(L"txtOldEmailsDays_LostFocus", [this, &subject] {
        return !subject.chkPromptReplyOlderEmails.ticked() ||
               wizardValidation::isCount(globals_, subject.txtOldEmailsDays, L"Days");
    });
    SendConfirmStep& confirm = steps_.sendConfirm;
    confirm.txtXRecipients.onLeave = trappedCheck(L"txtXRecipients_LostFocus", [this, &confirm] {
        return !confirm.chkConfirmForXRecipt.ticked() ||
               wizardValidation::isCount(globals_, confirm.txtXRecipients, L"Recipients");
    });
    steps_.delay.txtDelayTime.onLeave = trappedCheck(L"txtDelayTime_LostFocus", [this] {
        return wizardValidation::isDelayTime(globals_, steps_.delay.txtDelayTime);
    });
    steps_.reply.txtDomains.onLeave = trappedCheck(L"txtDomains_LostFocus", [this] {
        return wizardValidation::areDomains(globals_, steps_.reply.txtDomains);
    });
    steps_.attachment.lblIgnoreSig.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmIntroWizard.lblIgnoreSig_Click"),
                         showAttachmentSettings_);
    };
    steps_.ownAddresses.chkEmailFromOutlook.onClick =
        trapped(L"chkEmailFromOutlook_Click", &frmIntroWizard::chkEmailFromOutlook_Click);
}

void frmIntroWizard::setPicture(std::shared_ptr<platform::Picture> picture) {
    intro_.imgIntro.setBitmap(std::move(picture));
    intro_.imgIntro.setVisible(true);
}

void frmIntroWizard::ApplyLockSettings(bool unlockAll) {
    if (!unlockAll && text::trim(modRegKeys::Password.read(globals_)).empty()) {
        return;
    }
    for (const lockFields::Entry& entry : lockFields::parse(modRegKeys::LockFields.read(globals_))) {
        EnableControl(entry.name, unlockAll || !entry.locked);
    }
}

void frmIntroWizard::EnableControl(std::wstring_view lockedField, bool enabled) {
    fields_.EnableControl(lockedField, enabled);
}

void frmIntroWizard::turnPage(int by) {
    TabStripWizard.turnTo(TabStripWizard.selected() + static_cast<std::size_t>(by));
}

void frmIntroWizard::pageChanged() {
    const std::size_t page = TabStripWizard.selected();
    lblTabTitle.setCaption(shownSteps_[page]->heading());
    cmdBack.setEnabled(page > 0);
    cmdNext.setEnabled(page + 1 < shownSteps_.size());
}

void frmIntroWizard::cmdHelp_Click() {
    prompts::showHelp(globals_, globals_.product.helpFile, L"Using_Veltro/vt_settings.htm",
                      platform::HelpView::Topic);
}

void frmIntroWizard::cmdSave_Click() {
    if (mayBeSaved()) {
        fields_.save();
        hide();
    }
}

/// A locked box cannot be filled in, and must not keep the rest from being saved.
bool frmIntroWizard::mayBeSaved() {
    ReplyStep& reply = steps_.reply;
    if (!reply.chkReplyAll_Any.ticked() || !reply.chkReplyInternalCheck.ticked() ||
        !text::trim(reply.txtDomains.text()).empty() || !reply.txtDomains.enabled()) {
        return true;
    }
    prompts::inform(
        globals_, L"No domain entered",
        L"Please enter a domain or un-tick the option\r\n'Do not warn when all recipients are part "
        L"of the domain'");
    const auto page = std::ranges::find(shownSteps_, &reply);
    TabStripWizard.select(static_cast<std::size_t>(page - shownSteps_.begin()));
    reply.txtDomains.setFocus();
    return false;
}

void frmIntroWizard::cmdLockControls_Click() {
    if (text::trim(modRegKeys::Password.read(globals_)).empty()) {
        frmLockFields form(globals_, [this] { ApplyLockSettings(false); });
        globals_.platform.desktop.showModal(form);
    } else {
        frmUnlockFields form(globals_, [this] { ApplyLockSettings(true); });
        globals_.platform.desktop.showModal(form);
    }
}

void frmIntroWizard::cmdSaveSettings_Click() {
    modLoadSettings::exportToChosenFolder(globals_);
}

void frmIntroWizard::chkEmailFromOutlook_Click() {
    OwnAddressesStep& step = steps_.ownAddresses;
    if (!step.chkEmailFromOutlook.ticked()) {
        return;
    }
    const platform::Answer answer =
        prompts::ask(globals_, L"Confirm action",
                     L"This action will reset your email address list to the corresponding email accounts "
                     L"linked to your Outlook.\r\nYou will loose any changes you made to your email address "
                     L"list.\r\nDo you want to continue?",
                     {platform::Buttons::YesNo, platform::Icon::Question});
    const auto addresses =
        answer == platform::Answer::Yes ? mail::vtAccountsEmailAddress(globals_) : std::nullopt;
    if (addresses) {
        step.lstEmailAccounts.setText(*addresses);
    } else {
        step.chkEmailFromOutlook.setState(0);
    }
}

void frmIntroWizard::lblOlderEmailLink_Click() {
    prompts::inform(globals_, L"Replying to older emails",
                    L"An old e-mail is often answered only to reach the same people again, about something "
                    L"new. Its subject then says the wrong thing.\r\n\r\nVeltro shows you the subject of "
                    L"such an answer, so that you can change it or leave it as it is.");
}

}  // namespace settings
