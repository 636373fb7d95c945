// gtk_session.h: what the live GTK tests share: a fixture that runs them on the virtual X
// server (or skips them), pumping until something happens, synthesized GDK input, screenshots.
#pragma once

#include <gtest/gtest.h>
#include <gtk/gtk.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/ui/gtk3/main_loop.h"
#include "support/xvfb.h"

namespace qmk::testing {

// Makes the window system take the GTK module built beside the tests. It picks its back end once,
// on first need, so the environment must be set before anything asks.
inline void UseGtkModule() {
  static const bool chosen = [] {
    setenv("QMK_UI", "gtk3", 1);
    setenv("QMK_UI_MODULE_DIR", std::filesystem::path(QMK_UI_GTK3_MODULE).parent_path().c_str(), 1);
    return true;
  }();
  (void)chosen;
}

// Counts GLib warnings and criticals, which GTK prints instead of failing on misuse.
inline int& GtkComplaints() {
  static int count = 0;
  return count;
}

class GtkSession : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    static bool writer_set = false;
    if (writer_set) return;
    writer_set = true;
    g_log_set_writer_func(
        [](GLogLevelFlags level, const GLogField* fields, gsize n, gpointer) {
          if (level & (G_LOG_LEVEL_WARNING | G_LOG_LEVEL_CRITICAL)) ++GtkComplaints();
          return g_log_writer_default(level, fields, n, nullptr);
        },
        nullptr, nullptr);
  }

  void SetUp() override {
    QMK_REQUIRE_XVFB();
    // The accessibility bridge talks to a session bus that tests don't have, and never frees
    // what it set up for it; tests have nothing to say to it.
    setenv("NO_AT_BRIDGE", "1", 0);
    ASSERT_TRUE(platform::ui::gtk3::EnsureGtk()) << "GTK cannot open " << getenv("DISPLAY");
    complaints_before_ = GtkComplaints();
  }
  void TearDown() override {
    if (IsSkipped()) return;
    Drain();
    EXPECT_EQ(GtkComplaints(), complaints_before_) << "GTK printed warnings or criticals";
  }

  // Iterates the main loop until `done` holds or `limit_ms` passed; returns `done()`.
  static bool PumpUntil(const std::function<bool()>& done, int limit_ms = 5000) {
    auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(limit_ms);
    while (!done()) {
      if (std::chrono::steady_clock::now() > end) return false;
      platform::ui::gtk3::Iterate(10);
    }
    return true;
  }
  // Dispatches everything pending, and the X server's answers to it.
  static void Drain() {
    gdk_display_sync(gdk_display_get_default());
    while (g_main_context_iteration(nullptr, FALSE)) {
    }
  }

 private:
  int complaints_before_ = 0;
};

// Queues a key event for `window` as if the X server sent it: `keyval` with its hardware key.
inline void PutKey(GtkWidget* window, bool press, guint keyval, guint state = 0) {
  GdkDisplay* display = gtk_widget_get_display(window);
  GdkEvent* event = gdk_event_new(press ? GDK_KEY_PRESS : GDK_KEY_RELEASE);
  event->key.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(window)));
  event->key.send_event = FALSE;
  event->key.time = GDK_CURRENT_TIME;
  event->key.state = state;
  event->key.keyval = keyval;
  GdkKeymapKey* keys = nullptr;
  gint count = 0;
  if (gdk_keymap_get_entries_for_keyval(gdk_keymap_get_for_display(display), keyval, &keys, &count) &&
      count > 0) {
    event->key.hardware_keycode = static_cast<guint16>(keys[0].keycode);
    event->key.group = static_cast<guint8>(keys[0].group);
  }
  g_free(keys);
  gdk_event_set_device(event, gdk_seat_get_keyboard(gdk_display_get_default_seat(display)));
  gdk_display_put_event(display, event);
  gdk_event_free(event);
}

// Queues a button event (press, double press or release) for the GdkWindow of `widget`.
inline void PutButton(GtkWidget* widget, GdkEventType type, guint button, double x, double y,
                      guint state = 0) {
  GdkDisplay* display = gtk_widget_get_display(widget);
  GdkEvent* event = gdk_event_new(type);
  event->button.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(widget)));
  event->button.time = GDK_CURRENT_TIME;
  event->button.x = x;
  event->button.y = y;
  event->button.button = button;
  event->button.state = state;
  gdk_event_set_device(event, gdk_seat_get_pointer(gdk_display_get_default_seat(display)));
  gdk_display_put_event(display, event);
  gdk_event_free(event);
}

inline void PutScroll(GtkWidget* widget, GdkScrollDirection direction, double delta_y = 0) {
  GdkDisplay* display = gtk_widget_get_display(widget);
  GdkEvent* event = gdk_event_new(GDK_SCROLL);
  event->scroll.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(widget)));
  event->scroll.time = GDK_CURRENT_TIME;
  event->scroll.x = 5;
  event->scroll.y = 6;
  event->scroll.direction = direction;
  event->scroll.delta_y = delta_y;
  gdk_event_set_device(event, gdk_seat_get_pointer(gdk_display_get_default_seat(display)));
  gdk_display_put_event(display, event);
  gdk_event_free(event);
}

// What the X server shows in a part of the screen, as a person would see it.
inline GdkPixbuf* Screenshot(int x, int y, int width, int height) {
  return gdk_pixbuf_get_from_window(gdk_get_default_root_window(), x, y, width, height);
}

// The RGB of a pixel of a screenshot, as 0xRRGGBB.
inline unsigned PixelAt(GdkPixbuf* shot, int x, int y) {
  const guchar* p = gdk_pixbuf_get_pixels(shot) + y * gdk_pixbuf_get_rowstride(shot) +
                    x * gdk_pixbuf_get_n_channels(shot);
  return (unsigned(p[0]) << 16) | (unsigned(p[1]) << 8) | p[2];
}

// Where the pictures a person looks at go: the build's test folder under CTest, else the
// temporary folder (never the source tree a test may be started from).
inline std::string ShotPath(const std::string& name) {
  const char* dir = getenv("QMK_TEST_OUTPUT_DIR");
  return (dir ? std::filesystem::path(dir) : std::filesystem::temp_directory_path()) / name;
}

}  // namespace qmk::testing
