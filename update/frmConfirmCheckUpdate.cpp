#include "update/frmConfirmCheckUpdate.h"

#include <utility>

#include "mail/errorTrap.h"
#include "mail/product.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "update/frmCheckUpdate.h"
#include "update/modWebTalk.h"
#include "update/newVersion.h"

namespace update {

namespace {

/// In place of the date of the last check.
constexpr wchar_t doNotCheck[] = L"DoNotCheck";

std::wstring question(const mail::Globals& globals) {
    return globals.product.title + L" sends its name and its version, " +
           shownVersion(mail::product::versionText) +
           L", to the update service and learns whether there is a newer one. Nothing else about you or your "
           L"e-mails is sent.";
}

}  // namespace

OfferedLink::OfferedLink(forms::Form& form, mail::Globals& globals, const wchar_t* name, int top,
                         std::wstring caption)
    : globals_(globals),
      caption_(std::move(caption)),
      link_(form, name, {36, top, 237, 10}, caption_),
      text_(form, std::wstring(name) + L"Text", {36, top, 237, 10}) {
    link_.onClick = [this, label = std::wstring(name) + L"_Click"] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmConfirmCheckUpdate." + label),
                         [&] { globals_.platform.desktop.openAddress(*address_); });
    };
    show({});
}

void OfferedLink::show(const Link& link) {
    address_ = link.address;
    link_.setVisible(address_.has_value());
    text_.setCaption(caption_ + L": " + link.text);
    text_.setVisible(!address_ && !link.text.empty());
}

frmConfirmCheckUpdate::frmConfirmCheckUpdate(mail::Globals& globals)
    : Form(L"frmConfirmCheckUpdate", globals.product.title + L" Check for Updates", 280, 173),
      globals_(globals),
      update_(std::make_shared<clsAutoUpdate>(globals)) {
    lblStatus.setCaption(question(globals));
    newVersion::show(txtMessage, {});
    chkDoNotCheck.setState(automaticIsOff() ? 1 : 0);
    cmdCheck.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmConfirmCheckUpdate.cmdCheck_Click"),
                         [&] { cmdCheck_Click(); });
    };
    cmdClose.onClick = [this] { cmdClose_Click(); };
    cmdCheck.setFocus();
}

bool frmConfirmCheckUpdate::automaticIsOff() const {
    return text::trim(modRegKeys::LastCheckUpdateDate.read(globals_)) == doNotCheck ||
           modRegKeys::blnAutomaticUpdate.read(globals_) != L"1";
}

void frmConfirmCheckUpdate::cmdCheck_Click() {
    storeChoice(true);
    if (const auto version = ask()) {
        showResult(*version);
    }
}

void frmConfirmCheckUpdate::cmdClose_Click() {
    storeChoice(false);
    hide();
}

std::optional<std::wstring> frmConfirmCheckUpdate::ask() {
    std::optional<std::wstring> result;
    frmCheckUpdate waiting(globals_);
    update_->UpdateAvailable([&](const std::wstring& version) {
        result = version;
        waiting.hide();
    });
    // What it would tell of its answer goes with this call.
    const std::unique_ptr<clsAutoUpdate, void (*)(clsAutoUpdate*)> atEnd(
        update_.get(), [](clsAutoUpdate* update) { update->abandon(); });
    if (!result) {
        globals_.platform.desktop.showModal(waiting);
    }
    return result;
}

void frmConfirmCheckUpdate::showResult(const std::wstring& version) {
    const Answer& answer = update_->answer();
    setCaption(globals_.product.title + L" Update Status");
    if (version == modWebTalk::noNetConnection) {
        lblStatus.setCaption(
            L"The update service could not be reached, or did not answer as it should. Please try again later, and "
            L"check your connection to the internet.");
    } else if (!version.empty()) {
        lblStatus.setCaption(newVersion::announcement(globals_, version));
    } else if (!answer.understood) {
        lblStatus.setCaption(L"The update service gave an answer that " + globals_.product.title +
                             L" does not understand. Please try again later.");
    } else {
        lblStatus.setCaption(L"You are currently running the latest version of " + globals_.product.title);
    }
    newVersion::show(txtMessage, answer.message);
    download_.show(answer.download.text.empty() ? answer.freeDownload : answer.download);
    upgradePolicy_.show(answer.upgradePolicy);
    features_.show(answer.features);
}

void frmConfirmCheckUpdate::storeChoice(bool checked) const {
    const bool off = chkDoNotCheck.ticked();
    modRegKeys::DoNotCheck.write(globals_, off ? L"1" : L"0");
    if (off) {
        modRegKeys::LastCheckUpdateDate.write(globals_, doNotCheck);
        return;
    }
    if (checked || automaticIsOff()) {
        modRegKeys::LastCheckUpdateDate.write(globals_, update_->today());
        modRegKeys::blnAutomaticUpdate.write(globals_, L"1");
    }
}

}  // namespace update
