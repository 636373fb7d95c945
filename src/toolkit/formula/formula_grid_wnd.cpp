// formula_grid_wnd.cpp: CExtFormulaGridWnd's formula keeping around inserts, removals and
// fills, and its cell walks.
#include "toolkit/formula/formula_grid_wnd.h"

#include <algorithm>
#include <climits>

namespace qmk::toolkit::formula {

bool for_each_base_t::OnCell(CExtFormulaGridWnd& grid, grid::CExtGridCell& cell, int column, int row) {
  if (!cell.IsKindOf(&CExtFormulaGridCell::kClass)) return true;
  auto& formula = static_cast<CExtFormulaGridCell&>(cell);
  if (!formula.IsFormula()) return true;
  ++m_nCount;
  return OnFormulaCell(grid, formula, column, row);
}

bool for_each_base_t::OnFormulaCell(CExtFormulaGridWnd&, CExtFormulaGridCell&, int, int) { return true; }

bool for_each_shift_range_formulas_t::OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell&, int column,
                                                    int row) {
  grid.ShiftCellFormula(column, row, m_nDx, m_nDy, false, m_pFilter);
  return true;
}

bool for_each_compute_t::OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell&, int column, int row) {
  m_computed.push_back({column, row});
  grid.ComputeCellAndDependents(column, row, &m_computed);
  return true;
}

bool for_each_erase_t::OnCell(CExtFormulaGridWnd& grid, grid::CExtGridCell& cell, int column, int row) {
  if (!for_each_base_t::OnCell(grid, cell, column, row)) return false;
  if (m_bEmptyCells) cell.SetEmpty(true);
  return true;
}

bool for_each_erase_t::OnFormulaCell(CExtFormulaGridWnd& grid, CExtFormulaGridCell& cell, int column, int row) {
  grid.GetFormulaDataManager().SetCell(column, row, nullptr);
  std::string none;
  cell.FormulaTextAccess(none, false);
  return true;
}

CExtFormulaGridWnd::CExtFormulaGridWnd(int columns, int rows)
    : m_pProvider(std::make_unique<CExtFormulaDataProvider>(columns, rows)) {}

void CExtFormulaGridWnd::FormulaSet(int column, int row, const std::string& text, bool recompute) {
  if (recompute)
    m_pProvider->SetCellText(column, row, text);
  else
    m_pProvider->PutCellText(column, row, text);
  OnGridRefresh();
}

bool CExtFormulaGridWnd::FormulaGet(int column, int row, std::string& text) {
  CExtFormulaGridCell* cell = m_pProvider->GetCell(column, row);
  text.clear();
  return cell != nullptr && cell->FormulaTextAccess(text, true);
}

std::string CExtFormulaGridWnd::CellTextGet(int column, int row) {
  std::string text;
  if (const grid::CExtGridCell* cell = m_pProvider->GetGridCell(column, row)) cell->TextGet(text);
  return text;
}

bool CExtFormulaGridWnd::ShiftCellFormula(int column, int row, int dx, int dy, bool recompute,
                                          const CExtGridRangeSet* filter) {
  if (!m_pProvider->ShiftCellFormula(column, row, dx, dy, filter)) return false;
  if (recompute) ComputeCellAndDependents(column, row, nullptr);
  return true;
}

void CExtFormulaGridWnd::ComputeCellAndDependents(int column, int row, std::vector<CellPos>* computed) {
  const std::vector<CellPos> order = m_pProvider->ComputeCellAndDependents(column, row);
  if (computed != nullptr) computed->insert(computed->end(), order.begin(), order.end());
}

void CExtFormulaGridWnd::RecomputeArea() { m_pProvider->RecomputeAll(); }

bool CExtFormulaGridWnd::JoinSet(int column, int row, int columns, int rows) {
  const bool joined = m_pProvider->SetJoin(column, row, columns, rows);
  if (joined) RecomputeArea();
  return joined;
}

bool CExtFormulaGridWnd::ForEachCell(const CExtGridRangeSet& set, for_each_abstract_t& callback) {
  int reservedColumns = 0, reservedRows = 0;
  m_pProvider->CacheReservedCountsGet(reservedColumns, reservedRows);
  struct Walk {
    CExtFormulaGridWnd* grid;
    for_each_abstract_t* callback;
    const CExtGridRangeSet* set;
    int dc, dr;
  } walk{this, &callback, &set, reservedColumns, reservedRows};
  const CExtGridRangeSet everything(CellRect{0, 0, INT_MAX, INT_MAX});
  return m_pProvider->ForEachCell(
      everything,
      [](grid::CExtGridCell* cell, int column, int row, int, void* context) {
        auto& w = *static_cast<Walk*>(context);
        const int c = column - w.dc, r = row - w.dr;
        if (c < 0 || r < 0 || !w.set->Contains(c, r)) return true;
        return w.callback->OnCell(*w.grid, *cell, c, r);
      },
      &walk);
}

void CExtFormulaGridWnd::ShiftFrom(bool columns, int from, int delta) {
  const CExtFormulaAlphabet& alphabet = m_pProvider->GetAlphabet();
  const CExtGridRangeSet filter(columns ? CellRect{from, 0, alphabet.GetMaxColumn(), alphabet.GetMaxRow()}
                                        : CellRect{0, from, alphabet.GetMaxColumn(), alphabet.GetMaxRow()});
  for_each_shift_range_formulas_t shift(columns ? delta : 0, columns ? 0 : delta, &filter);
  ForEachCell(CExtGridRangeSet(CellRect{0, 0, INT_MAX, INT_MAX}), shift);
}

bool CExtFormulaGridWnd::Insert(bool columns, int position, int count, bool redraw) {
  int reservedColumns = 0, reservedRows = 0;
  m_pProvider->CacheReservedCountsGet(reservedColumns, reservedRows);
  const int total = columns ? m_pProvider->GetColumnCount() : m_pProvider->GetRowCount();
  if (position < 0 || count <= 0 || position > total) return false;
  const bool inserted = columns ? m_pProvider->ColumnInsert(position + reservedColumns, count)
                                : m_pProvider->RowInsert(position + reservedRows, count);
  if (!inserted) return false;
  ShiftFrom(columns, position, count);
  RecomputeArea();
  if (redraw) OnGridRefresh();
  return true;
}

bool CExtFormulaGridWnd::Remove(bool columns, int position, int count, bool redraw) {
  int reservedColumns = 0, reservedRows = 0;
  m_pProvider->CacheReservedCountsGet(reservedColumns, reservedRows);
  const int total = columns ? m_pProvider->GetColumnCount() : m_pProvider->GetRowCount();
  if (position < 0 || count <= 0 || position >= total) return false;
  count = std::min(count, total - position);
  // The store drops the span (its formula cells leave the registry first); references behind
  // it move back, and references into it stay as written.
  const bool removed = columns ? m_pProvider->ColumnRemove(position + reservedColumns, count)
                               : m_pProvider->RowRemove(position + reservedRows, count);
  if (!removed) return false;
  ShiftFrom(columns, position + count, -count);
  RecomputeArea();
  if (redraw) OnGridRefresh();
  return true;
}

bool CExtFormulaGridWnd::Fill(int command, const CellRect& source, const CellRect& target, bool recompute,
                              bool redraw) {
  const bool filled = m_pProvider->Fill(command, source, target, recompute);
  if (redraw) OnGridRefresh();
  return filled;
}

}  // namespace qmk::toolkit::formula
