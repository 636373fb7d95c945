// engine_helpers.h: a sheet to compute formulas against, and the result as one comparable text.
#pragma once

#include <memory>
#include <string>

#include "toolkit/formula/data_manager.h"
#include "toolkit/formula/errors.h"

namespace qmk::toolkit::formula::testing {

// "ERR n" for an error, else the value as the command-line host prints it.
inline std::string Evaluate(CExtFormulaDataManager& sheet, const std::string& text) {
  CExtFormulaScanner scanner;
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  if (!scanner.Parse()) return "NOPARSE";
  std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
  FormulaContext context;
  CExtFormulaValue value;
  const CExtFormulaItem* errorItem = nullptr;
  const int code = root->Compute(context, value, sheet, errorItem);
  if (code != 0) return "ERR " + std::to_string(code);
  if (value.m_nKind == CExtFormulaValue::kRange) return "RANGE";
  return ScalarText(value.m_value);
}

inline std::string Evaluate(const std::string& text) {
  CExtFormulaDataManager sheet;
  return Evaluate(sheet, text);
}

// What a cell shows: its value as printed, or its error message.
inline std::string Shown(const CExtFormulaDataManager& sheet, int column, int row) {
  const CExtFormulaGridCell* cell = sheet.FindCell(column, row);
  if (cell == nullptr) return "<none>";
  if (cell->GetErrorCode() != 0) return cell->DisplayText();
  return ScalarText(cell->ValueGet());
}

struct EvalCase {
  const char* formula;
  const char* expected;
};

}  // namespace qmk::toolkit::formula::testing
