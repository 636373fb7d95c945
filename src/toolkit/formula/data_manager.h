// data_manager.h: CExtFormulaDataManager, the spreadsheet engine: formula cells, named ranges,
// dependencies, the order of computing and cycles, over a grid cell store.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/variant/variant.h"
#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/formula_cell.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"
#include "toolkit/formula/key_map.h"
#include "toolkit/formula/manager.h"
#include "toolkit/formula/reader_index.h"
#include "toolkit/formula/scanner.h"
#include "toolkit/formula/shape_table.h"
#include "toolkit/formula/value.h"
#include "toolkit/grid/provider.h"

namespace qmk::toolkit::formula {

// The engine keeps its cells in a grid store: the one GetDataProvider gives. Used on its own it
// makes a sparse store with joins of the size it was given, which is changed through the
// manager only; the joint CExtFDP is itself the store and keeps the registry of formula cells
// in step with the store's own changes. Positions here are data positions: the store's
// reserved columns and rows lie before them.
class CExtFormulaDataManager : public FormulaManager {
 public:
  CExtFormulaDataManager(int columns = 16384, int rows = 1048576);
  CExtFormulaDataManager(const CExtFormulaDataManager&) = delete;
  CExtFormulaDataManager& operator=(const CExtFormulaDataManager&) = delete;
  ~CExtFormulaDataManager() override;

  // The cell store; the manager's own sparse store unless a joint overrides it.
  virtual grid::CExtGridDataProvider& GetDataProvider();

  // FormulaManager: the store's data columns and rows.
  int GetColumnCount() const override;
  int GetRowCount() const override;
  const CExtGridRangeSet* FindNamedRange(const std::string& name) const override;
  bool IsBareNameFunction(const std::string& name) const override;

  const CExtFormulaAlphabet& GetAlphabet() const { return m_alphabet; }
  CExtFormulaScanner& GetScanner() { return m_scanner; }
  CExtFormulaFunctionSet& GetFunctionSet();

  // Whatever cell the store holds at a data position, or null.
  grid::CExtGridCell* GetGridCell(int column, int row) const;
  // The formula cell at a position; with `create` one is made, and a cell of another class
  // there is replaced by a formula cell with its value. Null without one.
  CExtFormulaGridCell* GetCell(int column, int row, bool create = false);
  const CExtFormulaGridCell* FindCell(int column, int row) const;
  // The data position of a cell the store holds; false for any other.
  virtual bool GetCellPosition(const grid::CExtGridCell* cell, int& column, int& row);
  size_t GetFormulaCellCount() const { return m_formulas.size(); }

  // The value a formula reads at a position. False when it cannot be had.
  bool GetCellValue(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                    const CExtFormulaItem* item);
  bool ComputeCell(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                   const CExtFormulaItem*& errorItem);
  // Parses the cell's formula into a tree of its own.
  bool Compile(CExtFormulaGridCell& cell);
  // A tree of `text`, or null when it does not parse.
  std::unique_ptr<CExtFormulaItem> Parse(const std::string& text);
  // No named range exists and no function callable without parentheses is spelt like a cell.
  bool CellNamesAreCells() const override;
  // Shapes in use, each with one tree however many cells share it.
  size_t GetShapeCount() const { return m_shapes.size(); }

  // The text-setting path of a cell: a formula is parsed (retried with ")" appended), stored,
  // computed and its dependents recomputed; other text is a plain value. Returns the positions
  // recomputed after the cell itself, in order.
  std::vector<CellPos> SetCellText(int column, int row, const std::string& text);
  // Computes a formula cell in a fresh context, then its dependents; the positions computed
  // after the cell itself.
  std::vector<CellPos> ComputeCellAndDependents(int column, int row);
  // Stores a text as SetCellText does, without computing anything: for loading many cells
  // before one RecomputeAll. True when the text is a formula.
  bool PutCellText(int column, int row, const std::string& text);
  // Covers `columns` by `rows` cells from (column, row) with one cell; the others are hidden.
  bool SetJoin(int column, int row, int columns, int rows);

