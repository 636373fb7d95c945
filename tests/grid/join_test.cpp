// join_test.cpp: joins kept through inserts and removals, the effects called, and the extents
// the join layer writes into cells.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grid/archive_bytes.h"
#include "toolkit/grid/provider_mixins.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;
using namespace grid_test;

namespace {

// Records each effect as text.
struct Recorder : CExtGridJoinManager {
  std::vector<std::string> calls;
  static std::string Join(std::initializer_list<int> v) {
    std::string s;
    for (int x : v) s += (s.empty() ? "" : ",") + std::to_string(x);
    return s;
  }
  void OnJoinApply(int c, int r, int w, int h, bool) override { calls.push_back("apply " + Join({c, r, w, h})); }
  void OnJoinClear(int c, int r, int w, int h, bool) override { calls.push_back("clear " + Join({c, r, w, h})); }
  void OnJoinMove(int c, int r, int nc, int nr, int w, int h, bool) override {
    calls.push_back("move " + Join({c, r, nc, nr, w, h}));
  }
  void OnJoinResize(int c, int r, int ow, int oh, int nw, int nh, bool) override {
    calls.push_back("resize " + Join({c, r, ow, oh, nw, nh}));
  }
};

TEST(Joins, SetAndGet) {
  Recorder m;
  EXPECT_EQ(m.JoinGet(4, 4), (CSize{1, 1}));
  EXPECT_TRUE(m.JoinSet(1, 1, 3, 2));
  EXPECT_EQ(m.JoinGet(1, 1), (CSize{3, 2}));
  EXPECT_TRUE(m.JoinSet(1, 1, 2, 2));
  EXPECT_TRUE(m.JoinSet(1, 1, 1, 1));  // 1 by 1 clears and is never stored
  EXPECT_EQ(m.JoinCount(), 0);
  EXPECT_EQ(m.calls, (std::vector<std::string>{"apply 1,1,3,2", "clear 1,1,3,2", "apply 1,1,2,2", "clear 1,1,2,2"}));
  EXPECT_FALSE(m.JoinSet(-1, 0, 2, 2));
  EXPECT_FALSE(m.JoinSet(0, 0, 0, 2));
}

TEST(Joins, ColumnInsertMovesOrWidens) {
  struct Case { int position, count; CSize at1; int movedTo; std::string call; };
  const Case cases[] = {
      {2, 1, {4, 2}, -1, "resize 1,1,3,2,4,2"},   // in the middle of a 3-wide join
      {3, 2, {5, 2}, -1, "resize 1,1,3,2,5,2"},   // at its last column
      {1, 1, {1, 1}, 2, "move 1,1,2,1,3,2"},      // exactly at its start: it moves
      {4, 1, {3, 2}, -1, ""},                     // right of it: untouched
  };
  for (const Case& c : cases) {
    Recorder m;
    m.JoinSet(1, 1, 3, 2);
    m.calls.clear();
    m.OnColumnInsert(c.position, c.count);
    EXPECT_EQ(m.JoinGet(1, 1), c.at1) << c.position;
    if (c.movedTo >= 0) {
      EXPECT_EQ(m.JoinGet(c.movedTo, 1), (CSize{3, 2}));
    }
    EXPECT_EQ(m.calls, c.call.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.call});
  }
}

TEST(Joins, ColumnRemoveCutsMovesAndDrops) {
  struct Case { int position, count; int column; CSize size; std::vector<std::string> calls; };
  const Case cases[] = {
      // The first column of a 3-wide join at 1: a 2-wide join stays at 1.
      {1, 1, 1, {2, 2}, {"move 1,1,1,1,2,2", "resize 1,1,3,2,2,2"}},
      // A middle column.
      {2, 1, 1, {2, 2}, {"resize 1,1,3,2,2,2"}},
      // Left of it: it moves left.
      {0, 1, 0, {3, 2}, {"move 1,1,0,1,3,2"}},
      // All of it.
      {0, 5, -1, {1, 1}, {"clear 1,1,3,2"}},
  };
  for (const Case& c : cases) {
    Recorder m;
    m.JoinSet(1, 1, 3, 2);
    m.calls.clear();
    m.OnColumnRemove(c.position, c.count);
    if (c.column >= 0) {
      EXPECT_EQ(m.JoinGet(c.column, 1), c.size) << c.position;
    } else {
      EXPECT_EQ(m.JoinCount(), 0);
    }
    EXPECT_EQ(m.calls, c.calls) << c.position;
  }
  // A 2 by 1 join cut to 1 by 1 is dropped.
  Recorder m;
  m.JoinSet(0, 0, 2, 1);
  m.calls.clear();
  m.OnColumnRemove(1, 1);
  EXPECT_EQ(m.JoinCount(), 0);
  EXPECT_EQ(m.calls, (std::vector<std::string>{"clear 0,0,1,1"}));
}

