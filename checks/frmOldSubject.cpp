#include "checks/frmOldSubject.h"

#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

frmOldSubject::frmOldSubject(const mail::Globals& globals, double days, const std::wstring& subject)
    : Form(L"frmOldSubject", prompts::titled(globals, L"Is the Subject to this email correct?"), 274, 97) {
    lblLine1.setCaption(L"You are replying to an email that is more than " +
                        modRegKeys::WholeNumber::shown(days) + L" days old.");
    txtSubject.setText(subject);
    cmdOK.onClick = [this] { cmdOK_Click(); };
}

void frmOldSubject::cmdOK_Click() {
    confirmed_ = true;
    hide();
}

}  // namespace checks
