// provider_test.cpp: both stores through the provider interface: cells, defaults, inserts and
// removals with their sort orders, range set, walks, moving and sorting series, archives.
#include <gtest/gtest.h>

#include <map>
#include <memory>

#include "grid/archive_bytes.h"
#include "toolkit/grid/cell_variant.h"
#include "toolkit/grid/provider_memory.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;
using namespace qmk::platform;
using namespace grid_test;
using qmk::toolkit::formula::CellRect;

namespace {

template <class P>
class Providers : public ::testing::Test {
 protected:
  // A provider of `columns` by `rows` with an integer cell at each listed position.
  std::unique_ptr<P> Make(int columns, int rows, std::map<std::pair<int, int>, int> values = {}) {
    auto p = std::make_unique<P>();
    EXPECT_TRUE(p->ColumnInsert(0, columns));
    EXPECT_TRUE(p->RowInsert(0, rows));
    for (auto& [pos, v] : values) Put(*p, pos.first, pos.second, v);
    return p;
  }
  static void Put(CExtGridDataProvider& p, int c, int r, int v) {
    auto* cell = dynamic_cast<CExtGridCellVariant*>(p.CellGet(c, r, &CExtGridCellVariant::kClass));
    ASSERT_NE(cell, nullptr);
    cell->VariantSet(Variant::I4(v));
  }
  // Every stored cell as "c,r=value", in reading order.
  static std::map<std::pair<int, int>, int> Cells(CExtGridDataProvider& p) {
    std::map<std::pair<int, int>, int> out;
    for (int c = 0; c < p.ColumnCountGet(); ++c)
      for (int r = 0; r < p.RowCountGet(); ++r)
        if (auto* cell = dynamic_cast<CExtGridCellVariant*>(p.CellGet(c, r)))
          out[{c, r}] = static_cast<int>(cell->GetVariantPtr()->SignedValue());
    return out;
  }
};

using Stores = ::testing::Types<CExtGridDataProviderSparse, CExtGridDataProviderMemory>;
TYPED_TEST_SUITE(Providers, Stores);

TYPED_TEST(Providers, CellGetCreatesOnlyWhenAsked) {
  auto p = this->Make(3, 3);
  EXPECT_EQ(p->CellGet(1, 1), nullptr);
  EXPECT_EQ(p->CellGet(1, 1, nullptr, true), nullptr);  // no default to clone
  EXPECT_EQ(p->CellGet(3, 0, &CExtGridCellVariant::kClass), nullptr);
  EXPECT_EQ(p->CellGet(-1, 0, &CExtGridCellVariant::kClass), nullptr);
  CExtGridCell* made = p->CellGet(1, 1, &CExtGridCellVariant::kClass);
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->GetOwner(), p.get());
  EXPECT_EQ(p->CellGet(1, 1), made);
  EXPECT_EQ(p->CellGet(1, 1, &CExtGridCellString::kClass), made);  // a stored cell is returned as it is
}

TYPED_TEST(Providers, DefaultsPerColumnAndRowAreCloned) {
  auto p = this->Make(3, 3);
  CExtGridCellVariant columnModel, rowModel;
  columnModel.VariantSet(Variant::I4(10));
  rowModel.VariantSet(Variant::I4(20));
  EXPECT_TRUE(p->ColumnDefaultValueBind(2, &columnModel));
  EXPECT_TRUE(p->RowDefaultValueBind(1, &rowModel));
  EXPECT_FALSE(p->ColumnDefaultValueBind(3, &columnModel));
  EXPECT_NE(p->ColumnDefaultValueGet(2), &columnModel);
  auto* fromColumn = dynamic_cast<CExtGridCellVariant*>(p->CellGet(2, 0, nullptr, true));
  ASSERT_NE(fromColumn, nullptr);
  EXPECT_EQ(*fromColumn->GetVariantPtr(), Variant::I4(10));
  auto* fromRow = dynamic_cast<CExtGridCellVariant*>(p->CellGet(0, 1, nullptr, true, false));
  ASSERT_NE(fromRow, nullptr);
  EXPECT_EQ(*fromRow->GetVariantPtr(), Variant::I4(20));
  EXPECT_EQ(p->CellGet(0, 0, nullptr, true), nullptr);
  // Defaults are not cells of the grid.
  EXPECT_EQ(this->Cells(*p).size(), 2u);
  EXPECT_TRUE(p->ColumnDefaultValueUnbind(2));
  EXPECT_EQ(p->ColumnDefaultValueGet(2), nullptr);
}

