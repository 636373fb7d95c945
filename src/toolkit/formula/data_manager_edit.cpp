// data_manager_edit.cpp: moving references: formulas shifted, columns and rows inserted and
// removed, and the fill commands.
#include <algorithm>
#include <climits>

#include "toolkit/formula/data_manager.h"

namespace qmk::toolkit::formula {

namespace {

constexpr int kFillUp = 59419;
constexpr int kFillLeft = 59420;
constexpr int kFillRight = 59421;
constexpr int kFillDown = 59422;

}  // namespace

bool CExtFormulaDataManager::ShiftFormula(CExtFormulaGridCell& cell, int dx, int dy, const CExtGridRangeSet* filter) {
  return cell.ShiftFormula(*this, dx, dy, filter);
}

bool CExtFormulaDataManager::ShiftCellFormula(int column, int row, int dx, int dy, const CExtGridRangeSet* filter) {
  CExtFormulaGridCell* cell = GetCell(column, row);
  if (cell == nullptr) return false;
  UnregisterCell(column, row);
  const bool shifted = cell->ShiftFormula(*this, dx, dy, filter);
  RegisterCell(column, row, cell);
  return shifted;
}

void CExtFormulaDataManager::ShiftAllFormulas(bool columns, int from, int delta) {
  // References into the region from `from` on move; the rest stay.
  const CellRect region = columns ? CellRect{from, 0, m_alphabet.GetMaxColumn(), m_alphabet.GetMaxRow()}
                                  : CellRect{0, from, m_alphabet.GetMaxColumn(), m_alphabet.GetMaxRow()};
  const CExtGridRangeSet filter(region);
  for (const CellPos& p : StoredPositions(CellRect{0, 0, INT32_MAX, INT32_MAX}))
    if (CExtFormulaGridCell* cell = GetCell(p.column, p.row); cell != nullptr && cell->IsFormula())
      cell->ShiftFormula(*this, columns ? delta : 0, columns ? 0 : delta, &filter);
  RegisterAllCells();
}

bool CExtFormulaDataManager::StoreSeriesInsert(bool columns, int position, int count) {
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  return columns ? Store().ColumnInsert(position + reservedColumns, count)
                 : Store().RowInsert(position + reservedRows, count);
}

bool CExtFormulaDataManager::StoreSeriesRemove(bool columns, int position, int count) {
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  return columns ? Store().ColumnRemove(position + reservedColumns, count)
                 : Store().RowRemove(position + reservedRows, count);
}

bool CExtFormulaDataManager::SeriesInsert(bool columns, int position, int count) {
  if (position < 0 || count <= 0 || position > (columns ? GetColumnCount() : GetRowCount())) return false;
  if (!StoreSeriesInsert(columns, position, count)) return false;
  ShiftAllFormulas(columns, position, count);
  RecomputeAll();
  return true;
}

bool CExtFormulaDataManager::SeriesRemove(bool columns, int position, int count) {
  const int total = columns ? GetColumnCount() : GetRowCount();
  if (position < 0 || count <= 0 || position >= total) return false;
  count = std::min(count, total - position);
  // The formulas of the removed span leave the registry before the store deletes their cells.
  const int last = position + count - 1;
  UnregisterRange(CExtGridRangeSet(columns ? CellRect{position, 0, last, INT32_MAX}
                                           : CellRect{0, position, INT32_MAX, last}));
  if (!StoreSeriesRemove(columns, position, count)) {
    RegisterAllCells();
    return false;
  }
  // References to removed cells stay as written; those behind the span move back.
  ShiftAllFormulas(columns, position + count, -count);
  RecomputeAll();
  return true;
}

bool CExtFormulaDataManager::CopyTile(const CellRect& from, int dx, int dy) {
  for (int row = from.top; row <= from.bottom; ++row)
    for (int column = from.left; column <= from.right; ++column) {
      const long long tc = static_cast<long long>(column) + dx, tr = static_cast<long long>(row) + dy;
      if (tc < 0 || tr < 0 || tc >= GetColumnCount() || tr >= GetRowCount()) return false;
      const int targetColumn = static_cast<int>(tc), targetRow = static_cast<int>(tr);
      const grid::CExtGridCell* source = GetGridCell(column, row);
      UnregisterCell(targetColumn, targetRow);
      if (source == nullptr) {
        if (grid::CExtGridCell* target = GetGridCell(targetColumn, targetRow)) {
          // The tile's gap empties the target, keeping its place in any join.
          CExtFormulaGridCell blank;
          if (const auto* data = dynamic_cast<const grid::CExtGridCellEx*>(target)) blank.JoinSet(data->JoinGet());
          target->Assign(blank);
        }
        continue;
      }
      CExtFormulaGridCell* target = GetCell(targetColumn, targetRow, true);
      if (target == nullptr) return false;
      target->Assign(*source);
      if (target->IsFormula()) {
        target->ShiftFormula(*this, dx, dy, nullptr);
        RegisterFormula(PositionKey(targetColumn, targetRow), *target);
      }
    }
  return true;
}

bool CExtFormulaDataManager::Fill(int command, const CellRect& sourceRect, const CellRect& targetRect, bool recompute) {
  const CellRect source = sourceRect.Normalized(), target = targetRect.Normalized();
  if (!source.IsValid() || !target.IsValid()) return false;
  const bool vertical = command == kFillUp || command == kFillDown;
  const bool forward = command == kFillDown || command == kFillRight;
  if (!vertical && command != kFillLeft && command != kFillRight) return false;
  const int step = vertical ? source.bottom - source.top + 1 : source.right - source.left + 1;
  bool ok = true;
  // Tiles walk from the source side of the target; the last one is clipped.
  for (int offset = 0;; offset += step) {
    CellRect tile = target;
    if (vertical) {
      tile.top = forward ? target.top + offset : target.bottom - offset - step + 1;
      tile.bottom = tile.top + step - 1;
      tile.top = std::max(tile.top, target.top);
      tile.bottom = std::min(tile.bottom, target.bottom);
      if (tile.top > tile.bottom || offset > target.bottom - target.top) break;
    } else {
      tile.left = forward ? target.left + offset : target.right - offset - step + 1;
      tile.right = tile.left + step - 1;
      tile.left = std::max(tile.left, target.left);
      tile.right = std::min(tile.right, target.right);
      if (tile.left > tile.right || offset > target.right - target.left) break;
    }
    const int dx = vertical ? 0 : (forward ? tile.left - source.left : tile.right - source.right);
    const int dy = vertical ? (forward ? tile.top - source.top : tile.bottom - source.bottom) : 0;
    CellRect from{tile.left - dx, tile.top - dy, tile.right - dx, tile.bottom - dy};
    if (!CopyTile(from, dx, dy)) {
      ok = false;
      break;
    }
  }
  if (recompute) RecomputeAll();
  return ok;
}

}  // namespace qmk::toolkit::formula
