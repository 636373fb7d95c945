// top_level_test.cpp: a top-level window on a real X server: GTK's input arrives in the window
// system's terms, our back buffer is what the screen shows, and a host's window is its parent.
#include "platform/ui/gtk3/top_level.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ui_gtk/gtk_session.h"

// Xlib's macros (None, Bool, ...) clash with GoogleTest's names, so it comes last.
#include <gdk/gdkx.h>

namespace qmk::platform::ui::gtk3 {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace qmk::testing;  // NOLINT: the input and screenshot helpers

// Writes each report as a short line, so that a test states what the window system would see.
class Recorder : public WindowEvents {
 public:
  std::vector<std::string> log;
  void OnKey(const KeyInput& k) override {
    log.push_back(Format("key %s %02X mods %u%s", k.down ? "down" : "up", k.virtual_key,
                         k.modifiers, k.repeat ? " repeat" : ""));
  }
  void OnChar(char32_t ch, unsigned mods) override {
    log.push_back(Format("char %u mods %u", unsigned(ch), mods));
  }
  void OnPointer(const PointerInput& p) override {
    static const char* kActions[] = {"move", "down", "up", "double", "wheel", "leave"};
    static const char* kButtons[] = {"-", "left", "right", "middle"};
    log.push_back(Format("%s %s %d,%d buttons %u wheel %d", kActions[int(p.action)],
                         kButtons[int(p.button)], p.at.x, p.at.y, p.buttons, p.wheel_delta));
  }
  void OnFocus(bool gained) override { log.push_back(gained ? "focus in" : "focus out"); }
  void OnConfigured(const Rect& r) override {
    configured = {r.left, r.top, r.Width(), r.Height()};
    ++configures;
  }
  void OnExposed(const Rect& r) override { ++exposes; }
  void OnCloseRequest() override { log.push_back("close"); }

  int exposes = 0;
  std::vector<int> configured;
  int configures = 0;

 private:
  template <typename... Args>
  static std::string Format(const char* format, Args... args) {
    char buffer[128];
    std::snprintf(buffer, sizeof buffer, format, args...);
    return buffer;
  }
};

class TopLevelTest : public testing::GtkSession {
 protected:
  void Open(int x = 100, int y = 80, int width = 200, int height = 120) {
    TopLevelOptions options;
    options.title = "test window";
    options.screen_rect = {x, y, x + width, y + height};
    window = std::make_unique<TopLevel>(options, &events);
    window->Show(true);
    ASSERT_TRUE(PumpUntil([&] { return gtk_widget_get_mapped(Widget()) && events.configures > 0; }));
    Drain();
    events.log.clear();
  }
  GtkWidget* Widget() { return GTK_WIDGET(window->gtk_window()); }
  GtkWidget* Area() { return gtk_bin_get_child(GTK_BIN(window->gtk_window())); }
  void Key(guint keyval, guint state = 0) {
    PutKey(Widget(), true, keyval, state);
    PutKey(Widget(), false, keyval, state);
    Drain();
  }

