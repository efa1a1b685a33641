#include "addin/settingsWizard.h"

#include "checks/frmSigDisclaimer.h"
#include "mail/errorTrap.h"
#include "settings/CopyMsgToInbox.h"
#include "settings/frmIntroWizard.h"
#include "settings/modRegKeys.h"

namespace addin::settingsWizard {

namespace {

constexpr std::uint32_t welcomePicture = 604;

std::function<void()> attachmentSettings(mail::Globals& globals) {
    return [&globals] {
        checks::frmSigDisclaimer form(globals);
        globals.platform.desktop.showModal(form);
    };
}

}  // namespace

void open(mail::Globals& globals) {
    settings::frmIntroWizard form(globals, attachmentSettings(globals));
    globals.platform.desktop.showModal(form);
}

void welcome(mail::Globals& globals) {
    const std::wstring wanted = modRegKeys::ShowStartupWizard.read(globals);
    if (!wanted.empty() && wanted != L"True") {
        return;
    }
    mail::trapErrors(globals, mail::ErrorReport::usual(L"Connect.OnConnection"), [&] {
        settings::frmIntroWizard form(globals, attachmentSettings(globals));
        if (auto picture = globals.resources ? globals.resources->DLL_LoadBitmap(welcomePicture) : nullptr) {
            form.setPicture(std::move(picture));
        }
        globals.platform.desktop.showModal(form);
    });
    mail::skipErrors([&] { modRegKeys::ShowStartupWizard.write(globals, L"False"); });
    settings::CopyMsgToInbox(globals);
}

}  // namespace addin::settingsWizard
