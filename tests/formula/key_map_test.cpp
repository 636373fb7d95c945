// key_map_test.cpp: the open-addressing map against a standard map through inserts and erases.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <random>
#include <vector>

#include "toolkit/formula/key_map.h"
#include "toolkit/formula/value.h"
#include "toolkit/grid/hash_map.h"

namespace qmk::toolkit::formula {
namespace {

TEST(FlatKeyMap, AgreesWithAStandardMapThroughGrowthAndErasure) {
  FlatKeyMap<int> flat;
  std::map<int64_t, int> plain;
  std::mt19937 random(7);
  // Keys from a small range so that erasures hit runs of colliding entries.
  for (int step = 0; step < 20000; ++step) {
    const int64_t key = PositionKey(static_cast<int>(random() % 40), static_cast<int>(random() % 60));
    if (random() % 3 == 0) {
      EXPECT_EQ(flat.Erase(key), plain.erase(key) == 1);
    } else {
      bool inserted = false;
      flat.Insert(key, step, &inserted);
      EXPECT_EQ(inserted, plain.emplace(key, step).second);
    }
    ASSERT_EQ(flat.size(), plain.size());
  }
  for (const auto& [key, value] : plain) {
    const int* found = flat.Find(key);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, value);
  }
  size_t visited = 0;
  flat.ForEach([&](int64_t key, int) { visited += plain.count(key); });
  EXPECT_EQ(visited, plain.size());
}

// Room made for more keys keeps the ones there; a sheet's rows, columns far apart and the
// corner of the grid all land in the position-ordered slots without loss.
TEST(FlatKeyMap, ReserveKeepsEntriesAndFarPositionsStayApart) {
  FlatKeyMap<int> flat;
  std::vector<int64_t> keys;
  for (int row = 0; row < 3000; ++row)
    for (int column : {0, 1, 15, 16, 17, 4096, 308915775}) keys.push_back(PositionKey(column, row));
  keys.push_back(PositionKey(308915775, 1073741822));
  for (size_t i = 0; i < keys.size() / 2; ++i) flat.Insert(keys[i], static_cast<int>(i));
  flat.reserve(keys.size());
  for (size_t i = keys.size() / 2; i < keys.size(); ++i) flat.Insert(keys[i], static_cast<int>(i));
  ASSERT_EQ(flat.size(), keys.size());
  for (size_t i = 0; i < keys.size(); ++i) {
    const int* found = flat.Find(keys[i]);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, static_cast<int>(i));
  }
  EXPECT_TRUE(flat.Erase(keys[7]));
  EXPECT_EQ(flat.Find(keys[7]), nullptr);
  EXPECT_NE(flat.Find(keys[8]), nullptr);
}

TEST(FlatKeyMap, PositionKeysRoundTripAndStayDistinct) {
  for (const CellPos p : {CellPos{0, 0}, CellPos{1, 0}, CellPos{0, 1}, CellPos{308915775, 1073741822}}) {
    EXPECT_EQ(KeyPosition(PositionKey(p.column, p.row)), p);
  }
  EXPECT_NE(PositionKey(1, 0), PositionKey(0, 1));
}


// Cell patterns that tend to pile keys into one stretch of a table laid out by position: many
// dense columns, rows spaced by powers of two, one column, one row, a diagonal, random cells.
struct CellPattern {
  const char* name;
  std::function<std::vector<CellPos>()> cells;
};

