// data_manager.cpp: cells, their computing, and the recalculation of what depends on a change.
#include "toolkit/formula/data_manager.h"

#include <algorithm>
#include <climits>
#include <cstdio>
#include <utility>

#include "platform/variant/change_type.h"
#include "toolkit/formula/errors.h"
#include "toolkit/grid/provider_mixins.h"
#include "toolkit/grid/provider_sparse.h"

namespace qmk::toolkit::formula {

using platform::Variant;

namespace {

// A value read through a chain of uncomputed cells deeper than this is a dependency error,
// so that a long cycle cannot exhaust the stack.
constexpr int kMaxReadDepth = 2000;
// Steps a cycle walk may take: the walk follows every path of a cycle.
constexpr long kCycleWalkBudget = 200000;

bool PositionLess(CellPos a, CellPos b) { return a.row != b.row ? a.row < b.row : a.column < b.column; }

std::string TrimLeft(const std::string& text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\r' || text[i] == '\n' || text[i] == '\t')) ++i;
  return text.substr(i);
}

// A text whose first character after blanks is "=".
bool StartsFormula(const std::string& text) {
  for (char c : text)
    if (c != ' ' && c != '\r' && c != '\n' && c != '\t') return c == '=';
  return false;
}

// A grid cell as a formula cell, or null for a cell of another class.
CExtFormulaGridCell* AsFormulaCell(grid::CExtGridCell* cell) {
  return cell != nullptr && cell->IsKindOf(&CExtFormulaGridCell::kClass) ? static_cast<CExtFormulaGridCell*>(cell)
                                                                         : nullptr;
}

// Sorts `items` by the 64-bit `key` of each, least significant 16 bits first; the passes whose
// digit is the same in every key are skipped. For the hundreds of thousands of formulas of a
// sheet this beats comparing.
template <typename T, typename Key>
void RadixSort(std::vector<T>& items, Key key) {
  std::vector<T> spare(items.size());
  std::vector<size_t> counts(size_t{1} << 16);
  for (int shift = 0; shift < 64; shift += 16) {
    std::fill(counts.begin(), counts.end(), 0);
    for (const T& item : items) ++counts[(key(item) >> shift) & 0xFFFF];
    if (std::find(counts.begin(), counts.end(), items.size()) != counts.end()) continue;
    size_t sum = 0;
    for (size_t& count : counts) sum += std::exchange(count, sum);
    for (const T& item : items) spare[counts[(key(item) >> shift) & 0xFFFF]++] = item;
    items.swap(spare);
  }
}

// A text of 1 to 15 decimal digits and nothing else, as the double of that integer: what the
// general reading of a number gives for it, without its detour through exact digits.
bool ReadDigits(const std::string& text, Variant& number) {
  if (text.empty() || text.size() > 15) return false;
  int64_t value = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return false;
    value = value * 10 + (c - '0');
  }
  number = Variant::R8(static_cast<double>(value));
  return true;
}

bool IsHiddenByJoin(const grid::CExtGridCell& cell) {
  const auto* data = dynamic_cast<const grid::CExtGridCellEx*>(&cell);
  return data != nullptr && (data->JoinGet().cx <= 0 || data->JoinGet().cy <= 0);
}

}  // namespace

CExtFormulaDataManager::CExtFormulaDataManager(int columns, int rows) : m_nColumns(columns), m_nRows(rows) {
  // A store holding formula cells can then be read back from its archive.
  grid::RegisterCellClass(&CExtFormulaGridCell::kClass);
}

CExtFormulaDataManager::~CExtFormulaDataManager() = default;

grid::CExtGridDataProvider& CExtFormulaDataManager::GetDataProvider() {
  if (!m_pOwnStore) {
    auto store = std::make_unique<grid::CExtGDPJ<grid::CExtGridDataProviderSparse>>();
    store->ColumnInsert(0, std::max(0, m_nColumns));
    store->RowInsert(0, std::max(0, m_nRows));
    m_pOwnStore = std::move(store);
  }
  return *m_pOwnStore;
}

grid::CExtGridDataProvider& CExtFormulaDataManager::Store() const {
  if (m_pStore == nullptr) m_pStore = &const_cast<CExtFormulaDataManager*>(this)->GetDataProvider();
  return *m_pStore;
}

void CExtFormulaDataManager::ReservedCounts(int& columns, int& rows) const {
  Store().CacheReservedCountsGet(columns, rows);
}

