// small_models_test.cpp: up-down stepping and buddy text, progress clamping and stepping round,
// scroll bar clamping, scroll codes and thumb, and the tab strip's selection and scrolling.
#include <gtest/gtest.h>

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/progress_model.h"
#include "platform/ui/controls/scroll_bar_model.h"
#include "platform/ui/controls/tab_strip_model.h"
#include "platform/ui/controls/up_down_model.h"

namespace qmk::platform::ui::controls {
namespace {

TEST(UpDownModel, NewControlCountsDownwardTillARangeIsSet) {
  UpDownModel m;
  EXPECT_EQ(m.lower(), 100);
  EXPECT_EQ(m.upper(), 0);
  // The up arrow moves toward the upper end, which is 0 here: it can't go below 0.
  EXPECT_EQ(m.DeltaFor(1), 0);
  EXPECT_EQ(m.DeltaFor(-1), 1);
}

TEST(UpDownModel, StepsClampOrWrap) {
  struct Case { int lower, upper, pos; bool wrap; int clicks; int want; };
  const Case cases[] = {
      {2, 60, 59, false, 1, 60}, {2, 60, 60, false, 1, 60}, {2, 60, 2, false, -1, 2},
      {2, 60, 60, true, 1, 2},   {2, 60, 2, true, -1, 60},  {2, 60, 59, true, 3, 3},
      {10, 0, 5, false, 1, 4},   {10, 0, 0, true, 1, 10},   {-5, 5, 0, false, -9, -5},
      {3, 3, 3, true, 1, 3},
  };
  for (const Case& c : cases) {
    UpDownModel m;
    m.SetRange(c.lower, c.upper);
    m.SetPos(c.pos);
    m.SetWrap(c.wrap);
    m.Offset(m.DeltaFor(c.clicks));
    EXPECT_EQ(m.pos(), c.want) << c.lower << ".." << c.upper << " at " << c.pos << " by "
                               << c.clicks << (c.wrap ? " wrap" : "");
  }
}

TEST(UpDownModel, SetPosClampsAndRangeDoesNotMoveThePosition) {
  UpDownModel m;
  m.SetRange(0, 1000);
  EXPECT_EQ(m.SetPos(5000), 0);
  EXPECT_EQ(m.pos(), 1000);
  m.SetRange(0, 10);
  EXPECT_EQ(m.pos(), 1000);
  EXPECT_EQ(m.SetBase(8), 0);
  EXPECT_EQ(m.SetBase(16), 10);
}

TEST(UpDownModel, BuddyTextBothWays) {
  struct Case { int pos; bool thousands; int base; const char* want; };
  for (const Case& c : {Case{1234567, true, 10, "1,234,567"}, Case{-1234, true, 10, "-1,234"},
                        Case{999, true, 10, "999"}, Case{1234, false, 10, "1234"},
                        Case{255, true, 16, "0x00FF"}}) {
    UpDownModel m;
    m.SetRange(-2000000, 2000000);
    m.SetThousands(c.thousands);
    m.SetBase(c.base);
    m.SetPos(c.pos);
    EXPECT_EQ(m.FormatBuddy(), c.want);
    int back = 0;
    EXPECT_TRUE(m.ParseBuddy(c.want, &back)) << c.want;
    EXPECT_EQ(back, c.pos);
  }
  UpDownModel m;
  m.SetRange(2, 60);
  int v = -1;
  for (const char* bad : {"", "abc", "12x", "61", "1", "99999999999999999999999"})
    EXPECT_FALSE(m.ParseBuddy(bad, &v)) << bad;
  EXPECT_EQ(v, -1);
}

TEST(ProgressModel, ClampStepRoundAndRefusedRange) {
  ProgressModel p;
  EXPECT_EQ(p.SetPos(150), 0);
  EXPECT_EQ(p.pos(), 100);
  EXPECT_FALSE(p.SetRange(10, 5));
  EXPECT_EQ(p.high(), 100);
  p.SetPos(95);
  EXPECT_EQ(p.StepIt(), 95);
  EXPECT_EQ(p.pos(), 5);  // 105 starts over, carrying 5
  p.SetStep(-10);
  p.StepIt();
  EXPECT_EQ(p.pos(), 95);
  p.DeltaPos(-1000);
  EXPECT_EQ(p.pos(), 0);
  EXPECT_TRUE(p.SetRange(20, 40));
  EXPECT_EQ(p.pos(), 20);
  p.SetPos(30);
  EXPECT_EQ(p.FilledLength(200), 100);
  EXPECT_TRUE(p.SetRange(7, 7));
  p.StepIt();
  EXPECT_EQ(p.pos(), 7);
  EXPECT_EQ(p.FilledLength(200), 0);
}

TEST(ScrollBarModel, RangePageAndPositionClamp) {
  struct Case { int min, max; unsigned page; int pos; int want_min, want_max; unsigned want_page;
                int want_pos; };
  const Case cases[] = {
      {0, 100, 10, 95, 0, 100, 10, 91},   // the last page fills the view
      {0, 100, 0, 150, 0, 100, 0, 100},
      {0, 9, 50, 5, 0, 9, 10, 0},         // page cut to the range's size
      {10, 5, 0, 3, 0, 0, 0, 0},          // reversed range becomes 0..0
      {-50, 50, 1, -60, -50, 50, 1, -50},
  };
  for (const Case& c : cases) {
    ScrollBarModel s;
    s.SetRange(c.min, c.max);
    s.SetPage(c.page);
    s.SetPos(c.pos);
    EXPECT_EQ(s.min(), c.want_min);
    EXPECT_EQ(s.max(), c.want_max);
    EXPECT_EQ(s.page(), c.want_page);
    EXPECT_EQ(s.pos(), c.want_pos) << c.min << ".." << c.max << " page " << c.page;
  }
}

TEST(ScrollBarModel, ScrollCodesClamp) {
  struct Case { int code; int pos; int track; int want; };
  for (const Case& c : {Case{SB_LINEDOWN, 5, 0, 6}, Case{SB_LINEUP, 0, 0, 0},
                        Case{SB_PAGEDOWN, 85, 0, 91}, Case{SB_PAGEUP, 5, 0, 0},
                        Case{SB_PAGEDOWN, 10, 0, 20}, Case{SB_THUMBTRACK, 0, 200, 91},
                        Case{SB_TOP, 50, 0, 0}, Case{SB_BOTTOM, 0, 0, 91},
                        Case{SB_ENDSCROLL, 40, 0, 40}}) {
    ScrollBarModel s;
    s.SetPage(10);
    s.SetPos(c.pos);
    EXPECT_EQ(s.PosForCode(c.code, c.track), c.want) << "code " << c.code << " at " << c.pos;
  }
}

TEST(ScrollBarModel, ThumbGeometryAndDragRoundTrip) {
  ScrollBarModel s;
  s.SetRange(0, 99);
  s.SetPage(25);
  ThumbGeometry g = s.Thumb(200, 8);
  EXPECT_EQ(g.length, 50);
  EXPECT_EQ(g.offset, 0);
  s.SetPos(s.MaxPos());
  EXPECT_EQ(s.Thumb(200, 8).offset, 150);
  for (int pos : {0, 13, 40, 75}) {
    s.SetPos(pos);
    EXPECT_EQ(s.PosFromThumbOffset(s.Thumb(200, 8).offset, 200, 8), pos);
  }
  s.SetPos(0);
  EXPECT_EQ(s.HitTest(5, 240, 20, 8), ScrollPart::kLineBack);
  EXPECT_EQ(s.HitTest(30, 240, 20, 8), ScrollPart::kThumb);
  EXPECT_EQ(s.HitTest(100, 240, 20, 8), ScrollPart::kPageForward);
  EXPECT_EQ(s.HitTest(235, 240, 20, 8), ScrollPart::kLineForward);
  EXPECT_EQ(s.HitTest(240, 240, 20, 8), ScrollPart::kNone);
  EXPECT_EQ(s.Thumb(4, 8).length, 0);
}

TabStripModel::Item Tab(const char* text, int width) { return {text, 0, -1, width}; }

TEST(TabStripModel, SelectionFollowsItsTab) {
  TabStripModel t;
  t.Insert(0, Tab("General", 60));
  EXPECT_EQ(t.cur_sel(), 0);
  t.Insert(1, Tab("Ports", 50));
  t.Insert(0, Tab("First", 40));
  EXPECT_EQ(t.cur_sel(), 1);
  EXPECT_EQ(t.SetCurSel(2), 1);
  EXPECT_EQ(t.SetCurSel(9), -1);
  EXPECT_EQ(t.cur_sel(), 2);
  t.Delete(0);
  EXPECT_EQ(t.cur_sel(), 1);
  t.Delete(1);
  EXPECT_EQ(t.cur_sel(), -1);
  EXPECT_EQ(t.Insert(-3, Tab("x", 1)), -1);
}

TEST(TabStripModel, ScrollsWhenTabsDoNotFit) {
  TabStripModel t;
  for (int i = 0; i < 6; ++i) t.Insert(i, Tab("tab", 50));
  t.Layout(400, 30, 2);
  EXPECT_FALSE(t.scrolling());
  EXPECT_EQ(t.HitTest(60), 1);
  t.Layout(200, 30, 2);
  EXPECT_TRUE(t.scrolling());
  EXPECT_FALSE(t.CanScrollBack());
  EXPECT_TRUE(t.CanScrollForward());
  EXPECT_TRUE(t.EnsureVisible(5));
  TabRect last = t.Rect(5);
  EXPECT_LE(last.right, 170);
  EXPECT_GT(last.right, last.left);
  EXPECT_FALSE(t.CanScrollForward());
  EXPECT_FALSE(t.Scroll(1));
  EXPECT_TRUE(t.Scroll(-10));
  EXPECT_EQ(t.first_visible(), 0);
  EXPECT_EQ(t.HitTest(180), -1);  // under the arrows
  EXPECT_TRUE(t.SetHot(2));
  EXPECT_FALSE(t.SetHot(2));
  EXPECT_TRUE(t.SetHot(42));
  EXPECT_EQ(t.hot(), -1);
}

}  // namespace
}  // namespace qmk::platform::ui::controls
