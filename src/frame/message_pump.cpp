// message_pump.cpp: one turn of the waiting loop's message pump.
#include "frame/message_pump.h"

#include <algorithm>

#include "frame/operator.h"
#include "platform/clock.h"
#include "platform/timers.h"

namespace qmk::frame {

void PumpWhileWaiting(int64_t max_wait_ms) {
  platform::RunDueTimers();
  CurrentOperator().PumpMessages();
  const int64_t next = platform::MsUntilNextTimer();
  const int64_t wait = next < 0 ? max_wait_ms : std::min(next, max_wait_ms);
  if (wait > 0) platform::CurrentClock().SleepMs(wait);
}

}  // namespace qmk::frame
