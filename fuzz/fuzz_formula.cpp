// fuzz_formula.cpp: arbitrary bytes as formula text: parse, then print, shift and walk the tree.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/manager.h"
#include "toolkit/formula/scanner.h"

namespace {

using namespace qmk::toolkit::formula;

class SmallGrid : public FormulaManager {
 public:
  SmallGrid() : named_(CellRect{1, 1, 3, 3}) {}
  int GetColumnCount() const override { return 50; }
  int GetRowCount() const override { return 200; }
  const CExtGridRangeSet* FindNamedRange(const std::string& name) const override {
    return name == "Named" ? &named_ : nullptr;
  }
  bool IsBareNameFunction(const std::string& name) const override { return name == "TRUE"; }

 private:
  CExtGridRangeSet named_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0 || size > 1 << 16) return 0;
  std::string text(reinterpret_cast<const char*>(data), size);
  CExtFormulaScanner scanner;
  scanner.SetText(text.c_str(), static_cast<int>(text.size()));
  if (!scanner.Parse()) return 0;
  std::unique_ptr<CExtFormulaItem> root(scanner.DetachRoot());
  const CExtFormulaAlphabet alphabet;
  const SmallGrid grid;
  (void)root->ToText();
  int argument = 0;
  (void)root->FindCallAtOffset(static_cast<int>(size / 2), argument);
  CExtGridRangeSet rects, dependencies;
  root->CollectRects(&grid, alphabet, rects);
  root->CollectDependencies(&grid, alphabet, dependencies);
  std::string shifted = text;
  root->ShiftReferences(&grid, alphabet, shifted, static_cast<int>(data[0]) - 128, -3, nullptr);
  return 0;
}
