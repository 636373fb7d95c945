// bench_scan.cpp: the library's own time and heap allocations per sheet of ScnScanForOMR.
//
// The simulated transport's time is measured apart: BM_TransportAlone makes the same transport
// calls that one ScnScanForOMR makes, directly; the library's time per sheet is the difference
// of the two. Allocations are counted by a replaced global allocator while the library runs,
// and paused inside every transport call through the simulator's call hooks.
#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "qmk/QmkLink.h"
#include "qmk/QmkLinkSim.h"
#include "qmk/QmkScan.h"

namespace {

std::atomic<bool> g_counting{false};
std::atomic<long> g_allocations{0};

void PauseCounting() { g_counting = false; }
void ResumeCounting() { g_counting = true; }

constexpr int kBatch = 2000;

void Refill() {
  std::vector<unsigned char> cells(20 * QLK_SIM_LINE_BYTES);
  for (size_t i = 0; i < cells.size(); ++i) cells[i] = (i % 7 == 0) ? 12 : 0;
  qlk_sim_sheet sheet{};
  sheet.lines_front = sheet.lines_back = 20;
  sheet.thickness = 6;
  sheet.cells_front = sheet.cells_back = cells.data();
  sheet.cells_are_darkness = 1;
  for (int i = 0; i < kBatch; ++i) QlkSimAddSheet(&sheet);
}

struct Session {
  sct_config cfg{};
  sct_config_ex comm{9600, 'E', 7, 1, 1, 10, 0};
  qlkdata_rec* rec = nullptr;
  Session() {
    QlkSimReset();
    QlkSimSetJournal(0);
    const uint32_t word = 2 | 5 << 4 | 1 << 16;  // a plain mark scanner, model 509
    std::memcpy(&cfg.feat_mask, &word, sizeof word);
    rec = ScnInitializeScanner(nullptr, &cfg, &comm, nullptr);
    Refill();
  }
  ~Session() { ScnScanTerm(rec); }
};

void BM_ScanForOMR(benchmark::State& state) {
  Session s;
  const int size = static_cast<int>(state.range(0));
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  int ints[4];
  for (auto _ : state) {
    if (QlkSimHopperCount() == 0) {
      state.PauseTiming();
      Refill();
      state.ResumeTiming();
    }
    const int r = ScnScanForOMR(nullptr, s.rec, 1, size, front.data(), back.data(), &ints[0],
                                &ints[1], &ints[2], &ints[3]);
    benchmark::DoNotOptimize(r);
  }
}
BENCHMARK(BM_ScanForOMR)->Arg(QMK_OMR_BYTES)->Arg(2048);

// The transport calls of one ScnScanForOMR of a good sheet on this scanner, made directly.
void BM_TransportAlone(benchmark::State& state) {
  Session s;
  for (auto _ : state) {
    if (QlkSimHopperCount() == 0) {
      state.PauseTiming();
      Refill();
      state.ResumeTiming();
    }
    int32_t mode;
    QlkSetTuneParams(s.rec, 42, 1);
    QlkGetTuneParams(nullptr, 52, &mode, 0, 0);
    QlkControl(nullptr, 22);
    QlkSetTuneParams(s.rec, 42, 1);
    QlkPick(nullptr, 0);
    QlkWaitEndOp(nullptr);
    QlkStatus(nullptr);
    benchmark::DoNotOptimize(QlkGetMaxCell(0) + QlkGetMaxCell(1) + QlkGetOMRLength(0) + QlkGetOMRLength(1));
    QlkControl(nullptr, 24);
  }
}
BENCHMARK(BM_TransportAlone);

// Heap allocations of the library per sheet, the simulator's own left out.
void BM_AllocationsPerSheet(benchmark::State& state) {
  Session s;
  std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
  int ints[4];
  QlkSimSetCallHooks(PauseCounting, ResumeCounting);
  long sheets = 0;
  g_allocations = 0;
  for (auto _ : state) {
    if (QlkSimHopperCount() == 0) Refill();
    g_counting = true;
    ScnScanForOMR(nullptr, s.rec, 1, QMK_OMR_BYTES, front.data(), back.data(), &ints[0], &ints[1],
                  &ints[2], &ints[3]);
    g_counting = false;
    ++sheets;
  }
  QlkSimSetCallHooks(nullptr, nullptr);
  state.counters["allocations_per_sheet"] =
      benchmark::Counter(static_cast<double>(g_allocations) / static_cast<double>(sheets));
}
BENCHMARK(BM_AllocationsPerSheet);

}  // namespace

void* operator new(std::size_t size) {
  if (g_counting) ++g_allocations;
  if (void* p = std::malloc(size ? size : 1)) return p;
  throw std::bad_alloc();
}
void operator delete(void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }

BENCHMARK_MAIN();
