// timers.cpp: the timer list of the user-interface thread.
#include "platform/timers.h"

#include <algorithm>
#include <vector>

#include "platform/clock.h"

namespace qmk::platform {
namespace {

struct Timer {
  int id;
  int64_t interval_ms;
  int64_t due_ms;
  std::function<void()> callback;
};

std::vector<Timer>& Timers() {
  static std::vector<Timer> timers;
  return timers;
}

int g_next_id = 1;

}  // namespace

int SetTimer(int64_t interval_ms, std::function<void()> callback) {
  const int id = g_next_id++;
  const int64_t interval = std::max<int64_t>(interval_ms, 1);
  Timers().push_back({id, interval, CurrentClock().NowMs() + interval, std::move(callback)});
  return id;
}

void KillTimer(int id) {
  auto& timers = Timers();
  timers.erase(std::remove_if(timers.begin(), timers.end(), [&](const Timer& t) { return t.id == id; }),
               timers.end());
}

void RunDueTimers() {
  const int64_t now = CurrentClock().NowMs();
  // Collect first: a callback may kill or set timers.
  std::vector<int> due;
  for (const Timer& t : Timers())
    if (t.due_ms <= now) due.push_back(t.id);
  for (int id : due) {
    auto& timers = Timers();
    auto it = std::find_if(timers.begin(), timers.end(), [&](const Timer& t) { return t.id == id; });
    if (it == timers.end()) continue;
    it->due_ms = now + it->interval_ms;
    std::function<void()> callback = it->callback;
    callback();
  }
}

int64_t MsUntilNextTimer() {
  if (Timers().empty()) return -1;
  int64_t next = Timers().front().due_ms;
  for (const Timer& t : Timers()) next = std::min(next, t.due_ms);
  return std::max<int64_t>(0, next - CurrentClock().NowMs());
}

}  // namespace qmk::platform
