// formula_cell.h: CExtFormulaGridCell, a grid variant cell that holds a formula text, its parse
// tree, its error and its last computed result.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "toolkit/formula/item.h"
#include "toolkit/formula/range_set.h"
#include "toolkit/grid/cell_variant.h"

namespace qmk::toolkit::formula {

class CExtFormulaDataManager;
// The cell class macros name these unqualified.
using grid::CellClass;
using grid::CExtGridCell;

class CExtFormulaGridCell : public grid::CExtGridCellVariant {
  QMK_GRID_CELL_CLASS(CExtFormulaGridCell)
 public:
  // Style bits every formula cell carries from construction.
  static constexpr uint32_t kFormulaCellStyle = 0x8880;

  CExtFormulaGridCell();
  ~CExtFormulaGridCell() override = default;

  // The base's form, then the formula.
  bool Serialize(grid::Archive& ar) override;
  // The value and look of `other`; a formula cell's text comes too, its tree does not.
  void Assign(const grid::CExtGridCell& other) override;
  // Through the manager that owns the cell: a formula is parsed (retried with ")" added),
  // registered, computed, and what depends on it recomputed. Other text is a plain value.
  void TextSet(const char* text, bool asIs = false) override;
  // The editor shows the formula, not its result.
  void OnQueryTextForInplaceControl(std::string& text) const override;
  void Reset() override;

  // A 32-bit flag, 1 when there is a formula text, then the text. Loading clears the tree.
  virtual bool SerializeFormula(grid::Archive& ar);
  // Moves the formula's references inside `filter` (all with null) by (dx, dy) and rewrites
  // its text. False without a formula or when it does not parse.
  virtual bool ShiftFormula(CExtFormulaDataManager& manager, int dx, int dy, const CExtGridRangeSet* filter);
  // get: copies the text out, false when there is none; set: stores it and forgets the tree.
  virtual bool FormulaTextAccess(std::string& text, bool get);
  // The shown value becomes "Error: n - text" (nothing for 0); an unchanged code does nothing.
  virtual void SetError(int code);
  virtual void SetErrorInCell(const std::string& cellName);
  virtual void SetCircularError(const std::string& first, const std::string& second);
  virtual bool Compile(CExtFormulaDataManager& manager);
  // A 1 by 1 cell with no value and no formula.
  virtual bool IsEmptyOfFormula() const;
  virtual void ResetCompiled();
  // The cells the formula reads; empty without a tree.
  virtual void GetDependencies(CExtGridRangeSet& set, CExtFormulaDataManager& manager);

  bool IsFormula() const { return !m_strFormula.empty(); }
  const std::string& FormulaText() const { return m_strFormula; }
  // Hidden inside a join: another cell covers it.
  bool IsHiddenByJoin() const { return JoinGet().cx <= 0 || JoinGet().cy <= 0; }
  // The parse tree; cells whose formulas differ only in where their cell names point relative
  // to themselves share one, parsed for the first of them.
  const CExtFormulaItem* GetTree() const { return m_tree.get(); }
  const CExtFormulaItem* GetErrorItem() const { return m_pErrorItem; }
  int GetErrorCode() const { return m_nErrorCode; }
  const grid::Variant& ValueGet() const { return m_var; }
  // The result of a computation: the value and the "empty" bit it came with.
  void ResultSet(const grid::Variant& value, bool empty);
  // The value as the cell shows it.
  std::string DisplayText() const;

 private:
  friend class CExtFormulaDataManager;
  void ShowMessage(std::string message, int code);

  // What every walk and computation reads and writes comes first, together, so that a pass over
  // many cells touches few cache lines of each.
  // The manager's walks mark the cells they visit here instead of in a set of their own: the
  // mark counts only while m_nVisit equals the walk's number.
  uint32_t m_nVisit = 0;
  uint8_t m_nMark = 0;
  bool m_bPending = false;   // still to be computed in the running pass
  bool m_bComputed = false;  // the stored value is the result of the present formula
  bool m_bDepsKnown = false;
  int m_nErrorCode = 0;
  // This cell's offset from the cell the tree was parsed for.
  int m_nShiftColumns = 0, m_nShiftRows = 0;
  // Where the manager keeps this formula's registered precedents, valid while the registry is
  // as it was at m_nPrecedentStamp and the dependencies are known.
  uint32_t m_nPrecedentStamp = 0;
  uint32_t m_nPrecedentAt = 0, m_nPrecedentCount = 0;
  std::shared_ptr<CExtFormulaItem> m_tree;
  const CExtFormulaItem* m_pErrorItem = nullptr;
  std::string m_strFormula;
  // The cells the tree reads, kept while the tree lives.
  CExtGridRangeSet m_deps;
};

}  // namespace qmk::toolkit::formula
