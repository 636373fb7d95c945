// formula_grid_wnd.h: CExtFormulaGridWnd, the logic of a grid that keeps formulas right when
// columns and rows come and go, and its family of cell walks.
#pragma once

#include <memory>
#include <string>

#include "toolkit/formula/formula_provider.h"

namespace qmk::toolkit::formula {

class CExtFormulaGridWnd;

// A walk over cells of the grid; false from OnCell stops it.
class for_each_abstract_t {
 public:
  virtual ~for_each_abstract_t() = default;
  virtual bool OnCell(CExtFormulaGridWnd& grid, grid::CExtGridCell& cell, int column, int row) = 0;
};

// Passes on formula cells with a text only, and counts them.
class for_each_base_t : public for_each_abstract_t {
 public:
  bool OnCell(CExtFormulaGridWnd& grid, grid::CExtGridCell& cell, int column, int row) override;
  virtual bool OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell& cell, int column, int row);
  int GetCount() const { return m_nCount; }

 private:
  int m_nCount = 0;
};

// Moves each formula's references inside a filter by a delta.
class for_each_shift_range_formulas_t : public for_each_base_t {
 public:
  for_each_shift_range_formulas_t(int dx, int dy, const CExtGridRangeSet* filter)
      : m_nDx(dx), m_nDy(dy), m_pFilter(filter) {}
  bool OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell& cell, int column, int row) override;

 private:
  int m_nDx, m_nDy;
  const CExtGridRangeSet* m_pFilter;
};

// Computes each formula cell and what depends on it, collecting the positions computed.
class for_each_compute_t : public for_each_base_t {
 public:
  bool OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell& cell, int column, int row) override;
  std::vector<CellPos> m_computed;
};

// Removes formulas; with `emptyCells` the other cells walked are emptied too.
class for_each_erase_t : public for_each_base_t {
 public:
  explicit for_each_erase_t(bool emptyCells) : m_bEmptyCells(emptyCells) {}
  bool OnCell(CExtFormulaGridWnd& grid, grid::CExtGridCell& cell, int column, int row) override;
  bool OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell& cell, int column, int row) override;

 private:
  bool m_bEmptyCells;
};

class CExtFormulaGridWnd {
 public:
  // A grid of `columns` by `rows` data cells over a store of its own.
  CExtFormulaGridWnd(int columns, int rows);
  virtual ~CExtFormulaGridWnd() = default;

  CExtFormulaDataProvider& OnGridQueryDataProvider() { return *m_pProvider; }
  CExtFormulaDataManager& GetFormulaDataManager() { return *m_pProvider; }

  // A cell's text: a formula is computed with what depends on it unless `recompute` is off.
  void FormulaSet(int column, int row, const std::string& text, bool recompute = true);
  // The formula text of a cell; false for a cell without one.
  bool FormulaGet(int column, int row, std::string& text);
  // What the cell shows.
  std::string CellTextGet(int column, int row);
  // Moves a formula's references inside `filter` (all with null) by (dx, dy).
  bool ShiftCellFormula(int column, int row, int dx, int dy, bool recompute, const CExtGridRangeSet* filter);
  // Computes a cell and its dependents; appends the positions computed.
  void ComputeCellAndDependents(int column, int row, std::vector<CellPos>* computed);
  // Computes every formula cell.
  void RecomputeArea();
  bool JoinSet(int column, int row, int columns, int rows);

  // Inserts and removes series in the store, then moves the references into the moved region
  // and recomputes; `redraw` refreshes the window after.
  bool ColumnInsert(int position, int count, bool redraw = true) { return Insert(true, position, count, redraw); }
  bool RowInsert(int position, int count, bool redraw = true) { return Insert(false, position, count, redraw); }
  bool ColumnRemove(int position, int count, bool redraw = true) { return Remove(true, position, count, redraw); }
  bool RowRemove(int position, int count, bool redraw = true) { return Remove(false, position, count, redraw); }
  // The fill commands 59419 to 59422.
  bool Fill(int command, const CellRect& source, const CellRect& target, bool recompute = true, bool redraw = true);

  // Walks the stored cells of `set` (data positions).
  bool ForEachCell(const CExtGridRangeSet& set, for_each_abstract_t& callback);

 protected:
  // The window would repaint here; there is none, so a host sees the request.
  virtual void OnGridRefresh() { ++m_nRefreshCount; }

 public:
  int m_nRefreshCount = 0;

 private:
  bool Insert(bool columns, int position, int count, bool redraw);
  bool Remove(bool columns, int position, int count, bool redraw);
  // References into the region from `from` on move by `delta`.
  void ShiftFrom(bool columns, int from, int delta);

  std::unique_ptr<CExtFormulaDataProvider> m_pProvider;
};

}  // namespace qmk::toolkit::formula
