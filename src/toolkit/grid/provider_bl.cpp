// provider_bl.cpp: what every store shares: the position walk of ForEachCell, reserved counts,
// the archive header and the sort of a direction's series.
#include <algorithm>
#include <numeric>

#include "toolkit/grid/provider.h"

namespace qmk::toolkit::grid {

bool CExtGridDataProvider::ForEachCell(const CExtGridRangeSet& set, CellVisitor visitor, void* context,
                                       int* lastIndex, int* lastColumn, int* lastRow,
                                       const CellClass* cellClass, bool autoCreate, bool useColumnDefault) {
  if (lastIndex) *lastIndex = 0;
  if (lastColumn) *lastColumn = -1;
  if (lastRow) *lastRow = -1;
  if (!visitor) return false;
  CExtGridRangeSet::Cursor cursor(set);
  formula::CellPos pos;
  int index = 0;
  while (cursor.Next(pos)) {
    // Every position counts, found or not.
    ++index;
    if (lastIndex) *lastIndex = index;
    if (lastColumn) *lastColumn = pos.column;
    if (lastRow) *lastRow = pos.row;
    CExtGridCell* cell = CellGet(pos.column, pos.row, cellClass, autoCreate, useColumnDefault);
    if (cell && !visitor(cell, pos.column, pos.row, index, context)) return false;
  }
  return true;
}

bool CExtGridDataProviderBL::CacheReservedCountsSet(int columns, int rows) {
  if (columns < 0 || rows < 0) return false;
  if (ColumnCountGet() < columns && !ColumnInsert(ColumnCountGet(), columns - ColumnCountGet())) return false;
  if (RowCountGet() < rows && !RowInsert(RowCountGet(), rows - RowCountGet())) return false;
  m_nReservedColCount = columns;
  m_nReservedRowCount = rows;
  return true;
}

bool CExtGridDataProviderBL::StoreHeader(Archive& ar, int columns, int rows) {
  ar.WriteU32(static_cast<uint32_t>(columns));
  ar.WriteU32(static_cast<uint32_t>(rows));
  ar.WriteU32(static_cast<uint32_t>(m_nReservedColCount));
  ar.WriteU32(static_cast<uint32_t>(m_nReservedRowCount));
  ar.WriteU32(m_dwSortFlags);
  m_soColumns.Serialize(ar);
  m_soRows.Serialize(ar);
  return ar.ok();
}

bool CExtGridDataProviderBL::LoadHeader(Archive& ar, ArchiveHeader& h) {
  h.columns = static_cast<int32_t>(ar.ReadU32());
  h.rows = static_cast<int32_t>(ar.ReadU32());
  h.reservedColumns = static_cast<int32_t>(ar.ReadU32());
  h.reservedRows = static_cast<int32_t>(ar.ReadU32());
  h.sortFlags = ar.ReadU32();
  if (!ar.ok() || h.columns < 0 || h.rows < 0 || h.reservedColumns < 0 || h.reservedRows < 0 ||
      h.reservedColumns > h.columns || h.reservedRows > h.rows)
    return false;
  return h.byColumns.Serialize(ar) && h.byRows.Serialize(ar);
}

void CExtGridDataProviderBL::ApplyHeader(const ArchiveHeader& h) {
  m_nReservedColCount = h.reservedColumns;
  m_nReservedRowCount = h.reservedRows;
  m_dwSortFlags = h.sortFlags;
  m_soColumns = h.byColumns;
  m_soRows = h.byRows;
}

bool CExtGridDataProviderBL::StoreCell(Archive& ar, int64_t key, CExtGridCell* cell) {
  ar.WriteU32(KeyColumn(key));
  ar.WriteU32(KeyRow(key));
  ar.WriteString(cell->GetRuntimeClass()->name);
  return cell->Serialize(ar);
}

bool CExtGridDataProviderBL::LoadCells(Archive& ar, const ArchiveHeader& h, std::vector<CellRecord>& cells) {
  cells.clear();
  auto dropAll = [&cells] {
    for (CellRecord& r : cells) DestroyCell(r.cell, nullptr);
    cells.clear();
  };
  const uint32_t count = ar.ReadU32();
  // Each record takes at least 29 bytes (key, a one-letter class name, the base words).
  if (auto left = ar.Remaining(); !ar.ok() || (left && *left / 29 < count)) return false;
  for (uint32_t i = 0; i < count; ++i) {
    const uint32_t column = ar.ReadU32();
    const uint32_t row = ar.ReadU32();
    const std::string name = ar.ReadString();
    const CellClass* cellClass = FindCellClass(name);
    const bool inside = column <= static_cast<uint32_t>(h.columns) && row <= static_cast<uint32_t>(h.rows) &&
                        (column != 0 || row != 0);
    CExtGridCell* cell = ar.ok() && inside && cellClass ? cellClass->CreateObject(nullptr) : nullptr;
    if (!cell || !cell->Serialize(ar)) {
      DestroyCell(cell, nullptr);
      dropAll();
      return false;
    }
    cells.push_back({MakePositionKey(column, row), cell});
  }
  return true;
}

bool CExtGridDataProviderBL::SortPermutation(bool columns, CExtGridDataSortProgress* progress,
                                             std::vector<int>& order) {
  order.clear();
  if (m_dwSortFlags & (columns ? kSortColumnsOff : kSortRowsOff)) return false;
  // Columns are ordered by the rows of the row sort order, rows by the columns of the other.
  const CExtGridDataSortOrder& keys = columns ? m_soRows : m_soColumns;
  if (keys.IsEmpty() && progress && !progress->OnSortCheck(columns)) return false;
  const int reserved = columns ? m_nReservedColCount : m_nReservedRowCount;
  const int total = columns ? ColumnCountGet() : RowCountGet();
  const int other = columns ? RowCountGet() : ColumnCountGet();
  if (total - reserved <= 1) return false;
  if (progress) progress->OnSortStart(columns, total - reserved);
  order.resize(static_cast<size_t>(total - reserved));
  std::iota(order.begin(), order.end(), reserved);
  // The key cells of each series, fetched once.
  std::vector<const CExtGridCell*> cells(order.size() * keys.m_arrItems.size(), nullptr);
  for (size_t s = 0; s < order.size(); ++s)
    for (size_t k = 0; k < keys.m_arrItems.size(); ++k) {
      const int key = keys.m_arrItems[k].m_nRowColNo;
      if (key < 0 || key >= other) continue;
      cells[s * keys.m_arrItems.size() + k] =
          columns ? CellGet(order[s], key) : CellGet(key, order[s]);
    }
  const size_t width = keys.m_arrItems.size();
  std::vector<size_t> ranks(order.size());
  std::iota(ranks.begin(), ranks.end(), 0);
  std::stable_sort(ranks.begin(), ranks.end(), [&](size_t a, size_t b) {
    for (size_t k = 0; k < width; ++k) {
      const CExtGridCell* x = cells[a * width + k];
      const CExtGridCell* y = cells[b * width + k];
      // A position without a cell sorts before every cell.
      int r = x && y ? x->Compare(*y) : (x ? 1 : 0) - (y ? 1 : 0);
      if (!keys.m_arrItems[k].m_bAscending) r = -r;
      if (r) return r < 0;
    }
    return false;
  });
  for (size_t i = 0; i < ranks.size(); ++i) ranks[i] = static_cast<size_t>(reserved) + ranks[i];
  std::transform(ranks.begin(), ranks.end(), order.begin(), [](size_t r) { return static_cast<int>(r); });
  if (progress) progress->OnSortEnd(columns);
  return true;
}

}  // namespace qmk::toolkit::grid
