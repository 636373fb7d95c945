// message_pump.h: lets timers and the operator's input run while the library waits.
#pragma once

#include <cstdint>

namespace qmk::frame {

// Runs due timers (the window system's among them) and pending operator input, then waits on
// the clock until the next timer is due, at most `max_wait_ms`. Loops that wait on the transport
// call it between polls, so that countdowns tick and Cancel can be pressed without spinning the
// processor.
void PumpWhileWaiting(int64_t max_wait_ms);

}  // namespace qmk::frame
