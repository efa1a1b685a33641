#pragma once

#include <memory>

#include "mail/Globals.h"
#include "update/frmCheckingUpdatesTimer.h"

/// The two ways to the check for a newer version.
namespace update::basAutoUpdate {

/// The daily one, at the start of the add-in: the automatic check under way, or nothing when the last check
/// was today or the user wants none. The first start only notes the day. Never throws.
std::shared_ptr<frmCheckingUpdatesTimer> StartDailyCheck(mail::Globals& globals);

/// The one that the user asks for.
void CheckForUpdates(mail::Globals& globals);

}  // namespace update::basAutoUpdate
