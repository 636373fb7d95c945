// rich_content_live_test.cpp: the rich content control live on the GTK back end under Xvfb: the
// screen shows the document, the wheel turned on the real window scrolls it, and hit tests
// answer for what the screen shows.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/ui/backend.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/richcontent/rich_content_window.h"
#include "ui_gtk/gtk_session.h"

namespace qmk::toolkit::richcontent {
namespace {

namespace ui = platform::ui;
using namespace qmk::testing;  // NOLINT: pumping and screenshot helpers

constexpr const char* kHostClass = "QmkRichLiveHost";
constexpr int kWidth = 300, kHeight = 160;

// A red band on top, then enough paragraphs to need the bar.
std::string Document() {
  std::string html = "<html><body style=\"margin: 0\"><div id=band style=\"height: 40px; background-color: #ff0000\"></div>";
  for (int i = 0; i < 30; ++i) html += "<p id=p" + std::to_string(i) + ">Paragraph " + std::to_string(i) + " of the live document.</p>";
  return html + "</body></html>";
}

class RichContentLive : public GtkSession {
 protected:
  void SetUp() override {
    GtkSession::SetUp();
    if (IsSkipped() || HasFatalFailure()) return;
    UseGtkModule();
    ASSERT_STREQ(ui::CurrentBackend().Name(), "gtk3") << "the GTK module did not load";
    ui::WNDCLASS wc;
    if (!ui::GetClassInfo(kHostClass, &wc)) {
      wc.lpszClassName = kHostClass;
      wc.lpfnWndProc = &ui::DefWindowProc;
      ASSERT_TRUE(ui::RegisterClass(wc));
    }
    ASSERT_TRUE(RegisterRichContentClass());
    host_ = ui::CreateWindowEx(0, kHostClass, "Rich content live", ui::WS_POPUP, 40, 40, kWidth, kHeight, nullptr, 0, nullptr);
    ASSERT_NE(host_, nullptr);
    control_ = ui::CreateWindowEx(0, kRichContentClassName, Document().c_str(), ui::WS_CHILD | ui::WS_VISIBLE, 0, 0,
                                  kWidth, kHeight, host_, 7, nullptr);
    ASSERT_NE(control_, nullptr);
    ui::ShowWindow(host_, ui::SW_SHOW);
    native_ = nullptr;
    ASSERT_TRUE(PumpUntil([&] {
      ui::PumpMessages(0);
      GList* all = gtk_window_list_toplevels();
      for (GList* l = all; l; l = l->next)
        if (g_strcmp0(gtk_window_get_title(GTK_WINDOW(l->data)), "Rich content live") == 0 &&
            gtk_widget_get_mapped(GTK_WIDGET(l->data)))
          native_ = GTK_WIDGET(l->data);
      g_list_free(all);
      return native_ != nullptr;
    })) << "the host window never showed";
  }
  void TearDown() override {
    if (host_) ui::DestroyWindow(host_);
    GtkSession::TearDown();
  }

  // The screen's colour at a client point of the control, as 0xRRGGBB.
  unsigned ScreenPixel(int x, int y) {
    ui::Point p{x, y};
    ui::ClientToScreen(control_, &p);
    GdkPixbuf* shot = Screenshot(p.x, p.y, 1, 1);
    if (!shot) return 0xDEADBEEF;
    const unsigned rgb = PixelAt(shot, 0, 0);
    g_object_unref(shot);
    return rgb;
  }
  void SaveShot(const std::string& name) {
    ui::Rect r;
    ui::GetWindowRect(host_, &r);
    if (GdkPixbuf* shot = Screenshot(r.left, r.top, r.Width(), r.Height())) {
      gdk_pixbuf_save(shot, ShotPath(name).c_str(), "png", nullptr, nullptr);
      g_object_unref(shot);
    }
  }
  bool ScreenShows(int x, int y, unsigned rgb) {
    return PumpUntil([&] {
      ui::PumpMessages(0);
      Drain();
      return ScreenPixel(x, y) == rgb;
    });
  }

  ui::HWND host_ = nullptr, control_ = nullptr;
  GtkWidget* native_ = nullptr;
};

TEST_F(RichContentLive, ShowsTheDocumentAndScrollsWithTheWheel) {
  EXPECT_TRUE(ScreenShows(20, 20, 0xFF0000)) << "the red band is not on the screen";
  SaveShot("rich_content_live_top.png");
  // The theme-drawn bar stands at the right edge: not the page's white.
  EXPECT_NE(ScreenPixel(kWidth - RichContentView::kBarWidth / 2, kHeight / 2), 0xFFFFFFu);

  ui::SetFocus(control_);
  // The top-level's child is the drawing area that takes GTK's input.
  GtkWidget* area = gtk_bin_get_child(GTK_BIN(native_));
  for (int i = 0; i < 3; ++i) PutScroll(area, GDK_SCROLL_DOWN);
  EXPECT_TRUE(PumpUntil([&] {
    ui::PumpMessages(0);
    return ui::SendMessage(control_, RCM_GETSCROLLPOS, 0, 0) >= 40;
  })) << "the wheel did not scroll; position " << ui::SendMessage(control_, RCM_GETSCROLLPOS, 0, 0);
  EXPECT_TRUE(ScreenShows(20, 5, 0xFFFFFF)) << "the band should have scrolled away";
  SaveShot("rich_content_live_scrolled.png");
}

TEST_F(RichContentLive, HitTestsAnswerForWhatTheScreenShows) {
  ASSERT_TRUE(ScreenShows(20, 20, 0xFF0000));
  auto at = [&](int x, int y) {
    return reinterpret_cast<CExtRichContentItem*>(ui::SendMessage(control_, RCM_HITTEST, 0, ui::MAKELPARAM(x, y)));
  };
  ASSERT_NE(at(20, 20), nullptr);
  EXPECT_EQ(at(20, 20)->m_strId, "band");
  EXPECT_EQ(ui::SendMessage(control_, RCM_SETSCROLLPOS, 100000, 0), 1);
  RichContentView* view = RichContentViewOf(control_);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(ui::SendMessage(control_, RCM_GETSCROLLPOS, 0, 0), view->MaxScroll());
  CExtRichContentItem* last = at(20, kHeight - 10);
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->m_strId, "p29") << "the bottom of the scrolled view holds the last paragraph";
  EXPECT_TRUE(ScreenShows(20, 20, 0xFFFFFF)) << "the screen follows the position set";
}

}  // namespace
}  // namespace qmk::toolkit::richcontent
