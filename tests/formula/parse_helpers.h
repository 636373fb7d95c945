// parse_helpers.h: parsing a formula in one call, for the formula tests.
#pragma once

#include <memory>
#include <string>

#include "toolkit/formula/scanner.h"

namespace qmk::toolkit::formula::testing {

inline std::unique_ptr<CExtFormulaItem> ParseTree(const std::string& text) {
  CExtFormulaScanner scanner;
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  if (!scanner.Parse()) return nullptr;
  return std::unique_ptr<CExtFormulaItem>(scanner.DetachRoot());
}

// The printed form of the tree, or "FAIL" when the text does not parse.
inline std::string Printed(const std::string& text) {
  const auto tree = ParseTree(text);
  return tree ? tree->ToText() : "FAIL";
}

}  // namespace qmk::toolkit::formula::testing