  // The registry of formula cells. The manager does not own them: the store does.
  void RegisterCell(int column, int row, CExtFormulaGridCell* cell);
  void UnregisterCell(int column, int row);
  // Every formula cell inside `set`; nothing for an empty set.
  void UnregisterRange(const CExtGridRangeSet& set);
  void UnregisterCells(const std::vector<CellPos>& cells);
  // Registers `cell` when it is not null, else unregisters the position.
  void SetCell(int column, int row, CExtFormulaGridCell* cell);
  // Forgets the registry and registers again every formula cell the store holds: after the
  // store moved, sorted, loaded or dropped cells.
  void RegisterAllCells();

  // Formula cells that read (column, row); transitively with `recursive`. In position order.
  void CollectDependents(int column, int row, bool includeSelf, std::vector<CellPos>& result, bool recursive,
                         bool append);
  void CollectPrecedents(int column, int row, std::vector<CellPos>& result);
  // Every cell of `cells` after its precedents among them (depth-first post-order).
  void OrderForCompute(const std::vector<CellPos>& cells, std::vector<CellPos>& order);
  void FindCycles(int column, int row, std::map<int64_t, int64_t>& cycles);
  // Recomputes the dependents of (column, row), and the cell itself with `includeSelf`; then
  // marks cycles. Returns the order computed.
  std::vector<CellPos> Recompute(FormulaContext& context, int column, int row, bool includeSelf);
  // Computes every formula cell, precedents first.
  void RecomputeAll();

  static bool IsValidRangeName(const char* name) { return name != nullptr && *name != '\0'; }
  bool SetNamedRange(const std::string& name, const CExtGridRangeSet* set);
  bool RemoveNamedRange(const std::string& name);
  size_t RemoveAllNamedRanges();
  size_t GetRangeNameCount() const { return m_named.size(); }
  // The names in order; an empty list without any.
  std::vector<std::string> GetRangeNames() const;

  // Moves the formula's references inside `filter` (all with null) by (dx, dy).
  bool ShiftFormula(CExtFormulaGridCell& cell, int dx, int dy, const CExtGridRangeSet* filter);
  // The same for the formula cell at a position, which stays registered with its new reads.
  bool ShiftCellFormula(int column, int row, int dx, int dy, const CExtGridRangeSet* filter);
  // Moves the references inside `filter` of every formula at or behind `from` in the direction
  // by `delta`: what an insert (positive) or removal (negative) of series asks of formulas.
  void ShiftAllFormulas(bool columns, int from, int delta);
  // Column and row insert and remove in the store with reference shifting, then everything
  // recomputed.
  bool ColumnInsert(int position, int count) { return SeriesInsert(true, position, count); }
  bool RowInsert(int position, int count) { return SeriesInsert(false, position, count); }
  bool ColumnRemove(int position, int count) { return SeriesRemove(true, position, count); }
  bool RowRemove(int position, int count) { return SeriesRemove(false, position, count); }
  // The fill commands: 59419 up, 59420 left, 59421 right, 59422 down. Tiles `source` over
  // `target`, formulas moving their references with each tile.
  bool Fill(int command, const CellRect& source, const CellRect& target, bool recompute = true);

  // Visits the existing cells of `set`, row after row in each rectangle; a false from `visit`
  // stops the walk and is returned.
  template <typename Visit>
  bool ForEachExistingCell(const CExtGridRangeSet& set, Visit visit) const;

 protected:
  // The store's insert and removal of series, in data positions, with no formula work; the
  // joint calls its store's own.
  virtual bool StoreSeriesInsert(bool columns, int position, int count);
  virtual bool StoreSeriesRemove(bool columns, int position, int count);
  virtual bool StoreJoin(int column, int row, int columns, int rows);
  void ReservedCounts(int& columns, int& rows) const;
  grid::CExtGridDataProvider& Store() const;
  // A plain value: a number when the whole text reads as one, else the text; empty empties.
  static void StorePlainText(grid::CExtGridCell& cell, const std::string& text);
  void SetError(CExtFormulaGridCell& cell, int code) { cell.SetError(code); }
  void SetCircularError(CExtFormulaGridCell& cell, CellPos first, CellPos second);