TYPED_TEST(Providers, ColumnInsertMovesCellsAndSortRecords) {
  auto p = this->Make(4, 2, {{{0, 0}, 1}, {{1, 1}, 2}, {{3, 0}, 3}});
  p->SortOrderGet(true).m_arrItems = {{1, true}, {3, false}, {0, true}};
  EXPECT_TRUE(p->ColumnInsert(1, 0));  // nothing happens
  EXPECT_TRUE(p->ColumnInsert(1, 2));
  EXPECT_EQ(p->ColumnCountGet(), 6);
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 0}, 1}, {{3, 1}, 2}, {{5, 0}, 3}}));
  EXPECT_EQ(p->SortOrderGet(true).m_arrItems,
            (std::vector<CExtGridDataSortOrder::ITEM_INFO>{{3, true}, {5, false}, {0, true}}));
  EXPECT_FALSE(p->ColumnInsert(8, 1));  // beyond the count plus one
  EXPECT_FALSE(p->ColumnInsert(-1, 1));
}

TYPED_TEST(Providers, ColumnRemoveDropsTheSpanAndItsSortRecords) {
  auto p = this->Make(5, 2, {{{0, 0}, 1}, {{1, 1}, 2}, {{2, 0}, 3}, {{4, 1}, 4}});
  p->SortOrderGet(true).m_arrItems = {{1, true}, {4, false}, {0, true}};
  EXPECT_TRUE(p->ColumnRemove(1, 0));
  EXPECT_FALSE(p->ColumnRemove(4, 2));  // past the end
  EXPECT_TRUE(p->ColumnRemove(1, 2));
  EXPECT_EQ(p->ColumnCountGet(), 3);
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 0}, 1}, {{2, 1}, 4}}));
  EXPECT_EQ(p->SortOrderGet(true).m_arrItems,
            (std::vector<CExtGridDataSortOrder::ITEM_INFO>{{2, false}, {0, true}}));
  // The last column: one fewer, the others stay where they are.
  EXPECT_TRUE(p->ColumnRemove(2, 1));
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 0}, 1}}));
}

// Row removal corrects the row sort order in the insert sense: records at or past the removed
// position move further down instead of up, and none is dropped. Kept on purpose.
TYPED_TEST(Providers, RowRemoveUpdatesRowSortOrderInTheInsertSense) {
  auto p = this->Make(2, 6, {{{0, 1}, 1}, {{1, 4}, 2}});
  p->SortOrderGet(false).m_arrItems = {{0, true}, {2, true}, {4, false}};
  EXPECT_TRUE(p->RowRemove(2, 1));
  EXPECT_EQ(p->RowCountGet(), 5);
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 1}, 1}, {{1, 3}, 2}}));
  EXPECT_EQ(p->SortOrderGet(false).m_arrItems,
            (std::vector<CExtGridDataSortOrder::ITEM_INFO>{{0, true}, {3, true}, {5, false}}));
}

TYPED_TEST(Providers, CellRangeSetTouchesOnlyStoredCells) {
  auto p = this->Make(4, 4, {{{0, 0}, 1}, {{1, 1}, 2}, {{2, 2}, 3}, {{3, 3}, 4}});
  CExtGridCellVariant model;
  model.VariantSet(Variant::I4(9));
  int count = -1;
  EXPECT_TRUE(p->CellRangeSet(1, 1, 2, 2, &model, false, &count));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 0}, 1}, {{1, 1}, 9}, {{2, 2}, 9}, {{3, 3}, 4}}));
  CExtGridCellString text;
  text.TextSet("t");
  EXPECT_TRUE(p->CellRangeSet(0, 0, 2, 2, &text, true, &count));
  EXPECT_EQ(count, 2);
  EXPECT_EQ(p->CellGet(0, 0)->GetRuntimeClass(), &CExtGridCellString::kClass);
  EXPECT_EQ(p->CellGet(0, 1), nullptr);
  EXPECT_TRUE(p->CellRangeSet(0, 0, 4, 4, nullptr, false, &count));
  EXPECT_EQ(count, 4);
  EXPECT_TRUE(this->Cells(*p).empty());
  EXPECT_FALSE(p->CellRangeSet(3, 0, 2, 1, nullptr, false, &count));
}

