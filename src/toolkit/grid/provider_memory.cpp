// provider_memory.cpp: CExtGridDataProviderMemory.
#include "toolkit/grid/provider_memory.h"

#include <algorithm>
#include <numeric>

namespace qmk::toolkit::grid {

CExtGridDataProviderMemory::CExtGridDataProviderMemory()
    : m_pAlloc(new CExtAlloc(kCellsPerPage, nullptr, false, false, 8)) {}

CExtGridDataProviderMemory::~CExtGridDataProviderMemory() {
  ClearAll();
  m_pAlloc->Release();
}

void CExtGridDataProviderMemory::Free(CExtGridCell*& cell) {
  DestroyCell(cell, m_pAlloc);
  cell = nullptr;
}

void CExtGridDataProviderMemory::FreeAll(Series& series) {
  for (CExtGridCell*& cell : series) Free(cell);
}

void CExtGridDataProviderMemory::ClearAll() {
  for (Series& column : m_arrColumns) FreeAll(column);
  FreeAll(m_arrColumnDefaults);
  FreeAll(m_arrRowDefaults);
  m_arrColumns.clear();
  m_arrColumnDefaults.clear();
  m_arrRowDefaults.clear();
}

CExtGridCell*& CExtGridDataProviderMemory::Slot(int column, int row) {
  Series& series = m_arrColumns[static_cast<size_t>(column)];
  if (series.empty()) series.assign(static_cast<size_t>(m_nRowCount), nullptr);
  return series[static_cast<size_t>(row)];
}

CExtGridCell* CExtGridDataProviderMemory::CellGet(int column, int row, const CellClass* cellClass,
                                                  bool autoCreate, bool useColumnDefault) {
  if (column < 0 || row < 0 || column >= m_nColCount || row >= m_nRowCount) return nullptr;
  const Series& series = m_arrColumns[static_cast<size_t>(column)];
  if (!series.empty() && series[static_cast<size_t>(row)]) return series[static_cast<size_t>(row)];
  CExtGridCell* made = nullptr;
  if (cellClass) {
    made = cellClass->CreateObject(m_pAlloc);
  } else if (autoCreate) {
    const CExtGridCell* model = useColumnDefault ? ColumnDefaultValueGet(column) : RowDefaultValueGet(row);
    if (!model) return nullptr;
    made = model->Clone(m_pAlloc);
  }
  if (!made) return nullptr;
  made->SetOwner(this);
  Slot(column, row) = made;
  return made;
}

bool CExtGridDataProviderMemory::BindDefault(Series& defaults, int index, int count, const CExtGridCell* cell) {
  if (index < 0 || index >= count) return false;
  CExtGridCell* copy = nullptr;
  if (cell) {
    copy = cell->Clone(m_pAlloc);
    if (!copy) return false;
    copy->SetOwner(this);
  }
  if (defaults.size() < static_cast<size_t>(count)) defaults.resize(static_cast<size_t>(count), nullptr);
  Free(defaults[static_cast<size_t>(index)]);
  defaults[static_cast<size_t>(index)] = copy;
  return true;
}

bool CExtGridDataProviderMemory::ColumnDefaultValueBind(int column, const CExtGridCell* cell) {
  return BindDefault(m_arrColumnDefaults, column, m_nColCount, cell);
}

bool CExtGridDataProviderMemory::RowDefaultValueBind(int row, const CExtGridCell* cell) {
  return BindDefault(m_arrRowDefaults, row, m_nRowCount, cell);
}

CExtGridCell* CExtGridDataProviderMemory::ColumnDefaultValueGet(int column) const {
  if (column < 0 || static_cast<size_t>(column) >= m_arrColumnDefaults.size()) return nullptr;
  return m_arrColumnDefaults[static_cast<size_t>(column)];
}

CExtGridCell* CExtGridDataProviderMemory::RowDefaultValueGet(int row) const {
  if (row < 0 || static_cast<size_t>(row) >= m_arrRowDefaults.size()) return nullptr;
  return m_arrRowDefaults[static_cast<size_t>(row)];
}

namespace {
// Inserts `count` empty entries at `position` of a vector that is either empty (not yet
// allocated) or as long as the series count.
void InsertEmpty(std::vector<CExtGridCell*>& v, int position, int count) {
  if (v.empty()) return;
  const size_t at = std::min(static_cast<size_t>(position), v.size());
  v.insert(v.begin() + static_cast<std::ptrdiff_t>(at), static_cast<size_t>(count), nullptr);
}
}  // namespace

bool CExtGridDataProviderMemory::ColumnInsert(int position, int count) {
  if (position < 0 || count < 0 || position > m_nColCount + 1) return false;
  if (count == 0) return true;
  if (count > kMaxDenseCount - m_nColCount) return false;
  const size_t at = std::min(static_cast<size_t>(position), m_arrColumns.size());
  m_arrColumns.insert(m_arrColumns.begin() + static_cast<std::ptrdiff_t>(at), static_cast<size_t>(count), Series());
  InsertEmpty(m_arrColumnDefaults, position, count);
  m_nColCount += count;
  m_soColumns.UpdateIndices(position, count, true);
  TellInsert(true, position, count);
  return true;
}

bool CExtGridDataProviderMemory::RowInsert(int position, int count) {
  if (position < 0 || count < 0 || position > m_nRowCount + 1) return false;
  if (count == 0) return true;
  if (count > kMaxDenseCount - m_nRowCount) return false;
  for (Series& column : m_arrColumns) InsertEmpty(column, position, count);
  InsertEmpty(m_arrRowDefaults, position, count);
  m_nRowCount += count;
  m_soRows.UpdateIndices(position, count, true);
  TellInsert(false, position, count);
  return true;
}

namespace {
void EraseSpan(std::vector<CExtGridCell*>& v, int position, int count) {
  if (v.size() <= static_cast<size_t>(position)) return;
  const size_t end = std::min(v.size(), static_cast<size_t>(position + count));
  v.erase(v.begin() + position, v.begin() + static_cast<std::ptrdiff_t>(end));
}
}  // namespace

bool CExtGridDataProviderMemory::ColumnRemove(int position, int count) {
  if (count == 0) return true;
  if (position < 0 || count < 0 || position > m_nColCount - count) return false;
  if (count == m_nColCount) {
    // Removing every column empties the store in one step, and the row count falls to 0 with it.
    ClearAll();
    m_nColCount = m_nRowCount = 0;
  } else {
    for (int c = position; c < position + count; ++c) FreeAll(m_arrColumns[static_cast<size_t>(c)]);
    m_arrColumns.erase(m_arrColumns.begin() + position, m_arrColumns.begin() + position + count);
    for (int c = position; c < position + count && static_cast<size_t>(c) < m_arrColumnDefaults.size(); ++c)
      Free(m_arrColumnDefaults[static_cast<size_t>(c)]);
    EraseSpan(m_arrColumnDefaults, position, count);
    m_nColCount -= count;
  }
  m_soColumns.UpdateIndices(position, count, false);
  TellRemove(true, position, count);
  return true;
}

bool CExtGridDataProviderMemory::RowRemove(int position, int count) {
  if (count == 0) return true;
  if (position < 0 || count < 0 || position > m_nRowCount - count) return false;
  if (count == m_nRowCount && m_nColCount > 0) {
    // Removing every row empties the store in one step, and the column count falls to 0 with it.
    ClearAll();
    m_nColCount = m_nRowCount = 0;
  } else {
    for (Series& column : m_arrColumns) {
      for (int r = position; r < position + count && static_cast<size_t>(r) < column.size(); ++r)
        Free(column[static_cast<size_t>(r)]);
      EraseSpan(column, position, count);
    }
    for (int r = position; r < position + count && static_cast<size_t>(r) < m_arrRowDefaults.size(); ++r)
      Free(m_arrRowDefaults[static_cast<size_t>(r)]);
    EraseSpan(m_arrRowDefaults, position, count);
    m_nRowCount -= count;
  }
  // The insert sense on removal, as in the sparse store.
  m_soRows.UpdateIndices(position, count, true);
  TellRemove(false, position, count);
  return true;
}

bool CExtGridDataProviderMemory::CellRangeSet(int column, int row, int columns, int rows,
                                              const CExtGridCell* cell, bool replace, int* count) {
  if (count) *count = 0;
  if (column < 0 || row < 0 || columns < 0 || rows < 0 || column > m_nColCount - columns ||
      row > m_nRowCount - rows)
    return false;
  int changed = 0;
  for (int c = column; c < column + columns; ++c) {
    Series& series = m_arrColumns[static_cast<size_t>(c)];
    if (series.empty()) continue;
    for (int r = row; r < row + rows; ++r) {
      CExtGridCell*& stored = series[static_cast<size_t>(r)];
      if (!stored) continue;
      if (!cell) {
        Free(stored);
      } else if (!replace) {
        stored->Assign(*cell);
        stored->SetOwner(this);
      } else {
        CExtGridCell* copy = cell->Clone(m_pAlloc);
        if (!copy) {
          if (count) *count = changed;
          return false;
        }
        copy->SetOwner(this);
        Free(stored);
        stored = copy;
      }
      ++changed;
    }
  }
  if (count) *count = changed;
  return true;
}

void CExtGridDataProviderMemory::Reorder(bool columns, const std::vector<int>& order) {
  auto apply = [&order](Series& v) {
    if (v.empty()) return;
    Series old = v;
    for (size_t i = 0; i < order.size(); ++i) v[i] = old[static_cast<size_t>(order[i])];
  };
  if (columns) {
    std::vector<Series> old(std::move(m_arrColumns));
    m_arrColumns.resize(old.size());
    for (size_t i = 0; i < order.size(); ++i) m_arrColumns[i] = std::move(old[static_cast<size_t>(order[i])]);
    apply(m_arrColumnDefaults);
  } else {
    for (Series& column : m_arrColumns) apply(column);
    apply(m_arrRowDefaults);
  }
}

bool CExtGridDataProviderMemory::SortRun(bool columns, CExtGridDataSortProgress* progress) {
  std::vector<int> sorted;
  if (!SortPermutation(columns, progress, sorted)) return false;
  std::vector<int> order(static_cast<size_t>(columns ? m_nColCount : m_nRowCount));
  std::iota(order.begin(), order.end(), 0);
  std::copy(sorted.begin(), sorted.end(), order.end() - static_cast<std::ptrdiff_t>(sorted.size()));
  Reorder(columns, order);
  return true;
}

bool CExtGridDataProviderMemory::MoveSeries(bool columns, int from, int to) {
  const int total = columns ? m_nColCount : m_nRowCount;
  if (from < 0 || from >= total || to < 0 || to > total) return false;
  if (from == to || to == from + 1) return true;
  std::vector<int> order(static_cast<size_t>(total));
  std::iota(order.begin(), order.end(), 0);
  if (from < to)
    std::rotate(order.begin() + from, order.begin() + from + 1, order.begin() + to);
  else
    std::rotate(order.begin() + to, order.begin() + from, order.begin() + from + 1);
  Reorder(columns, order);
  SortOrderGet(columns).Empty();
  return true;
}

bool CExtGridDataProviderMemory::Serialize(Archive& ar) {
  if (ar.IsStoring()) {
    if (!StoreHeader(ar, m_nColCount, m_nRowCount)) return false;
    std::vector<std::pair<int64_t, CExtGridCell*>> cells;
    for (size_t c = 0; c < m_arrColumnDefaults.size(); ++c)
      if (m_arrColumnDefaults[c]) cells.emplace_back(MakePositionKey(static_cast<uint32_t>(c) + 1, 0), m_arrColumnDefaults[c]);
    for (size_t r = 0; r < m_arrRowDefaults.size(); ++r)
      if (m_arrRowDefaults[r]) cells.emplace_back(MakePositionKey(0, static_cast<uint32_t>(r) + 1), m_arrRowDefaults[r]);
    for (size_t c = 0; c < m_arrColumns.size(); ++c)
      for (size_t r = 0; r < m_arrColumns[c].size(); ++r)
        if (CExtGridCell* cell = m_arrColumns[c][r])
          cells.emplace_back(MakePositionKey(static_cast<uint32_t>(c) + 1, static_cast<uint32_t>(r) + 1), cell);
    ar.WriteU32(static_cast<uint32_t>(cells.size()));
    for (auto& [key, cell] : cells)
      if (!StoreCell(ar, key, cell)) return false;
    return ar.ok();
  }
  ArchiveHeader header;
  std::vector<CellRecord> cells;
  if (!LoadHeader(ar, header) || header.columns > kMaxDenseCount || header.rows > kMaxDenseCount ||
      !LoadCells(ar, header, cells)) {
    for (CellRecord& r : cells) DestroyCell(r.cell, nullptr);
    return false;
  }
  ClearAll();
  m_nColCount = header.columns;
  m_nRowCount = header.rows;
  m_arrColumns.assign(static_cast<size_t>(m_nColCount), Series());
  ApplyHeader(header);
  bool complete = true;
  for (CellRecord& record : cells) {
    const int column = static_cast<int>(KeyColumn(record.key)) - 1;
    const int row = static_cast<int>(KeyRow(record.key)) - 1;
    if (row < 0) {
      complete &= ColumnDefaultValueBind(column, record.cell);
    } else if (column < 0) {
      complete &= RowDefaultValueBind(row, record.cell);
    } else if (CExtGridCell* copy = record.cell->Clone(m_pAlloc)) {
      copy->SetOwner(this);
      CExtGridCell*& slot = Slot(column, row);
      Free(slot);
      slot = copy;
    } else {
      complete = false;
    }
    DestroyCell(record.cell, nullptr);
  }
  return complete;
}

}  // namespace qmk::toolkit::grid
