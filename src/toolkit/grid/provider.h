// provider.h: CExtGridDataProvider, what a grid asks of the object that stores its cells, and
// CExtGridDataProviderBL, the middle layer with reserved counts, sort orders and the observer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "toolkit/formula/range_set.h"
#include "toolkit/grid/cell.h"
#include "toolkit/grid/sort_order.h"
#include "toolkit/grid/types.h"

namespace qmk::toolkit::bitmap {
class CExtCmdIcon;
}

namespace qmk::toolkit::grid {

using formula::CExtGridRangeSet;

// A font as cells refer to it through the provider's font table.
struct GridFont {
  std::string m_strFaceName;
  int32_t m_nHeight = 0;
  int32_t m_nWeight = 400;
  bool m_bItalic = false;
  bool operator==(const GridFont&) const = default;
};

// Told of every insert and removal of a provider.
class IGridDataObserver {
 public:
  virtual ~IGridDataObserver() = default;
  virtual void OnSeriesInsert(bool columns, int position, int count) = 0;
  virtual void OnSeriesRemove(bool columns, int position, int count) = 0;
};

// The hooks of SortRun. OnSortCheck is asked when the sort order is empty; false stops the run.
class CExtGridDataSortProgress {
 public:
  virtual ~CExtGridDataSortProgress() = default;
  virtual bool OnSortCheck(bool /*columns*/) { return true; }
  virtual void OnSortStart(bool /*columns*/, int /*seriesCount*/) {}
  virtual void OnSortEnd(bool /*columns*/) {}
};

// One visit of ForEachCell: false ends the walk.
using CellVisitor = bool (*)(CExtGridCell* cell, int column, int row, int index, void* context);

class CExtGridDataProvider {
 public:
  CExtGridDataProvider() = default;
  CExtGridDataProvider(const CExtGridDataProvider&) = delete;
  CExtGridDataProvider& operator=(const CExtGridDataProvider&) = delete;
  virtual ~CExtGridDataProvider() = default;

  virtual const char* GetRuntimeClassName() const = 0;
  virtual bool Serialize(Archive& ar) = 0;
  virtual void* MallocAlloc(size_t size) = 0;
  virtual void MallocFree(void* pointer) = 0;
  virtual bool ColumnInsert(int position, int count) = 0;
  virtual bool RowInsert(int position, int count) = 0;
  virtual int ColumnCountGet() const = 0;
  virtual int RowCountGet() const = 0;
  virtual bool ColumnRemove(int position, int count) = 0;
  virtual bool RowRemove(int position, int count) = 0;
  virtual void MinimizeMemoryUsage() = 0;
  // The provider keeps its own copy of `cell`; false for a column out of range.
  virtual bool ColumnDefaultValueBind(int column, const CExtGridCell* cell) = 0;
  virtual bool RowDefaultValueBind(int row, const CExtGridCell* cell) = 0;
  virtual bool ColumnDefaultValueUnbind(int column) = 0;
  virtual bool RowDefaultValueUnbind(int row) = 0;
  virtual CExtGridCell* ColumnDefaultValueGet(int column) const = 0;
  virtual CExtGridCell* RowDefaultValueGet(int row) const = 0;
  virtual CExtGridCell* CellGet(int column, int row, const CellClass* cellClass = nullptr,
                                bool autoCreate = false, bool useColumnDefault = true) = 0;
  virtual bool CellRangeSet(int column, int row, int columns, int rows, const CExtGridCell* cell,
                            bool replace = false, int* count = nullptr) = 0;
  virtual bool CacheReservedCountsSet(int columns, int rows) = 0;
  virtual void CacheReservedCountsGet(int& columns, int& rows) const = 0;

  // Icon table: cells refer to icons by index. The base has none.
  virtual int IconGetCount() const { return 0; }
  virtual bitmap::CExtCmdIcon* IconGetAt(int) const { return nullptr; }
  virtual int IconInsert(bitmap::CExtCmdIcon*, int = -1, bool = true) { return -1; }
  virtual int IconRemove(int = 0, int = -1) { return 0; }
  // Font table: cells refer to fonts by index. The base has none.
  virtual int FontGetCount() const { return 0; }
  virtual const GridFont* FontGetAt(int) const { return nullptr; }
  virtual int FontInsert(GridFont*, int = -1, bool = true) { return -1; }
  virtual int FontRemove(int = 0, int = -1) { return 0; }

