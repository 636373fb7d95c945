// provider_sparse.h: CExtGridDataProviderSparse, cells kept in two hash maps (position to cell
// and back), so that a few cells in a huge grid cost only themselves.
#pragma once

#include <functional>

#include "toolkit/grid/hash_map.h"
#include "toolkit/grid/provider.h"

namespace qmk::toolkit::grid {

class CExtGridDataProviderSparse : public CExtGridDataProviderBL {
 public:
  using PositionMap = CExtHashMapT<int64_t, int64_t, CExtGridCell*, CExtGridCell*>;
  using CellMap = CExtHashMapT<CExtGridCell*, CExtGridCell*, int64_t, int64_t>;
  // Elements per allocator page, and map nodes per block: a store of a million cells should not
  // spend a heap piece on every ten nodes. Neither changes any order.
  static constexpr uint32_t kCellsPerPage = 256;
  static constexpr uint32_t kNodesPerBlock = 256;

  explicit CExtGridDataProviderSparse(size_t alignment = 8);
  ~CExtGridDataProviderSparse() override;

  const char* GetRuntimeClassName() const override { return "CExtGridDataProviderSparse"; }
  bool Serialize(Archive& ar) override;
  void* MallocAlloc(size_t size) override { return m_pAlloc->Alloc(size); }
  void MallocFree(void* pointer) override { m_pAlloc->Free(pointer); }
  bool ColumnInsert(int position, int count) override { return SeriesInsert(true, position, count); }
  bool RowInsert(int position, int count) override { return SeriesInsert(false, position, count); }
  int ColumnCountGet() const override { return m_nColCount; }
  int RowCountGet() const override { return m_nRowCount; }
  bool ColumnRemove(int position, int count) override { return SeriesRemove(true, position, count); }
  bool RowRemove(int position, int count) override { return SeriesRemove(false, position, count); }
  void MinimizeMemoryUsage() override { m_pAlloc->HeapMinimize(); }
  bool ColumnDefaultValueBind(int column, const CExtGridCell* cell) override;
  bool RowDefaultValueBind(int row, const CExtGridCell* cell) override;
  bool ColumnDefaultValueUnbind(int column) override { return ColumnDefaultValueBind(column, nullptr); }
  bool RowDefaultValueUnbind(int row) override { return RowDefaultValueBind(row, nullptr); }
  CExtGridCell* ColumnDefaultValueGet(int column) const override;
  CExtGridCell* RowDefaultValueGet(int row) const override;
  CExtGridCell* CellGet(int column, int row, const CellClass* cellClass = nullptr, bool autoCreate = false,
                        bool useColumnDefault = true) override;
  bool CellRangeSet(int column, int row, int columns, int rows, const CExtGridCell* cell,
                    bool replace = false, int* count = nullptr) override;
  bool SortRun(bool columns, CExtGridDataSortProgress* progress = nullptr) override;
  bool MoveSeries(bool columns, int from, int to) override;
  bool ForEachCell(const CExtGridRangeSet& set, CellVisitor visitor, void* context, int* lastIndex = nullptr,
                   int* lastColumn = nullptr, int* lastRow = nullptr, const CellClass* cellClass = nullptr,
                   bool autoCreate = false, bool useColumnDefault = true) override;

  // The position of a stored cell (false for a cell this store doesn't hold, or a default).
  bool CellPositionGet(const CExtGridCell* cell, int& column, int& row) const;
  int StoredCellCount() const { return m_mapCells.GetCount(); }
  const PositionMap& PositionMapGet() const { return m_mapCells; }
  CExtAlloc& AllocatorGet() { return *m_pAlloc; }
  // Bytes held by the maps and the allocator's pages.
  size_t MemoryUsed() const;

 private:
  bool SeriesInsert(bool columns, int position, int count);
  bool SeriesRemove(bool columns, int position, int count);
  bool DefaultBind(int64_t key, const CExtGridCell* cell);
  CExtGridCell* Stored(int64_t key) const;
  void Store(int64_t key, CExtGridCell* cell);
  void Drop(int64_t key, CExtGridCell* cell);
  void RemoveAllCells();
  // Moves every entry whose index in the direction (the column, or the row) `newIndex` changes;
  // -1 in `newIndex` leaves it. Entries are collected in bucket order, taken out, and put back
  // in that order.
  void Remap(bool columns, const std::function<int(int)>& newIndex);

  CExtAlloc* m_pAlloc;
  size_t m_nAlignment;
  int m_nColCount = 0;
  int m_nRowCount = 0;
  PositionMap m_mapCells;
  // Built on the first CellPositionGet: a store that is never asked a cell's position does not
  // pay for a second entry per cell.
  mutable CellMap m_mapPositions;
  mutable bool m_bPositionsKept = false;
};

}  // namespace qmk::toolkit::grid
