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

bool CExtGridDataProviderBL::SerializeHeader(Archive& ar, int& columns, int& rows) {
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(columns));
    ar.WriteU32(static_cast<uint32_t>(rows));
    ar.WriteU32(static_cast<uint32_t>(m_nReservedColCount));
    ar.WriteU32(static_cast<uint32_t>(m_nReservedRowCount));
    ar.WriteU32(m_dwSortFlags);
    m_soColumns.Serialize(ar);
    m_soRows.Serialize(ar);
    return ar.ok();
  }
  columns = static_cast<int32_t>(ar.ReadU32());
  rows = static_cast<int32_t>(ar.ReadU32());
  const auto reservedColumns = static_cast<int32_t>(ar.ReadU32());
  const auto reservedRows = static_cast<int32_t>(ar.ReadU32());
  const uint32_t flags = ar.ReadU32();
  if (!ar.ok() || columns < 0 || rows < 0 || reservedColumns < 0 || reservedRows < 0 ||
      reservedColumns > columns || reservedRows > rows)
    return false;
  CExtGridDataSortOrder byColumns, byRows;
  if (!byColumns.Serialize(ar) || !byRows.Serialize(ar)) return false;
  m_nReservedColCount = reservedColumns;
  m_nReservedRowCount = reservedRows;
  m_dwSortFlags = flags;
  m_soColumns = byColumns;
  m_soRows = byRows;
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
