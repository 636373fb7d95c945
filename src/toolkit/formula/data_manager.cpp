// data_manager.cpp: cells, their computing, and the recalculation of what depends on a change.
#include "toolkit/formula/data_manager.h"

#include <algorithm>
#include <cstdio>

#include "platform/variant/change_type.h"
#include "toolkit/formula/errors.h"

namespace qmk::toolkit::formula {

using platform::Variant;

namespace {

// The reverse index groups cells in blocks of 4 columns by 16 rows.
constexpr int kBlockColumnShift = 2;
constexpr int kBlockRowShift = 4;
constexpr long long kMaxBlocksPerReader = 64;
// A value read through a chain of uncomputed cells deeper than this is a dependency error,
// so that a long cycle cannot exhaust the stack.
constexpr int kMaxReadDepth = 2000;
// Steps a cycle walk may take: the walk follows every path of a cycle.
constexpr long kCycleWalkBudget = 200000;

int64_t BlockKey(int column, int row) { return PositionKey(column >> kBlockColumnShift, row >> kBlockRowShift); }

bool PositionLess(CellPos a, CellPos b) { return a.row != b.row ? a.row < b.row : a.column < b.column; }

std::string TrimLeft(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\r' || text[i] == '\n' || text[i] == '\t')) ++i;
  return text.substr(i);
}

}  // namespace

std::string CExtFormulaGridCell::DisplayText() const {
  if (m_bEmpty) return "";
  Variant text;
  if (platform::ChangeType(text, m_value, platform::VT_BSTR) == platform::S_OK) return text.StringValue();
  return "";
}

const CExtGridRangeSet* CExtFormulaDataManager::FindNamedRange(const std::string& name) const {
  const auto it = m_named.find(name);
  return it == m_named.end() ? nullptr : &it->second;
}

bool CExtFormulaDataManager::IsBareNameFunction(const std::string& name) const {
  const CExtFormulaFunction* function = const_cast<CExtFormulaDataManager*>(this)->GetFunctionSet().Find(name.c_str());
  return function != nullptr && function->AllowsBareName();
}

CExtFormulaFunctionSet& CExtFormulaDataManager::GetFunctionSet() {
  if (!m_functions) {
    m_functions = std::make_unique<CExtFormulaFunctionSet>();
    m_functions->Reset();
  }
  return *m_functions;
}

CExtFormulaGridCell* CExtFormulaDataManager::GetCell(int column, int row, bool create) {
  if (column < 0 || row < 0) return nullptr;
  const int64_t key = PositionKey(column, row);
  if (CExtFormulaGridCell** found = m_index.Find(key)) return *found;
  if (!create) return nullptr;
  CExtFormulaGridCell* cell = &m_cells[key];
  m_index.Insert(key, cell);
  return cell;
}

const CExtFormulaGridCell* CExtFormulaDataManager::FindCell(int column, int row) const {
  const CExtFormulaGridCell* const* found = m_index.Find(PositionKey(column, row));
  return found == nullptr ? nullptr : *found;
}

bool CExtFormulaDataManager::GetCellValue(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                                          const CExtFormulaItem*) {
  value.Clear();
  if (column < 0 || row < 0) return false;
  CExtFormulaGridCell* cell = GetCell(column, row);
  if (cell == nullptr || cell->IsHiddenByJoin()) {
    value.SetScalar(Variant::R8(0.0));
    return true;
  }
  const int64_t key = PositionKey(column, row);
  // A stored value is current unless the running pass still has to compute the cell. Outside
  // a pass a formula is computed where it is read, unless it was computed cleanly before: its
  // result would be the same, and a long chain must not turn into deep recursion.
  const bool stale = m_pPending != nullptr ? m_pPending->Contains(key)
                                           : (!cell->m_bComputed || cell->m_nErrorCode != 0);
  if (!cell->IsFormula() || context.count(key) != 0 || !stale) {
    value.m_nKind = CExtFormulaValue::kScalar;
    value.m_value = cell->m_value;
    value.m_bEmpty = cell->m_bEmpty;
    return true;
  }
  if (m_nDepth >= kMaxReadDepth) return false;
  ++m_nDepth;
  const CExtFormulaItem* errorItem = nullptr;
  const bool ok = ComputeCell(context, column, row, value, errorItem);
  --m_nDepth;
  if (!ok) return false;
  cell->m_value = value.m_value;
  cell->m_bEmpty = value.m_bEmpty;
  return true;
}

bool CExtFormulaDataManager::Compile(CExtFormulaGridCell& cell) {
  m_scanner.SetText(cell.m_strFormula.c_str(), static_cast<int>(cell.m_strFormula.size()));
  if (!m_scanner.Parse()) return false;
  cell.m_tree.reset(m_scanner.DetachRoot());
  cell.m_bDepsKnown = false;
  return cell.m_tree != nullptr;
}

bool CExtFormulaDataManager::ComputeCell(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                                         const CExtFormulaItem*& errorItem) {
  value.Clear();
  context.insert(PositionKey(column, row));
  CExtFormulaGridCell* cell = GetCell(column, row);
  if (cell == nullptr) return false;
  if (!cell->m_tree && !Compile(*cell)) {
    // A formula that does not parse shows as what was typed.
    if (cell->IsFormula()) SetError(*cell, 0);
    value.SetScalar(cell->IsFormula() ? Variant::Str(cell->m_strFormula) : cell->m_value);
    return true;
  }
  cell->m_pErrorItem = nullptr;
  cell->m_bComputed = true;
  const int code = cell->m_tree->Compute(context, value, *this, cell->m_pErrorItem);
  errorItem = cell->m_pErrorItem;
  if (code != 0) {
    SetError(*cell, code);
    return false;
  }
  if (value.m_nKind == CExtFormulaValue::kRange) {
    if (!value.m_range.IsSingleCell()) {
      cell->m_pErrorItem = cell->m_tree.get();
      SetError(*cell, kErrRangeResult);
      return false;
    }
    const CellRect single = value.m_range.GetAt(0);
    CExtFormulaValue fetched;
    if (!GetCellValue(context, single.left, single.top, fetched, cell->m_tree.get())) {
      SetError(*cell, kErrDependency);
      return false;
    }
    value = fetched;
  }
  return true;
}

void CExtFormulaDataManager::SetError(CExtFormulaGridCell& cell, int code) {
  if (cell.m_nErrorCode == code) return;
  cell.m_nErrorCode = code;
  cell.m_bEmpty = false;
  if (code == 0) {
    cell.m_value = Variant::Str("");
    return;
  }
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "Error: %d - ", code);
  cell.m_value = Variant::Str(buffer + GetErrorText(code));
}

