// timers.h: periodic callbacks on the user-interface thread, run when the thread pumps.
#pragma once

#include <cstdint>
#include <functional>

namespace qmk::platform {

// Starts a timer that calls `callback` every `interval_ms` of the current clock, from the first
// pump after each period ends. Returns its id (never 0).
int SetTimer(int64_t interval_ms, std::function<void()> callback);
void KillTimer(int id);
// Runs the callbacks of the timers that are due by the current clock. A timer that fell several
// periods behind runs once and is rescheduled from now, as a message loop would coalesce.
void RunDueTimers();
// Milliseconds until the next timer is due (0 if one is due now), or -1 with no timer.
int64_t MsUntilNextTimer();

}  // namespace qmk::platform
