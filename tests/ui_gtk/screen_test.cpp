// screen_test.cpp: the monitor list and the clipboard of a real X server.
#include <gtest/gtest.h>

#include "platform/ui/gtk3/clipboard.h"
#include "platform/ui/gtk3/monitors.h"
#include "ui_gtk/gtk_session.h"

namespace qmk::platform::ui::gtk3 {
namespace {

class ScreenTest : public testing::GtkSession {};

TEST_F(ScreenTest, TheVirtualServerHasOnePrimaryMonitorOfItsScreenSize) {
  auto monitors = ListMonitors(gdk_display_get_default());
  ASSERT_EQ(monitors.size(), 1u);
  const Monitor& m = monitors[0];
  EXPECT_TRUE(m.primary);
  EXPECT_EQ(m.bounds, (Rect{0, 0, 1280, 1024}));
  EXPECT_EQ(m.dpi, 96);
  // Without a window manager the work area is the whole monitor; never larger.
  EXPECT_EQ(IntersectRect(m.work, m.bounds), m.work);
  EXPECT_FALSE(m.work.IsEmpty());
}

TEST(ScreenWithoutDisplay, NoMonitors) { EXPECT_TRUE(ListMonitors(nullptr).empty()); }

TEST_F(ScreenTest, ClipboardWithEmbeddedZeroStopsAtIt) {
  // Text on the clipboard is a C string to every reader; what follows a zero is not text.
  SetClipboardText(std::string("ab\0cd", 5));
  EXPECT_EQ(GetClipboardText().value_or("?"), std::string("ab"));
}

TEST_F(ScreenTest, ClearedClipboardHasNoText) {
  SetClipboardText("x");
  gtk_clipboard_clear(gtk_clipboard_get(GDK_SELECTION_CLIPBOARD));
  EXPECT_FALSE(ClipboardHasText());
  EXPECT_FALSE(GetClipboardText().has_value());
}

}  // namespace
}  // namespace qmk::platform::ui::gtk3
