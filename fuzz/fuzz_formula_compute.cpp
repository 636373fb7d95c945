// fuzz_formula_compute.cpp: arbitrary text entered into a cell of a small sheet: parsed,
// computed with what depends on it, then moved about by inserts and a fill.
#include <cstddef>
#include <cstdint>
#include <string>

#include "toolkit/formula/data_manager.h"

namespace {

using namespace qmk::toolkit::formula;

void BuildSheet(CExtFormulaDataManager& sheet) {
  static const char* const kCells[3][4] = {
      {"1", "=B2*2", "x", "=SUM(A1:B3)"},
      {"2.5", "", "=C2&A1", "=IF(A2>1,B2,A1)"},
      {"=A1+A2", "=D2", "TRUE", "=Named"},
  };
  for (int row = 0; row < 3; ++row)
    for (int column = 0; column < 4; ++column) sheet.PutCellText(column, row, kCells[row][column]);
  CExtGridRangeSet named(CellRect{0, 0, 1, 1});
  sheet.SetNamedRange("Named", &named);
  sheet.RecomputeAll();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  CExtFormulaDataManager sheet(50, 200);
  BuildSheet(sheet);
  // The text goes into B2, which others read, and into E5, which nothing reads.
  sheet.SetCellText(1, 1, text);
  sheet.SetCellText(4, 4, text);
  if (size % 3 == 0) sheet.ColumnInsert(1, 1);
  if (size % 5 == 0) sheet.RowRemove(0, 1);
  if (size % 7 == 0) sheet.Fill(59422, CellRect{1, 1, 1, 1}, CellRect{1, 2, 1, 4});
  return 0;
}