std::vector<CellPattern> PilingPatterns() {
  auto grid = [](int columns, int rows, int columnStep, int rowStep) {
    std::vector<CellPos> cells;
    for (int r = 0; r < rows; ++r)
      for (int c = 0; c < columns; ++c) cells.push_back({c * columnStep, r * rowStep});
    return cells;
  };
  std::vector<CellPattern> patterns = {
      {"sheet of six columns", [=] { return grid(6, 20000, 1, 1); }},
      {"many dense columns", [=] { return grid(300, 400, 1, 1); }},
      {"one column", [=] { return grid(1, 120000, 1, 1); }},
      {"one row", [=] { return grid(120000, 1, 1, 1); }},
      {"columns eight apart", [=] { return grid(500, 200, 8, 1); }},
      {"every 8th row and column", [=] { return grid(300, 300, 8, 8); }},
      {"diagonal", [] {
         std::vector<CellPos> cells;
         for (int i = 0; i < 100000; ++i) cells.push_back({i, i});
         return cells;
       }},
      {"random cells", [] {
         std::mt19937 random(11);
         std::vector<CellPos> cells;
         for (int i = 0; i < 100000; ++i)
           cells.push_back({static_cast<int>(random() % 5000), static_cast<int>(random() % 100000)});
         return cells;
       }},
  };
  for (int shift : {1, 3, 4, 6, 10}) {
    patterns.push_back({"rows spaced by a power of two", [=] { return grid(1, 100000, 1, 1 << shift); }});
    patterns.push_back({"six columns, rows spaced", [=] { return grid(6, 15000, 1, 1 << shift); }});
  }
  return patterns;
}

// A lookup reads about as few slots as in a well-mixed table whatever the pattern (about 1.5 at
// these loads); a layout that piles tiles or runs of cells together reads tens.
constexpr double kMostMeanProbes = 3.0;
constexpr size_t kMostProbes = 160;

// The mean and the longest probe length over a pattern's cells, each of which must be found.
void ExpectNoPileUp(const CellPattern& pattern, const std::vector<CellPos>& cells,
                    const std::function<size_t(CellPos)>& probeLength) {
  size_t total = 0, longest = 0;
  for (const CellPos& p : cells) {
    const size_t probes = probeLength(p);
    ASSERT_GT(probes, 0u) << pattern.name;
    total += probes;
    longest = std::max(longest, probes);
  }
  EXPECT_LE(static_cast<double>(total) / static_cast<double>(cells.size()), kMostMeanProbes) << pattern.name;
  EXPECT_LE(longest, kMostProbes) << pattern.name;
}

TEST(FlatKeyMap, NoCellPatternPilesUp) {
  for (const CellPattern& pattern : PilingPatterns()) {
    FlatKeyMap<int> flat;
    const std::vector<CellPos> cells = pattern.cells();
    for (const CellPos& p : cells) flat.Insert(PositionKey(p.column, p.row), 0);
    ExpectNoPileUp(pattern, cells, [&](CellPos p) { return flat.ProbeLength(PositionKey(p.column, p.row)); });
  }
}

TEST(GridHashMap, NoCellPatternPilesUpInTheSideIndex) {
  for (const CellPattern& pattern : PilingPatterns()) {
    grid::CExtHashMapT<int64_t, int64_t, int32_t, int32_t> map;
    const std::vector<CellPos> cells = pattern.cells();
    // The grid's position key holds the column in the low half.
    auto key = [](CellPos p) { return grid::MakePositionKey(p.column, p.row); };
    for (const CellPos& p : cells) map.SetAt(key(p), 1);
    ExpectNoPileUp(pattern, cells, [&](CellPos p) { return map.ProbeLength(key(p)); });
  }
}

// Erasing through lanes that wrap from one lane into the next keeps every other key findable.
TEST(GridHashMap, SideIndexAgreesWithAStandardMapThroughErasure) {
  grid::CExtHashMapT<int64_t, int64_t, int32_t, int32_t> map;
  std::map<int64_t, int32_t> plain;
  std::mt19937 random(5);
  for (int step = 0; step < 30000; ++step) {
    const int64_t key = grid::MakePositionKey(random() % 24, random() % 90);
    if (random() % 3 == 0) {
      EXPECT_EQ(map.RemoveKey(key), plain.erase(key) == 1);
    } else {
      map.SetAt(key, step);
      plain[key] = step;
    }
    ASSERT_EQ(static_cast<size_t>(map.GetCount()), plain.size());
  }
  for (const auto& [key, value] : plain) {
    int32_t found = -1;
    ASSERT_TRUE(map.Lookup(key, found));
    EXPECT_EQ(found, value);
  }
}

}  // namespace
}  // namespace qmk::toolkit::formula
