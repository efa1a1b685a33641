#include "update/frmCheckUpdate.h"

namespace update {

frmCheckUpdate::frmCheckUpdate(const mail::Globals& globals)
    : Form(L"frmCheckUpdate", globals.product.title + L" Check for Updates", 220, 53) {
    lblChecking.setCaption(L"Asking for the newest version of " + globals.product.title +
                           L". This takes a few seconds at most...");
    cmdCancel.onClick = [this] {
        cancelled_ = true;
        hide();
    };
}

}  // namespace update
