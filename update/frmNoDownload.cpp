#include "update/frmNoDownload.h"

#include "update/newVersion.h"

namespace update {

frmNoDownload::frmNoDownload(mail::Globals& globals, const std::wstring& version, const std::wstring& message,
                             const std::wstring& link)
    : Form(L"frmNoDownload", newVersion::caption(globals), 260, 140) {
    lblMessage.setCaption(newVersion::announcement(globals, version));
    txtLink.setReadOnly(true);
    txtLink.setText(link);
    newVersion::show(txtMessage, message);
    cmdOK.onClick = [this] { hide(); };
    cmdOK.setFocus();
}

}  // namespace update
