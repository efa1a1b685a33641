#include "update/frmCheckingUpdatesTimer.h"

namespace update {

namespace {

constexpr std::chrono::seconds afterStart{5};

}  // namespace

void frmCheckingUpdatesTimer::Start() {
    tmrCheck_ = globals_.platform.desktop.startTimer(afterStart, [self = weak_from_this()] {
        if (const auto kept = self.lock()) {
            kept->tmrCheck_Timer();
        }
    });
}

void frmCheckingUpdatesTimer::Stop() {
    tmrCheck_.reset();
    update_.reset();
}

void frmCheckingUpdatesTimer::tmrCheck_Timer() {
    tmrCheck_.reset();
    update_ = std::make_shared<clsAutoUpdate>(globals_);
    update_->AutomaticUpdate();
}

}  // namespace update
