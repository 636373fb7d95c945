// range_set_test.cpp: CExtGridRangeSet: union, intersections and the reading-order cursor.
#include <gtest/gtest.h>

#include <climits>

#include "toolkit/formula/range_set.h"

namespace qmk::toolkit::formula {
namespace {

std::vector<CellPos> Walk(const CExtGridRangeSet& set, size_t limit = 100) {
  std::vector<CellPos> cells;
  CExtGridRangeSet::Cursor cursor(set);
  CellPos cell;
  while (cells.size() < limit && cursor.Next(cell)) cells.push_back(cell);
  return cells;
}

TEST(RangeSet, CursorWalksRowsInsideEachRectangleInTurn) {
  CExtGridRangeSet set(CellRect{1, 1, 2, 2});
  set.Add({5, 0, 5, 0});
  EXPECT_EQ(Walk(set), (std::vector<CellPos>{{1, 1}, {2, 1}, {1, 2}, {2, 2}, {5, 0}}));
  EXPECT_TRUE(Walk(CExtGridRangeSet()).empty());
  // Rectangles are normalised when added.
  EXPECT_EQ(Walk(CExtGridRangeSet(CellRect{1, 0, 0, 0})), (std::vector<CellPos>{{0, 0}, {1, 0}}));
  // At the end of the int range the walk stops without wrapping round.
  const CExtGridRangeSet edge(CellRect{INT_MAX - 1, INT_MAX, INT_MAX, INT_MAX});
  EXPECT_EQ(Walk(edge), (std::vector<CellPos>{{INT_MAX - 1, INT_MAX}, {INT_MAX, INT_MAX}}));
}

TEST(RangeSet, ContainsAndSingleCell) {
  CExtGridRangeSet set(CellRect{0, 0, 0, 0});
  EXPECT_TRUE(set.IsSingleCell());
  EXPECT_TRUE(set.Contains(0, 0));
  EXPECT_FALSE(set.Contains(1, 0));
  set.Add({3, 3, 4, 4});
  EXPECT_FALSE(set.IsSingleCell());
  EXPECT_TRUE(set.Contains({4, 3}));
  EXPECT_FALSE(CExtGridRangeSet().IsSingleCell());
  EXPECT_FALSE(CExtGridRangeSet(CellRect{0, 0, 1, 0}).IsSingleCell());
}

TEST(RangeSet, UnionSkipsCoveredRectangles) {
  CExtGridRangeSet a(CellRect{0, 0, 9, 9});
  CExtGridRangeSet b(CellRect{2, 2, 3, 3});
  b.Add({20, 20, 21, 21});
  a.UnionWith(b);
  EXPECT_EQ(a.Rects(), (std::vector<CellRect>{{0, 0, 9, 9}, {20, 20, 21, 21}}));
  a.UnionWith(a);
  EXPECT_EQ(a.GetCount(), 2u);
}

TEST(RangeSet, Intersections) {
  CExtGridRangeSet set(CellRect{0, 0, 4, 4});
  set.Add({10, 10, 12, 12});
  CExtGridRangeSet with_rect(set);
  with_rect.IntersectWith(CellRect{3, 3, 11, 11});
  EXPECT_EQ(with_rect.Rects(), (std::vector<CellRect>{{3, 3, 4, 4}, {10, 10, 11, 11}}));
  CExtGridRangeSet outside(set);
  outside.IntersectWith(CellRect{5, 5, 9, 9});
  EXPECT_TRUE(outside.IsEmpty());

  CExtGridRangeSet other(CellRect{4, 4, 4, 4});
  other.Add({12, 0, 12, 20});
  CExtGridRangeSet with_set(set);
  with_set.IntersectWith(other);
  EXPECT_EQ(with_set.Rects(), (std::vector<CellRect>{{4, 4, 4, 4}, {12, 10, 12, 12}}));
  CExtGridRangeSet with_empty(set);
  with_empty.IntersectWith(CExtGridRangeSet());
  EXPECT_TRUE(with_empty.IsEmpty());
}

}  // namespace
}  // namespace qmk::toolkit::formula
