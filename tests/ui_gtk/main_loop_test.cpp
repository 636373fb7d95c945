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
  auto start = Clock::now();
  EXPECT_TRUE(Iterate(5000));
  EXPECT_TRUE(ran);
  EXPECT_LT(Clock::now() - start, std::chrono::milliseconds(4000));
}

// The host's window: a GTK window of the application that loaded us, counting its paints.
struct HostWindow {
  GtkWidget* window = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  GtkWidget* area = gtk_drawing_area_new();
  int draws = 0;
  HostWindow() {
    gtk_window_set_default_size(GTK_WINDOW(window), 120, 80);
    gtk_container_add(GTK_CONTAINER(window), area);
    g_signal_connect(area, "draw", G_CALLBACK(+[](GtkWidget*, cairo_t*, gpointer self) -> gboolean {
                       ++static_cast<HostWindow*>(self)->draws;
                       return TRUE;
                     }), this);
    gtk_widget_show_all(window);
  }
  ~HostWindow() { gtk_widget_destroy(window); }
};

TEST_F(MainLoopTest, AHostWindowKeepsPaintingWhileOurLoopWaits) {
  HostWindow host;
  ASSERT_TRUE(PumpUntil([&] { return host.draws > 0; }));
  // The host animates itself; only our loop is running.
  unsigned animation = AddTimer(10, [&] {
    gtk_widget_queue_draw(host.area);
    return true;
  });
  int before = host.draws;
  auto end = Clock::now() + std::chrono::seconds(5);
  while (host.draws < before + 5 && Clock::now() < end) Iterate(50);
  RemoveTimer(animation);
  EXPECT_GE(host.draws, before + 5);
}

}  // namespace
}  // namespace qmk::platform::ui::gtk3
