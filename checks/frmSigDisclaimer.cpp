#include "checks/frmSigDisclaimer.h"

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

frmSigDisclaimer::frmSigDisclaimer(mail::Globals& globals)
    : Form(L"frmSigDisclaimer", L"Attachment Sentry Advance settings", 316, 256), globals_(globals) {
    chkIgnoreText.setState(modRegKeys::IgnoreText.read(globals) ? 1 : 0);
    chkIgnoreAttach.setState(modRegKeys::IgnoreAttach.read(globals) ? 1 : 0);
    txtSigDisclaimer.setText(modRegKeys::IgnoreTextValue.read(globals));
    txtIgnoreAttach.setText(modRegKeys::IgnoreAttachValue.read(globals));
    cmdSave.onClick = [this] { cmdSave_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmSigDisclaimer::cmdSave_Click() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmSigDisclaimer.cmdSave_Click"), [&] {
        if (isComplete()) {
            store();
            hide();
        }
    });
}

void frmSigDisclaimer::cmdCancel_Click() {
    hide();
}

bool frmSigDisclaimer::isComplete() const {
    if (chkIgnoreText.ticked() && text::trim(txtSigDisclaimer.text()).empty()) {
        prompts::inform(
            globals_, L"Ignore text missing",
            L"No text entered.\r\n\r\nPlease enter the text you want attachment sentry to ignore.");
        return false;
    }
    if (chkIgnoreAttach.ticked() && text::trim(txtIgnoreAttach.text()).empty()) {
        prompts::inform(
            globals_, L"Attachment name missing",
            L"Attachment name is missing.\r\n\r\nPlease enter the name of the attachment you want attachment "
            L"sentry to ignore.");
        return false;
    }
    return true;
}

void frmSigDisclaimer::store() const {
    // The texts first: a switch without its text would disregard nothing.
    modRegKeys::IgnoreTextValue.write(globals_, std::wstring(text::trim(txtSigDisclaimer.text())));
    modRegKeys::IgnoreAttachValue.write(globals_, std::wstring(text::trim(txtIgnoreAttach.text())));
    modRegKeys::IgnoreText.write(globals_, chkIgnoreText.state());
    modRegKeys::IgnoreAttach.write(globals_, chkIgnoreAttach.state());
}

}  // namespace checks
