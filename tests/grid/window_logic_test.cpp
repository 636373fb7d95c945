// window_logic_test.cpp: selection compaction in both modes, and cell rectangles over zones.
#include <gtest/gtest.h>

#include <vector>

#include "toolkit/grid/cell_rect.h"
#include "toolkit/grid/selection.h"

using namespace qmk::toolkit::grid;

namespace {

std::vector<CellRect> Compacted(std::vector<CellRect> ranges, bool subtract) {
  CExtGridSelection s;
  for (const CellRect& r : ranges) s.SelectionAdd(r);
  s.SelectionCompact(subtract);
  std::vector<CellRect> out;
  for (int i = 0; i < s.SelectionGetAreaCount(); ++i) out.push_back(s.SelectionGetAt(i));
  return out;
}

TEST(Selection, CompactMergesRangesThatMakeOneRectangle) {
  struct Case { const char* what; std::vector<CellRect> in; bool subtract; std::vector<CellRect> out; };
  const Case cases[] = {
      {"adjacent columns of equal height", {{1, 1, 1, 4}, {2, 1, 2, 4}}, false, {{1, 1, 2, 4}}},
      {"stacked rows of equal width", {{0, 0, 3, 0}, {0, 1, 3, 2}}, false, {{0, 0, 3, 2}}},
      {"a gap between them", {{0, 0, 0, 2}, {2, 0, 2, 2}}, false, {{0, 0, 0, 2}, {2, 0, 2, 2}}},
      {"unequal heights", {{1, 1, 1, 4}, {2, 1, 2, 3}}, false, {{1, 1, 1, 4}, {2, 1, 2, 3}}},
      {"one inside another", {{0, 0, 5, 5}, {1, 1, 2, 2}}, false, {{0, 0, 5, 5}}},
      {"three in a row", {{0, 0, 0, 1}, {1, 0, 1, 1}, {2, 0, 2, 1}}, false, {{0, 0, 2, 1}}},
      {"subtract: intersecting ranges both go", {{0, 0, 2, 2}, {1, 1, 3, 3}, {5, 5, 5, 5}}, true, {{5, 5, 5, 5}}},
      {"subtract: touching ranges merge", {{1, 1, 1, 4}, {2, 1, 2, 4}}, true, {{1, 1, 2, 4}}},
  };
  for (const Case& c : cases) EXPECT_EQ(Compacted(c.in, c.subtract), c.out) << c.what;
}

TEST(Selection, AccessAndSingleMode) {
  CExtGridSelection s;
  s.SelectionAdd({3, 3, 1, 1});
  EXPECT_EQ(s.SelectionGetAt(0), (CellRect{1, 1, 3, 3}));
  EXPECT_EQ(s.SelectionGetAt(1), CellRect{});
  s.SelectionAdd({5, 5, 5, 5});
  EXPECT_EQ(s.SelectionGetLastRange(), (CellRect{5, 5, 5, 5}));
  EXPECT_TRUE(s.SelectionIsCellSelected(2, 2));
  EXPECT_FALSE(s.SelectionIsCellSelected(4, 4));
  EXPECT_TRUE(s.SelectionRemoveAt(0));
  EXPECT_FALSE(s.SelectionRemoveAt(3));
  EXPECT_EQ(s.SelectionGetAreaCount(), 1);
  CExtGridSelection single(true);
  single.SelectionAdd({0, 0, 1, 1});
  single.SelectionAdd({4, 4, 4, 4});
  EXPECT_EQ(single.SelectionGetAreaCount(), 1);
  EXPECT_EQ(single.SelectionGetAt(0), (CellRect{4, 4, 4, 4}));
}

// Columns are 10 pixels wide plus their index, with margins 1 and 2; rows are 20 high, header
// rows 15. Outer zones add 100 to the index they report.
struct Layout : CExtGridZoneLayout {
  int OnQueryColumnExtent(int type, int index, int& before, int& after) const override {
    before = 1;
    after = 2;
    return 10 + index + (type != kZoneData ? 100 : 0);
  }
  int OnQueryRowExtent(int type, int, int& before, int& after) const override {
    before = after = 0;
    return type == kZoneNear ? 15 : 20;
  }
};

TEST(CellRect, SumsTheExtentsOfEarlierSeriesInEachZone) {
  Layout l;
  l.m_columns = {1, 1, 10, 1, 1, 4, 6};  // near, far, data, leading, trailing, first and last visible
  l.m_rows = {1, 0, 50, 0, 0, 0, 30};
  struct Case { int column, columnType; int left, width; bool visible; };
  const Case cases[] = {
      {0, kZoneNear, 0, 110, true},
      {0, kZoneData, 110, 10, true},               // leading fixed
      {4, kZoneData, 110 + 10, 14, true},          // first scrolling one in view
      {6, kZoneData, 110 + 10 + 14 + 15, 16, true},
      {3, kZoneData, 0, 0, false},                 // scrolled out
      {7, kZoneData, 0, 0, false},
      {9, kZoneData, 110 + 10 + 14 + 15 + 16, 19, true},  // trailing fixed
      {0, kZoneFar, 110 + 10 + 14 + 15 + 16 + 19, 110, true},
      {1, kZoneFar, 0, 0, false},
      {10, kZoneData, 0, 0, false},
  };
  for (const Case& c : cases) {
    PixelRect outer, inner;
    EXPECT_EQ(l.GetCellRect(c.column, 2, c.columnType, kZoneData, outer, &inner), c.visible) << c.column;
    if (!c.visible) {
      EXPECT_TRUE(outer.IsEmpty());
      continue;
    }
    EXPECT_EQ(outer, (PixelRect{c.left, 15 + 40, c.left + c.width, 15 + 60})) << c.column;
    EXPECT_EQ(inner, (PixelRect{c.left + 1, 15 + 40, c.left + c.width - 2, 15 + 60})) << c.column;
  }
  PixelRect outer;
  EXPECT_FALSE(l.GetCellRect(0, 0, kZoneData, kZoneFar, outer));  // no far rows at all
  EXPECT_TRUE(l.GetCellRect(0, 0, kZoneData, kZoneNear, outer));
  EXPECT_EQ(outer.top, 0);
  EXPECT_EQ(outer.bottom, 15);
}

}  // namespace