void CExtFormulaDataManager::SetErrorInCell(CExtFormulaGridCell& cell, int column, int row) {
  cell.m_nErrorCode = kErrDependency;
  cell.m_bEmpty = false;
  cell.m_value = Variant::Str("Error: error in " + m_alphabet.FormatCell(column, row));
}

void CExtFormulaDataManager::SetCircularError(CExtFormulaGridCell& cell, CellPos first, CellPos second) {
  cell.m_nErrorCode = kErrDependency;
  cell.m_bEmpty = false;
  cell.m_value = Variant::Str("Error: cross reference between " + m_alphabet.FormatCell(first.column, first.row) +
                              " and " + m_alphabet.FormatCell(second.column, second.row));
}

bool CExtFormulaDataManager::PutCellText(int column, int row, const std::string& given) {
  CExtFormulaGridCell* cell = GetCell(column, row, true);
  if (cell == nullptr) return false;
  const int64_t key = PositionKey(column, row);
  const std::string text = TrimLeft(given);
  if (text.empty() || text[0] != '=') {
    UnregisterFormula(key);
    cell->m_strFormula.clear();
    cell->ResetCompiled();
    cell->m_bEmpty = text.empty();
    // An ordinary value: a number when the whole text reads as one, else the text.
    Variant number;
    if (!text.empty() && platform::ChangeType(number, Variant::Str(given), platform::VT_R8) == platform::S_OK)
      cell->m_value = number;
    else
      cell->m_value = Variant::Str(given);
    return false;
  }
  cell->m_strFormula = given;
  cell->ResetCompiled();
  // A formula typed without its closing parenthesis is taken with one added.
  if (!Compile(*cell)) {
    cell->m_strFormula = given + ")";
    if (!Compile(*cell)) cell->m_strFormula = given;
  }
  RegisterFormula(key, *cell);
  return true;
}

