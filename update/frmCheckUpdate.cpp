#include "update/frmCheckUpdate.h"

namespace update {

frmCheckUpdate::frmCheckUpdate(const mail::Globals& globals)
    : Form(L"frmCheckUpdate", globals.product.title + L" Check for Updates", 220, 53) {
    lblChecking.setCaption(L"Asking for the newest version of " + globals.product.title +
                           L". This may take up to ten seconds.");
    cmdCancel.onClick = [this] { hide(); };
}

}  // namespace update
