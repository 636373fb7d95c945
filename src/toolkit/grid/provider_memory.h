// provider_memory.h: CExtGridDataProviderMemory, a dense store: an array of columns, each a
// vector of cell pointers with one entry per row, allocated on its first store.
#pragma once

#include <vector>

#include "toolkit/grid/provider.h"

namespace qmk::toolkit::grid {

class CExtGridDataProviderMemory : public CExtGridDataProviderBL {
 public:
  // The dense store refuses to grow past this many columns or rows: a column's vector has an
  // entry for every row, so a count from a damaged archive must not decide the memory taken.
  static constexpr int kMaxDenseCount = 1 << 20;
  static constexpr uint32_t kCellsPerPage = 256;

  CExtGridDataProviderMemory();
  ~CExtGridDataProviderMemory() override;

  const char* GetRuntimeClassName() const override { return "CExtGridDataProviderMemory"; }
  bool Serialize(Archive& ar) override;
  void* MallocAlloc(size_t size) override { return m_pAlloc->Alloc(size); }
  void MallocFree(void* pointer) override { m_pAlloc->Free(pointer); }
  bool ColumnInsert(int position, int count) override;
  bool RowInsert(int position, int count) override;
  int ColumnCountGet() const override { return m_nColCount; }
  int RowCountGet() const override { return m_nRowCount; }
  bool ColumnRemove(int position, int count) override;
  bool RowRemove(int position, int count) override;
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

 private:
  using Series = std::vector<CExtGridCell*>;
  CExtGridCell*& Slot(int column, int row);
  void Free(CExtGridCell*& cell);
  void FreeAll(Series& series);
  void ClearAll();
  bool BindDefault(Series& defaults, int index, int count, const CExtGridCell* cell);
  // Reorders one direction: element i of `order` is the old index that goes to index i.
  void Reorder(bool columns, const std::vector<int>& order);

  CExtAlloc* m_pAlloc;
  int m_nColCount = 0;
  int m_nRowCount = 0;
  std::vector<Series> m_arrColumns;
  Series m_arrColumnDefaults;  // sized on the first bind
  Series m_arrRowDefaults;
};

}  // namespace qmk::toolkit::grid
