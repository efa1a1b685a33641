#include "checks/frmTimer.h"

#include "mail/basWordMail.h"
#include "mail/errorTrap.h"

namespace checks {

namespace {

constexpr std::chrono::seconds afterLastMail{30};

/// Whatever cannot be told counts as a mail in Word: what the user is writing must not be closed.
bool someMailIsInWord(const mail::Globals& globals) {
    const auto look = [&] {
        const auto inspectors = globals.outlook.inspectors();
        for (std::int32_t index = 1; index <= inspectors.count(); ++index) {
            if (basWordMail::editsInWord(globals, inspectors.item(index))) {
                return true;
            }
        }
        return false;
    };
    return mail::attempt(look).value_or(true);
}

}  // namespace

void frmTimer::Start() {
    tmrCloseWord_ = globals_.platform.desktop.startTimer(afterLastMail, [self = weak_from_this()] {
        if (const auto kept = self.lock()) {
            kept->tmrCloseWord_Timer();
        }
    });
}

void frmTimer::tmrCloseWord_Timer() {
    Stop();
    if (!someMailIsInWord(globals_)) {
        basWordMail::QuitUnusedWord(globals_);
    }
}

}  // namespace checks
