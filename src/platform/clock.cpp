// clock.cpp: the system clock and the switch that tests use.
#include "platform/clock.h"

#include <thread>

namespace qmk::platform {
namespace {

class SystemClock : public Clock {
 public:
  int64_t NowMs() override {
    return std::chrono::duration_cast<std::chrono::milliseconds>(
               std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }
  void SleepMs(int64_t ms) override { std::this_thread::sleep_for(std::chrono::milliseconds(ms)); }
};

SystemClock g_system_clock;
Clock* g_clock = &g_system_clock;

}  // namespace

Clock& CurrentClock() { return *g_clock; }

Clock* SetClock(Clock* clock) {
  Clock* previous = g_clock;
  g_clock = clock ? clock : &g_system_clock;
  return previous;
}

}  // namespace qmk::platform
