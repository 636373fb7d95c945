// key_map_test.cpp: the open-addressing map against a standard map through inserts and erases.
#include <gtest/gtest.h>

#include <map>
#include <random>

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

TEST(FlatKeyMap, PositionKeysRoundTripAndStayDistinct) {
  for (const CellPos p : {CellPos{0, 0}, CellPos{1, 0}, CellPos{0, 1}, CellPos{308915775, 1073741822}}) {
    EXPECT_EQ(KeyPosition(PositionKey(p.column, p.row)), p);
  }
  EXPECT_NE(PositionKey(1, 0), PositionKey(0, 1));
}

}  // namespace
}  // namespace qmk::toolkit::formula