std::vector<CellPos> CExtFormulaDataManager::SetCellText(int column, int row, const std::string& given) {
  FormulaContext context;
  if (!PutCellText(column, row, given)) return Recompute(context, column, row, false);
  CExtFormulaGridCell* cell = GetCell(column, row);
  context.insert(PositionKey(column, row));
  CExtFormulaValue value;
  const CExtFormulaItem* errorItem = nullptr;
  cell->m_nErrorCode = -1;  // so that a clean result clears an earlier message
  SetError(*cell, 0);
  if (ComputeCell(context, column, row, value, errorItem)) {
    cell->m_value = value.m_value;
    cell->m_bEmpty = value.m_bEmpty;
  }
  return Recompute(context, column, row, false);
}

void CExtFormulaDataManager::SetJoin(int column, int row, int columns, int rows) {
  for (int r = row; r < row + rows; ++r)
    for (int c = column; c < column + columns; ++c) {
      CExtFormulaGridCell* cell = GetCell(c, r, true);
      if (cell == nullptr) continue;
      const bool origin = c == column && r == row;
      cell->m_nJoinColumns = origin ? columns : column - c;
      cell->m_nJoinRows = origin ? rows : row - r;
    }
}

const CExtGridRangeSet& CExtFormulaDataManager::Dependencies(CExtFormulaGridCell& cell) {
  if (!cell.m_bDepsKnown) {
    cell.m_deps.Empty();
    if (cell.m_tree || Compile(cell)) cell.m_tree->CollectDependencies(this, m_alphabet, cell.m_deps);
    cell.m_bDepsKnown = true;
  }
  return cell.m_deps;
}

void CExtFormulaDataManager::RegisterFormula(int64_t key, CExtFormulaGridCell& cell) {
  UnregisterFormula(key);
  const CExtGridRangeSet& deps = Dependencies(cell);
  long long blocks = 0;
  for (const CellRect& rect : deps.Rects())
    blocks += ((static_cast<long long>(rect.right) >> kBlockColumnShift) - (rect.left >> kBlockColumnShift) + 1) *
              ((static_cast<long long>(rect.bottom) >> kBlockRowShift) - (rect.top >> kBlockRowShift) + 1);
  const bool wide = blocks > kMaxBlocksPerReader;
  m_formulaCells.Insert(key, wide ? 2 : 1);
  if (wide) {
    m_wideReaders.push_back(key);
    return;
  }
  for (const CellRect& rect : deps.Rects())
    for (int by = rect.top >> kBlockRowShift; by <= rect.bottom >> kBlockRowShift; ++by)
      for (int bx = rect.left >> kBlockColumnShift; bx <= rect.right >> kBlockColumnShift; ++bx) {
        std::vector<int64_t>& readers = m_blockReaders[PositionKey(bx, by)];
        if (readers.empty() || readers.back() != key) readers.push_back(key);
      }
}

void CExtFormulaDataManager::UnregisterFormula(int64_t key) {
  const uint8_t* registered = m_formulaCells.Find(key);
  if (registered == nullptr) return;
  if (*registered == 2) {
    m_wideReaders.erase(std::remove(m_wideReaders.begin(), m_wideReaders.end(), key), m_wideReaders.end());
  } else {
    // The cached dependency set names exactly the blocks the cell was entered in.
    const CExtFormulaGridCell& cell = *GetCell(KeyPosition(key).column, KeyPosition(key).row);
    for (const CellRect& rect : cell.m_deps.Rects())
      for (int by = rect.top >> kBlockRowShift; by <= rect.bottom >> kBlockRowShift; ++by)
        for (int bx = rect.left >> kBlockColumnShift; bx <= rect.right >> kBlockColumnShift; ++bx) {
          const auto block = m_blockReaders.find(PositionKey(bx, by));
          if (block == m_blockReaders.end()) continue;
          auto& readers = block->second;
          readers.erase(std::remove(readers.begin(), readers.end(), key), readers.end());
          if (readers.empty()) m_blockReaders.erase(block);
        }
  }
  m_formulaCells.Erase(key);
}

void CExtFormulaDataManager::DirectDependents(int column, int row, std::vector<int64_t>& out) {
  out.clear();
  auto consider = [&](int64_t reader) {
    if ((*m_index.Find(reader))->m_deps.Contains(column, row)) out.push_back(reader);
  };
  const auto block = m_blockReaders.find(BlockKey(column, row));
  if (block != m_blockReaders.end())
    for (int64_t reader : block->second) consider(reader);
  for (int64_t reader : m_wideReaders) consider(reader);
  std::sort(out.begin(), out.end(),
            [](int64_t a, int64_t b) { return PositionLess(KeyPosition(a), KeyPosition(b)); });
  out.erase(std::unique(out.begin(), out.end()), out.end());
}