  Recorder events;
  std::unique_ptr<TopLevel> window;
};

TEST_F(TopLevelTest, ALetterIsAKeyThenItsTextThenTheRelease) {
  Open();
  Key(GDK_KEY_a);
  EXPECT_THAT(events.log, ElementsAre("key down 41 mods 0", "char 97 mods 0", "key up 41 mods 0"));
}

TEST_F(TopLevelTest, ShiftedKeysKeepTheirUnshiftedCode) {
  Open();
  Key(GDK_KEY_exclam, GDK_SHIFT_MASK);
  Key(GDK_KEY_A, GDK_SHIFT_MASK);
  EXPECT_THAT(events.log, ElementsAre("key down 31 mods 1", "char 33 mods 1", "key up 31 mods 1",
                                      "key down 41 mods 1", "char 65 mods 1", "key up 41 mods 1"));
}

TEST_F(TopLevelTest, DialogKeysSendControlCharactersAndNoText) {
  Open();
  Key(GDK_KEY_Tab);
  Key(GDK_KEY_Return);
  Key(GDK_KEY_Escape);
  Key(GDK_KEY_BackSpace);
  EXPECT_THAT(events.log,
              ElementsAre("key down 09 mods 0", "char 9 mods 0", "key up 09 mods 0", "key down 0D mods 0",
                          "char 13 mods 0", "key up 0D mods 0", "key down 1B mods 0", "char 27 mods 0",
                          "key up 1B mods 0", "key down 08 mods 0", "char 8 mods 0", "key up 08 mods 0"));
}

TEST_F(TopLevelTest, ControlLettersSendControlCodesAndAltLettersTheirCharacter) {
  Open();
  Key(GDK_KEY_c, GDK_CONTROL_MASK);
  Key(GDK_KEY_o, GDK_MOD1_MASK);  // a mnemonic: the window system makes it a system character
  Key(GDK_KEY_F4, GDK_MOD1_MASK);
  EXPECT_THAT(events.log, ElementsAre("key down 43 mods 2", "char 3 mods 2", "key up 43 mods 2",
                                      "key down 4F mods 4", "char 111 mods 4", "key up 4F mods 4",
                                      "key down 73 mods 4", "key up 73 mods 4"));
}

TEST_F(TopLevelTest, ANonLatinCharacterArrivesAsOneCodePoint) {
  Open();
  Key(GDK_KEY_Cyrillic_ya);
  Key(GDK_KEY_EuroSign);
  // Keys of another layout have no code here; their characters still come through.
  EXPECT_THAT(events.log, ElementsAre("char 1103 mods 0", "char 8364 mods 0"));
}

TEST_F(TopLevelTest, HeldKeyRepeatsUntilReleased) {
  Open();
  PutKey(Widget(), true, GDK_KEY_Down);
  PutKey(Widget(), true, GDK_KEY_Down);
  PutKey(Widget(), false, GDK_KEY_Down);
  PutKey(Widget(), true, GDK_KEY_Down);
  Drain();
  EXPECT_THAT(events.log, ElementsAre("key down 28 mods 0", "key down 28 mods 0 repeat",
                                      "key up 28 mods 0", "key down 28 mods 0"));
}

TEST_F(TopLevelTest, ButtonsReportWhatIsHeldAfterTheEvent) {
  Open();
  PutButton(Area(), GDK_BUTTON_PRESS, 1, 10.6, 20.2);
  PutButton(Area(), GDK_BUTTON_PRESS, 3, 11, 21, GDK_BUTTON1_MASK);
  PutButton(Area(), GDK_BUTTON_RELEASE, 3, 11, 21, GDK_BUTTON1_MASK | GDK_BUTTON3_MASK);
  PutButton(Area(), GDK_BUTTON_RELEASE, 1, 12, 22, GDK_BUTTON1_MASK);
  PutButton(Area(), GDK_BUTTON_PRESS, 8, 12, 22);  // a side button sends nothing
  Drain();
  EXPECT_THAT(events.log,
              ElementsAre("down left 10,20 buttons 1 wheel 0", "down right 11,21 buttons 3 wheel 0",
                          "up right 11,21 buttons 1 wheel 0", "up left 12,22 buttons 0 wheel 0"));
}

TEST_F(TopLevelTest, TheSecondPressOfADoubleClickIsTheDoubleClick) {
  Open();
  auto click = [&](guint button, double x, GdkEventType type = GDK_BUTTON_PRESS) {
    PutButton(Area(), type, button, x, 10);
    if (type == GDK_BUTTON_PRESS) PutButton(Area(), GDK_BUTTON_RELEASE, button, x, 10);
  };
  click(1, 10);
  click(1, 11);
  click(1, 10, GDK_2BUTTON_PRESS);  // GTK's own report of the same double press: not again
  click(1, 10);                     // a third press starts over
  click(3, 10);                     // another button is no double click
  click(3, 40);                     // too far away
  Drain();
  std::vector<std::string> presses;
  for (auto& line : events.log)
    if (line.rfind("up", 0) != 0) presses.push_back(line.substr(0, line.find(" buttons")));
  EXPECT_THAT(presses, ElementsAre("down left 10,10", "double left 11,10", "down left 10,10",
                                   "down right 10,10", "down right 40,10"));
}

TEST_F(TopLevelTest, WheelNotchesAndSmoothScrollingInTwelfthsOfAHundredAndTwenty) {
  Open();
  PutScroll(Area(), GDK_SCROLL_UP);
  PutScroll(Area(), GDK_SCROLL_DOWN);
  // A touchpad: a quarter notch down, then half a notch up in two steps of 0.25.
  PutScroll(Area(), GDK_SCROLL_SMOOTH, 0.25);
  PutScroll(Area(), GDK_SCROLL_SMOOTH, -0.25);
  PutScroll(Area(), GDK_SCROLL_SMOOTH, -0.004);  // less than a unit: kept for later
  PutScroll(Area(), GDK_SCROLL_SMOOTH, -0.005);
  PutScroll(Area(), GDK_SCROLL_LEFT);            // sideways: nothing
  Drain();
  EXPECT_THAT(events.log,
              ElementsAre("wheel - 5,6 buttons 0 wheel 120", "wheel - 5,6 buttons 0 wheel -120",
                          "wheel - 5,6 buttons 0 wheel -30", "wheel - 5,6 buttons 0 wheel 30",
                          "wheel - 5,6 buttons 0 wheel 1"));
}

TEST_F(TopLevelTest, CloseButtonAsksAndLeavesTheWindowOpen) {
  Open();
  GdkEvent* event = gdk_event_new(GDK_DELETE);
  event->any.window = GDK_WINDOW(g_object_ref(gtk_widget_get_window(Widget())));
  gdk_display_put_event(gdk_display_get_default(), event);
  gdk_event_free(event);
  Drain();
  EXPECT_THAT(events.log, ElementsAre("close"));
  EXPECT_TRUE(gtk_widget_get_visible(Widget()));
}

TEST_F(TopLevelTest, FirstShowAsksForAPictureOnce) {
  Open();
  EXPECT_EQ(events.exposes, 1);
  window->Invalidate({0, 0, 10, 10});
  Drain();
  EXPECT_EQ(events.exposes, 1);
}

TEST_F(TopLevelTest, ResizeIsReportedAndTheBackBufferKeepsItsPicture) {
  Open(100, 80, 200, 120);
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 200, 120);
  cairo_t* cr = cairo_create(image);
  cairo_set_source_rgb(cr, 0, 0, 1);
  cairo_paint(cr);
  cairo_destroy(cr);
  window->Present(image, {0, 0, 200, 120});
  cairo_surface_destroy(image);
  window->Resize(300, 150);
  ASSERT_TRUE(PumpUntil([&] { return events.configured.size() == 4 && events.configured[2] == 300; }));
  EXPECT_THAT(events.configured, ElementsAre(100, 80, 300, 150));
  EXPECT_EQ(window->back_width(), 300);
  EXPECT_EQ(window->back_height(), 150);
  cairo_surface_flush(window->back_buffer());
  auto* pixels = reinterpret_cast<uint32_t*>(cairo_image_surface_get_data(window->back_buffer()));
  int stride = cairo_image_surface_get_stride(window->back_buffer()) / 4;
  EXPECT_EQ(pixels[119 * stride + 199] & 0xFFFFFF, 0x0000FFu) << "old picture lost";
  EXPECT_EQ(pixels[149 * stride + 299] & 0xFFFFFF, 0xFFFFFFu) << "new part not blank";
}

