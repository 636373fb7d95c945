// local_time.h: the wall-clock date and time of day, behind an interface that tests replace.
//
// Not to be confused with Clock, the steady clock that waits run on: this one answers "what day
// is it", which file naming and its reset rules need, and a test can stand on any date.
#pragma once

namespace qmk::platform {

// The current local time, split into fields.
struct LocalTime {
  int year = 0;     // four digits
  int month = 0;    // 1 to 12
  int day = 0;      // 1 to 31
  int hour = 0;     // 0 to 23
  int minute = 0;   // 0 to 59
  int second = 0;   // 0 to 60
  int weekday = 0;  // 0 = Sunday
  int yearday = 0;  // 0 = 1 January
};

class WallClock {
 public:
  virtual ~WallClock() = default;
  // Splits the current time into local time; false when it can't be split.
  virtual bool Now(LocalTime& out) = 0;
};

// The wall clock in use: the system's unless a test installed another.
WallClock& CurrentWallClock();
// Installs `clock` (not owned) and returns the previous one; null restores the system's.
WallClock* SetWallClock(WallClock* clock);

// A wall clock that stands still on a given date and time, or fails to split when told to.
class FixedWallClock : public WallClock {
 public:
  // The weekday and the day of the year are worked out from the date.
  FixedWallClock(int year, int month, int day, int hour = 12, int minute = 0);
  bool Now(LocalTime& out) override;
  void Set(int year, int month, int day, int hour = 12, int minute = 0);
  void SetFailing(bool failing) { failing_ = failing; }

 private:
  LocalTime time_;
  bool failing_ = false;
};

// Installs a wall clock for the life of the object, then puts the previous one back.
class ScopedWallClock {
 public:
  explicit ScopedWallClock(WallClock* clock) : previous_(SetWallClock(clock)) {}
  ~ScopedWallClock() { SetWallClock(previous_); }
  ScopedWallClock(const ScopedWallClock&) = delete;
  ScopedWallClock& operator=(const ScopedWallClock&) = delete;

 private:
  WallClock* previous_;
};

}  // namespace qmk::platform
