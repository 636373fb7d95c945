// bench_grid.cpp: the sparse store over a 10^6 by 10^6 area with a million scattered cells (set,
// get, walk, removing a band of 1000 columns, memory per cell) beside a plain
// std::unordered_map of std::unique_ptr cells; range set and sorting by a series.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <memory>
#include <unordered_map>
#include <vector>

#include "toolkit/grid/cell_variant.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;
using qmk::platform::Variant;

namespace {

constexpr int kSide = 1000000;
constexpr int kCells = 1000000;

struct Pos {
  int column, row;
};

// A million distinct positions spread over the whole area.
const std::vector<Pos>& Positions() {
  static const std::vector<Pos> positions = [] {
    std::vector<Pos> p;
    p.reserve(kCells);
    uint64_t x = 88172645463325252ull;
    for (int i = 0; i < kCells; ++i) {
      x ^= x << 13;
      x ^= x >> 7;
      x ^= x << 17;
      // Row i is distinct; the column is random.
      p.push_back({static_cast<int>(x % kSide), i});
    }
    return p;
  }();
  return positions;
}

size_t HeapInUse() { return mallinfo2().uordblks; }

using PlainMap = std::unordered_map<int64_t, std::unique_ptr<CExtGridCellVariant>>;
int64_t PlainKey(int column, int row) { return MakePositionKey(static_cast<uint32_t>(column), static_cast<uint32_t>(row)); }

std::unique_ptr<CExtGridDataProviderSparse> FillSparse() {
  auto p = std::make_unique<CExtGridDataProviderSparse>();
  p->ColumnInsert(0, kSide);
  p->RowInsert(0, kSide);
  for (const Pos& q : Positions())
    static_cast<CExtGridCellVariant*>(p->CellGet(q.column, q.row, &CExtGridCellVariant::kClass))->_VariantAssign(q.row);
  return p;
}

std::unique_ptr<PlainMap> FillPlain() {
  auto m = std::make_unique<PlainMap>();
  for (const Pos& q : Positions()) {
    auto cell = std::make_unique<CExtGridCellVariant>();
    cell->_VariantAssign(q.row);
    (*m)[PlainKey(q.column, q.row)] = std::move(cell);
  }
  return m;
}

void PerCell(benchmark::State& state) {
  state.counters["per_cell"] =
      benchmark::Counter(kCells, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_SparseSet(benchmark::State& state) {
  for (auto _ : state) {
    const size_t before = HeapInUse();
    auto p = FillSparse();
    state.counters["bytes_per_cell"] = static_cast<double>(HeapInUse() - before) / kCells;
    state.PauseTiming();
    p.reset();
    state.ResumeTiming();
  }
  PerCell(state);
}

// The cell-to-position map is built on the first question of a cell's position; this is what a
// store costs once something has asked.
void BM_SparseSetWithPositions(benchmark::State& state) {
  for (auto _ : state) {
    const size_t before = HeapInUse();
    auto p = FillSparse();
    int column = 0, row = 0;
    const Pos& first = Positions().front();
    benchmark::DoNotOptimize(p->CellPositionGet(p->CellGet(first.column, first.row), column, row));
    state.counters["bytes_per_cell"] = static_cast<double>(HeapInUse() - before) / kCells;
    state.PauseTiming();
    p.reset();
    state.ResumeTiming();
  }
  PerCell(state);
}

void BM_PlainSet(benchmark::State& state) {
  for (auto _ : state) {
    const size_t before = HeapInUse();
    auto m = FillPlain();
    state.counters["bytes_per_cell"] = static_cast<double>(HeapInUse() - before) / kCells;
    state.PauseTiming();
    m.reset();
    state.ResumeTiming();
  }
  PerCell(state);
}

void BM_SparseGet(benchmark::State& state) {
  auto p = FillSparse();
  for (auto _ : state) {
    int64_t sum = 0;
    for (const Pos& q : Positions()) sum += reinterpret_cast<intptr_t>(p->CellGet(q.column, q.row));
    benchmark::DoNotOptimize(sum);
  }
  PerCell(state);
}

void BM_PlainGet(benchmark::State& state) {
  auto m = FillPlain();
  for (auto _ : state) {
    int64_t sum = 0;
    for (const Pos& q : Positions()) {
      auto it = m->find(PlainKey(q.column, q.row));
      sum += reinterpret_cast<intptr_t>(it == m->end() ? nullptr : it->second.get());
    }
    benchmark::DoNotOptimize(sum);
  }
  PerCell(state);
}

bool Count(CExtGridCell*, int, int, int, void* context) {
  ++*static_cast<int*>(context);
  return true;
}

void BM_SparseWalk(benchmark::State& state) {
  auto p = FillSparse();
  const CExtGridRangeSet all(qmk::toolkit::formula::CellRect{0, 0, kSide - 1, kSide - 1});
  for (auto _ : state) {
    int n = 0;
    p->ForEachCell(all, Count, &n);
    if (n != kCells) state.SkipWithError("walk missed cells");
  }
  PerCell(state);
}

void BM_PlainWalk(benchmark::State& state) {
  auto m = FillPlain();
  for (auto _ : state) {
    int n = 0;
    for (auto& [key, cell] : *m) Count(cell.get(), 0, 0, 0, &n);
    benchmark::DoNotOptimize(n);
  }
  PerCell(state);
}

// Removes columns 500000..500999: the cells inside go, and every cell right of the band moves.
void BM_SparseRemoveBand(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto p = FillSparse();
    state.ResumeTiming();
    p->ColumnRemove(kSide / 2, 1000);
    state.PauseTiming();
    p.reset();
    state.ResumeTiming();
  }
  PerCell(state);
}

void BM_PlainRemoveBand(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto m = FillPlain();
    state.ResumeTiming();
    PlainMap moved;
    moved.reserve(m->size());
    for (auto& [key, cell] : *m) {
      const auto column = static_cast<int>(KeyColumn(key));
      if (column >= kSide / 2 && column < kSide / 2 + 1000) continue;  // freed with the old map
      moved[column >= kSide / 2 ? PlainKey(column - 1000, static_cast<int>(KeyRow(key))) : key] = std::move(cell);
    }
    m->swap(moved);
    state.PauseTiming();
    m.reset();
    moved.clear();
    state.ResumeTiming();
  }
  PerCell(state);
}

// Assigns a value to the stored cells of a 1000-column band.
void BM_SparseRangeSet(benchmark::State& state) {
  auto p = FillSparse();
  CExtGridCellVariant model;
  model._VariantAssign(7.5);
  for (auto _ : state) {
    int count = 0;
    p->CellRangeSet(kSide / 2, 0, 1000, kSide, &model, false, &count);
    benchmark::DoNotOptimize(count);
  }
  PerCell(state);
}

// Sorts 100000 rows by one column of numbers.
void BM_SparseSortRows(benchmark::State& state) {
  constexpr int kRows = 100000;
  for (auto _ : state) {
    state.PauseTiming();
    auto p = std::make_unique<CExtGridDataProviderSparse>();
    p->ColumnInsert(0, 2);
    p->RowInsert(0, kRows);
    for (int r = 0; r < kRows; ++r) {
      static_cast<CExtGridCellVariant*>(p->CellGet(0, r, &CExtGridCellVariant::kClass))->_VariantAssign((r * 7919) % kRows);
      static_cast<CExtGridCellVariant*>(p->CellGet(1, r, &CExtGridCellVariant::kClass))->_VariantAssign(r);
    }
    p->SortOrderGet(true).m_arrItems = {{0, true}};
    state.ResumeTiming();
    p->SortRun(false);
    state.PauseTiming();
    p.reset();
    state.ResumeTiming();
  }
  state.counters["per_row"] =
      benchmark::Counter(kRows, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

}  // namespace

BENCHMARK(BM_SparseSet)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SparseSetWithPositions)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PlainSet)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SparseGet)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainGet)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SparseWalk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainWalk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SparseRemoveBand)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_PlainRemoveBand)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SparseRangeSet)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SparseSortRows)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_MAIN();
