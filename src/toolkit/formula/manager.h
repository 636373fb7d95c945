// manager.h: what the formula engine asks of the grid and the data manager that hold a formula.
#pragma once

#include <string>

#include "toolkit/formula/range_set.h"

namespace qmk::toolkit::formula {

// The formula data manager implements this for the parse tree and the alphabet: the size of the
// grid (for whole-column and whole-row ranges) and the named ranges. Trees and ranges can be
// handled without one; then names are never named ranges and "A:C" is no range.
class FormulaManager {
 public:
  virtual ~FormulaManager() = default;
  // The number of data columns and rows of the grid: the outer provider's counts less its
  // reserved columns and rows.
  virtual int GetColumnCount() const = 0;
  virtual int GetRowCount() const = 0;
  // The cells of the named range `name` (exactly as written), or null when there is none.
  virtual const CExtGridRangeSet* FindNamedRange(const std::string& name) const = 0;
  // True when `name` is a function that may be used without parentheses ("TRUE", "RAND").
  virtual bool IsBareNameFunction(const std::string& name) const = 0;
  // True when a text spelt exactly as the alphabet prints a cell can only name that cell: no
  // named range or bare-name function could answer to it. Then the text need not be spelt out.
  virtual bool CellNamesAreCells() const { return false; }
};

}  // namespace qmk::toolkit::formula
