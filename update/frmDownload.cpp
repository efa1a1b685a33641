#include "update/frmDownload.h"

#include <utility>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "update/newVersion.h"

namespace update {

frmDownload::frmDownload(mail::Globals& globals, const std::wstring& version, const std::wstring& message,
                         platform::WebAddress page)
    : Form(L"frmDownload", newVersion::caption(globals), 260, 129),
      globals_(globals),
      version_(version),
      page_(std::move(page)) {
    lblMessage.setCaption(newVersion::announcement(globals, version) + std::wstring(text::lineBreak) +
                          L"Would you like to go to the download page.");
    newVersion::show(txtMessage, message);
    cmdNo.setFocus();  // Nobody has asked for this dialog; what is being typed must not answer it.
    cmdYes.onClick = [this] { cmdYes_Click(); };
    cmdNo.onClick = [this] {
        storeChoice();
        hide();
    };
}

void frmDownload::cmdYes_Click() {
    mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmDownload.cmdYes_Click"),
                     [&] { globals_.platform.desktop.openAddress(page_); });
    storeChoice();
    hide();
}

void frmDownload::storeChoice() const {
    modRegKeys::blnNotNotify.write(globals_, chkNotNotify.ticked() ? L"1" : L"0");
    if (chkNotNotify.ticked()) {
        modRegKeys::strVersionNotNotify.write(globals_, version_);
    }
}

}  // namespace update
