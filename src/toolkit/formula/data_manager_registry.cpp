// data_manager_registry.cpp: the registry of formula cells with its reverse index, and the
// walks over it: dependents, precedents and the order of computing.
#include <algorithm>
#include <cstdint>

#include "toolkit/formula/data_manager.h"

namespace qmk::toolkit::formula {

namespace {

// The reverse index groups cells in blocks of 4 columns by 16 rows.
constexpr int kBlockColumnShift = 2;
constexpr int kBlockRowShift = 4;
constexpr long long kMaxBlocksPerReader = 64;
// A formula reading at most this many cells is entered under each of them.
constexpr long long kMaxCellsPerReader = 16;

int64_t BlockKey(int column, int row) { return PositionKey(column >> kBlockColumnShift, row >> kBlockRowShift); }

bool PositionLess(CellPos a, CellPos b) { return a.row != b.row ? a.row < b.row : a.column < b.column; }

// Calls `visit(cellKey)` for every cell of the set.
template <typename Visit>
void ForEachCellOf(const CExtGridRangeSet& set, Visit visit) {
  for (const CellRect& rect : set.Rects())
    for (int r = rect.top; r <= rect.bottom; ++r)
      for (int c = rect.left; c <= rect.right; ++c) visit(PositionKey(c, r));
}

// Calls `visit(blockKey)` for every block a rectangle of the set touches.
template <typename Visit>
void ForEachBlock(const CExtGridRangeSet& set, Visit visit) {
  for (const CellRect& rect : set.Rects())
    for (int by = rect.top >> kBlockRowShift; by <= rect.bottom >> kBlockRowShift; ++by)
      for (int bx = rect.left >> kBlockColumnShift; bx <= rect.right >> kBlockColumnShift; ++bx)
        visit(PositionKey(bx, by));
}

}  // namespace

const CExtGridRangeSet& CExtFormulaDataManager::Dependencies(int64_t key, CExtFormulaGridCell& cell) {
  if (!cell.m_bDepsKnown) {
    cell.m_nPrecedentStamp = 0;  // the precedents kept were found in the old set
    cell.m_deps.Empty();
    if (cell.m_tree || CompileAt(cell, key))
      cell.m_tree->CollectShiftedDependencies(this, m_alphabet, cell.m_deps, cell.m_nShiftColumns, cell.m_nShiftRows);
    cell.m_bDepsKnown = true;
  }
  return cell.m_deps;
}

void CExtFormulaDataManager::RegisterFormula(int64_t key, CExtFormulaGridCell& cell) {
  if (!cell.IsFormula()) {
    UnregisterFormula(key);
    return;
  }
  // One probe of the registry for a new cell: an entry already there is taken out first.
  bool fresh = false;
  cell.m_nVisit = 0;  // no mark of an earlier walk
  cell.m_nPrecedentStamp = 0;
  RegistryChanged();
  m_formulas.Insert(key, Registered{&cell, ReaderKind::kCells}, &fresh);
  if (!fresh) {
    UnregisterFormula(key);
    m_formulas.Insert(key, Registered{&cell, ReaderKind::kCells});
  }
  CountColumnFormula(KeyPosition(key).column, 1);
  const CExtGridRangeSet& deps = Dependencies(key, cell);
  long long blocks = 0, cells = 0;
  for (const CellRect& rect : deps.Rects()) {
    blocks += ((static_cast<long long>(rect.right) >> kBlockColumnShift) - (rect.left >> kBlockColumnShift) + 1) *
              ((static_cast<long long>(rect.bottom) >> kBlockRowShift) - (rect.top >> kBlockRowShift) + 1);
    cells += (static_cast<long long>(rect.right) - rect.left + 1) * (static_cast<long long>(rect.bottom) - rect.top + 1);
  }
  const ReaderKind kind = cells <= kMaxCellsPerReader     ? ReaderKind::kCells
                          : blocks <= kMaxBlocksPerReader ? ReaderKind::kBlocks
                                                          : ReaderKind::kWide;
  m_formulas.Find(key)->kind = kind;
  switch (kind) {
    case ReaderKind::kCells:
      ForEachCellOf(deps, [&](int64_t read) { m_cellReaders.Add(read, key, &cell); });
      break;
    case ReaderKind::kBlocks:
      ForEachBlock(deps, [&](int64_t block) {
        std::vector<int64_t>& readers = m_blockReaders[block];
        if (readers.empty() || readers.back() != key) readers.push_back(key);
      });
      break;
    case ReaderKind::kWide:
      m_wideReaders.push_back(key);
      break;
  }
}

void CExtFormulaDataManager::UnregisterFormula(int64_t key) {
  const CellPos at = KeyPosition(key);
  const Registered* registered = FindFormula(at.column, at.row);
  if (registered == nullptr) return;
  // The cell's dependency set is the one it was entered with: it is collected again only
  // after a change of text, which unregisters first.
  const CExtGridRangeSet& deps = registered->cell->m_deps;
  switch (registered->kind) {
    case ReaderKind::kCells:
      ForEachCellOf(deps, [&](int64_t read) { m_cellReaders.Remove(read, key); });
      break;
    case ReaderKind::kBlocks:
      ForEachBlock(deps, [&](int64_t block) {
        const auto found = m_blockReaders.find(block);
        if (found == m_blockReaders.end()) return;
        auto& readers = found->second;
        readers.erase(std::remove(readers.begin(), readers.end(), key), readers.end());
        if (readers.empty()) m_blockReaders.erase(found);
      });
      break;
    case ReaderKind::kWide:
      m_wideReaders.erase(std::remove(m_wideReaders.begin(), m_wideReaders.end(), key), m_wideReaders.end());
      break;
  }
  m_formulas.Erase(key);
  CountColumnFormula(KeyPosition(key).column, -1);
  RegistryChanged();
}

void CExtFormulaDataManager::RegistryChanged() {
  m_precedents.clear();
  if (++m_nRegistryStamp == 0) {
    // The stamps went round: no cell may keep one that would pass for a later registry.
    m_formulas.ForEach([](int64_t, const Registered& r) { r.cell->m_nPrecedentStamp = 0; });
    m_nRegistryStamp = 1;
  }
}

void CExtFormulaDataManager::AppendPrecedents(const FormulaAt& at, std::vector<FormulaAt>& out) {
  CExtFormulaGridCell& cell = *at.cell;
  if (cell.m_nPrecedentStamp == m_nRegistryStamp && cell.m_bDepsKnown) {
    const auto first = m_precedents.begin() + cell.m_nPrecedentAt;
    out.insert(out.end(), first, first + cell.m_nPrecedentCount);
    return;
  }
  const size_t start = out.size();
  AppendFormulaCellsIn(Dependencies(PositionKey(at.pos.column, at.pos.row), cell), out);
  const size_t count = out.size() - start;
  if (m_precedents.size() + count > UINT32_MAX) return;
  cell.m_nPrecedentAt = static_cast<uint32_t>(m_precedents.size());
  cell.m_nPrecedentCount = static_cast<uint32_t>(count);
  cell.m_nPrecedentStamp = m_nRegistryStamp;
  m_precedents.insert(m_precedents.end(), out.begin() + static_cast<std::ptrdiff_t>(start), out.end());
}

void CExtFormulaDataManager::CountColumnFormula(int column, int delta) {
  if (column >= kCountedColumns) return;
  if (static_cast<size_t>(column) >= m_columnFormulas.size()) m_columnFormulas.resize(static_cast<size_t>(column) + 1);
  m_columnFormulas[static_cast<size_t>(column)] += static_cast<uint32_t>(delta);
}

void CExtFormulaDataManager::RegisterCell(int column, int row, CExtFormulaGridCell* cell) {
  if (column < 0 || row < 0 || cell == nullptr) return;
  RegisterFormula(PositionKey(column, row), *cell);
}

void CExtFormulaDataManager::UnregisterCell(int column, int row) { UnregisterFormula(PositionKey(column, row)); }

void CExtFormulaDataManager::SetCell(int column, int row, CExtFormulaGridCell* cell) {
  if (cell != nullptr)
    RegisterCell(column, row, cell);
  else
    UnregisterCell(column, row);
}

void CExtFormulaDataManager::UnregisterCells(const std::vector<CellPos>& cells) {
  for (const CellPos& p : cells) UnregisterCell(p.column, p.row);
}

void CExtFormulaDataManager::UnregisterRange(const CExtGridRangeSet& set) {
  if (set.IsEmpty()) return;
  std::vector<int64_t> inside;
  m_formulas.ForEach([&](int64_t key, const Registered&) {
    if (set.Contains(KeyPosition(key))) inside.push_back(key);
  });
  for (int64_t key : inside) UnregisterFormula(key);
}

void CExtFormulaDataManager::RegisterAllCells() {
  m_formulas.clear();
  m_columnFormulas.clear();
  RegistryChanged();
  m_cellReaders.clear();
  m_blockReaders.clear();
  m_wideReaders.clear();
  for (const CellPos& p : StoredPositions(CellRect{0, 0, INT32_MAX, INT32_MAX})) {
    CExtFormulaGridCell* cell = GetCell(p.column, p.row);
    if (cell == nullptr || !cell->IsFormula()) continue;
    cell->m_bDepsKnown = false;
    RegisterFormula(PositionKey(p.column, p.row), *cell);
  }
}

uint32_t CExtFormulaDataManager::NextWalk() {
  if (++m_nWalk == 0) {
    // The numbers went round: no mark of an earlier walk may pass for one of the next.
    m_formulas.ForEach([](int64_t, const Registered& r) { r.cell->m_nVisit = 0; });
    m_nWalk = 1;
  }
  return m_nWalk;
}

void CExtFormulaDataManager::DirectDependents(int column, int row, std::vector<FormulaAt>& out) {
  out.clear();
  // Readers entered under the cell read it by construction.
  m_cellReaders.ForEachReaderCell(PositionKey(column, row), [&](int64_t reader, CExtFormulaGridCell* cell) {
    out.push_back({KeyPosition(reader), cell});
  });
  auto consider = [&](int64_t reader) {
    Registered* registered = m_formulas.Find(reader);
    if (registered != nullptr && Dependencies(reader, *registered->cell).Contains(column, row))
      out.push_back({KeyPosition(reader), registered->cell});
  };
  if (!m_blockReaders.empty()) {
    const auto block = m_blockReaders.find(BlockKey(column, row));
    if (block != m_blockReaders.end())
      for (int64_t reader : block->second) consider(reader);
  }
  for (int64_t reader : m_wideReaders) consider(reader);
  if (out.size() > 1) {
    std::sort(out.begin(), out.end(), [](const FormulaAt& a, const FormulaAt& b) { return PositionLess(a.pos, b.pos); });
    out.erase(std::unique(out.begin(), out.end(), [](const FormulaAt& a, const FormulaAt& b) { return a.pos == b.pos; }),
              out.end());
  }
}

void CExtFormulaDataManager::CollectDependentCells(int64_t start, bool includeSelf, uint32_t walk,
                                                   std::vector<FormulaAt>& result, bool pending) {
  // Every reader is a registered cell: the walk's mark in the cell says it was met.
  std::vector<FormulaAt> direct;
  // Breadth of the walk is kept on an explicit list, the result itself after the start: a
  // chain of a million cells must not become a million nested calls.
  const size_t listed = result.size();
  for (size_t next = listed; next <= result.size(); ++next) {
    const CellPos at = next == listed ? KeyPosition(start) : result[next - 1].pos;
    DirectDependents(at.column, at.row, direct);
    for (const FormulaAt& reader : direct) {
      const int64_t key = PositionKey(reader.pos.column, reader.pos.row);
      if (key == start && !includeSelf) continue;
      if (reader.cell->m_nVisit == walk) continue;
      reader.cell->m_nVisit = walk;
      reader.cell->m_nMark = kMarkWanted;
      if (pending) reader.cell->m_bPending = true;
      result.push_back(reader);
    }
  }
}

void CExtFormulaDataManager::CollectDependents(int column, int row, bool includeSelf, std::vector<CellPos>& result,
                                               bool recursive, bool append) {
  if (!append) result.clear();
  std::vector<FormulaAt> found;
  if (!recursive) {
    // The readers of the cell itself, less those already listed.
    FlatKeySet seen;
    for (const CellPos& p : result) seen.Insert(PositionKey(p.column, p.row), 1);
    DirectDependents(column, row, found);
    for (const FormulaAt& reader : found) {
      if (reader.pos == CellPos{column, row} && !includeSelf) continue;
      bool fresh = false;
      seen.Insert(PositionKey(reader.pos.column, reader.pos.row), 1, &fresh);
      if (fresh) result.push_back(reader.pos);
    }
    return;
  }
  found.reserve(result.size());
  for (const CellPos& p : result) {
    const Registered* registered = m_formulas.Find(PositionKey(p.column, p.row));
    found.push_back({p, registered != nullptr ? registered->cell : nullptr});
  }
  const size_t listed = found.size();
  const uint32_t walk = NextWalk();
  for (const FormulaAt& p : found)
    if (p.cell != nullptr) p.cell->m_nVisit = walk;
  CollectDependentCells(PositionKey(column, row), includeSelf, walk, found, false);
  for (size_t i = listed; i < found.size(); ++i) result.push_back(found[i].pos);
}

void CExtFormulaDataManager::AppendFormulaCellsIn(const CExtGridRangeSet& deps, std::vector<FormulaAt>& out) const {
  // Plain cells are no precedents, since they need no computing: only the registry is asked.
  constexpr long long kProbeLimit = 4096;
  for (const CellRect& rect : deps.Rects()) {
    const long long area = (static_cast<long long>(rect.right) - rect.left + 1) *
                           (static_cast<long long>(rect.bottom) - rect.top + 1);
    if (area > kProbeLimit || area > static_cast<long long>(m_formulas.size())) {
      const size_t first = out.size();
      m_formulas.ForEach([&](int64_t key, const Registered& r) {
        const CellPos p = KeyPosition(key);
        if (rect.Contains(p.column, p.row)) out.push_back({p, r.cell});
      });
      std::sort(out.begin() + static_cast<std::ptrdiff_t>(first), out.end(),
                [](const FormulaAt& a, const FormulaAt& b) { return PositionLess(a.pos, b.pos); });
      continue;
    }
    for (int r = rect.top; r <= rect.bottom; ++r)
      for (int c = rect.left; c <= rect.right; ++c)
        if (const Registered* registered = FindFormula(c, r)) out.push_back({{c, r}, registered->cell});
  }
}

void CExtFormulaDataManager::CollectPrecedents(int column, int row, std::vector<CellPos>& result) {
  result.clear();
  Registered* registered = m_formulas.Find(PositionKey(column, row));
  if (registered == nullptr) return;
  std::vector<FormulaAt> found;
  AppendFormulaCellsIn(Dependencies(PositionKey(column, row), *registered->cell), found);
  for (const FormulaAt& p : found) result.push_back(p.pos);
}

void CExtFormulaDataManager::OrderForCompute(const std::vector<CellPos>& cells, std::vector<CellPos>& order) {
  std::vector<FormulaAt> wanted, ordered;
  wanted.reserve(cells.size());
  for (const CellPos& p : cells) {
    const Registered* registered = m_formulas.Find(PositionKey(p.column, p.row));
    wanted.push_back({p, registered != nullptr ? registered->cell : nullptr});
  }
  OrderCells(wanted, 0, &ordered, nullptr, nullptr);
  for (const FormulaAt& p : ordered) order.push_back(p.pos);
}

void CExtFormulaDataManager::OrderCells(const std::vector<FormulaAt>& cells, uint32_t walk,
                                        std::vector<FormulaAt>* order, std::vector<CellPos>* cyclic,
                                        ComputePass* pass) {
  // Only the cells asked for are ordered: precedents outside them hold current values. The
  // state of a registered cell is its mark for this walk; positions without a registered cell
  // (asked for, but never anyone's precedent) keep theirs in a table.
  const bool marked = walk != 0;
  if (!marked) walk = NextWalk();
  FlatKeyMap<uint8_t> loose;
  for (const FormulaAt& p : cells) {
    if (p.cell == nullptr) {
      bool fresh = false;
      loose.Insert(PositionKey(p.pos.column, p.pos.row), kMarkWanted, &fresh);
      CExtFormulaGridCell* cell = pass != nullptr && fresh ? GetCell(p.pos.column, p.pos.row) : nullptr;
      if (cell != nullptr) cell->m_bPending = true;
    } else if (!marked && p.cell->m_nVisit != walk) {
      p.cell->m_nVisit = walk;
      p.cell->m_nMark = kMarkWanted;
      if (pass != nullptr) p.cell->m_bPending = true;
    }
  }
  // The state of a position, or null when it was not asked for.
  auto state = [&](const FormulaAt& p) -> uint8_t* {
    if (p.cell == nullptr) return loose.Find(PositionKey(p.pos.column, p.pos.row));
    return p.cell->m_nVisit == walk ? &p.cell->m_nMark : nullptr;
  };
  struct Frame {
    FormulaAt at;
    size_t next;  // the next precedent to visit, in `precedents`
  };
  std::vector<Frame> stack;
  // The precedents of every frame on the stack, the innermost last.
  std::vector<FormulaAt> precedents;
  std::vector<size_t> ends;
  auto enter = [&](const FormulaAt& p, uint8_t& mark) {
    mark = kMarkOnStack;
    stack.push_back({p, precedents.size()});
    if (p.cell != nullptr) AppendPrecedents(p, precedents);
    ends.push_back(precedents.size());
  };
  for (const FormulaAt& first : cells) {
    uint8_t& mark = *state(first);
    if (mark != kMarkWanted) continue;
    enter(first, mark);
    while (!stack.empty()) {
      Frame& top = stack.back();
      if (top.next == ends.back()) {
        *state(top.at) = kMarkDone;
        const FormulaAt done = top.at;
        precedents.resize(ends.size() > 1 ? ends[ends.size() - 2] : 0);
        ends.pop_back();
        stack.pop_back();
        if (order != nullptr) order->push_back(done);
        if (pass != nullptr) ComputeOrdered(*pass, done);
        continue;
      }
      const FormulaAt p = precedents[top.next++];
      uint8_t* seen = state(p);
      if (seen == nullptr) continue;
      // A precedent still being ordered reads, through its own precedents, this very cell.
      if (*seen == kMarkOnStack && cyclic != nullptr) cyclic->push_back(top.at.pos);
      if (*seen == kMarkWanted) enter(p, *seen);
    }
  }
}

}  // namespace qmk::toolkit::formula
