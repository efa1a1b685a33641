#include "checks/frmRemoveSpam.h"

#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

frmRemoveSpam::frmRemoveSpam(const mail::Globals& globals, const std::wstring& oldSubject,
                             const std::wstring& newSubject)
    : Form(L"frmRemoveSpam", prompts::titled(globals, L"Remove Spam Mark Phrases"), 274, 85),
      globals_(globals) {
    txtOldSubject.setText(oldSubject);
    txtOldSubject.setReadOnly(true);
    txtNewSubject.setText(newSubject);
    txtNewSubject.setFocus();
    chkAutoCorrect.onClick = [this] { chkAutoCorrect_Click(); };
    cmdYes.onClick = [this] { cmdYes_Click(); };
    cmdNo.onClick = [this] { cmdNo_Click(); };
}

void frmRemoveSpam::chkAutoCorrect_Click() {
    modRegKeys::AutoRemoveSpamWords.write(globals_, chkAutoCorrect.ticked() ? 1 : 0);
}

void frmRemoveSpam::cmdYes_Click() {
    confirmed_ = true;
    hide();
}

void frmRemoveSpam::cmdNo_Click() {
    confirmed_ = false;
    hide();
}

}  // namespace checks
