// bench_formula_engine.cpp: a generated sheet of chains, branches, rounding and range sums:
// built and computed, then one input changed and recomputed.
#include <benchmark/benchmark.h>

#include <string>

#include "toolkit/formula/data_manager.h"

namespace {

using qmk::toolkit::formula::CExtFormulaDataManager;

// Row r (1-based) of the sheet: an input in A and five formulas reading the row and the
// previous row's chain. The same texts as bench/compare-formula.sh writes.
void PutRow(CExtFormulaDataManager& sheet, int r) {
  const std::string R = std::to_string(r), P = std::to_string(r - 1);
  const int row = r - 1;
  sheet.PutCellText(0, row, std::to_string(r % 97));
  if (r == 1) {
    sheet.PutCellText(1, row, "=A1");
    sheet.PutCellText(2, row, "=A1");
    sheet.PutCellText(3, row, "=ROUND(B1,2)");
    sheet.PutCellText(4, row, "=A1");
    sheet.PutCellText(5, row, "=C1");
    return;
  }
  sheet.PutCellText(1, row, "=B" + P + "+A" + R);
  sheet.PutCellText(2, row, "=IF(A" + R + ">50,A" + R + "*2,A" + R + "-1)");
  sheet.PutCellText(3, row, "=ROUND(B" + R + "*0.01+C" + R + ",2)");
  sheet.PutCellText(4, row, "=SUM(A" + P + ":A" + R + ")+D" + R);
  sheet.PutCellText(5, row, "=F" + P + "*0.5+E" + R);
}

void Build(CExtFormulaDataManager& sheet, int rows) {
  for (int r = 1; r <= rows; ++r) PutRow(sheet, r);
  sheet.RecomputeAll();
}

void BM_BuildAndCompute(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0));
  for (auto _ : state) {
    CExtFormulaDataManager sheet;
    Build(sheet, rows);
    benchmark::DoNotOptimize(sheet.FindCell(5, rows - 1));
  }
  state.counters["cells"] = rows * 6.0;
}

// One input changed at `at` (a fraction of the sheet); its dependents are the rows below.
void ChangeAndRecompute(benchmark::State& state, double at) {
  const int rows = static_cast<int>(state.range(0));
  CExtFormulaDataManager sheet;
  Build(sheet, rows);
  const int row = static_cast<int>(rows * at);
  int flip = 0;
  size_t recomputed = 0;
  for (auto _ : state) recomputed = sheet.SetCellText(0, row, std::to_string(1000 + (flip++ & 1))).size();
  state.counters["recomputed"] = static_cast<double>(recomputed);
}

void BM_ChangeMiddleInput(benchmark::State& state) { ChangeAndRecompute(state, 0.5); }
// Near the end the dependents stay few whatever the size of the sheet.
void BM_ChangeInputNearEnd(benchmark::State& state) {
  const int rows = static_cast<int>(state.range(0));
  ChangeAndRecompute(state, 1.0 - 100.0 / rows);
}

}  // namespace

BENCHMARK(BM_BuildAndCompute)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(BM_ChangeMiddleInput)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
// The near-end change at a million rows too (about 3.3 GB and several seconds to build):
// its time must stay that of its 405 dependents.
BENCHMARK(BM_ChangeInputNearEnd)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
