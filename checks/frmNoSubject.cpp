#include "checks/frmNoSubject.h"

#include "settings/prompts.h"

namespace checks {

frmNoSubject::frmNoSubject(const mail::Globals& globals, const std::wstring& subject)
    : Form(L"frmNoSubject", prompts::titled(globals, L"Empty Subject"), 274, 114) {
    txtSubject.setText(subject);
    cmdOK.onClick = [this] { cmdOK_Click(); };
    cmdCancel.onClick = [this] { cmdCancel_Click(); };
}

void frmNoSubject::cmdOK_Click() {
    cancelled_ = false;
    hide();
}

void frmNoSubject::cmdCancel_Click() {
    cancelled_ = true;
    hide();
}

}  // namespace checks
