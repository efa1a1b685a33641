#pragma once

#include <memory>

#include "mail/Globals.h"

namespace checks {

/// Ends the Word that Outlook has edited mails in, once no mail has been open in it for a while: hidden, it
/// would stay until Outlook ends. A user who writes one mail after the other keeps it.
class frmTimer : public std::enable_shared_from_this<frmTimer> {
  public:
    /// `globals` outlives this, and its handlers.
    explicit frmTimer(mail::Globals& globals) : globals_(globals) {}

    /// From the beginning, if it runs already. Throws automation::Error when the system has no timer to give.
    void Start();
    /// Word is left as it is.
    void Stop() { tmrCloseWord_.reset(); }

  private:
    void tmrCloseWord_Timer();

    mail::Globals& globals_;
    std::unique_ptr<platform::Timer> tmrCloseWord_;
};

}  // namespace checks