 private:
  // Where the reverse index keeps a formula: by the cells it reads, by blocks, or among the
  // few that read very wide ranges.
  enum class ReaderKind : uint8_t { kCells, kBlocks, kWide };
  struct Registered {
    CExtFormulaGridCell* cell = nullptr;
    ReaderKind kind = ReaderKind::kCells;
  };
  // A position with its registered formula cell (null for a position not registered), so
  // that the walks of one recalculation look each cell up once.
  struct FormulaAt {
    CellPos pos;
    CExtFormulaGridCell* cell = nullptr;
  };
  // Registered formulas are counted per column for the first columns: a column without any is
  // not searched for them (input columns, read by every row's formulas).
  static constexpr int kCountedColumns = 1 << 16;
  void CountColumnFormula(int column, int delta);
  const Registered* FindFormula(int column, int row) const {
    if (column < kCountedColumns &&
        (static_cast<size_t>(column) >= m_columnFormulas.size() || m_columnFormulas[static_cast<size_t>(column)] == 0))
      return nullptr;
    return m_formulas.Find(PositionKey(column, row));
  }
  // A fresh number for a walk that marks the cells it visits (CExtFormulaGridCell::m_nVisit).
  uint32_t NextWalk();
  // A cell's mark while cells are ordered for computing.
  enum : uint8_t { kMarkWanted = 1, kMarkOnStack = 2, kMarkDone = 3 };
  // One pass computing cells as they are ordered; the changed cell is not computed again.
  struct ComputePass {
    FormulaContext& context;
    CellPos skip;
    std::vector<CellPos> computed;
    CExtFormulaGridCell* skipped = nullptr;
  };
  // The cell the store holds at a position, or a new formula cell there.
  grid::CExtGridCell* MakeGridCell(int column, int row);
  // Every stored cell's data position, in position order.
  std::vector<CellPos> StoredPositions(const CellRect& within) const;
  void RegisterFormula(int64_t key, CExtFormulaGridCell& cell);
  void UnregisterFormula(int64_t key);
  // Parses the formula of the cell at `key` and shares the tree of its shape.
  bool CompileAt(CExtFormulaGridCell& cell, int64_t key);
  const CExtGridRangeSet& Dependencies(int64_t key, CExtFormulaGridCell& cell);
  // The formula cells reading (column, row), in position order.
  void DirectDependents(int column, int row, std::vector<FormulaAt>& out);
  // Appends to `result` the formula cells depending on `start`, transitively, breadth first,
  // each marked wanted by `walk` (and pending, with `pending`); cells of `result` already
  // marked by the walk are not listed again.
  void CollectDependentCells(int64_t start, bool includeSelf, uint32_t walk, std::vector<FormulaAt>& result,
                             bool pending);
  // Every cell of `cells` after its precedents among them (depth-first post-order), appended to
  // `order` when given and computed in `pass` when given. `walk` is the walk that marked the
  // registered cells of `cells` wanted (and pending), or 0 for a new walk marking them here.
  void OrderCells(const std::vector<FormulaAt>& cells, uint32_t walk, std::vector<FormulaAt>* order,
                  std::vector<CellPos>* cyclic, ComputePass* pass);
  void ComputeOrdered(ComputePass& pass, const FormulaAt& at);
  // Orders `cells` and computes them in one pass; the cycles met go to `cyclic`.
  void RunComputePass(const std::vector<FormulaAt>& cells, uint32_t walk, ComputePass& pass,
                      std::vector<CellPos>& cyclic);
  // Appends the registered formula cells inside `deps`, in position order per rectangle.
  void AppendFormulaCellsIn(const CExtGridRangeSet& deps, std::vector<FormulaAt>& out) const;
  // The same for a registered formula's dependencies, kept from the last time while the
  // registry has not changed.
  void AppendPrecedents(const FormulaAt& at, std::vector<FormulaAt>& out);
  // The registry changed: every formula's kept precedents are forgotten.
  void RegistryChanged();
  // The registered formula cell at `pos` when it is one of the kept precedents of the cell
  // being computed; null otherwise (it may still be registered).
  static constexpr uint32_t kMaxHinted = 8;
  CExtFormulaGridCell* HintedFormula(CellPos pos) const {
    for (uint32_t i = 0; i < m_nHintCount; ++i)
      if (m_precedents[m_nHintAt + i].pos == pos) return m_precedents[m_nHintAt + i].cell;
    return nullptr;
  }
  bool ComputeFormulaCell(FormulaContext& context, int64_t key, CExtFormulaGridCell& cell, CExtFormulaValue& value,
                          const CExtFormulaItem*& errorItem);
  void MarkCycles(const std::vector<CellPos>& cyclic);
  void RefreshAllDependencies();
  void WalkCycles(int64_t key, std::map<int64_t, int64_t>& cycles, std::vector<int64_t>& stack, long& budget);
  bool SeriesInsert(bool columns, int position, int count);
  bool SeriesRemove(bool columns, int position, int count);
  bool CopyTile(const CellRect& from, int dx, int dy);