int CExtFormulaDataManager::GetColumnCount() const {
  int columns = 0, rows = 0;
  ReservedCounts(columns, rows);
  return std::max(0, Store().ColumnCountGet() - columns);
}

int CExtFormulaDataManager::GetRowCount() const {
  int columns = 0, rows = 0;
  ReservedCounts(columns, rows);
  return std::max(0, Store().RowCountGet() - rows);
}

grid::CExtGridCell* CExtFormulaDataManager::GetGridCell(int column, int row) const {
  if (column < 0 || row < 0) return nullptr;
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  return Store().CellGet(column + reservedColumns, row + reservedRows);
}

const CExtFormulaGridCell* CExtFormulaDataManager::FindCell(int column, int row) const {
  return AsFormulaCell(GetGridCell(column, row));
}

grid::CExtGridCell* CExtFormulaDataManager::MakeGridCell(int column, int row) {
  if (column < 0 || row < 0) return nullptr;
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  // The store gives the cell that is there, of whatever class, or makes a formula cell.
  return Store().CellGet(column + reservedColumns, row + reservedRows, &CExtFormulaGridCell::kClass);
}

CExtFormulaGridCell* CExtFormulaDataManager::GetCell(int column, int row, bool create) {
  if (!create) return AsFormulaCell(GetGridCell(column, row));
  grid::CExtGridCell* found = MakeGridCell(column, row);
  if (found == nullptr) return nullptr;
  if (CExtFormulaGridCell* cell = AsFormulaCell(found)) return cell;
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  const int c = column + reservedColumns, r = row + reservedRows;
  // Another kind of cell stands there: a formula cell takes its place, value and look.
  CExtFormulaGridCell model;
  model.Assign(*found);
  if (!Store().CellRangeSet(c, r, 1, 1, &model, true)) return nullptr;
  return AsFormulaCell(Store().CellGet(c, r));
}

bool CExtFormulaDataManager::GetCellPosition(const grid::CExtGridCell* cell, int& column, int& row) {
  const auto* sparse = dynamic_cast<const grid::CExtGridDataProviderSparse*>(&Store());
  if (sparse == nullptr || !sparse->CellPositionGet(cell, column, row)) return false;
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  column -= reservedColumns;
  row -= reservedRows;
  return column >= 0 && row >= 0;
}

std::vector<CellPos> CExtFormulaDataManager::StoredPositions(const CellRect& within) const {
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  struct Walk {
    int dc, dr;
    std::vector<CellPos> found;
  } walk{reservedColumns, reservedRows, {}};
  const CellRect rect{within.left + reservedColumns, within.top + reservedRows,
                      static_cast<int>(std::min<long long>(INT32_MAX, static_cast<long long>(within.right) + reservedColumns)),
                      static_cast<int>(std::min<long long>(INT32_MAX, static_cast<long long>(within.bottom) + reservedRows))};
  Store().ForEachCell(
      CExtGridRangeSet(rect),
      [](grid::CExtGridCell*, int column, int row, int, void* context) {
        auto& w = *static_cast<Walk*>(context);
        w.found.push_back({column - w.dc, row - w.dr});
        return true;
      },
      &walk);
  std::sort(walk.found.begin(), walk.found.end(), PositionLess);
  return walk.found;
}

bool CExtFormulaDataManager::GetCellValue(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                                          const CExtFormulaItem*) {
  value.Clear();
  if (column < 0 || row < 0) return false;
  const int64_t key = PositionKey(column, row);
  // Registered formula cells are found without asking the store: among the precedents of the
  // cell being computed, or in the registry.
  CExtFormulaGridCell* registered = HintedFormula(CellPos{column, row});
  if (registered == nullptr) {
    const Registered* entry = FindFormula(column, row);
    if (entry != nullptr) registered = entry->cell;
  }
  grid::CExtGridCell* found = registered != nullptr ? registered : GetGridCell(column, row);
  CExtFormulaGridCell* cell = registered != nullptr ? registered : AsFormulaCell(found);
  if (found == nullptr || (cell != nullptr ? cell->IsHiddenByJoin() : IsHiddenByJoin(*found))) {
    value.SetScalar(Variant::R8(0.0));
    return true;
  }
  // A stored value is current unless the running pass still has to compute the cell. Outside
  // a pass a formula is computed where it is read, unless it was computed cleanly before: its
  // result would be the same, and a long chain must not turn into deep recursion.
  const bool formula = cell != nullptr && cell->IsFormula();
  const bool stale =
      formula && (m_nPassDepth > 0 ? cell->m_bPending : (!cell->m_bComputed || cell->m_nErrorCode != 0));
  if (!formula || !stale || context.count(key) != 0) {
    value.m_nKind = CExtFormulaValue::kScalar;
    if (cell != nullptr)
      value.m_value = cell->ValueGet();
    else
      found->VariantGet(value.m_value);
    value.m_bEmpty = found->IsEmpty();
    return true;
  }
  if (m_nDepth >= kMaxReadDepth) return false;
  ++m_nDepth;
  const CExtFormulaItem* errorItem = nullptr;
  const bool ok = ComputeFormulaCell(context, key, *cell, value, errorItem);
  --m_nDepth;
  if (!ok) return false;
  cell->ResultSet(value.m_value, value.m_bEmpty);
  return true;
}

