// scale_test.cpp: a desktop scaled by 2: monitors, window sizes and pointer positions in device
// pixels. GTK takes its scale once per process, so the checks run in a child process of this
// test program with GDK_SCALE=2.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>

#include <memory>

#include "platform/ui/gtk3/monitors.h"
#include "platform/ui/gtk3/top_level.h"
#include "ui_gtk/gtk_session.h"

extern char** environ;

namespace qmk::platform::ui::gtk3 {
namespace {

using namespace qmk::testing;  // NOLINT: pumping and input helpers

constexpr const char* kChildMark = "QMK_GTK_SCALE_CHILD";

class PointerLog : public WindowEvents {
 public:
  std::vector<Point> downs;
  Rect configured;
  void OnKey(const KeyInput&) override {}
  void OnChar(char32_t, unsigned) override {}
  void OnPointer(const PointerInput& p) override {
    if (p.action == MouseAction::Down) downs.push_back(p.at);
  }
  void OnFocus(bool) override {}
  void OnConfigured(const Rect& r) override { configured = r; }
  void OnExposed(const Rect&) override {}
  void OnCloseRequest() override {}
};

class ScaledDesktop : public GtkSession {};

TEST_F(ScaledDesktop, EverythingIsInDevicePixels) {
  if (!getenv(kChildMark)) {
    // The parent: runs this same test in a child whose GTK starts scaled.
    std::string filter = "--gtest_filter=ScaledDesktop.EverythingIsInDevicePixels";
    char* argv[] = {const_cast<char*>("/proc/self/exe"), filter.data(), const_cast<char*>("--gtest_brief=1"),
                    nullptr};
    std::vector<std::string> env_text = {std::string(kChildMark) + "=1", "GDK_SCALE=2"};
    std::vector<char*> env;
    for (auto& e : env_text) env.push_back(e.data());
    for (char** e = environ; *e; ++e)
      if (strncmp(*e, "GDK_SCALE=", 10) != 0) env.push_back(*e);
    env.push_back(nullptr);
    pid_t child = 0;
    ASSERT_EQ(posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, argv, env.data()), 0);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "the scaled run failed (its output is above)";
    return;
  }
  auto monitors = ListMonitors(gdk_display_get_default());
  ASSERT_EQ(monitors.size(), 1u);
  EXPECT_EQ(monitors[0].bounds, (Rect{0, 0, 1280, 1024}));
  EXPECT_EQ(monitors[0].dpi, 192);

  PointerLog events;
  TopLevelOptions options;
  options.screen_rect = {100, 80, 300, 180};
  auto window = std::make_unique<TopLevel>(options, &events);
  EXPECT_EQ(window->scale(), 2);
  window->Show(true);
  ASSERT_TRUE(PumpUntil([&] { return gtk_widget_get_mapped(GTK_WIDGET(window->gtk_window())); }));
  Drain();
  gint w = 0, h = 0;
  gtk_window_get_size(window->gtk_window(), &w, &h);
  EXPECT_EQ(w, 100);  // logical pixels: half the device pixels
  EXPECT_EQ(h, 50);
  EXPECT_EQ(window->back_width(), 200);
  EXPECT_EQ(window->back_height(), 100);
  PutButton(gtk_bin_get_child(GTK_BIN(window->gtk_window())), GDK_BUTTON_PRESS, 1, 10.5, 20.25);
  Drain();
  EXPECT_THAT(events.downs, ::testing::ElementsAre(Point{21, 40}));
}

}  // namespace
}  // namespace qmk::platform::ui::gtk3
