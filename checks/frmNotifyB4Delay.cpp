#include "checks/frmNotifyB4Delay.h"

#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace checks {

frmNotifyB4Delay::frmNotifyB4Delay(const mail::Globals& globals, const std::wstring& status)
    : Form(L"frmNotifyB4Delay", prompts::titled(globals, L"Delay emails"), 244, 93), globals_(globals) {
    lblDelayStatus.setCaption(status);
    cmdYes.onClick = [this] { cmdYes_Click(); };
    cmdNo.onClick = [this] { cmdNo_Click(); };
}

void frmNotifyB4Delay::cmdYes_Click() {
    answer(true);
}

void frmNotifyB4Delay::cmdNo_Click() {
    answer(false);
}

void frmNotifyB4Delay::answer(bool delays) {
    delays_ = delays;
    if (chkNotifyB4Delaying.ticked()) {
        modRegKeys::NotifyBeforeDelaying.write(globals_, 0);
    }
    hide();
}

}  // namespace checks
