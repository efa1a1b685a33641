#include "settings/frmUnlockFields.h"

#include <utility>

#include "mail/errorTrap.h"
#include "settings/EncryptPswd.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"

namespace settings {

frmUnlockFields::frmUnlockFields(mail::Globals& globals, std::function<void()> unlocked)
    : Form(L"frmUnlockFields", L"Unlock Veltro settings", 220, 83),
      globals_(globals),
      unlocked_(std::move(unlocked)) {
    optTemporary.select();
    cmdOK.onClick = [this] {
        mail::trapErrors(globals_, mail::ErrorReport::usual(L"frmUnlockFields.cmdOK_Click"),
                         [&] { cmdOK_Click(); });
    };
    cmdCancel.onClick = [this] { hide(); };
}

void frmUnlockFields::cmdOK_Click() {
    if (txtPassword.text().empty()) {
        prompts::inform(globals_, L"Password not provided",
                        L"Password was not entered!\r\n\r\nPlease enter the password.");
    } else if (!isPassword(txtPassword.text(), modRegKeys::Password.read(globals_))) {
        prompts::inform(globals_, L"Invalid password",
                        L"Settings cannot be unlocked as the password was not correct!");
    } else if (optPermanant.selected()) {
        removeLock();
    } else {
        unlocked_();
        hide();
    }
}

void frmUnlockFields::removeLock() {
    const platform::Answer answer = globals_.platform.desktop.messageBox(
        L"Do you wish to remove locks on all settings?", {platform::Buttons::YesNo, platform::Icon::Question},
        L"Remove Veltro settings lock");
    if (answer == platform::Answer::Yes) {
        modRegKeys::Password.write(globals_, {});
        unlocked_();
        hide();
    }
}

}  // namespace settings