void CExtFormulaDataManager::CollectDependents(int column, int row, bool includeSelf, std::vector<CellPos>& result,
                                               bool recursive, bool append) {
  if (!append) result.clear();
  FlatKeySet seen;
  for (const CellPos& p : result) seen.Insert(PositionKey(p.column, p.row), 1);
  const int64_t start = PositionKey(column, row);
  std::vector<int64_t> work{start}, direct;
  // Breadth of the walk is kept on an explicit list: a chain of a million cells must not
  // become a million nested calls.
  for (size_t next = 0; next < work.size(); ++next) {
    const CellPos at = KeyPosition(work[next]);
    DirectDependents(at.column, at.row, direct);
    for (int64_t reader : direct) {
      if (reader == start && !includeSelf) continue;
      bool fresh = false;
      seen.Insert(reader, 1, &fresh);
      if (!fresh) continue;
      result.push_back(KeyPosition(reader));
      if (recursive) work.push_back(reader);
    }
    if (!recursive) break;
  }
}

void CExtFormulaDataManager::CollectPrecedents(int column, int row, std::vector<CellPos>& result) {
  result.clear();
  const int64_t key = PositionKey(column, row);
  if (!m_formulaCells.Contains(key)) return;
  const CExtGridRangeSet& deps = Dependencies(**m_index.Find(key));
  ForEachExistingCell(deps, [&](int c, int r) {
    if (m_formulaCells.Contains(PositionKey(c, r))) result.push_back({c, r});
    return true;
  });
}

void CExtFormulaDataManager::OrderForCompute(const std::vector<CellPos>& cells, std::vector<CellPos>& order) {
  OrderForCompute(cells, order, nullptr);
}

void CExtFormulaDataManager::OrderForCompute(const std::vector<CellPos>& cells, std::vector<CellPos>& order,
                                             std::vector<CellPos>* cyclic) {
  // Only the cells asked for are ordered: precedents outside them hold current values.
  enum : uint8_t { kOnStack = 1, kDone = 2 };
  FlatKeySet wanted;
  FlatKeyMap<uint8_t> state;
  for (const CellPos& p : cells) wanted.Insert(PositionKey(p.column, p.row), 1);
  struct Frame {
    CellPos pos;
    std::vector<CellPos> precedents;
    size_t next = 0;
  };
  std::vector<Frame> stack;
  auto enter = [&](CellPos p) {
    state.Insert(PositionKey(p.column, p.row), kOnStack);
    stack.push_back({p, {}, 0});
    CollectPrecedents(p.column, p.row, stack.back().precedents);
  };
  for (const CellPos& first : cells) {
    if (state.Contains(PositionKey(first.column, first.row))) continue;
    enter(first);
    while (!stack.empty()) {
      Frame& top = stack.back();
      if (top.next == top.precedents.size()) {
        *state.Find(PositionKey(top.pos.column, top.pos.row)) = kDone;
        order.push_back(top.pos);
        stack.pop_back();
        continue;
      }
      const CellPos p = top.precedents[top.next++];
      const int64_t key = PositionKey(p.column, p.row);
      if (!wanted.Contains(key)) continue;
      const uint8_t* seen = state.Find(key);
      // A precedent still being ordered reads, through its own precedents, this very cell.
      if (seen != nullptr && *seen == kOnStack && cyclic != nullptr) cyclic->push_back(top.pos);
      if (seen == nullptr) enter(p);
    }
  }
}

void CExtFormulaDataManager::WalkCycles(int64_t key, std::map<int64_t, int64_t>& cycles, std::vector<int64_t>& stack,
                                        long& budget) {
  if (--budget < 0) return;
  stack.push_back(key);
  std::vector<int64_t> direct;
  const CellPos at = KeyPosition(key);
  DirectDependents(at.column, at.row, direct);
  for (int64_t reader : direct) {
    if (std::find(stack.begin(), stack.end(), reader) != stack.end()) {
      cycles[reader] = key;
      cycles[key] = reader;
    } else {
      WalkCycles(reader, cycles, stack, budget);
    }
  }
  stack.pop_back();
}

