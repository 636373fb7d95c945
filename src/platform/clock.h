// clock.h: time for the library's own logic, behind an interface that tests replace.
#pragma once

#include <chrono>
#include <cstdint>

namespace qmk::platform {

class Clock {
 public:
  virtual ~Clock() = default;
  // Milliseconds on a steady clock; only differences mean anything.
  virtual int64_t NowMs() = 0;
  virtual void SleepMs(int64_t ms) = 0;
};

// The clock in use: the system's steady clock unless a test installed another.
Clock& CurrentClock();
// Installs `clock` (not owned) and returns the previous one; null restores the system clock.
Clock* SetClock(Clock* clock);

// A clock that only moves when told to: sleeping advances it at once.
class ManualClock : public Clock {
 public:
  int64_t NowMs() override { return now_ms_; }
  void SleepMs(int64_t ms) override { now_ms_ += ms; }
  void Advance(int64_t ms) { now_ms_ += ms; }

 private:
  int64_t now_ms_ = 0;
};

}  // namespace qmk::platform
