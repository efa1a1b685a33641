#include "update/clsAutoUpdate.h"

#include <cmath>

#include "mail/errorTrap.h"
#include "mail/product.h"
#include "platform/number.h"
#include "settings/prompts.h"
#include "update/UpdateService.h"
#include "update/frmDownload.h"
#include "update/frmNoDownload.h"
#include "update/modWebTalk.h"

namespace update {

namespace {

constexpr wchar_t on[] = L"1";
constexpr wchar_t initialised[] = L"ProgrammerInitialised";
/// The interval that the schedule starts with.
constexpr double usualInterval = 7;
/// How long an offer waits when the user is busy with another prompt.
constexpr std::chrono::seconds waitForQuiet{30};

/// A setting that somebody has made before, an administrator say, stays as it is.
void start(const mail::Globals& globals, const modRegKeys::Plain& setting, const std::wstring& value) {
    if (!globals.platform.settings.read(setting.key)) {
        setting.write(globals, value);
    }
}

}  // namespace

clsAutoUpdate::clsAutoUpdate(mail::Globals& globals) : globals_(globals) {
    mail::skipErrors([&] { initialise(); });
}

void clsAutoUpdate::initialise() const {
    if (modRegKeys::strRegistryInitialise.read(globals_) == initialised) {
        return;
    }
    start(globals_, modRegKeys::blnAutomaticUpdate, on);
    start(globals_, modRegKeys::intNumDayUpdate, number::toText(usualInterval));
    // What was installed today is the newest today.
    start(globals_, modRegKeys::dtmLastUpdateDate, today());
    start(globals_, modRegKeys::blnNotNotify, L"0");
    modRegKeys::strRegistryInitialise.write(globals_, initialised);
}

std::wstring clsAutoUpdate::today() const {
    return globals_.platform.clock.shortDate(globals_.platform.clock.now());
}

bool clsAutoUpdate::CheckDue() const {
    const auto last = globals_.platform.clock.readDate(modRegKeys::dtmLastUpdateDate.read(globals_));
    if (!last) {
        return true;
    }
    const auto stored = number::parse(modRegKeys::intNumDayUpdate.read(globals_));
    const double interval = stored ? std::floor(*stored) : usualInterval;
    return std::floor(globals_.platform.clock.now().days) - std::floor(last->days) >= interval;
}

void clsAutoUpdate::UpdateAvailable(std::function<void(const std::wstring&)> done) {
    answer_ = {};
    request_ =
        modWebTalk::GetPage(globals_, UpdateService::ofMachine(globals_).question(),
                            [self = weak_from_this(), done = std::move(done)](const std::wstring& page) {
                                const auto kept = self.lock();  // Disconnected while a dialog is open.
                                if (!kept) {
                                    return;
                                }
                                if (page == modWebTalk::noNetConnection) {
                                    done(page);
                                    return;
                                }
                                kept->answer_ = readAnswer(page);
                                const std::wstring version = kept->answer_.version;
                                done(isNewer(version, mail::product::versionText) ? version : std::wstring());
                            });
}

void clsAutoUpdate::AutomaticUpdate() {
    mail::skipErrors([&] {
        if (modRegKeys::blnAutomaticUpdate.read(globals_) != on || !CheckDue() ||
            UpdateService::ofMachine(globals_).off()) {
            return;
        }
        // Whether the service answers or not: the next time is an interval from now.
        modRegKeys::dtmLastUpdateDate.write(globals_, today());
        UpdateAvailable([this](const std::wstring& version) {
            request_.reset();
            if (!version.empty() && version != modWebTalk::noNetConnection) {
                mail::skipErrors([&] { offerWhenQuiet(version); });
            }
        });
    });
}

bool clsAutoUpdate::wanted(const std::wstring& version) const {
    return modRegKeys::blnNotNotify.read(globals_) != on ||
           modRegKeys::strVersionNotNotify.read(globals_) != version;
}

/// A question must not come over another: the user may be about to send a mail.
void clsAutoUpdate::offerWhenQuiet(const std::wstring& version) {
    if (globals_.promptsOpen == 0) {
        waiting_.reset();
        if (globals_.outlook && wanted(version)) {  // Without a window there is nobody to ask.
            offer(version);
        }
    } else if (!waiting_) {
        waiting_ = globals_.platform.desktop.startTimer(waitForQuiet, [this, version] {
            const auto kept = shared_from_this();
            mail::skipErrors([&] { offerWhenQuiet(version); });
        });
    }
}

void clsAutoUpdate::offer(const std::wstring& version) {
    const Link& link = answer_.freeDownload;
    // A service that names no page leaves it to the product's own.
    const auto page =
        link.text.empty() ? platform::WebAddress::parse(globals_.product.downloadPage) : link.address;
    if (page) {
        frmDownload form(globals_, version, answer_.message, *page);
        prompts::show(globals_, form);
    } else {
        frmNoDownload form(globals_, version, answer_.message, link.text);
        prompts::show(globals_, form);
    }
}

}  // namespace update