void CExtFormulaDataManager::FindCycles(int column, int row, std::map<int64_t, int64_t>& cycles) {
  std::vector<int64_t> stack;
  long budget = kCycleWalkBudget;
  WalkCycles(PositionKey(column, row), cycles, stack, budget);
}

std::vector<CellPos> CExtFormulaDataManager::Recompute(FormulaContext& context, int column, int row, bool includeSelf) {
  std::vector<CellPos> deps, order, cyclic;
  CollectDependents(column, row, true, deps, true, false);
  OrderForCompute(deps, order, &cyclic);
  FlatKeySet pending;
  for (const CellPos& p : order) pending.Insert(PositionKey(p.column, p.row), 1);
  const auto* outer = m_pPending;
  m_pPending = &pending;
  std::vector<CellPos> computed;
  for (const CellPos& p : order) {
    CExtFormulaGridCell* cell = GetCell(p.column, p.row);
    if (cell == nullptr) continue;
    SetError(*cell, 0);
    if (!includeSelf && p.column == column && p.row == row) continue;
    CExtFormulaValue value;
    const CExtFormulaItem* errorItem = nullptr;
    if (ComputeCell(context, p.column, p.row, value, errorItem)) {
      cell->m_value = value.m_value;
      cell->m_bEmpty = value.m_bEmpty;
    }
    pending.Erase(PositionKey(p.column, p.row));
    computed.push_back(p);
  }
  m_pPending = outer;
  MarkCycles(cyclic);
  return computed;
}

void CExtFormulaDataManager::MarkCycles(const std::vector<CellPos>& cyclic) {
  // Only cells found reading a cell still being ordered can stand in a cycle; the walk that
  // names the pairs starts from each of them.
  std::map<int64_t, int64_t> cycles;
  for (const CellPos& p : cyclic) FindCycles(p.column, p.row, cycles);
  for (const auto& [first, second] : cycles) {
    CExtFormulaGridCell* cell = GetCell(KeyPosition(first).column, KeyPosition(first).row);
    if (cell != nullptr) SetCircularError(*cell, KeyPosition(first), KeyPosition(second));
  }
}

void CExtFormulaDataManager::RecomputeAll() {
  std::vector<CellPos> all, order, cyclic;
  m_formulaCells.ForEach([&](int64_t key, uint8_t) { all.push_back(KeyPosition(key)); });
  std::sort(all.begin(), all.end(), PositionLess);
  OrderForCompute(all, order, &cyclic);
  FlatKeySet pending;
  for (const CellPos& p : order) pending.Insert(PositionKey(p.column, p.row), 1);
  const auto* outer = m_pPending;
  m_pPending = &pending;
  FormulaContext context;
  for (const CellPos& p : order) {
    CExtFormulaGridCell* cell = GetCell(p.column, p.row);
    SetError(*cell, 0);
    CExtFormulaValue value;
    const CExtFormulaItem* errorItem = nullptr;
    if (ComputeCell(context, p.column, p.row, value, errorItem)) {
      cell->m_value = value.m_value;
      cell->m_bEmpty = value.m_bEmpty;
    }
    pending.Erase(PositionKey(p.column, p.row));
  }
  m_pPending = outer;
  MarkCycles(cyclic);
}

bool CExtFormulaDataManager::SetNamedRange(const std::string& name, const CExtGridRangeSet* set) {
  if (!IsValidRangeName(name.c_str())) return false;
  CExtGridRangeSet& stored = m_named[name];
  if (set == nullptr) stored.Empty();
  else if (set != &stored) stored.Assign(*set);
  RefreshAllDependencies();
  return true;
}

bool CExtFormulaDataManager::RemoveNamedRange(const std::string& name) {
  if (m_named.erase(name) == 0) return false;
  RefreshAllDependencies();
  return true;
}

size_t CExtFormulaDataManager::RemoveAllNamedRanges() {
  const size_t count = m_named.size();
  m_named.clear();
  RefreshAllDependencies();
  return count;
}

void CExtFormulaDataManager::RefreshAllDependencies() {
  // A name read by a formula changes what the formula depends on.
  std::vector<int64_t> keys;
  m_formulaCells.ForEach([&](int64_t key, uint8_t) { keys.push_back(key); });
  for (int64_t key : keys) {
    UnregisterFormula(key);
    CExtFormulaGridCell& cell = **m_index.Find(key);
    cell.m_bDepsKnown = false;
    RegisterFormula(key, cell);
  }
}

}  // namespace qmk::toolkit::formula