TEST(Joins, RowsWorkTheSameWay) {
  Recorder m;
  m.JoinSet(2, 2, 1, 3);
  m.OnRowInsert(3, 2);
  EXPECT_EQ(m.JoinGet(2, 2), (CSize{1, 5}));
  m.OnRowRemove(0, 2);
  EXPECT_EQ(m.JoinGet(2, 0), (CSize{1, 5}));
  m.OnRowRemove(1, 4);
  EXPECT_EQ(m.JoinCount(), 0);  // what was left is 1 by 1
}

TEST(Joins, ArchiveIsTheMapsForm) {
  CExtGridJoinManager m;
  m.JoinSet(1, 2, 3, 4);
  Bytes want;
  for (uint32_t w : {1u, 1u, 2u, 3u, 4u}) Put32(want, w);
  EXPECT_EQ(Store(m), want);
}

using SparseJoins = CExtGDPJ<CExtGridDataProviderSparse>;

std::vector<std::string> Extents(SparseJoins& p) {
  std::vector<std::string> rows;
  for (int r = 0; r < p.RowCountGet(); ++r) {
    std::string line;
    for (int c = 0; c < p.ColumnCountGet(); ++c) {
      auto* cell = dynamic_cast<CExtGridCellEx*>(p.CellGet(c, r));
      line += cell ? "(" + std::to_string(cell->JoinGet().cx) + "," + std::to_string(cell->JoinGet().cy) + ")" : "  .  ";
    }
    rows.push_back(line);
  }
  return rows;
}

TEST(JoinProvider, WritesExtentsIntoTheCellsOfAJoin) {
  SparseJoins p;
  p.ColumnInsert(0, 4);
  p.RowInsert(0, 3);
  ASSERT_TRUE(p.JoinSet(1, 0, 3, 2));
  EXPECT_EQ(Extents(p), (std::vector<std::string>{"  .  (3,2)(-1,0)(-2,0)", "  .  (0,-1)(-1,-1)(-2,-1)", "  .    .    .    .  "}));
  EXPECT_FALSE(p.JoinSet(2, 2, 3, 1));  // does not fit
  ASSERT_TRUE(p.JoinSet(1, 0, 1, 1));
  EXPECT_EQ(Extents(p), (std::vector<std::string>{"  .  (1,1)(1,1)(1,1)", "  .  (1,1)(1,1)(1,1)", "  .    .    .    .  "}));
}

TEST(JoinProvider, ExtentsFollowInsertsAndRemovals) {
  SparseJoins p;
  p.ColumnInsert(0, 4);
  p.RowInsert(0, 2);
  ASSERT_TRUE(p.JoinSet(0, 0, 2, 1));
  ASSERT_TRUE(p.ColumnInsert(1, 1));
  EXPECT_EQ(p.JoinGet(0, 0), (CSize{3, 1}));
  EXPECT_EQ(Extents(p)[0], "(3,1)(-1,0)(-2,0)  .    .  ");
  ASSERT_TRUE(p.ColumnRemove(0, 1));
  EXPECT_EQ(p.JoinGet(0, 0), (CSize{2, 1}));
  EXPECT_EQ(Extents(p)[0], "(2,1)(-1,0)  .    .  ");
  ASSERT_TRUE(p.ColumnRemove(1, 1));
  EXPECT_EQ(p.JoinGet(0, 0), (CSize{1, 1}));
  EXPECT_EQ(Extents(p)[0], "(1,1)  .    .  ");
}

TEST(JoinProvider, JoinsTravelWithTheArchive) {
  SparseJoins p;
  p.ColumnInsert(0, 3);
  p.RowInsert(0, 3);
  p.JoinSet(1, 1, 2, 2);
  SparseJoins back;
  ASSERT_TRUE(Load(back, Store(p)));
  EXPECT_EQ(back.JoinGet(1, 1), (CSize{2, 2}));
  EXPECT_EQ(Extents(back), Extents(p));
}

TEST(MemoryProviderTables, IconsAndFontsWithOwnership) {
  CExtMDP<> p;
  qmk::toolkit::bitmap::CExtCmdIcon icon;
  EXPECT_EQ(p.IconInsert(&icon), 0);
  EXPECT_NE(p.IconGetAt(0), &icon);  // a copy
  EXPECT_EQ(p.IconInsert(new qmk::toolkit::bitmap::CExtCmdIcon, 0, false), 0);
  EXPECT_EQ(p.IconGetCount(), 2);
  EXPECT_EQ(p.IconRemove(1), 1);
  EXPECT_EQ(p.IconRemove(5), 0);

  GridFont mine{"DejaVu Sans", 12, 700, false};
  EXPECT_EQ(p.FontInsert(&mine), 0);
  EXPECT_TRUE(p.FontIsOwned(0));
  EXPECT_EQ(p.FontInsert(&mine, 0, false), 0);
  EXPECT_FALSE(p.FontIsOwned(0));
  EXPECT_EQ(p.FontGetAt(0), &mine);
  EXPECT_EQ(*p.FontGetAt(1), mine);
  EXPECT_EQ(p.FontRemove(0, -1), 2);
  EXPECT_EQ(p.FontGetCount(), 0);
  EXPECT_EQ(mine.m_strFaceName, "DejaVu Sans");  // not deleted: the table never owned it
}

}  // namespace
