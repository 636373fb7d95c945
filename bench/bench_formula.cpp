// bench_formula.cpp: parsing speed of realistic short formulas, and printing and shifting them.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "toolkit/formula/alphabet.h"
#include "toolkit/formula/scanner.h"

namespace {

using namespace qmk::toolkit::formula;

const std::vector<std::string> kFormulas = {
    "=A1+B1",
    "=SUM(A1:A10)",
    "=B2*C2",
    "=IF(A1>0,A1,-A1)",
    "=AVERAGE(B2:B20)/2",
    "=A1&\" \"&B1",
    "=ROUND(C3*1.175,2)",
    "=MAX(A1:C3)-MIN(A1:C3)",
    "=(A1+B1)*(C1-D1)^2",
    "=D4%",
};

void BM_ParseShortFormulas(benchmark::State& state) {
  CExtFormulaScanner scanner;
  size_t i = 0;
  for (auto _ : state) {
    const std::string& text = kFormulas[i++ % kFormulas.size()];
    scanner.SetText(text.c_str(), static_cast<int>(text.size()));
    const bool parsed = scanner.Parse();
    benchmark::DoNotOptimize(parsed);
    delete scanner.DetachRoot();
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_ParseShortFormulas);

void BM_ParseLongFormula(benchmark::State& state) {
  std::string text = "=";
  for (int i = 0; i < state.range(0); ++i) text += (i ? "+" : "") + std::string("SUM(A1:B2)*C") + std::to_string(i + 1);
  CExtFormulaScanner scanner;
  for (auto _ : state) {
    scanner.SetText(text.c_str(), static_cast<int>(text.size()));
    benchmark::DoNotOptimize(scanner.Parse());
    delete scanner.DetachRoot();
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * text.size()));
}
BENCHMARK(BM_ParseLongFormula)->Arg(10)->Arg(1000);

void BM_PrintAndShift(benchmark::State& state) {
  const CExtFormulaAlphabet alphabet;
  std::vector<std::unique_ptr<CExtFormulaItem>> trees;
  CExtFormulaScanner scanner;
  for (const std::string& text : kFormulas) {
    scanner.SetText(text.c_str(), static_cast<int>(text.size()));
    scanner.Parse();
    trees.emplace_back(scanner.DetachRoot());
  }
  size_t i = 0;
  for (auto _ : state) {
    const size_t k = i++ % trees.size();
    std::string text = kFormulas[k];
    trees[k]->ShiftReferences(nullptr, alphabet, text, 1, 1, nullptr);
    benchmark::DoNotOptimize(trees[k]->ToText());
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}
BENCHMARK(BM_PrintAndShift);

}  // namespace

BENCHMARK_MAIN();
