#include "update/basAutoUpdate.h"

#include <cmath>

#include "mail/errorTrap.h"
#include "platform/text.h"
#include "settings/modRegKeys.h"
#include "settings/prompts.h"
#include "update/UpdateService.h"
#include "update/frmConfirmCheckUpdate.h"

namespace update::basAutoUpdate {

namespace {

std::shared_ptr<frmCheckingUpdatesTimer> startIfDue(mail::Globals& globals) {
    const std::wstring last(text::trim(modRegKeys::LastCheckUpdateDate.read(globals)));
    if (last == L"DoNotCheck") {
        return nullptr;
    }
    platform::Clock& clock = globals.platform.clock;
    const double today = std::floor(clock.now().days);
    const auto day = clock.readDate(last);
    if (!day) {
        modRegKeys::LastCheckUpdateDate.write(globals, clock.shortDate({today - 1}));
        return nullptr;
    }
    if (today - std::floor(day->days) < 1) {
        return nullptr;
    }
    auto check = std::make_shared<frmCheckingUpdatesTimer>(globals);
    check->Start();
    return check;
}

}  // namespace

std::shared_ptr<frmCheckingUpdatesTimer> StartDailyCheck(mail::Globals& globals) {
    return mail::attempt([&] { return startIfDue(globals); }).value_or(nullptr);
}

void CheckForUpdates(mail::Globals& globals) {
    if (UpdateService::ofMachine(globals).off()) {
        prompts::inform(globals, L"Check for Updates",
                        L"Your administrator has switched the check for updates off.");
        return;
    }
    frmConfirmCheckUpdate form(globals);
    globals.platform.desktop.showModal(form);
}

}  // namespace update::basAutoUpdate