  virtual bool SortRun(bool columns, CExtGridDataSortProgress* progress = nullptr) = 0;
  virtual bool MoveSeries(bool columns, int from, int to) = 0;
  // Visits the cells of `set` (provider positions). Without a class and without `autoCreate`
  // only stored cells are seen, in the store's own order; otherwise every position in reading
  // order through CellGet.
  virtual bool ForEachCell(const CExtGridRangeSet& set, CellVisitor visitor, void* context,
                           int* lastIndex = nullptr, int* lastColumn = nullptr, int* lastRow = nullptr,
                           const CellClass* cellClass = nullptr, bool autoCreate = false,
                           bool useColumnDefault = true);
  virtual IGridDataObserver* GetObserver() const { return nullptr; }
};

// Sort switches: a direction whose bit is set is never sorted.
constexpr uint32_t kSortColumnsOff = 0x1;
constexpr uint32_t kSortRowsOff = 0x2;

class CExtGridDataProviderBL : public CExtGridDataProvider {
 public:
  bool CacheReservedCountsSet(int columns, int rows) override;
  void CacheReservedCountsGet(int& columns, int& rows) const override {
    columns = m_nReservedColCount;
    rows = m_nReservedRowCount;
  }
  IGridDataObserver* GetObserver() const override { return m_pObserver; }
  void SetObserver(IGridDataObserver* observer) { m_pObserver = observer; }

  // The sort order whose records are columns (it orders rows), and the one of rows.
  CExtGridDataSortOrder& SortOrderGet(bool columns) { return columns ? m_soColumns : m_soRows; }
  const CExtGridDataSortOrder& SortOrderGet(bool columns) const { return columns ? m_soColumns : m_soRows; }
  uint32_t SortFlagsGet() const { return m_dwSortFlags; }
  void SortFlagsSet(uint32_t flags) { m_dwSortFlags = flags; }

 protected:
  void TellInsert(bool columns, int position, int count) {
    if (m_pObserver) m_pObserver->OnSeriesInsert(columns, position, count);
  }
  void TellRemove(bool columns, int position, int count) {
    if (m_pObserver) m_pObserver->OnSeriesRemove(columns, position, count);
  }
  // The archive form both stores share: the header (counts, reserved counts, sort switches,
  // both sort orders), then a 32-bit cell count and per cell its position key (column + 1 in
  // the low half, row + 1 in the high half; 0 in a half marks a default), the class name and the
  // cell's own form.
  struct ArchiveHeader {
    int columns = 0, rows = 0, reservedColumns = 0, reservedRows = 0;
    uint32_t sortFlags = 0;
    CExtGridDataSortOrder byColumns, byRows;
  };
  struct CellRecord {
    int64_t key;
    CExtGridCell* cell;  // from the heap until the store adopts it
  };
  bool StoreHeader(Archive& ar, int columns, int rows);
  static bool LoadHeader(Archive& ar, ArchiveHeader& header);
  void ApplyHeader(const ArchiveHeader& header);
  static bool StoreCell(Archive& ar, int64_t key, CExtGridCell* cell);
  // Reads every record; false (with nothing kept) on damage or a position outside the header.
  static bool LoadCells(Archive& ar, const ArchiveHeader& header, std::vector<CellRecord>& cells);
  // The order in which SortRun places the data series of one direction: element i is the old
  // position of the series that goes to position reserved + i.
  bool SortPermutation(bool columns, CExtGridDataSortProgress* progress, std::vector<int>& order);

  int m_nReservedColCount = 0;
  int m_nReservedRowCount = 0;
  uint32_t m_dwSortFlags = 0;
  CExtGridDataSortOrder m_soColumns;
  CExtGridDataSortOrder m_soRows;
  IGridDataObserver* m_pObserver = nullptr;
};

}  // namespace qmk::toolkit::grid
