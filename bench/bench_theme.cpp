// bench_theme.cpp: painting the widget sheet (every dialog widget in every state) in one theme of
// each family, and the colour lookup widgets make on every draw. The goal is every family within
// twice the time of the plain look.
#include <benchmark/benchmark.h>

#include <memory>

#include "toolkit/theme/theme_classes.h"
#include "toolkit/theme/theme_sheet.h"

namespace {

namespace theme = qmk::toolkit::theme;
// The class record macro pastes the class name, so it takes names without their namespace.
using namespace qmk::toolkit::theme;

const CRuntimeClass* const kFamilies[] = {
    QMK_RUNTIME_CLASS(CExtPaintManager),
    QMK_RUNTIME_CLASS(CExtPaintManagerXP),
    QMK_RUNTIME_CLASS(CExtPaintManagerNativeXP),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2003),
    QMK_RUNTIME_CLASS(CExtPaintManagerStudio2005),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2007_R1),
    QMK_RUNTIME_CLASS(CExtPaintManagerOffice2010_R1),
};

std::unique_ptr<theme::CExtPaintManager> Make(int family) {
  std::unique_ptr<theme::CExtPaintManager> pm(
      static_cast<theme::CExtPaintManager*>(kFamilies[family]->CreateObject()));
  pm->SyncSysColors();
  pm->RefreshColors(32);
  return pm;
}

void BM_PaintSheet(benchmark::State& state) {
  const auto pm = Make(static_cast<int>(state.range(0)));
  qmk::platform::DrawTarget dc(theme::kSheetWidth, theme::kSheetHeight);
  for (auto _ : state) theme::PaintThemeSheet(*pm, dc, "Benchmark");
  state.SetLabel(kFamilies[state.range(0)]->m_lpszClassName);
  state.counters["paints/s"] = benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PaintSheet)->DenseRange(0, 6)->Unit(benchmark::kMillisecond);

void BM_GetColor(benchmark::State& state) {
  const auto pm = Make(5);
  int index = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(pm->GetColor(3000 + index));
    index = (index + 1) % 40;
  }
}
BENCHMARK(BM_GetColor);

}  // namespace

BENCHMARK_MAIN();
