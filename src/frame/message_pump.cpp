// message_pump.cpp: one turn of the waiting loop's message pump.
#include "frame/message_pump.h"

#include <algorithm>

#include "frame/operator.h"
#include "platform/clock.h"
#include "platform/timers.h"
#include "platform/ui/message_loop.h"

namespace qmk::frame {
namespace {

namespace ui = platform::ui;

// Runs the window system's due timers (the lamp countdown among them) whatever the operator,
// without starting a back end: timer messages need none.
void DispatchTimerMessages() {
  ui::MSG msg;
  // A bound, as a timer that is due again at once must not hold the wait.
  for (int budget = 64; budget > 0; --budget) {
    if (!ui::PeekMessage(&msg, nullptr, ui::WM_TIMER, ui::WM_TIMER, ui::PM_REMOVE)) return;
    if (msg.message == ui::WM_QUIT) {
      // Not ours to take: leave it for the loop that owns it.
      ui::PostQuitMessage(static_cast<int>(msg.wParam));
      return;
    }
    ui::DispatchMessage(&msg);
  }
}

}  // namespace

void PumpWhileWaiting(int64_t max_wait_ms) {
  platform::RunDueTimers();
  DispatchTimerMessages();
  CurrentOperator().PumpMessages();
  const int64_t next = platform::MsUntilNextTimer();
  const int64_t wait = next < 0 ? max_wait_ms : std::min(next, max_wait_ms);
  if (wait > 0) platform::CurrentClock().SleepMs(wait);
}

}  // namespace qmk::frame