struct Visit {
  std::vector<std::tuple<int, int, int>> seen;
  int stopAfter = 1000;
};
bool Record(CExtGridCell*, int c, int r, int index, void* context) {
  auto* v = static_cast<Visit*>(context);
  v->seen.emplace_back(c, r, index);
  return static_cast<int>(v->seen.size()) < v->stopAfter;
}

TYPED_TEST(Providers, ForEachCellWithCreationVisitsEveryPositionInReadingOrder) {
  auto p = this->Make(3, 3, {{{1, 0}, 1}, {{0, 1}, 2}});
  CExtGridRangeSet set(CellRect{0, 0, 1, 1});
  Visit v;
  int last = -5, lastColumn = -5, lastRow = -5;
  EXPECT_TRUE(p->ForEachCell(set, Record, &v, &last, &lastColumn, &lastRow, &CExtGridCellVariant::kClass));
  EXPECT_EQ(v.seen, (std::vector<std::tuple<int, int, int>>{{0, 0, 1}, {1, 0, 2}, {0, 1, 3}, {1, 1, 4}}));
  EXPECT_EQ(last, 4);
  EXPECT_EQ(lastColumn, 1);
  EXPECT_EQ(lastRow, 1);
  // With autoCreate and no default, nothing is made, but every position still counts.
  Visit w;
  EXPECT_TRUE(p->ForEachCell(CExtGridRangeSet(CellRect{2, 0, 2, 2}), Record, &w, &last, nullptr, nullptr, nullptr, true));
  EXPECT_TRUE(w.seen.empty());
  EXPECT_EQ(last, 3);
  Visit stop;
  stop.stopAfter = 2;
  EXPECT_FALSE(p->ForEachCell(set, Record, &stop, nullptr, nullptr, nullptr, &CExtGridCellVariant::kClass));
  EXPECT_EQ(stop.seen.size(), 2u);
}

TYPED_TEST(Providers, MoveSeriesPutsOneInFrontOfAnother) {
  struct Case { int from, to; std::vector<int> order; };
  for (const Case& c : {Case{0, 3, {1, 2, 0, 3}}, Case{3, 0, {3, 0, 1, 2}}, Case{1, 4, {0, 2, 3, 1}},
                        Case{2, 2, {0, 1, 2, 3}}, Case{1, 2, {0, 1, 2, 3}}}) {
    auto p = this->Make(1, 4, {{{0, 0}, 0}, {{0, 1}, 1}, {{0, 2}, 2}, {{0, 3}, 3}});
    p->SortOrderGet(false).m_arrItems = {{0, true}};
    EXPECT_TRUE(p->MoveSeries(false, c.from, c.to));
    std::vector<int> got;
    for (auto& [pos, value] : this->Cells(*p)) got.push_back(value);
    EXPECT_EQ(got, c.order) << c.from << "->" << c.to;
    EXPECT_EQ(p->SortOrderGet(false).IsEmpty(), !(c.from == c.to || c.to == c.from + 1));
  }
  auto p = this->Make(2, 2);
  EXPECT_FALSE(p->MoveSeries(true, 2, 0));
  EXPECT_FALSE(p->MoveSeries(true, 0, 3));
}

struct Progress : CExtGridDataSortProgress {
  std::vector<std::string> calls;
  bool go = true;
  bool OnSortCheck(bool) override { calls.push_back("check"); return go; }
  void OnSortStart(bool, int n) override { calls.push_back("start " + std::to_string(n)); }
  void OnSortEnd(bool) override { calls.push_back("end"); }
};