std::unique_ptr<CExtFormulaItem> CExtFormulaDataManager::Parse(const std::string& text) {
  m_scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  if (!m_scanner.Parse()) return nullptr;
  return std::unique_ptr<CExtFormulaItem>(m_scanner.DetachRoot());
}

bool CExtFormulaDataManager::Compile(CExtFormulaGridCell& cell) {
  std::unique_ptr<CExtFormulaItem> tree = Parse(cell.m_strFormula);
  if (!tree) return false;
  cell.m_tree = std::move(tree);
  cell.m_nShiftColumns = cell.m_nShiftRows = 0;
  cell.m_bDepsKnown = false;
  return true;
}

bool CExtFormulaDataManager::CompileAt(CExtFormulaGridCell& cell, int64_t key) {
  FormulaShapeTable::Shared shared;
  if (!m_shapes.ShareBySpelling(cell.m_strFormula, KeyPosition(key), m_alphabet, shared)) {
    std::unique_ptr<CExtFormulaItem> tree = Parse(cell.m_strFormula);
    if (!tree) return false;
    shared = m_shapes.Share(std::move(tree), cell.m_strFormula, KeyPosition(key), m_alphabet);
  }
  cell.m_tree = std::move(shared.tree);
  cell.m_nShiftColumns = shared.dx;
  cell.m_nShiftRows = shared.dy;
  cell.m_bDepsKnown = false;
  return true;
}

bool CExtFormulaDataManager::ComputeCell(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                                         const CExtFormulaItem*& errorItem) {
  CExtFormulaGridCell* cell = GetCell(column, row);
  if (cell == nullptr) {
    value.Clear();
    context.insert(PositionKey(column, row));
    return false;
  }
  return ComputeFormulaCell(context, PositionKey(column, row), *cell, value, errorItem);
}

bool CExtFormulaDataManager::ComputeFormulaCell(FormulaContext& context, int64_t key, CExtFormulaGridCell& cellRef,
                                                CExtFormulaValue& value, const CExtFormulaItem*& errorItem) {
  value.Clear();
  context.insert(key);
  CExtFormulaGridCell* cell = &cellRef;
  if (!cell->m_tree && !CompileAt(*cell, key)) {
    // A formula that does not parse shows as what was typed.
    if (cell->IsFormula()) cell->SetError(0);
    value.SetScalar(cell->IsFormula() ? Variant::Str(cell->m_strFormula) : cell->ValueGet());
    return true;
  }
  cell->m_pErrorItem = nullptr;
  cell->m_bComputed = true;
  // The tree may be another cell's of the same shape: its cell names are read moved by this
  // cell's offset, for this cell only.
  const int savedColumns = context.m_nShiftColumns, savedRows = context.m_nShiftRows;
  context.m_nShiftColumns = cell->m_nShiftColumns;
  context.m_nShiftRows = cell->m_nShiftRows;
  const int code = cell->m_tree->Compute(context, value, *this, cell->m_pErrorItem);
  context.m_nShiftColumns = savedColumns;
  context.m_nShiftRows = savedRows;
  errorItem = cell->m_pErrorItem;
  if (code != 0) {
    cell->SetError(code);
    return false;
  }
  if (value.m_nKind == CExtFormulaValue::kRange) {
    if (!value.m_range.IsSingleCell()) {
      cell->m_pErrorItem = cell->m_tree.get();
      cell->SetError(kErrRangeResult);
      return false;
    }
    const CellRect single = value.m_range.GetAt(0);
    CExtFormulaValue fetched;
    if (!GetCellValue(context, single.left, single.top, fetched, cell->m_tree.get())) {
      cell->SetError(kErrDependency);
      return false;
    }
    value = fetched;
  }
  return true;
}

