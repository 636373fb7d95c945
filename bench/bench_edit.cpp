// bench_edit.cpp: keystrokes per second through the masked behaviour on a 64-character mask and
// through the number behaviour; a keystroke must stay far below a frame (16 ms).
#include <benchmark/benchmark.h>

#include <string>

#include "toolkit/edit/edit_masked.h"
#include "toolkit/edit/system_number.h"

namespace {

using namespace qmk::toolkit::edit;

// 64 positions: fields of digits, letters and either, between literals.
const std::string kMask = "####-####-####-####/@@@@@@@@/$$$$$$$$/(###) ###-####/##:##:##.##";

void TypeAcrossTheMask(benchmark::State& state, bool insert) {
  static_assert(sizeof("####-####-####-####/@@@@@@@@/$$$$$$$$/(###) ###-####/##:##:##.##") == 65);
  CExtEditMasked edit(kMask);
  edit.SetInsertMode(insert);
  const std::string digits = "1234567890";
  int64_t keys = 0;
  for (auto _ : state) {
    edit.SetSel(0, 0);
    for (int i = 0; i < 64; ++i) {
      const char k = kMask[i];
      edit.Char(k == '@' ? 'q' : k == '$' || k == '#' ? digits[i % 10] : static_cast<unsigned char>(k));
    }
    edit.KeyDown(kKeyHome);
    for (int i = 0; i < 16; ++i) edit.KeyDown(kKeyDelete);
    keys += 81;
    benchmark::DoNotOptimize(edit.GetText());
  }
  state.counters["keys/s"] = benchmark::Counter(static_cast<double>(keys), benchmark::Counter::kIsRate);
}

void BM_MaskedOverwrite(benchmark::State& state) { TypeAcrossTheMask(state, false); }
void BM_MaskedInsert(benchmark::State& state) { TypeAcrossTheMask(state, true); }

template <class Behavior>
void TypeNumbers(benchmark::State& state) {
  MemoryEdit edit;
  Behavior behavior(&edit, -30, 6);
  edit.SetBehavior(&behavior);
  int64_t keys = 0;
  for (auto _ : state) {
    edit.SetText("");
    for (const char c : std::string("123456789012345678901234.123456-")) edit.Char(static_cast<unsigned char>(c));
    edit.KeyDown(kKeyHome);
    for (int i = 0; i < 8; ++i) edit.KeyDown(kKeyDelete);
    keys += 41;
    benchmark::DoNotOptimize(edit.GetText());
  }
  state.counters["keys/s"] = benchmark::Counter(static_cast<double>(keys), benchmark::Counter::kIsRate);
}

void BM_NumberKeys(benchmark::State& state) { TypeNumbers<CExtEditSystemNumber>(state); }
void BM_CurrencyKeys(benchmark::State& state) { TypeNumbers<CExtEditSystemCurrency>(state); }

}  // namespace

BENCHMARK(BM_MaskedOverwrite);
BENCHMARK(BM_MaskedInsert);
BENCHMARK(BM_NumberKeys);
BENCHMARK(BM_CurrencyKeys);
BENCHMARK_MAIN();
