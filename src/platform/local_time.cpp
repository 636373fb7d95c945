// local_time.cpp: the system's wall clock, a fixed one for tests, and the switch between them.
#include "platform/local_time.h"

#include <ctime>

namespace qmk::platform {
namespace {

LocalTime FromTm(const std::tm& tm) {
  LocalTime t;
  t.year = tm.tm_year + 1900;
  t.month = tm.tm_mon + 1;
  t.day = tm.tm_mday;
  t.hour = tm.tm_hour;
  t.minute = tm.tm_min;
  t.second = tm.tm_sec;
  t.weekday = tm.tm_wday;
  t.yearday = tm.tm_yday;
  return t;
}

class SystemWallClock : public WallClock {
 public:
  bool Now(LocalTime& out) override {
    const std::time_t now = std::time(nullptr);
    std::tm tm{};
    if (now == static_cast<std::time_t>(-1) || !localtime_r(&now, &tm)) return false;
    out = FromTm(tm);
    return true;
  }
};

SystemWallClock g_system_wall_clock;
WallClock* g_wall_clock = &g_system_wall_clock;

}  // namespace

WallClock& CurrentWallClock() { return *g_wall_clock; }

WallClock* SetWallClock(WallClock* clock) {
  WallClock* previous = g_wall_clock;
  g_wall_clock = clock ? clock : &g_system_wall_clock;
  return previous;
}

FixedWallClock::FixedWallClock(int year, int month, int day, int hour, int minute) {
  Set(year, month, day, hour, minute);
}

void FixedWallClock::Set(int year, int month, int day, int hour, int minute) {
  // timegm normalises the date and fills in the weekday and the day of the year.
  std::tm tm{};
  tm.tm_year = year - 1900;
  tm.tm_mon = month - 1;
  tm.tm_mday = day;
  tm.tm_hour = hour;
  tm.tm_min = minute;
  const std::time_t t = timegm(&tm);
  std::tm split{};
  gmtime_r(&t, &split);
  time_ = FromTm(split);
}

bool FixedWallClock::Now(LocalTime& out) {
  if (failing_) return false;
  out = time_;
  return true;
}

}  // namespace qmk::platform
