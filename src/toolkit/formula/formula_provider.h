// formula_provider.h: CExtFDP, the joint of a grid cell store and the formula data manager, so
// that one object stores the cells and knows their formulas.
#pragma once

#include <climits>

#include "toolkit/formula/data_manager.h"
#include "toolkit/grid/provider_mixins.h"
#include "toolkit/grid/provider_sparse.h"

namespace qmk::toolkit::formula {

// BASE is the store (a CExtGridDataProviderSparse, usually under CExtGDPJ for joins); MANAGER
// the formula data manager. The store's own operations move and drop cells as a store does and
// keep the registry of formula cells in step; they do not rewrite formulas, which is what
// CExtFormulaGridWnd adds around them.
template <class BASE, class MANAGER = CExtFormulaDataManager>
class CExtFDP : public BASE, public MANAGER {
 public:
  CExtFDP(int columns = 0, int rows = 0) {
    BASE::ColumnInsert(0, columns > 0 ? columns : 0);
    BASE::RowInsert(0, rows > 0 ? rows : 0);
  }

  grid::CExtGridDataProvider& GetDataProvider() override { return *this; }

  bool ColumnInsert(int position, int count) override {
    return Resync(BASE::ColumnInsert(position, count));
  }
  bool RowInsert(int position, int count) override { return Resync(BASE::RowInsert(position, count)); }
  bool ColumnRemove(int position, int count) override {
    UnregisterSpan(true, position, count);
    return Resync(BASE::ColumnRemove(position, count));
  }
  bool RowRemove(int position, int count) override {
    UnregisterSpan(false, position, count);
    return Resync(BASE::RowRemove(position, count));
  }
  bool CellRangeSet(int column, int row, int columns, int rows, const grid::CExtGridCell* cell,
                    bool replace = false, int* count = nullptr) override {
    int reservedColumns = 0, reservedRows = 0;
    BASE::CacheReservedCountsGet(reservedColumns, reservedRows);
    if (columns > 0 && rows > 0)
      MANAGER::UnregisterRange(CExtGridRangeSet(CellRect{column - reservedColumns, row - reservedRows,
                                                         column - reservedColumns + columns - 1,
                                                         row - reservedRows + rows - 1}));
    return Resync(BASE::CellRangeSet(column, row, columns, rows, cell, replace, count));
  }
  bool SortRun(bool columns, grid::CExtGridDataSortProgress* progress = nullptr) override {
    return Resync(BASE::SortRun(columns, progress));
  }
  bool MoveSeries(bool columns, int from, int to) override { return Resync(BASE::MoveSeries(columns, from, to)); }
  bool CacheReservedCountsSet(int columns, int rows) override {
    return Resync(BASE::CacheReservedCountsSet(columns, rows));
  }
  // Loaded cells are registered again, compiled and computed.
  bool Serialize(grid::Archive& ar) override {
    if (ar.IsStoring()) return BASE::Serialize(ar);
    const bool loaded = BASE::Serialize(ar);
    MANAGER::RegisterAllCells();
    MANAGER::RecomputeAll();
    return loaded;
  }

 protected:
  bool StoreSeriesInsert(bool columns, int position, int count) override {
    int reservedColumns = 0, reservedRows = 0;
    BASE::CacheReservedCountsGet(reservedColumns, reservedRows);
    return columns ? BASE::ColumnInsert(position + reservedColumns, count)
                   : BASE::RowInsert(position + reservedRows, count);
  }
  bool StoreSeriesRemove(bool columns, int position, int count) override {
    int reservedColumns = 0, reservedRows = 0;
    BASE::CacheReservedCountsGet(reservedColumns, reservedRows);
    return columns ? BASE::ColumnRemove(position + reservedColumns, count)
                   : BASE::RowRemove(position + reservedRows, count);
  }
  bool StoreJoin(int column, int row, int columns, int rows) override {
    if constexpr (requires(BASE& b) { b.JoinSet(0, 0, 1, 1); }) {
      int reservedColumns = 0, reservedRows = 0;
      BASE::CacheReservedCountsGet(reservedColumns, reservedRows);
      return BASE::JoinSet(column + reservedColumns, row + reservedRows, columns, rows);
    } else {
      return false;
    }
  }

 private:
  bool Resync(bool done) {
    MANAGER::RegisterAllCells();
    return done;
  }
  // Before the store drops a span of series, its formula cells leave the registry.
  void UnregisterSpan(bool columns, int position, int count) {
    if (count <= 0) return;
    int reservedColumns = 0, reservedRows = 0;
    BASE::CacheReservedCountsGet(reservedColumns, reservedRows);
    const int first = position - (columns ? reservedColumns : reservedRows);
    const int last = first + count - 1;
    MANAGER::UnregisterRange(CExtGridRangeSet(columns ? CellRect{std::max(0, first), 0, last, INT_MAX}
                                                      : CellRect{0, std::max(0, first), INT_MAX, last}));
  }
};

// The usual joint: a sparse store with joins.
using CExtFormulaDataProvider = CExtFDP<grid::CExtGDPJ<grid::CExtGridDataProviderSparse>>;

}  // namespace qmk::toolkit::formula