TEST_F(TopLevelTest, AWindowLargerThanAPictureCanBeIsCutToTheLargest) {
  TopLevelOptions options;
  options.screen_rect = {0, 0, 100000, 40};
  TopLevel huge(options, &events);
  EXPECT_EQ(huge.back_width(), TopLevel::kMaxSide);
  EXPECT_EQ(huge.back_height(), 40);
  EXPECT_EQ(cairo_surface_status(huge.back_buffer()), CAIRO_STATUS_SUCCESS);
  huge.Resize(-5, 0);
  EXPECT_EQ(huge.back_width(), 1);
  EXPECT_EQ(huge.back_height(), 1);
}

TEST_F(TopLevelTest, TheScreenShowsWhatWasPresented) {
  Open(100, 80, 200, 120);
  cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 200, 120);
  cairo_t* cr = cairo_create(image);
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  cairo_set_source_rgb(cr, 0.8, 0, 0);
  cairo_rectangle(cr, 20, 10, 60, 40);
  cairo_fill(cr);
  cairo_set_source_rgb(cr, 0, 0.5, 0);
  cairo_rectangle(cr, 120, 60, 60, 40);
  cairo_fill(cr);
  cairo_destroy(cr);
  // Only the left half is presented: the green box must not reach the screen yet.
  window->Present(image, {0, 0, 100, 120});
  ASSERT_TRUE(PumpUntil([&] {
    Drain();
    GdkPixbuf* shot = Screenshot(100, 80, 200, 120);
    bool red = PixelAt(shot, 50, 30) == 0xCC0000;
    g_object_unref(shot);
    return red;
  })) << "the red box never reached the screen";
  GdkPixbuf* shot = Screenshot(100, 80, 200, 120);
  gdk_pixbuf_save(shot, testing::ShotPath("ui_gtk_present.png").c_str(), "png", nullptr, nullptr);
  EXPECT_EQ(PixelAt(shot, 10, 5), 0xFFFFFFu);
  EXPECT_EQ(PixelAt(shot, 150, 80), 0xFFFFFFu) << "a part never presented is on the screen";
  g_object_unref(shot);
  cairo_surface_destroy(image);
}