TYPED_TEST(Providers, SortRunOrdersRowsBehindTheReservedOnes) {
  // Column 0 holds the key; column 1 follows its row. Row 0 is a header and stays.
  auto p = this->Make(2, 5, {{{0, 0}, 100}, {{0, 1}, 3}, {{1, 1}, 30}, {{0, 2}, 1}, {{1, 2}, 10}, {{0, 4}, 2}, {{1, 4}, 20}});
  ASSERT_TRUE(p->CacheReservedCountsSet(0, 1));
  p->SortOrderGet(true).m_arrItems = {{0, true}};
  Progress progress;
  EXPECT_TRUE(p->SortRun(false, &progress));
  EXPECT_EQ(progress.calls, (std::vector<std::string>{"start 4", "end"}));
  // The row without a key cell sorts first.
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 0}, 100}, {{0, 2}, 1}, {{1, 2}, 10},
                                                                  {{0, 3}, 2}, {{1, 3}, 20}, {{0, 4}, 3}, {{1, 4}, 30}}));
  p->SortOrderGet(true).m_arrItems = {{1, false}};
  EXPECT_TRUE(p->SortRun(false));
  EXPECT_EQ(this->Cells(*p).at({1, 1}), 30);
  // Switched off, or an empty order with a check that says stop: nothing happens.
  p->SortFlagsSet(kSortRowsOff);
  EXPECT_FALSE(p->SortRun(false));
  p->SortFlagsSet(0);
  p->SortOrderGet(true).Empty();
  Progress stop;
  stop.go = false;
  EXPECT_FALSE(p->SortRun(false, &stop));
  EXPECT_EQ(stop.calls, (std::vector<std::string>{"check"}));
}

TYPED_TEST(Providers, SortRunOrdersColumnsByTheRowSortOrder) {
  // Row 1 holds the keys; row 0 follows its column. Column 0 is reserved and stays.
  auto p = this->Make(4, 2, {{{0, 1}, 99}, {{1, 0}, 10}, {{1, 1}, 3}, {{2, 0}, 20}, {{2, 1}, 1}, {{3, 0}, 30}, {{3, 1}, 2}});
  ASSERT_TRUE(p->CacheReservedCountsSet(1, 0));
  p->SortOrderGet(false).m_arrItems = {{1, false}};
  EXPECT_TRUE(p->SortRun(true));
  EXPECT_EQ(this->Cells(*p), (std::map<std::pair<int, int>, int>{{{0, 1}, 99}, {{1, 0}, 10}, {{1, 1}, 3},
                                                                  {{2, 0}, 30}, {{2, 1}, 2}, {{3, 0}, 20}, {{3, 1}, 1}}));
  p->SortFlagsSet(kSortColumnsOff);
  EXPECT_FALSE(p->SortRun(true));
  // Moving a column clears the column sort order, not the row one.
  p->SortOrderGet(true).m_arrItems = {{1, true}};
  EXPECT_TRUE(p->MoveSeries(true, 3, 1));
  EXPECT_TRUE(p->SortOrderGet(true).IsEmpty());
  EXPECT_FALSE(p->SortOrderGet(false).IsEmpty());
  EXPECT_EQ(this->Cells(*p).at({1, 1}), 1);
}

TYPED_TEST(Providers, ArchiveRoundTripsIntoEitherStore) {
  auto p = this->Make(3, 4, {{{0, 0}, 5}, {{2, 3}, 6}});
  CExtGridCellVariant model;
  model.VariantSet(Variant::I4(7));
  p->ColumnDefaultValueBind(1, &model);
  p->CacheReservedCountsSet(1, 1);
  p->SortOrderGet(false).m_arrItems = {{2, false}};
  const Bytes bytes = Store(*p);
  CExtGridDataProviderSparse sparse;
  CExtGridDataProviderMemory dense;
  for (CExtGridDataProviderBL* back : {static_cast<CExtGridDataProviderBL*>(&sparse),
                                       static_cast<CExtGridDataProviderBL*>(&dense)}) {
    ASSERT_TRUE(Load(*back, bytes));
    EXPECT_EQ(back->ColumnCountGet(), 3);
    EXPECT_EQ(back->RowCountGet(), 4);
    EXPECT_EQ(this->Cells(*back), this->Cells(*p));
    ASSERT_NE(back->ColumnDefaultValueGet(1), nullptr);
    EXPECT_EQ(back->CellGet(0, 0)->GetOwner(), back);
    int rc = 0, rr = 0;
    back->CacheReservedCountsGet(rc, rr);
    EXPECT_EQ(rc, 1);
    EXPECT_EQ(rr, 1);
    EXPECT_EQ(back->SortOrderGet(false).m_arrItems, p->SortOrderGet(false).m_arrItems);
  }
}

