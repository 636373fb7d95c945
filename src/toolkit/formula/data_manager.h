// data_manager.h: CExtFormulaDataManager, the spreadsheet engine: formula cells, named ranges,
// dependencies, the order of computing and cycles; and CExtFormulaGridCell, a cell it keeps.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/variant/variant.h"
#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/function.h"
#include "toolkit/formula/item.h"
#include "toolkit/formula/key_map.h"
#include "toolkit/formula/manager.h"
#include "toolkit/formula/scanner.h"
#include "toolkit/formula/value.h"

namespace qmk::toolkit::formula {

// One cell of the sheet: a value, and for a formula cell its text, parse tree and error.
class CExtFormulaGridCell {
 public:
  bool IsFormula() const { return !m_strFormula.empty(); }
  // Hidden inside a join: another cell covers it.
  bool IsHiddenByJoin() const { return m_nJoinColumns <= 0 || m_nJoinRows <= 0; }
  const CExtFormulaItem* GetTree() const { return m_tree.get(); }
  const CExtFormulaItem* GetErrorItem() const { return m_pErrorItem; }
  int GetErrorCode() const { return m_nErrorCode; }
  void ResetCompiled() {
    m_pErrorItem = nullptr;
    m_nErrorCode = 0;
    m_tree.reset();
    m_bDepsKnown = false;
    m_bComputed = false;
  }
  // The value as the cell shows it.
  std::string DisplayText() const;

  std::string m_strFormula;
  std::unique_ptr<CExtFormulaItem> m_tree;
  const CExtFormulaItem* m_pErrorItem = nullptr;
  int m_nErrorCode = 0;
  platform::Variant m_value = platform::Variant::Str("");
  bool m_bEmpty = true;
  int m_nJoinColumns = 1, m_nJoinRows = 1;
  // The cells the tree reads, kept while the tree lives.
  CExtGridRangeSet m_deps;
  bool m_bDepsKnown = false;
  bool m_bComputed = false;  // the stored value is the result of the present formula
};

class CExtFormulaDataManager : public FormulaManager {
 public:
  CExtFormulaDataManager(int columns = 16384, int rows = 1048576) : m_nColumns(columns), m_nRows(rows) {}
  ~CExtFormulaDataManager() override = default;

  // FormulaManager.
  int GetColumnCount() const override { return m_nColumns; }
  int GetRowCount() const override { return m_nRows; }
  const CExtGridRangeSet* FindNamedRange(const std::string& name) const override;
  bool IsBareNameFunction(const std::string& name) const override;

  const CExtFormulaAlphabet& GetAlphabet() const { return m_alphabet; }
  CExtFormulaScanner& GetScanner() { return m_scanner; }
  CExtFormulaFunctionSet& GetFunctionSet();

  // The cell at a position; created on request. Null without one.
  CExtFormulaGridCell* GetCell(int column, int row, bool create = false);
  const CExtFormulaGridCell* FindCell(int column, int row) const;
  size_t GetCellCount() const { return m_cells.size(); }

  // The value a formula reads at a position. False when it cannot be had.
  bool GetCellValue(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                    const CExtFormulaItem* item);
  bool ComputeCell(FormulaContext& context, int column, int row, CExtFormulaValue& value,
                   const CExtFormulaItem*& errorItem);
  bool Compile(CExtFormulaGridCell& cell);
  void SetError(CExtFormulaGridCell& cell, int code);
  void SetErrorInCell(CExtFormulaGridCell& cell, int column, int row);
  void SetCircularError(CExtFormulaGridCell& cell, CellPos first, CellPos second);

  // The text-setting path of a cell: a formula is parsed (retried with ")" appended), stored,
  // computed and its dependents recomputed; other text is a plain value. Returns the positions
  // recomputed after the cell itself, in order.
  std::vector<CellPos> SetCellText(int column, int row, const std::string& text);
  // Stores a text as SetCellText does, without computing anything: for loading many cells
  // before one RecomputeAll. True when the text is a formula.
  bool PutCellText(int column, int row, const std::string& text);
  // Covers `columns` by `rows` cells from (column, row) with one cell; the others are hidden.
  void SetJoin(int column, int row, int columns, int rows);

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

  // Moves the formula's references inside `filter` (all with null) by (dx, dy).
  bool ShiftFormula(CExtFormulaGridCell& cell, int dx, int dy, const CExtGridRangeSet* filter);
  // Column and row insert and remove with reference shifting, then everything recomputed.
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

 private:
  void RegisterFormula(int64_t key, CExtFormulaGridCell& cell);
  void UnregisterFormula(int64_t key);
  const CExtGridRangeSet& Dependencies(CExtFormulaGridCell& cell);
  void DirectDependents(int column, int row, std::vector<int64_t>& out);
  void RebuildIndex();
  void OrderForCompute(const std::vector<CellPos>& cells, std::vector<CellPos>& order, std::vector<CellPos>* cyclic);
  void MarkCycles(const std::vector<CellPos>& cyclic);
  void RefreshAllDependencies();
  void WalkCycles(int64_t key, std::map<int64_t, int64_t>& cycles, std::vector<int64_t>& stack, long& budget);
  bool SeriesInsert(bool columns, int position, int count);
  bool SeriesRemove(bool columns, int position, int count);
  void MoveCells(bool columns, int position, int delta);
  void ShiftAllFormulas(bool columns, int from, int delta);
  bool CopyTile(const CellRect& from, int dx, int dy);

  int m_nColumns, m_nRows;
  CExtFormulaAlphabet m_alphabet;
  CExtFormulaScanner m_scanner;
  std::unique_ptr<CExtFormulaFunctionSet> m_functions;
  std::unordered_map<int64_t, CExtFormulaGridCell> m_cells;  // owns the cells
  FlatKeyMap<CExtFormulaGridCell*> m_index;                  // finds them
  std::map<std::string, CExtGridRangeSet> m_named;
  // Reverse index: for each block of cells, the formula cells whose references touch it.
  std::unordered_map<int64_t, std::vector<int64_t>> m_blockReaders;
  std::vector<int64_t> m_wideReaders;  // formulas whose references span too many blocks
  FlatKeyMap<uint8_t> m_formulaCells;  // registered: 1, or 2 when in m_wideReaders
  // Cells waiting to be computed in the running pass; null outside a pass.
  const FlatKeySet* m_pPending = nullptr;
  int m_nDepth = 0;
};

template <typename Visit>
bool CExtFormulaDataManager::ForEachExistingCell(const CExtGridRangeSet& set, Visit visit) const {
  for (const CellRect& rect : set.Rects()) {
    const long long area = (static_cast<long long>(rect.right) - rect.left + 1) *
                           (static_cast<long long>(rect.bottom) - rect.top + 1);
    if (area > static_cast<long long>(m_cells.size())) {
      // Fewer cells than positions: walk the cells and visit them in position order.
      std::vector<std::pair<CellPos, const CExtFormulaGridCell*>> found;
      for (const auto& [key, cell] : m_cells) {
        const CellPos pos = KeyPosition(key);
        if (rect.Contains(pos.column, pos.row)) found.push_back({pos, &cell});
      }
      std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        return a.first.row != b.first.row ? a.first.row < b.first.row : a.first.column < b.first.column;
      });
      for (const auto& [pos, cell] : found)
        if (!visit(pos.column, pos.row)) return false;
      continue;
    }
    for (int row = rect.top; row <= rect.bottom; ++row)
      for (int column = rect.left; column <= rect.right; ++column)
        if (m_index.Contains(PositionKey(column, row)) && !visit(column, row)) return false;
  }
  return true;
}

}  // namespace qmk::toolkit::formula