void CExtFormulaDataManager::SetCircularError(CExtFormulaGridCell& cell, CellPos first, CellPos second) {
  cell.SetCircularError(m_alphabet.FormatCell(first.column, first.row),
                        m_alphabet.FormatCell(second.column, second.row));
}

void CExtFormulaDataManager::StorePlainText(grid::CExtGridCell& cell, const std::string& given) {
  const std::string text = TrimLeft(given);
  if (text.empty()) {
    // An empty text empties the value; the type stays.
    cell.SetEmpty(true);
    return;
  }
  // An ordinary value: a number when the whole text reads as one, else the text.
  Variant number;
  Variant value = ReadDigits(given, number) ||
                          platform::ChangeType(number, Variant::Str(given), platform::VT_R8) == platform::S_OK
                      ? number
                      : Variant::Str(given);
  if (auto* variant = dynamic_cast<grid::CExtGridCellVariant*>(&cell))
    variant->VariantSet(value);
  else
    cell.TextSet(given.c_str(), true);
}

bool CExtFormulaDataManager::PutCellText(int column, int row, const std::string& given) {
  const int64_t key = PositionKey(column, row);
  if (!StartsFormula(given)) {
    grid::CExtGridCell* found = MakeGridCell(column, row);
    if (found == nullptr) return false;
    if (CExtFormulaGridCell* cell = AsFormulaCell(found)) {
      UnregisterFormula(key);
      cell->m_strFormula.clear();
      cell->ResetCompiled();
    }
    StorePlainText(*found, given);
    return false;
  }
  CExtFormulaGridCell* cell = GetCell(column, row, true);
  if (cell == nullptr) return false;
  cell->m_strFormula = given;
  cell->ResetCompiled();
  // A formula typed without its closing parenthesis is taken with one added.
  if (!CompileAt(*cell, key)) {
    cell->m_strFormula = given + ")";
    if (!CompileAt(*cell, key)) cell->m_strFormula = given;
  }
  RegisterFormula(key, *cell);
  return true;
}

std::vector<CellPos> CExtFormulaDataManager::SetCellText(int column, int row, const std::string& given) {
  if (!PutCellText(column, row, given)) {
    FormulaContext context;
    return Recompute(context, column, row, false);
  }
  return ComputeCellAndDependents(column, row);
}

std::vector<CellPos> CExtFormulaDataManager::ComputeCellAndDependents(int column, int row) {
  FormulaContext context;
  CExtFormulaGridCell* cell = GetCell(column, row);
  if (cell != nullptr && cell->IsFormula()) {
    context.insert(PositionKey(column, row));
    CExtFormulaValue value;
    const CExtFormulaItem* errorItem = nullptr;
    cell->m_nErrorCode = -1;  // so that a clean result clears an earlier message
    cell->SetError(0);
    if (ComputeCell(context, column, row, value, errorItem)) cell->ResultSet(value.m_value, value.m_bEmpty);
  }
  return Recompute(context, column, row, false);
}

bool CExtFormulaDataManager::StoreJoin(int column, int row, int columns, int rows) {
  auto* joins = dynamic_cast<grid::CExtGDPJ<grid::CExtGridDataProviderSparse>*>(&Store());
  if (joins == nullptr) return false;
  int reservedColumns = 0, reservedRows = 0;
  ReservedCounts(reservedColumns, reservedRows);
  return joins->JoinSet(column + reservedColumns, row + reservedRows, columns, rows);
}

