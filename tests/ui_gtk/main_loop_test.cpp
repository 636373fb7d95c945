// main_loop_test.cpp: waits and timers on GLib's main context, and a host's GTK window that
// keeps painting while our loop runs.
#include "platform/ui/gtk3/main_loop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "ui_gtk/gtk_session.h"

namespace qmk::platform::ui::gtk3 {
namespace {

using Clock = std::chrono::steady_clock;

class MainLoopTest : public testing::GtkSession {};

TEST_F(MainLoopTest, AWaitWithNothingToDoEndsAtItsLimit) {
  Drain();
  auto start = Clock::now();
  EXPECT_FALSE(Iterate(40));
  EXPECT_GE(Clock::now() - start, std::chrono::milliseconds(35));
  EXPECT_FALSE(Iterate(0));
}

TEST_F(MainLoopTest, ATimerRunsUntilItsCallbackSaysStop) {
  int runs = 0;
  unsigned id = AddTimer(5, [&] { return ++runs < 3; });
  EXPECT_NE(id, 0u);
  ASSERT_TRUE(PumpUntil([&] { return runs == 3; }));
  Iterate(30);
  EXPECT_EQ(runs, 3);
  RemoveTimer(id);  // already stopped: no complaint from GLib
}

TEST_F(MainLoopTest, ARemovedTimerNeverRunsAgain) {
  int runs = 0;
  unsigned id = AddTimer(1, [&] { ++runs; return true; });
  ASSERT_TRUE(PumpUntil([&] { return runs >= 1; }));
  RemoveTimer(id);
  int seen = runs;
  Iterate(20);
  EXPECT_EQ(runs, seen);
}

TEST_F(MainLoopTest, AnotherThreadWakesAnEndlessWait) {
  Drain();
  std::thread waker([] {
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    Wake();
  });
  EXPECT_TRUE(Iterate(-1));
  waker.join();
}

TEST_F(MainLoopTest, ATimerDispatchedDuringAWaitEndsItEarly) {
  Drain();
  bool ran = false;
  AddTimer(10, [&] { ran = true; return false; });
  // Something left over from GTK may end a wait first; the timer must end one well before 5 s.
  auto start = Clock::now();
  while (!ran && Clock::now() - start < std::chrono::seconds(4)) EXPECT_TRUE(Iterate(5000));
  EXPECT_TRUE(ran);
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(4000));
}

}  // namespace
}  // namespace qmk::platform::ui::gtk3
