#pragma once

/// The windows by which the add-in waits for timers and web requests.
namespace robot {

/// Runs this thread's message loop until the add-in waits for nothing any more: its timers are due at once. A
/// dialog that opens meanwhile must be answered by others. At most half a minute.
void settleAddIn();

/// Has one of the add-in's timers on this thread be due now; false when none runs.
bool fireTimer();

}  // namespace robot
