// layout_test.cpp: where the parts of scroll bars, progress bars, combo boxes and tabs lie.
#include <gtest/gtest.h>

#include "theme/theme_fixture.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit::theme::testing {
namespace {

class Layout : public ThemeTest {};

TEST_F(Layout, ScrollBarThumbFollowsThePosition) {
  CExtPaintManager& pm = *g_PaintManager().GetPM();
  // A vertical bar 17 wide and 134 high: arrows of 17, a track of 100 from y 17 to 117.
  struct Case { int min, max, page, pos; bool enabled; int thumb_top, thumb_bottom; };
  const Case cases[] = {
      {0, 99, 10, 0, true, 17, 27},     // at the start
      {0, 99, 10, 90, true, 107, 117},  // the last position a page allows
      {0, 99, 10, 500, true, 107, 117}, // beyond the end: clamped
      {0, 99, 10, -5, true, 17, 27},    // before the start: clamped
      {0, 99, 10, 45, true, 62, 72},
      {0, 99, 50, 25, true, 42, 92},    // a long page makes a long thumb
      {0, 999, 1, 0, true, 17, 25},     // a tiny page still gets the smallest thumb
      {10, 109, 10, 10, true, 17, 27},  // a range that doesn't start at 0
      {0, 99, 100, 0, true, 17, 17},    // the page shows everything: no thumb
      {0, 99, 10, 40, false, 17, 17},   // disabled: no thumb
      {5, 4, 10, 0, true, 17, 17},      // an empty range
  };
  for (const Case& c : cases) {
    PAINTSCROLLBARDATA d;
    d.m_rcBar = {0, 0, 17, 134};
    d.m_nMin = c.min;
    d.m_nMax = c.max;
    d.m_nPage = c.page;
    d.m_nPos = c.pos;
    d.m_bEnabled = c.enabled;
    layout::ScrollBar(pm, d);
    EXPECT_EQ(d.m_rcButtonUp, (DrawRect{0, 0, 17, 17}));
    EXPECT_EQ(d.m_rcButtonDown, (DrawRect{0, 117, 17, 134}));
    EXPECT_EQ(d.m_rcThumb.top, c.thumb_top) << "pos " << c.pos << " page " << c.page;
    EXPECT_EQ(d.m_rcThumb.bottom, c.thumb_bottom) << "pos " << c.pos << " page " << c.page;
    EXPECT_EQ(d.m_rcPageUp.top, 17);
    if (!d.m_rcThumb.IsEmpty()) {
      EXPECT_EQ(d.m_rcPageDown.bottom, 117);
    }
  }
}

TEST_F(Layout, ShortAndHorizontalScrollBars) {
  CExtPaintManager& pm = *g_PaintManager().GetPM();
  PAINTSCROLLBARDATA d;
  d.m_rcBar = {10, 5, 40, 22};
  d.m_bHorzBar = true;
  layout::ScrollBar(pm, d);
  EXPECT_EQ(d.m_rcButtonUp, (DrawRect{10, 5, 25, 22})) << "arrows share a bar shorter than two thicknesses";
  EXPECT_EQ(d.m_rcButtonDown, (DrawRect{25, 5, 40, 22}));
  EXPECT_TRUE(d.m_rcThumb.IsEmpty());
  d.m_rcBar = {0, 0, 0, 0};
  layout::ScrollBar(pm, d);  // nothing to lay out, nothing to crash on
  EXPECT_TRUE(d.m_rcThumb.IsEmpty());
}

TEST_F(Layout, ProgressDoneIsClampedToTheRange) {
  const DrawRect inner{2, 2, 102, 16};
  struct Case { int pos, range, right; };
  for (const Case c : {Case{0, 100, 2}, {40, 100, 42}, {100, 100, 102}, {150, 100, 102}, {-3, 100, 2},
                       {5, 0, 2}, {5, -1, 2}, {INT32_MAX, INT32_MAX, 102}, {1, 3, 35}})
    EXPECT_EQ(layout::ProgressDone(inner, c.pos, c.range).right, c.right) << c.pos << "/" << c.range;
}

TEST_F(Layout, ComboTabsAndChecksScaleWithTheScreen) {
  CExtPaintManager& pm = *g_PaintManager().GetPM();
  EXPECT_EQ(layout::ComboBox(pm, {0, 0, 100, 22}).button, (DrawRect{82, 1, 99, 21}));
  EXPECT_EQ(layout::CheckBox(pm, {0, 0, 100, 21}).box, (DrawRect{0, 4, 13, 17}));
  g_PaintManager().SetDpi(0, 192);
  g_PaintManager().SetDpi(1, 192);
  EXPECT_EQ(layout::ComboBox(pm, {0, 0, 100, 22}).button.Width(), 34);
  EXPECT_EQ(layout::CheckBox(pm, {0, 0, 100, 30}).box.Width(), 26);
  EXPECT_EQ(layout::ComboBox(pm, {0, 0, 10, 22}).button.left, 1) << "a narrow combo keeps its button inside";

  const layout::TabParts tabs = layout::TabStrip(pm, {0, 0, 200, 100}, {"A", "A much longer caption", "C"});
  ASSERT_EQ(tabs.tabs.size(), 3u);
  EXPECT_GT(tabs.tabs[1].Width(), tabs.tabs[0].Width());
  for (const DrawRect& t : tabs.tabs) EXPECT_LE(t.right, 198) << "tabs stay inside the strip";
  EXPECT_EQ(tabs.pane.top, tabs.strip.bottom - 1);
}

}  // namespace
}  // namespace qmk::toolkit::theme::testing