bool CExtFormulaDataManager::SetJoin(int column, int row, int columns, int rows) {
  if (column < 0 || row < 0) return false;
  return StoreJoin(column, row, columns, rows);
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

bool CExtFormulaDataManager::CellNamesAreCells() const {
  if (!m_named.empty()) return false;
  const CExtFormulaFunctionSet& functions = const_cast<CExtFormulaDataManager*>(this)->GetFunctionSet();
  if (functions.GetChangeCount() != m_nFunctionsSeen) {
    m_nFunctionsSeen = functions.GetChangeCount();
    m_bCellLikeFunction = false;
    CExtFormulaFunctionSet::Position at = functions.GetFirstPosition();
    while (const CExtFormulaFunction* function = functions.GetNext(at, -1)) {
      std::string name = function->GetName();
      for (char& c : name) m_alphabet.MakeUpperChar(c);
      const char* p = name.c_str();
      if (function->AllowsBareName() && m_alphabet.ParseCell(p).column >= 0) m_bCellLikeFunction = true;
    }
  }
  return !m_bCellLikeFunction;
}

void CExtFormulaDataManager::WalkCycles(int64_t key, std::map<int64_t, int64_t>& cycles, std::vector<int64_t>& stack,
                                        long& budget) {
  if (--budget < 0) return;
  stack.push_back(key);
  std::vector<FormulaAt> direct;
  const CellPos at = KeyPosition(key);
  DirectDependents(at.column, at.row, direct);
  for (const FormulaAt& found : direct) {
    const int64_t reader = PositionKey(found.pos.column, found.pos.row);
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

void CExtFormulaDataManager::ComputeOrdered(ComputePass& pass, const FormulaAt& at) {
  CExtFormulaGridCell* cell = at.cell != nullptr ? at.cell : GetCell(at.pos.column, at.pos.row);
  if (cell == nullptr) return;
  cell->SetError(0);
  if (at.pos == pass.skip) {
    pass.skipped = cell;
    return;
  }
  CExtFormulaValue value;
  const CExtFormulaItem* errorItem = nullptr;
  // The precedents just listed for ordering name the cells this formula reads.
  const bool hinted = at.cell != nullptr && at.cell->m_nPrecedentStamp == m_nRegistryStamp && at.cell->m_bDepsKnown &&
                      at.cell->m_nPrecedentCount <= kMaxHinted;
  m_nHintAt = hinted ? at.cell->m_nPrecedentAt : 0;
  m_nHintCount = hinted ? at.cell->m_nPrecedentCount : 0;
  if (ComputeFormulaCell(pass.context, PositionKey(at.pos.column, at.pos.row), *cell, value, errorItem))
    cell->ResultSet(value.m_value, value.m_bEmpty);
  m_nHintCount = 0;
  cell->m_bPending = false;
  pass.computed.push_back(at.pos);
}

void CExtFormulaDataManager::RunComputePass(const std::vector<FormulaAt>& cells, uint32_t walk, ComputePass& pass,
                                            std::vector<CellPos>& cyclic) {
  // Each cell is computed as soon as it is ordered, while its precedents' entries are fresh in
  // the caches; the cells still to come are pending, stale to whoever reads them meanwhile.
  pass.context.reserve(pass.context.size() + cells.size());
  pass.computed.reserve(cells.size());
  ++m_nPassDepth;
  OrderCells(cells, walk, nullptr, &cyclic, &pass);
  --m_nPassDepth;
  if (pass.skipped != nullptr) pass.skipped->m_bPending = false;
}

std::vector<CellPos> CExtFormulaDataManager::Recompute(FormulaContext& context, int column, int row, bool includeSelf) {
  // The buffer is taken out while in use, so that a recalculation started inside this one
  // gets a fresh one.
  std::vector<FormulaAt> deps;
  deps.swap(m_passBuffer);
  deps.clear();
  std::vector<CellPos> cyclic;
  const uint32_t walk = NextWalk();
  CollectDependentCells(PositionKey(column, row), true, walk, deps, true);
  ComputePass pass{context, includeSelf ? CellPos{} : CellPos{column, row}, {}, nullptr};
  RunComputePass(deps, walk, pass, cyclic);
  deps.swap(m_passBuffer);
  MarkCycles(cyclic);
  return std::move(pass.computed);
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
  std::vector<FormulaAt> all;
  std::vector<CellPos> cyclic;
  all.reserve(m_formulas.size());
  m_formulas.ForEach([&](int64_t key, const Registered& r) { all.push_back({KeyPosition(key), r.cell}); });
  // Position order: row, then column.
  RadixSort(all, [](const FormulaAt& at) {
    return (static_cast<uint64_t>(static_cast<uint32_t>(at.pos.row)) << 32) | static_cast<uint32_t>(at.pos.column);
  });
  FormulaContext context;
  ComputePass pass{context, CellPos{}, {}, nullptr};
  RunComputePass(all, 0, pass, cyclic);
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
  std::vector<std::pair<int64_t, CExtFormulaGridCell*>> cells;
  m_formulas.ForEach([&](int64_t key, const Registered& r) { cells.push_back({key, r.cell}); });
  for (auto& [key, cell] : cells) {
    UnregisterFormula(key);
    cell->m_bDepsKnown = false;
    RegisterFormula(key, *cell);
  }
}

std::vector<std::string> CExtFormulaDataManager::GetRangeNames() const {
  std::vector<std::string> names;
  for (const auto& [name, set] : m_named) names.push_back(name);
  return names;
}

}  // namespace qmk::toolkit::formula
