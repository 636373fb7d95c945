// reader_index_test.cpp: the per-cell lists of formula readers: adds, removals, reuse of freed
// links and neighbouring cells that share a group.
#include <gtest/gtest.h>

#include <algorithm>

#include "toolkit/formula/reader_index.h"
#include "toolkit/formula/value.h"

namespace qmk::toolkit::formula {
namespace {

std::vector<int64_t> Readers(const CellReaderIndex& index, int64_t cell) {
  std::vector<int64_t> found;
  index.ForEachReader(cell, [&](int64_t reader) { found.push_back(reader); });
  std::sort(found.begin(), found.end());
  return found;
}

TEST(CellReaderIndex, KeepsEachCellsReadersApartWithinAGroup) {
  CellReaderIndex index;
  // Rows 0 and 15 share a group of one column; row 16 and column 1 do not.
  const int64_t a1 = PositionKey(0, 0), a16 = PositionKey(0, 15), a17 = PositionKey(0, 16), b1 = PositionKey(1, 0);
  index.Add(a1, 100);
  index.Add(a16, 101);
  index.Add(a17, 102);
  index.Add(b1, 103);
  index.Add(a1, 104);
  EXPECT_EQ(Readers(index, a1), (std::vector<int64_t>{100, 104}));
  EXPECT_EQ(Readers(index, a16), (std::vector<int64_t>{101}));
  EXPECT_EQ(Readers(index, a17), (std::vector<int64_t>{102}));
  EXPECT_EQ(Readers(index, b1), (std::vector<int64_t>{103}));
  EXPECT_TRUE(Readers(index, PositionKey(0, 1)).empty());
}

TEST(CellReaderIndex, RemovesOneEntryPerCallAndReusesItsLink) {
  CellReaderIndex index;
  const int64_t cell = PositionKey(3, 40);
  // A formula reading the same cell through two overlapping ranges is entered twice.
  index.Add(cell, 7);
  index.Add(cell, 8);
  index.Add(cell, 7);
  index.Remove(cell, 7);
  EXPECT_EQ(Readers(index, cell), (std::vector<int64_t>{7, 8}));
  index.Remove(cell, 7);
  index.Remove(cell, 9);  // never entered: nothing happens
  index.Remove(PositionKey(9, 9), 8);
  EXPECT_EQ(Readers(index, cell), (std::vector<int64_t>{8}));
  // Freed links serve the next entries without disturbing the others.
  index.Add(PositionKey(3, 41), 20);
  index.Add(PositionKey(3, 42), 21);
  EXPECT_EQ(Readers(index, cell), (std::vector<int64_t>{8}));
  EXPECT_EQ(Readers(index, PositionKey(3, 41)), (std::vector<int64_t>{20}));
  EXPECT_EQ(Readers(index, PositionKey(3, 42)), (std::vector<int64_t>{21}));
  index.clear();
  EXPECT_TRUE(Readers(index, cell).empty());
}

}  // namespace
}  // namespace qmk::toolkit::formula
