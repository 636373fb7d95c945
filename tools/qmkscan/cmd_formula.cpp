// cmd_formula.cpp: qmkscan formula: parses a formula and prints its tree, its printed form, or
// the text with its cell references shifted.
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>

#include "commands.h"
#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/data_manager.h"
#include "toolkit/formula/errors.h"
#include "toolkit/formula/scanner.h"

namespace qmkscan {
namespace {

using qmk::toolkit::formula::CExtFormulaItem;

const char* KindName(int kind) {
  static const char* const kNames[] = {
      "none",    "identifier", "integer",       "real",     "string",        "multiply",
      "divide",  "percent",    "add",           "subtract", "less",          "greater",
      "greater or equal", "less or equal", "not equal", "concatenate", "power", "equal",
      "negate",  "function call", "range",      "range intersection"};
  return kind >= 0 && kind < static_cast<int>(std::size(kNames)) ? kNames[kind] : "?";
}

void PrintTree(const CExtFormulaItem& node, int depth) {
  std::printf("%*s%s", depth * 2, "", KindName(node.m_nKind));
  if (!node.m_strText.empty() && node.m_nKind != 21) std::printf(" \"%s\"", node.m_strText.c_str());
  std::printf(" [%d,%d)\n", node.m_location.start, node.m_location.end);
  for (int i = 0; i < node.GetChildCount(); ++i) PrintTree(*node.GetChildAt(i), depth + 1);
}

bool ReadShift(const std::string& text, int& dx, int& dy) {
  char* end = nullptr;
  const long x = std::strtol(text.c_str(), &end, 10);
  if (end == text.c_str() || *end != ',') return false;
  const char* second = end + 1;
  const long y = std::strtol(second, &end, 10);
  if (end == second || *end != '\0' || x < -1000000000 || x > 1000000000 || y < -1000000000 || y > 1000000000)
    return false;
  dx = static_cast<int>(x);
  dy = static_cast<int>(y);
  return true;
}

// The value of a formula with no cells, as one line.
int ComputeAndPrint(const CExtFormulaItem& root) {
  qmk::toolkit::formula::CExtFormulaDataManager sheet;
  qmk::toolkit::formula::FormulaContext context;
  qmk::toolkit::formula::CExtFormulaValue value;
  const CExtFormulaItem* errorItem = nullptr;
  int code = root.Compute(context, value, sheet, errorItem);
  if (code == 0 && value.m_nKind == qmk::toolkit::formula::CExtFormulaValue::kRange)
    code = value.m_range.IsSingleCell() ? 0 : qmk::toolkit::formula::kErrRangeResult;
  if (code != 0) {
    std::printf("ERR %d: %s\n", code, qmk::toolkit::formula::GetErrorText(code).c_str());
    return 0;
  }
  // A single cell of an empty sheet reads as 0.
  if (value.m_nKind == qmk::toolkit::formula::CExtFormulaValue::kRange) value.SetScalar(qmk::platform::Variant::R8(0.0));
  std::printf("%s\n", qmk::toolkit::formula::ScalarText(value.m_value).c_str());
  return 0;
}

}  // namespace

int RunFormula(Args& args) {
  const std::optional<std::string> shift = args.Option("shift");
  const bool compute = args.Flag("compute");
  if (!args.NoUnknownOptions("formula")) return 2;
  if (args.rest().size() != 1) {
    std::fprintf(stderr, "usage: qmkscan formula TEXT [--shift DX,DY | --compute]\n");
    return 2;
  }
  int dx = 0, dy = 0;
  if (shift && !ReadShift(*shift, dx, dy)) {
    std::fprintf(stderr, "qmkscan formula: --shift wants DX,DY (two integers), not \"%s\"\n", shift->c_str());
    return 2;
  }
  std::string text = args.rest()[0];
  qmk::toolkit::formula::CExtFormulaScanner scanner;
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  if (!scanner.Parse()) {
    std::printf("\"%s\" is no formula (%s).\n", text.c_str(), scanner.GetErrorMessage().c_str());
    return 1;
  }
  std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
  if (shift) {
    const qmk::toolkit::formula::CExtFormulaAlphabet alphabet;
    root->ShiftReferences(nullptr, alphabet, text, dx, dy, nullptr);
    std::printf("%s\n", text.c_str());
    return 0;
  }
  if (compute) return ComputeAndPrint(*root);
  PrintTree(*root, 0);
  std::printf("%s\n", root->ToText().c_str());
  return 0;
}

}  // namespace qmkscan
