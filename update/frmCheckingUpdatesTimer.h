#pragma once

#include <memory>

#include "mail/Globals.h"
#include "update/clsAutoUpdate.h"

namespace update {

/// Starts the automatic check for a newer version a little after the add-in has loaded, when Outlook has had
/// the time to show itself. Destroying it ends the check, whatever it is at.
class frmCheckingUpdatesTimer : public std::enable_shared_from_this<frmCheckingUpdatesTimer> {
  public:
    /// `globals` outlives this, and its handlers.
    explicit frmCheckingUpdatesTimer(mail::Globals& globals) : globals_(globals) {}

    /// Throws automation::Error when the system has no timer to give.
    void Start();
    /// Nothing is asked or offered any more.
    void Stop();

  private:
    void tmrCheck_Timer();

    mail::Globals& globals_;
    std::unique_ptr<platform::Timer> tmrCheck_;
    std::shared_ptr<clsAutoUpdate> update_;
};

}  // namespace update
