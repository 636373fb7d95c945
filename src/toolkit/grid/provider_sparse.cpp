// provider_sparse.cpp: CExtGridDataProviderSparse.
#include "toolkit/grid/provider_sparse.h"

#include <climits>
#include <vector>

namespace qmk::toolkit::grid {

namespace {
// A stored position's index in one direction: -1 for the default half.
int IndexOf(int64_t key, bool columns) {
  return static_cast<int>(columns ? KeyColumn(key) : KeyRow(key)) - 1;
}
int64_t WithIndex(int64_t key, bool columns, int index) {
  const auto stored = static_cast<uint32_t>(index + 1);
  return columns ? MakePositionKey(stored, KeyRow(key)) : MakePositionKey(KeyColumn(key), stored);
}
}  // namespace

CExtGridDataProviderSparse::CExtGridDataProviderSparse(size_t alignment)
    : m_pAlloc(new CExtAlloc(kCellsPerPage, nullptr, false, false, alignment)),
      m_nAlignment(alignment),
      m_mapCells(kNodesPerBlock),
      m_mapPositions(kNodesPerBlock) {}

CExtGridDataProviderSparse::~CExtGridDataProviderSparse() {
  RemoveAllCells();
  m_pAlloc->Release();
}

void CExtGridDataProviderSparse::RemoveAllCells() {
  for (POSITION p = m_mapCells.GetStartPosition(); p;) {
    int64_t key;
    CExtGridCell* cell;
    m_mapCells.GetNextAssoc(p, key, cell);
    DestroyCell(cell, m_pAlloc);
  }
  m_mapCells.RemoveAll();
  m_mapPositions.RemoveAll();
}

CExtGridCell* CExtGridDataProviderSparse::Stored(int64_t key) const {
  CExtGridCell* cell = nullptr;
  m_mapCells.Lookup(key, cell);
  return cell;
}

void CExtGridDataProviderSparse::Store(int64_t key, CExtGridCell* cell) {
  m_mapCells.SetAt(key, cell);
  if (m_bPositionsKept) m_mapPositions.SetAt(cell, key);
}

void CExtGridDataProviderSparse::Drop(int64_t key, CExtGridCell* cell) {
  m_mapCells.RemoveKey(key);
  if (m_bPositionsKept) m_mapPositions.RemoveKey(cell);
  DestroyCell(cell, m_pAlloc);
}

CExtGridCell* CExtGridDataProviderSparse::CellGet(int column, int row, const CellClass* cellClass,
                                                  bool autoCreate, bool useColumnDefault) {
  if (column < 0 || row < 0 || column >= m_nColCount || row >= m_nRowCount) return nullptr;
  const int64_t key = MakePositionKey(static_cast<uint32_t>(column) + 1, static_cast<uint32_t>(row) + 1);
  if (CExtGridCell* cell = Stored(key)) return cell;
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
  Store(key, made);
  return made;
}

bool CExtGridDataProviderSparse::DefaultBind(int64_t key, const CExtGridCell* cell) {
  CExtGridCell* copy = nullptr;
  if (cell) {
    copy = cell->Clone(m_pAlloc);
    if (!copy) return false;
    copy->SetOwner(this);
  }
  if (CExtGridCell* old = Stored(key)) Drop(key, old);
  if (copy) Store(key, copy);
  return true;
}

bool CExtGridDataProviderSparse::ColumnDefaultValueBind(int column, const CExtGridCell* cell) {
  if (column < 0 || column >= m_nColCount) return false;
  return DefaultBind(MakePositionKey(static_cast<uint32_t>(column) + 1, 0), cell);
}

bool CExtGridDataProviderSparse::RowDefaultValueBind(int row, const CExtGridCell* cell) {
  if (row < 0 || row >= m_nRowCount) return false;
  return DefaultBind(MakePositionKey(0, static_cast<uint32_t>(row) + 1), cell);
}

CExtGridCell* CExtGridDataProviderSparse::ColumnDefaultValueGet(int column) const {
  if (column < 0 || column >= m_nColCount) return nullptr;
  return Stored(MakePositionKey(static_cast<uint32_t>(column) + 1, 0));
}

CExtGridCell* CExtGridDataProviderSparse::RowDefaultValueGet(int row) const {
  if (row < 0 || row >= m_nRowCount) return nullptr;
  return Stored(MakePositionKey(0, static_cast<uint32_t>(row) + 1));
}

void CExtGridDataProviderSparse::Remap(bool columns, const std::function<int(int)>& newIndex) {
  struct Move {
    int64_t to;
    int64_t from;
    CExtGridCell* cell;
  };
  std::vector<Move> moves;
  for (POSITION p = m_mapCells.GetStartPosition(); p;) {
    int64_t key;
    CExtGridCell* cell;
    m_mapCells.GetNextAssoc(p, key, cell);
    const int index = IndexOf(key, columns);
    if (index < 0) continue;
    const int to = newIndex(index);
    if (to >= 0 && to != index) moves.push_back({WithIndex(key, columns, to), key, cell});
  }
  for (const Move& m : moves) m_mapCells.RemoveKey(m.from);
  for (const Move& m : moves) Store(m.to, m.cell);
}

bool CExtGridDataProviderSparse::SeriesInsert(bool columns, int position, int count) {
  int& total = columns ? m_nColCount : m_nRowCount;
  if (position < 0 || count < 0 || position > total + 1) return false;
  if (count == 0) return true;
  if (count > INT_MAX - 1 - total) return false;
  Remap(columns, [&](int i) { return i >= position ? i + count : i; });
  total += count;
  SortOrderGet(columns).UpdateIndices(position, count, true);
  TellInsert(columns, position, count);
  return true;
}

bool CExtGridDataProviderSparse::SeriesRemove(bool columns, int position, int count) {
  int& total = columns ? m_nColCount : m_nRowCount;
  if (count == 0) return true;
  if (position < 0 || count < 0 || position > total - count) return false;
  std::vector<std::pair<int64_t, CExtGridCell*>> inside;
  for (POSITION p = m_mapCells.GetStartPosition(); p;) {
    int64_t key;
    CExtGridCell* cell;
    m_mapCells.GetNextAssoc(p, key, cell);
    const int index = IndexOf(key, columns);
    if (index >= position && index < position + count) inside.emplace_back(key, cell);
  }
  for (auto& [key, cell] : inside) Drop(key, cell);
  Remap(columns, [&](int i) { return i >= position + count ? i - count : i; });
  total -= count;
  // Rows correct their sort order in the insert sense even on removal; the row walkers built on
  // this store expect it, so the asymmetry with columns stays.
  SortOrderGet(columns).UpdateIndices(position, count, !columns);
  TellRemove(columns, position, count);
  return true;
}

bool CExtGridDataProviderSparse::CellRangeSet(int column, int row, int columns, int rows,
                                              const CExtGridCell* cell, bool replace, int* count) {
  if (count) *count = 0;
  if (column < 0 || row < 0 || columns < 0 || rows < 0 || column > m_nColCount - columns ||
      row > m_nRowCount - rows)
    return false;
  std::vector<std::pair<int64_t, CExtGridCell*>> inside;
  for (POSITION p = m_mapCells.GetStartPosition(); p;) {
    int64_t key;
    CExtGridCell* stored;
    m_mapCells.GetNextAssoc(p, key, stored);
    const int c = IndexOf(key, true), r = IndexOf(key, false);
    if (c >= column && c < column + columns && r >= row && r < row + rows) inside.emplace_back(key, stored);
  }
  int changed = 0;
  for (auto& [key, stored] : inside) {
    if (!cell) {
      Drop(key, stored);
    } else if (!replace) {
      stored->Assign(*cell);
      stored->SetOwner(this);
    } else {
      CExtGridCell* copy = cell->Clone(m_pAlloc);
      if (!copy) break;
      copy->SetOwner(this);
      if (m_bPositionsKept) m_mapPositions.RemoveKey(stored);
      DestroyCell(stored, m_pAlloc);
      Store(key, copy);
    }
    ++changed;
  }
  if (count) *count = changed;
  return changed == static_cast<int>(inside.size());
}

bool CExtGridDataProviderSparse::SortRun(bool columns, CExtGridDataSortProgress* progress) {
  std::vector<int> order;
  if (!SortPermutation(columns, progress, order)) return false;
  const int reserved = columns ? m_nReservedColCount : m_nReservedRowCount;
  std::vector<int> destination(order.size());
  for (size_t i = 0; i < order.size(); ++i) destination[static_cast<size_t>(order[i] - reserved)] = reserved + static_cast<int>(i);
  Remap(columns, [&](int i) { return i >= reserved ? destination[static_cast<size_t>(i - reserved)] : i; });
  return true;
}

bool CExtGridDataProviderSparse::MoveSeries(bool columns, int from, int to) {
  const int total = columns ? m_nColCount : m_nRowCount;
  if (from < 0 || from >= total || to < 0 || to > total) return false;
  if (from == to || to == from + 1) return true;
  Remap(columns, [&](int i) {
    if (i == from) return from < to ? to - 1 : to;
    if (from < to && i > from && i < to) return i - 1;
    if (from > to && i >= to && i < from) return i + 1;
    return i;
  });
  SortOrderGet(columns).Empty();
  return true;
}

bool CExtGridDataProviderSparse::ForEachCell(const CExtGridRangeSet& set, CellVisitor visitor, void* context,
                                             int* lastIndex, int* lastColumn, int* lastRow,
                                             const CellClass* cellClass, bool autoCreate, bool useColumnDefault) {
  if (cellClass || autoCreate)
    return CExtGridDataProvider::ForEachCell(set, visitor, context, lastIndex, lastColumn, lastRow, cellClass,
                                             autoCreate, useColumnDefault);
  if (lastIndex) *lastIndex = 0;
  if (lastColumn) *lastColumn = -1;
  if (lastRow) *lastRow = -1;
  if (!visitor) return false;
  int index = 0;
  for (POSITION p = m_mapCells.GetStartPosition(); p;) {
    int64_t key;
    CExtGridCell* cell;
    m_mapCells.GetNextAssoc(p, key, cell);
    const int c = IndexOf(key, true), r = IndexOf(key, false);
    if (c < 0 || r < 0 || !set.Contains(c, r)) continue;
    ++index;
    if (lastIndex) *lastIndex = index;
    if (lastColumn) *lastColumn = c;
    if (lastRow) *lastRow = r;
    if (!visitor(cell, c, r, index, context)) return false;
  }
  return true;
}

bool CExtGridDataProviderSparse::CellPositionGet(const CExtGridCell* cell, int& column, int& row) const {
  if (!m_bPositionsKept) {
    // The first question about a position builds the map from cell to position; from then on
    // every change keeps it.
    for (POSITION p = m_mapCells.GetStartPosition(); p;) {
      int64_t stored;
      CExtGridCell* each;
      m_mapCells.GetNextAssoc(p, stored, each);
      m_mapPositions.SetAt(each, stored);
    }
    m_bPositionsKept = true;
  }
  int64_t key = 0;
  if (!m_mapPositions.Lookup(const_cast<CExtGridCell*>(cell), key)) return false;
  column = IndexOf(key, true);
  row = IndexOf(key, false);
  return column >= 0 && row >= 0;
}

size_t CExtGridDataProviderSparse::MemoryUsed() const {
  return m_mapCells.MemoryUsed() + m_mapPositions.MemoryUsed() + m_pAlloc->BytesHeld();
}

bool CExtGridDataProviderSparse::Serialize(Archive& ar) {
  if (ar.IsStoring()) {
    if (!StoreHeader(ar, m_nColCount, m_nRowCount)) return false;
    ar.WriteU32(static_cast<uint32_t>(m_mapCells.GetCount()));
    for (POSITION p = m_mapCells.GetStartPosition(); p;) {
      int64_t key;
      CExtGridCell* cell;
      m_mapCells.GetNextAssoc(p, key, cell);
      if (!StoreCell(ar, key, cell)) return false;
    }
    return ar.ok();
  }
  ArchiveHeader header;
  std::vector<CellRecord> cells;
  if (!LoadHeader(ar, header) || !LoadCells(ar, header, cells)) return false;
  RemoveAllCells();
  m_nColCount = header.columns;
  m_nRowCount = header.rows;
  ApplyHeader(header);
  bool complete = true;
  for (CellRecord& record : cells) {
    CExtGridCell* copy = record.cell->Clone(m_pAlloc);
    DestroyCell(record.cell, nullptr);
    if (!copy) {
      complete = false;
      continue;
    }
    copy->SetOwner(this);
    if (CExtGridCell* old = Stored(record.key)) Drop(record.key, old);
    Store(record.key, copy);
  }
  return complete;
}

}  // namespace qmk::toolkit::grid
