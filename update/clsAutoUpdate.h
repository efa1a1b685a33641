#pragma once

#include <functional>
#include <memory>
#include <string>

#include "mail/Globals.h"
#include "platform/Http.h"
#include "settings/modRegKeys.h"
#include "update/updateAnswer.h"

namespace update {

/// The schedule of the check for a newer version, the question to the service, and what came of it. An error
/// ends the procedure that it meets and is noted in the trace; the user is told nothing.
class clsAutoUpdate : public std::enable_shared_from_this<clsAutoUpdate> {
  public:
    /// `globals` outlives this, and its handlers.
    explicit clsAutoUpdate(mail::Globals& globals);

    /// True when the interval has passed since the last automatic check, or nobody knows when that was.
    bool CheckDue() const;

    /// Asks the service. `done` gets the newer version, an empty text when there is none, or
    /// modWebTalk::noNetConnection; at once when the service cannot even be asked, else by the message loop.
    /// Asking anew, or destroying this, abandons the question.
    void UpdateAvailable(std::function<void(const std::wstring&)> done);
    void abandon() { request_.reset(); }
    /// What the service said last.
    const Answer& answer() const { return answer_; }

    /// The check that nobody asked for: asks the service when its time has come, and the user when there is a
    /// newer version, as soon as no other prompt is open.
    void AutomaticUpdate();

    /// Today's date, as the settings keep it.
    std::wstring today() const;

  private:
    void initialise() const;
    void offer(const std::wstring& version);
    void offerWhenQuiet(const std::wstring& version);
    bool wanted(const std::wstring& version) const;

    mail::Globals& globals_;
    Answer answer_;
    std::unique_ptr<platform::HttpRequest> request_;
    /// Until no prompt is open.
    std::unique_ptr<platform::Timer> waiting_;
};

}  // namespace update