  int m_nColumns, m_nRows;
  std::unique_ptr<grid::CExtGridDataProvider> m_pOwnStore;  // made on first use
  mutable grid::CExtGridDataProvider* m_pStore = nullptr;           // GetDataProvider's answer, kept
  CExtFormulaAlphabet m_alphabet;
  CExtFormulaScanner m_scanner;
  std::unique_ptr<CExtFormulaFunctionSet> m_functions;
  FormulaShapeTable m_shapes;
  // Whether a bare-name function is spelt like a cell, as of the function set's change count.
  mutable bool m_bCellLikeFunction = false;
  mutable uint64_t m_nFunctionsSeen = ~uint64_t{0};
  std::map<std::string, CExtGridRangeSet> m_named;
  FlatKeyMap<Registered> m_formulas;  // position to registered formula cell
  std::vector<uint32_t> m_columnFormulas;  // registered formulas of each of the first columns
  std::vector<FormulaAt> m_passBuffer;     // kept between recalculations: no fresh pages each time
  // The precedents of formulas as last found, and the registry's stamp they hold for.
  std::vector<FormulaAt> m_precedents;
  uint32_t m_nRegistryStamp = 1;
  uint32_t m_nHintAt = 0, m_nHintCount = 0;  // the kept precedents of the cell being computed
  // Reverse index: for each cell, the small formulas reading it; for each block of cells, the
  // middling formulas whose references touch it.
  CellReaderIndex m_cellReaders;
  std::unordered_map<int64_t, std::vector<int64_t>> m_blockReaders;
  std::vector<int64_t> m_wideReaders;  // formulas whose references span too many blocks
  // Computing passes running; inside one a cell marked pending is stale.
  int m_nPassDepth = 0;
  int m_nDepth = 0;
  uint32_t m_nWalk = 0;  // the number of the last walk that marked cells
};

template <typename Visit>
bool CExtFormulaDataManager::ForEachExistingCell(const CExtGridRangeSet& set, Visit visit) const {
  // A rectangle with more positions than this is walked through the store's cells instead.
  constexpr long long kProbeLimit = 4096;
  for (const CellRect& rect : set.Rects()) {
    const long long area = (static_cast<long long>(rect.right) - rect.left + 1) *
                           (static_cast<long long>(rect.bottom) - rect.top + 1);
    if (area > kProbeLimit) {
      for (const CellPos& pos : StoredPositions(rect))
        if (!visit(pos.column, pos.row)) return false;
      continue;
    }
    for (int row = rect.top; row <= rect.bottom; ++row)
      for (int column = rect.left; column <= rect.right; ++column)
        if (GetGridCell(column, row) != nullptr && !visit(column, row)) return false;
  }
  return true;
}

}  // namespace qmk::toolkit::formula
