// data_manager_edit.cpp: moving references: formulas shifted, columns and rows inserted and
// removed, and the fill commands.
#include <algorithm>

#include "toolkit/formula/data_manager.h"

namespace qmk::toolkit::formula {

namespace {

constexpr int kFillUp = 59419;
constexpr int kFillLeft = 59420;
constexpr int kFillRight = 59421;
constexpr int kFillDown = 59422;

}  // namespace

bool CExtFormulaDataManager::ShiftFormula(CExtFormulaGridCell& cell, int dx, int dy, const CExtGridRangeSet* filter) {
  if (dx == 0 && dy == 0) return true;
  if (!cell.IsFormula()) return false;
  if (!cell.m_tree && !Compile(cell)) return false;
  cell.m_pErrorItem = nullptr;
  std::string text = cell.m_strFormula;
  // Named ranges are never rewritten: a name keeps pointing where it pointed.
  cell.m_tree->ShiftReferences(this, m_alphabet, text, dx, dy, filter);
  cell.m_strFormula = text;
  cell.ResetCompiled();
  return true;
}

void CExtFormulaDataManager::MoveCells(bool columns, int position, int delta) {
  // Every cell at or behind `position` moves by `delta`; cells of a removed span are gone.
  std::unordered_map<int64_t, CExtFormulaGridCell> moved;
  moved.reserve(m_cells.size());
  for (auto& [key, cell] : m_cells) {
    CellPos p = KeyPosition(key);
    int& coordinate = columns ? p.column : p.row;
    if (coordinate >= position) {
      if (delta < 0 && coordinate < position - delta) continue;
      coordinate += delta;
    }
    moved.emplace(PositionKey(p.column, p.row), std::move(cell));
  }
  m_cells.swap(moved);
  m_index.clear();
  for (auto& [key, cell] : m_cells) m_index.Insert(key, &cell);
}

void CExtFormulaDataManager::ShiftAllFormulas(bool columns, int from, int delta) {
  // References into the region from `from` on move; the rest stay.
  const CellRect region = columns ? CellRect{from, 0, m_alphabet.GetMaxColumn(), m_alphabet.GetMaxRow()}
                                  : CellRect{0, from, m_alphabet.GetMaxColumn(), m_alphabet.GetMaxRow()};
  const CExtGridRangeSet filter(region);
  for (auto& [key, cell] : m_cells)
    if (cell.IsFormula()) ShiftFormula(cell, columns ? delta : 0, columns ? 0 : delta, &filter);
}

void CExtFormulaDataManager::RebuildIndex() {
  m_blockReaders.clear();
  m_wideReaders.clear();
  m_formulaCells.clear();
  for (auto& [key, cell] : m_cells) {
    cell.m_bDepsKnown = false;
    cell.m_deps.Empty();
    if (cell.IsFormula()) RegisterFormula(key, cell);
  }
}

bool CExtFormulaDataManager::SeriesInsert(bool columns, int position, int count) {
  if (position < 0 || count <= 0) return false;
  ShiftAllFormulas(columns, position, count);
  MoveCells(columns, position, count);
  (columns ? m_nColumns : m_nRows) += count;
  RebuildIndex();
  RecomputeAll();
  return true;
}

bool CExtFormulaDataManager::SeriesRemove(bool columns, int position, int count) {
  if (position < 0 || count <= 0) return false;
  // Formulas of the removed span go with their cells; references to removed cells move like
  // the others, there is no lost-reference value.
  MoveCells(columns, position, -count);
  ShiftAllFormulas(columns, position + count, -count);
  (columns ? m_nColumns : m_nRows) = std::max(0, (columns ? m_nColumns : m_nRows) - count);
  RebuildIndex();
  RecomputeAll();
  return true;
}

bool CExtFormulaDataManager::CopyTile(const CellRect& from, int dx, int dy) {
  for (int row = from.top; row <= from.bottom; ++row)
    for (int column = from.left; column <= from.right; ++column) {
      const CExtFormulaGridCell* source = FindCell(column, row);
      const long long tc = static_cast<long long>(column) + dx, tr = static_cast<long long>(row) + dy;
      if (tc < 0 || tr < 0 || tc > m_alphabet.GetMaxColumn() || tr > m_alphabet.GetMaxRow()) return false;
      CExtFormulaGridCell* target = GetCell(static_cast<int>(tc), static_cast<int>(tr), true);
      const int64_t key = PositionKey(static_cast<int>(tc), static_cast<int>(tr));
      UnregisterFormula(key);
      if (source == nullptr) {
        *target = CExtFormulaGridCell();
        continue;
      }
      target->m_strFormula = source->m_strFormula;
      target->m_value = source->m_value;
      target->m_bEmpty = source->m_bEmpty;
      target->m_nJoinColumns = source->m_nJoinColumns;
      target->m_nJoinRows = source->m_nJoinRows;
      target->ResetCompiled();
      if (target->IsFormula()) {
        ShiftFormula(*target, dx, dy, nullptr);
        RegisterFormula(key, *target);
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