TEST_F(TopLevelTest, HostX11WindowBecomesTheTransientParent) {
  GtkWidget* host = gtk_window_new(GTK_WINDOW_TOPLEVEL);
  gtk_widget_show(host);
  Drain();
  Open();
  Window host_xid = gdk_x11_window_get_xid(gtk_widget_get_window(host));
  ASSERT_TRUE(window->SetTransientForX11(host_xid));
  Drain();
  Window parent = 0;
  Display* x = gdk_x11_display_get_xdisplay(gdk_display_get_default());
  ASSERT_TRUE(XGetTransientForHint(x, gdk_x11_window_get_xid(gtk_widget_get_window(Widget())), &parent));
  EXPECT_EQ(parent, host_xid);
  EXPECT_EQ(gtk_window_get_type_hint(window->gtk_window()), GDK_WINDOW_TYPE_HINT_DIALOG);
  // An id that is no window of the server is refused, and the parent stays.
  gdk_x11_display_error_trap_push(gdk_display_get_default());
  EXPECT_FALSE(window->SetTransientForX11(0x7FFFFF0));
  gdk_x11_display_error_trap_pop_ignored(gdk_display_get_default());
  EXPECT_FALSE(window->SetTransientForX11(0));
  Drain();
  ASSERT_TRUE(XGetTransientForHint(x, gdk_x11_window_get_xid(gtk_widget_get_window(Widget())), &parent));
  EXPECT_EQ(parent, host_xid);
  window.reset();
  gtk_widget_destroy(host);
}

TEST_F(TopLevelTest, DestroyingAFocusedWindowReportsNothingMore) {
  Open();
  window->Focus();
  Drain();
  events.log.clear();
  window.reset();
  Drain();
  EXPECT_THAT(events.log, IsEmpty());
}

}  // namespace
}  // namespace qmk::platform::ui::gtk3
