// themed_widgets_test.cpp: the scroll bar, tab strip and list box drawn by the theme: clicks land
// on the parts as drawn, the owner hears what the plain control tells, and the colours are the
// theme's own.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "dialog_controls/themed_fixture.h"
#include "support/theme_families.h"
#include "platform/ui/control_messages.h"
#include "platform/ui/headless.h"
#include "toolkit/dialogs/subclass_controls.h"
#include "toolkit/dialogs/themed_list_box.h"
#include "toolkit/dialogs/themed_list_rows.h"
#include "toolkit/dialogs/themed_scroll_bar.h"
#include "toolkit/dialogs/themed_tab_strip.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::testing {
namespace {

using namespace toolkit;
using platform::ui::controls::testing::Heard;

constexpr int kDarkTheme = 29759;  // a dark look, far from the plain control's light grey

uint32_t Rgb(uint32_t pixel) { return pixel & 0xFFFFFF; }

class ThemedWidgets : public ThemedTest {
 protected:
  // The scroll codes the host heard from control `id`.
  static std::vector<unsigned> ScrollCodes(int id) {
    std::vector<unsigned> out;
    for (const Heard& h : HeardLog())
      if ((h.message == WM_HSCROLL || h.message == WM_VSCROLL) && h.id == id) out.push_back(h.code);
    return out;
  }
};

TEST_F(ThemedWidgets, TheSubclassingWalkThemesScrollBars) {
  HWND bar = Make(kScrollBarClass, "", SBS_HORZ, {10, 10, 210, 27}, 7);
  EXPECT_EQ(SubclassChildControls(host_), 1);
  EXPECT_NE(dynamic_cast<ThemedScrollBar*>(ThemedControl::FromHandle(bar)), nullptr);
}

struct BarCase {
  const char* name;
  uint32_t style;
  Rect rect;
  int max, page, pos;
};

TEST_F(ThemedWidgets, ScrollBarClicksLandOnThePartsTheThemeDraws) {
  ASSERT_TRUE(SelectFamilyTheme(kDarkTheme));
  const BarCase cases[] = {
      {"horizontal", SBS_HORZ, {10, 10, 210, 27}, 100, 0, 30},
      {"vertical, paged", SBS_VERT, {10, 10, 27, 250}, 200, 40, 100},
      {"at the end", SBS_HORZ, {10, 10, 300, 27}, 50, 10, 41},
      {"short", SBS_HORZ, {10, 10, 80, 27}, 1000, 0, 999},
  };
  for (const BarCase& c : cases) {
    HWND bar = Make(kScrollBarClass, "", c.style, c.rect, 7);
    auto* themed = new ThemedScrollBar;
    ASSERT_TRUE(themed->SubclassWindow(bar));
    themed->SetAutoDelete(true);
    Send(bar, SBM_SETRANGE, 0, c.max);
    platform::ui::controls::SCROLLINFO info;
    info.fMask = platform::ui::controls::SIF_PAGE;
    info.nPage = static_cast<uint32_t>(c.page);
    Send(bar, platform::ui::controls::SBM_SETSCROLLINFO, 1, reinterpret_cast<LPARAM>(&info));
    Send(bar, SBM_SETPOS, static_cast<WPARAM>(c.pos), 1);
    Rect client;
    GetClientRect(bar, &client);
    const theme::PAINTSCROLLBARDATA d = themed->Data(client);
    ASSERT_FALSE(d.m_rcThumb.IsEmpty()) << c.name;
    struct Click {
      Point at;
      unsigned code;
    };
    const Click clicks[] = {{Centre(d.m_rcButtonUp), SB_LINEUP},
                            {Centre(d.m_rcButtonDown), SB_LINEDOWN},
                            {Centre(d.m_rcThumb), SB_THUMBPOSITION}};
    for (const Click& k : clicks) {
      HeardLog().clear();
      ClickAt(bar, k.at);
      const std::vector<unsigned> codes = ScrollCodes(7);
      EXPECT_NE(std::find(codes.begin(), codes.end(), k.code), codes.end())
          << c.name << ": no code " << k.code << " at " << k.at.x << "," << k.at.y;
    }
    DestroyWindow(bar);
  }
}

TEST_F(ThemedWidgets, ScrollBarIsDrawnInTheThemesColours) {
  ASSERT_TRUE(SelectFamilyTheme(kDarkTheme));
  HWND bar = Make(kScrollBarClass, "", SBS_HORZ, {10, 10, 210, 27}, 7);
  Send(bar, SBM_SETRANGE, 0, 100);
  Send(bar, SBM_SETPOS, 30, 1);
  auto* themed = new ThemedScrollBar;
  ASSERT_TRUE(themed->SubclassWindow(bar));
  themed->SetAutoDelete(true);
  Rect client;
  GetClientRect(bar, &client);
  theme::PAINTSCROLLBARDATA d = themed->Data(client);
  platform::DrawTarget expected(client.Width(), client.Height());
  theme::g_PaintManager()->PaintScrollBar(expected, d);
  auto picture = RenderWindow(bar);
  ASSERT_NE(picture, nullptr);
  for (const Point p : {Centre(d.m_rcThumb), Centre(d.m_rcPageDown), Centre(d.m_rcButtonUp)})
    EXPECT_EQ(Rgb(picture->GetPixel(p.x, p.y)), Rgb(expected.GetPixel(p.x, p.y))) << p.x << "," << p.y;
}

TEST_F(ThemedWidgets, TheDrawnThumbFollowsADragBeforeTheOwnerMovesTheBar) {
  HWND bar = Make(kScrollBarClass, "", SBS_HORZ, {10, 10, 310, 27}, 7);
  Send(bar, SBM_SETRANGE, 0, 100);
  Send(bar, SBM_SETPOS, 10, 1);
  auto* themed = new ThemedScrollBar;
  ASSERT_TRUE(themed->SubclassWindow(bar));
  themed->SetAutoDelete(true);
  Rect client;
  GetClientRect(bar, &client);
  const platform::DrawRect before = themed->Data(client).m_rcThumb;
  const Point grip = Centre(before);
  Send(bar, WM_LBUTTONDOWN, 1, MAKELPARAM(grip.x, grip.y));
  Send(bar, WM_MOUSEMOVE, 1, MAKELPARAM(grip.x + 60, grip.y));
  const theme::PAINTSCROLLBARDATA dragging = themed->Data(client);
  EXPECT_GT(dragging.m_rcThumb.left, before.left + 40);
  EXPECT_EQ(dragging.m_nStateThumb, static_cast<unsigned>(theme::kStatePressed));
  EXPECT_EQ(Send(bar, SBM_GETPOS), 10) << "the owner hasn't moved the bar";
  Send(bar, WM_LBUTTONUP, 0, MAKELPARAM(grip.x + 60, grip.y));
  // Released, the thumb shows the bar's own position again (the host never moves it).
  EXPECT_EQ(themed->Data(client).m_rcThumb.left, before.left);
}

class TabStrip : public ThemedWidgets {
 protected:
  void SetUp() override {
    ThemedWidgets::SetUp();
    tabs_ = Make(kTabClass, "", 0, {10, 10, 310, 50}, 9);
    for (const char* title : {"General", "Paper", "Output"}) {
      std::string text = title;
      platform::ui::controls::TCITEM item;
      item.mask = platform::ui::controls::TCIF_TEXT;
      item.pszText = text.data();
      Send(tabs_, TCM_INSERTITEM, static_cast<WPARAM>(Send(tabs_, TCM_GETITEMCOUNT)), reinterpret_cast<LPARAM>(&item));
    }
    ASSERT_TRUE(strip_.SubclassWindow(tabs_));
    GetClientRect(tabs_, &client_);
    parts_ = theme::layout::TabStrip(*theme::g_PaintManager().GetPM(), client_, strip_.Titles());
    HeardLog().clear();
  }
  void TearDown() override {
    strip_.UnsubclassWindow();
    ThemedWidgets::TearDown();
  }
  HWND tabs_ = nullptr;
  ThemedTabStrip strip_;
  Rect client_;
  theme::layout::TabParts parts_;
};

TEST_F(TabStrip, AClickOnADrawnTabSelectsItAndTellsTheParent) {
  ASSERT_EQ(parts_.tabs.size(), 3u);
  EXPECT_EQ(strip_.Titles(), (std::vector<std::string>{"General", "Paper", "Output"}));
  for (int i : {2, 1, 0}) {
    // The right end of each drawn tab: past where the plain strip puts its narrower tabs.
    const platform::DrawRect& t = parts_.tabs[static_cast<size_t>(i)];
    ClickAt(tabs_, {t.right - 2, Centre(t).y});
    EXPECT_EQ(Send(tabs_, TCM_GETCURSEL), i);
  }
  EXPECT_EQ(Notices(9), (std::vector<unsigned>{TCN_SELCHANGING, TCN_SELCHANGE, TCN_SELCHANGING, TCN_SELCHANGE,
                                               TCN_SELCHANGING, TCN_SELCHANGE}));
}

TEST_F(TabStrip, TheParentCanRefuseAChangeAndClicksBesideTheTabsDoNothing) {
  Send(tabs_, TCM_SETCURSEL, 0);
  NotifyAnswer() = 1;
  ClickAt(tabs_, Centre(parts_.tabs[1]));
  EXPECT_EQ(Send(tabs_, TCM_GETCURSEL), 0);
  EXPECT_EQ(Notices(9), std::vector<unsigned>{TCN_SELCHANGING});
  NotifyAnswer() = 0;
  ClickAt(tabs_, {parts_.tabs.back().right + 5, Centre(parts_.tabs.back()).y});
  ClickAt(tabs_, Centre(parts_.tabs[0]));  // already selected
  EXPECT_EQ(Send(tabs_, TCM_GETCURSEL), 0);
  EXPECT_EQ(Notices(9), std::vector<unsigned>{TCN_SELCHANGING});
}

TEST_F(TabStrip, TheHotTabFollowsTheMouse) {
  Send(tabs_, WM_MOUSEMOVE, 0, MAKELPARAM(Centre(parts_.tabs[1]).x, Centre(parts_.tabs[1]).y));
  EXPECT_EQ(strip_.HotTab(), 1);
  Send(tabs_, kMsgMouseLeave);
  EXPECT_EQ(strip_.HotTab(), -1);
}

TEST_F(TabStrip, IsDrawnAsTheThemeDrawsAStrip) {
  ASSERT_TRUE(SelectFamilyTheme(kDarkTheme));
  Send(tabs_, TCM_SETCURSEL, 1);
  auto picture = RenderWindow(tabs_);
  ASSERT_NE(picture, nullptr);
  platform::DrawTarget expected(client_.Width(), client_.Height());
  theme::g_PaintManager()->PaintTabStrip(expected, {0, 0, client_.Width(), client_.Height()}, strip_.Titles(), 1, -1);
  int differ = 0;
  for (int y = 0; y < picture->height(); ++y)
    for (int x = 0; x < picture->width(); ++x)
      differ += Rgb(picture->GetPixel(x, y)) != Rgb(expected.GetPixel(x, y));
  // The strip's own rows match; only the parent's background under the pane may differ.
  EXPECT_LT(differ, picture->width() * picture->height() / 10);
}

TEST_F(ThemedWidgets, ListBoxRowsAreTheThemesAndClicksPickTheRowDrawn) {
  ASSERT_TRUE(SelectFamilyTheme(kDarkTheme));
  HWND list = Make(kListBoxClass, "", WS_BORDER | LBS_NOTIFY, {10, 10, 160, 110}, 11);
  for (const char* row : {"First sheet", "Second sheet", "Third sheet"})
    SendText(list, LB_ADDSTRING, 0, row);
  Send(list, LB_SETCURSEL, 1);
  ThemedListBox themed;
  ASSERT_TRUE(themed.SubclassWindow(list));
  auto& pm = *theme::g_PaintManager().GetPM();
  const ListColors colors = ListColorsOf(pm);
  Rect row;
  Send(list, platform::ui::controls::LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&row));
  auto picture = RenderWindow(list);
  ASSERT_NE(picture, nullptr);
  Rect client;
  GetClientRect(list, &client);
  Point origin{0, 0};
  ClientToScreen(list, &origin);
  Rect window;
  GetWindowRect(list, &window);
  const int dx = origin.x - window.left, dy = origin.y - window.top;
  // The selected row in the theme's highlight, the empty field below the rows in its field colour.
  EXPECT_EQ(Rgb(picture->GetPixel(dx + row.right - 2, dy + row.top + 1)), Rgb(colors.selection));
  EXPECT_EQ(Rgb(picture->GetPixel(dx + client.Width() / 2, dy + client.bottom - 3)), Rgb(colors.field));
  ClickAt(list, {row.left + 5, row.bottom + row.Height() / 2});
  EXPECT_EQ(Send(list, LB_GETCURSEL), 2);
  themed.UnsubclassWindow();
}

}  // namespace
}  // namespace qmk::testing
