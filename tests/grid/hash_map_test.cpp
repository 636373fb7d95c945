// hash_map_test.cpp: bucket order, the hash rules, re-sizing only when empty, the archive form.
#include <gtest/gtest.h>

#include "grid/archive_bytes.h"
#include "toolkit/grid/hash_map.h"

using namespace qmk::toolkit::grid;
using namespace grid_test;

namespace {

using PositionMap = CExtHashMapT<int64_t, int64_t, int32_t, int32_t>;

// A position key that falls in bucket `b` of 17 (column 16 * b, row 0), told apart by `tag` in
// the low four bits, which the hash ignores.
int64_t InBucket(uint32_t b, uint32_t tag = 0) { return MakePositionKey(16 * b + tag, 0); }

std::vector<int64_t> Keys(const PositionMap& map) {
  std::vector<int64_t> keys;
  for (POSITION p = map.GetStartPosition(); p;) {
    int64_t k;
    int32_t v;
    map.GetNextAssoc(p, k, v);
    keys.push_back(k);
  }
  return keys;
}

TEST(HashMap, HashRules) {
  struct Case { int64_t key; uint32_t hash; };
  for (const Case c : {Case{MakePositionKey(15, 15), 0}, {MakePositionKey(16, 0), 1}, {MakePositionKey(16, 32), 3},
                       {MakePositionKey(0xFFFFFFFFu, 0xFFFFFFFFu), 0x0FFFFFFFu * 2}})
    EXPECT_EQ(HashKeyOf(c.key), c.hash) << std::hex << c.key;
  EXPECT_EQ(HashKeyOf(int32_t{-16}), 0x0FFFFFFFu);  // unsigned shift
}

TEST(HashMap, IteratesInBucketOrderNewestFirstWithinABucket) {
  PositionMap map;
  EXPECT_EQ(map.GetHashTableSize(), 17u);
  map[InBucket(2, 1)] = 1;
  map[InBucket(0)] = 2;
  map[InBucket(19, 2)] = 3;  // bucket 2 as well
  map[InBucket(16)] = 4;
  EXPECT_EQ(Keys(map), (std::vector<int64_t>{InBucket(0), InBucket(19, 2), InBucket(2, 1), InBucket(16)}));
}

TEST(HashMap, RemovalKeepsTheOrderOfTheOthers) {
  PositionMap map;
  for (uint32_t i = 0; i < 6; ++i) map[InBucket(3, i)] = static_cast<int32_t>(i);
  map[InBucket(1)] = 9;
  EXPECT_TRUE(map.RemoveKey(InBucket(3, 4)));
  EXPECT_TRUE(map.RemoveKey(InBucket(3, 0)));
  EXPECT_FALSE(map.RemoveKey(InBucket(3, 0)));
  EXPECT_EQ(Keys(map), (std::vector<int64_t>{InBucket(1), InBucket(3, 5), InBucket(3, 3), InBucket(3, 2),
                                             InBucket(3, 1)}));
  // A key inserted again goes to the head of its chain.
  map[InBucket(3, 0)] = 0;
  EXPECT_EQ(Keys(map)[1], InBucket(3, 0));
  int32_t v = 0;
  EXPECT_TRUE(map.Lookup(InBucket(3, 2), v));
  EXPECT_EQ(v, 2);
}

TEST(HashMap, BucketCountChangesOnlyWhenEmpty) {
  PositionMap map;
  EXPECT_TRUE(map.InitHashTable(5));
  map[InBucket(1)] = 1;
  EXPECT_FALSE(map.InitHashTable(101));
  EXPECT_EQ(map.GetHashTableSize(), 5u);
  map.RemoveKey(InBucket(1));
  EXPECT_TRUE(map.IsEmpty());
  EXPECT_EQ(map.MemoryUsed(), 0u);  // the store goes back when the map empties
  EXPECT_TRUE(map.InitHashTable(101));
}

TEST(HashMap, ManyKeysStayFindableThroughGrowthAndRemovals) {
  PositionMap map;
  for (int i = 0; i < 20000; ++i) map[MakePositionKey(static_cast<uint32_t>(i % 300), static_cast<uint32_t>(i / 300))] = i;
  for (int i = 0; i < 20000; i += 2) ASSERT_TRUE(map.RemoveKey(MakePositionKey(static_cast<uint32_t>(i % 300), static_cast<uint32_t>(i / 300))));
  EXPECT_EQ(map.GetCount(), 10000);
  int found = 0;
  for (int i = 0; i < 20000; ++i) {
    int32_t v = -1;
    const bool present = map.Lookup(MakePositionKey(static_cast<uint32_t>(i % 300), static_cast<uint32_t>(i / 300)), v);
    ASSERT_EQ(present, i % 2 == 1) << i;
    if (present) found += v == i;
  }
  EXPECT_EQ(found, 10000);
  EXPECT_EQ(Keys(map).size(), 10000u);
}

TEST(HashMap, ArchiveFormByteForByte) {
  CExtHashMapT<int64_t, int64_t, CSize, CSize> map;
  map[MakePositionKey(1, 2)] = CSize{3, 4};
  Bytes want;
  Put32(want, 1);
  Put32(want, 1);  // key: column half, then row half
  Put32(want, 2);
  Put32(want, 3);
  Put32(want, 4);
  EXPECT_EQ(Store(map), want);

  CExtHashMapT<int64_t, int64_t, CSize, CSize> back;
  ASSERT_TRUE(Load(back, want));
  EXPECT_EQ(back.GetCount(), 1);
  CSize size;
  ASSERT_TRUE(back.Lookup(MakePositionKey(1, 2), size));
  EXPECT_EQ(size, (CSize{3, 4}));
}

TEST(HashMap, PointerValuesTakeFourBytesAndLoadAsNull) {
  CExtHashMapT<int64_t, int64_t, int*, int*> map;
  int x = 0;
  map[7] = &x;
  const Bytes bytes = Store(map);
  EXPECT_EQ(bytes.size(), 4u + 8u + 4u);
  CExtHashMapT<int64_t, int64_t, int*, int*> back;
  ASSERT_TRUE(Load(back, bytes));
  int* v = &x;
  ASSERT_TRUE(back.Lookup(7, v));
  EXPECT_EQ(v, nullptr);
}

TEST(HashMap, DamagedArchivesFailAndLeaveTheMapEmpty) {
  Bytes hostile;
  Put32(hostile, 0x7FFFFFFF);  // a count far beyond the bytes
  Put32(hostile, 1);
  CExtHashMapT<int64_t, int64_t, CSize, CSize> map;
  map[5] = CSize{2, 2};
  EXPECT_FALSE(Load(map, hostile));
  EXPECT_TRUE(map.IsEmpty());
  Bytes shortOne;
  Put32(shortOne, 2);
  for (int i = 0; i < 5; ++i) Put32(shortOne, 1);  // one entry and a half
  EXPECT_FALSE(Load(map, shortOne));
  EXPECT_TRUE(map.IsEmpty());
}

}  // namespace
