// key_map_test.cpp: the open-addressing map against a standard map through inserts and erases.
#include <gtest/gtest.h>

#include <map>
#include <random>
#include <vector>

#include "toolkit/formula/key_map.h"
#include "toolkit/formula/value.h"

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

}  // namespace
}  // namespace qmk::toolkit::formula