TYPED_TEST(Providers, DamagedArchiveChangesNothing) {
  auto p = this->Make(2, 2, {{{1, 1}, 4}});
  Bytes bytes = Store(*p);
  auto keep = this->Make(1, 1, {{{0, 0}, 9}});
  for (size_t cut = 0; cut < bytes.size(); cut += 7) {
    Bytes part(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(cut));
    EXPECT_FALSE(Load(*keep, part)) << cut;
  }
  EXPECT_EQ(this->Cells(*keep), (std::map<std::pair<int, int>, int>{{{0, 0}, 9}}));
  EXPECT_EQ(keep->ColumnCountGet(), 1);
}

TEST(SparseProvider, ArchiveByteForByte) {
  CExtGridDataProviderSparse p;
  p.ColumnInsert(0, 2);
  p.RowInsert(0, 3);
  p.CellGet(1, 2, &CExtGridCell::kClass);
  Bytes want;
  for (uint32_t w : {2u, 3u, 0u, 0u, 0u, 0u, 0u, 1u}) Put32(want, w);  // counts, reserved, flags, orders, cells
  Put32(want, 2);  // column + 1
  Put32(want, 3);  // row + 1
  PutString(want, "CExtGridCell");
  for (uint32_t w : {0x40000000u, 0x80u, 0xFFFFFFFFu, 0xFFFFFFFFu, 0u}) Put32(want, w);
  EXPECT_EQ(Store(p), want);
}

TEST(SparseProvider, WalkWithoutCreationSeesStoredCellsInBucketOrder) {
  CExtGridDataProviderSparse p;
  p.ColumnInsert(0, 100);
  p.RowInsert(0, 100);
  // Keys (c + 1, r + 1): bucket ((r + 1) >> 4) + ((c + 1) >> 4) mod 17.
  for (auto [c, r] : {std::pair{40, 0}, {0, 0}, {15, 0}, {15, 40}, {20, 20}}) p.CellGet(c, r, &CExtGridCellVariant::kClass);
  Visit v;
  int last = 0;
  EXPECT_TRUE(p.ForEachCell(CExtGridRangeSet(CellRect{0, 0, 40, 39}), Record, &v, &last));
  // Buckets: (0,0)->0, (15,0)->1, then bucket 2 newest first: (20,20), (40,0); (15,40) lies
  // outside the set.
  EXPECT_EQ(v.seen, (std::vector<std::tuple<int, int, int>>{{0, 0, 1}, {15, 0, 2}, {20, 20, 3}, {40, 0, 4}}));
  EXPECT_EQ(last, 4);
  int c = -1, r = -1;
  EXPECT_TRUE(p.CellPositionGet(p.CellGet(20, 20), c, r));
  EXPECT_EQ(c, 20);
  EXPECT_EQ(r, 20);
}

TEST(SparseProvider, RemovedCellsGoBackToTheAllocatorForReuse) {
  CExtGridDataProviderSparse p;
  p.ColumnInsert(0, 1000);
  p.RowInsert(0, 10);
  for (int c = 0; c < 1000; ++c) p.CellGet(c, c % 10, &CExtGridCellVariant::kClass);
  EXPECT_EQ(p.StoredCellCount(), 1000);
  const size_t pages = p.AllocatorGet().PageCount();
  EXPECT_TRUE(p.ColumnRemove(0, 1000));
  EXPECT_EQ(p.StoredCellCount(), 0);
  EXPECT_EQ(p.AllocatorGet().PageCount(), pages);  // pages stay for reuse
  p.ColumnInsert(0, 1000);
  for (int c = 0; c < 1000; ++c) p.CellGet(c / 10, c % 10, &CExtGridCellVariant::kClass);
  EXPECT_EQ(p.AllocatorGet().PageCount(), pages);
}

TEST(MemoryProvider, RemovingEveryColumnEmptiesTheRowsToo) {
  // The dense store clears everything in one step and keeps the other count at 0.
  CExtGridDataProviderMemory p;
  p.ColumnInsert(0, 3);
  p.RowInsert(0, 4);
  p.CellGet(1, 1, &CExtGridCellVariant::kClass);
  EXPECT_TRUE(p.ColumnRemove(0, 3));
  EXPECT_EQ(p.ColumnCountGet(), 0);
  EXPECT_EQ(p.RowCountGet(), 0);
  // Without columns, removing rows just lowers the count.
  p.RowInsert(0, 5);
  EXPECT_TRUE(p.RowRemove(0, 5));
  EXPECT_EQ(p.RowCountGet(), 0);
  EXPECT_FALSE(p.ColumnInsert(0, CExtGridDataProviderMemory::kMaxDenseCount + 1));
}

TEST(StringDMCell, TextMemoryComesFromTheOwner) {
  CExtGridDataProviderSparse p;
  p.ColumnInsert(0, 1);
  p.RowInsert(0, 1);
  auto* cell = p.CellGet(0, 0, &CExtGridCellStringDM::kClass);
  ASSERT_NE(cell, nullptr);
  cell->TextSet("a header text");
  EXPECT_EQ(p.AllocatorGet().DidAlloc(const_cast<char*>(cell->TextBufferGet())), 1);
  std::unique_ptr<CExtGridCell> copy(cell->Clone());
  EXPECT_EQ(p.AllocatorGet().DidAlloc(const_cast<char*>(copy->TextBufferGet())), 0);
  EXPECT_STREQ(copy->TextBufferGet(), "a header text");
}

}  // namespace

namespace {

TEST(MemoryProvider, ArchiveByteForByteDefaultsFirst) {
  CExtGridDataProviderMemory p;
  p.ColumnInsert(0, 2);
  p.RowInsert(0, 3);
  p.CellGet(1, 2, &CExtGridCell::kClass);
  CExtGridCell model;
  p.ColumnDefaultValueBind(0, &model);
  Bytes want;
  for (uint32_t w : {2u, 3u, 0u, 0u, 0u, 0u, 0u, 2u}) Put32(want, w);
  const uint32_t keys[2][2] = {{1, 0}, {2, 3}};  // the default of column 0, then the cell at (1, 2)
  for (const auto& key : keys) {
    Put32(want, key[0]);
    Put32(want, key[1]);
    PutString(want, "CExtGridCell");
    for (uint32_t w : {0x40000000u, 0x80u, 0xFFFFFFFFu, 0xFFFFFFFFu, 0u}) Put32(want, w);
  }
  EXPECT_EQ(Store(p), want);
}

}  // namespace

namespace {

TEST(SparseProvider, CellPositionsFollowMovesOnceAsked) {
  CExtGridDataProviderSparse p;
  p.ColumnInsert(0, 10);
  p.RowInsert(0, 10);
  CExtGridCell* a = p.CellGet(2, 3, &CExtGridCellVariant::kClass);
  CExtGridCell* b = p.CellGet(5, 5, &CExtGridCellVariant::kClass);
  int c = -1, r = -1;
  ASSERT_TRUE(p.CellPositionGet(a, c, r));
  EXPECT_EQ(std::make_pair(c, r), std::make_pair(2, 3));
  p.ColumnInsert(0, 2);
  p.RowRemove(0, 1);
  ASSERT_TRUE(p.CellPositionGet(b, c, r));
  EXPECT_EQ(std::make_pair(c, r), std::make_pair(7, 4));
  CExtGridCell* fresh = p.CellGet(0, 0, &CExtGridCellVariant::kClass);
  ASSERT_TRUE(p.CellPositionGet(fresh, c, r));
  EXPECT_EQ(std::make_pair(c, r), std::make_pair(0, 0));
  p.CellRangeSet(4, 2, 1, 1, nullptr);  // frees a, now at (4, 2)
  EXPECT_FALSE(p.CellPositionGet(a, c, r));
  CExtGridCellVariant outsider;
  EXPECT_FALSE(p.CellPositionGet(&outsider, c, r));
}

}  // namespace
