// bench_dialog_paint.cpp: the sample dialog (one of every control the library's dialogs use)
// painted whole, background and every child, on the headless back end in one theme of each
// family. The goal is every family within twice the time of the plain look.
#include <benchmark/benchmark.h>

#include "platform/ui/backend.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/toolkit_seams.h"
#include "toolkit/theme/selection.h"

namespace {

namespace ui = qmk::platform::ui;

constexpr int kSampleDialog = 9000;

struct Family {
  const char* name;
  int theme_id;
};
const Family kFamilies[] = {
    {"office2000 (plain)", 29750}, {"officexp", 29751},   {"office2003", 29752},
    {"office2003-plain", 29753},   {"studio2005", 29754}, {"studio2008", 29755},
    {"native", 29756},             {"office2007", 29757}, {"office2010", 29764},
};

void InvalidateTree(ui::HWND hwnd) {
  ui::InvalidateRect(hwnd, nullptr, true);
  for (ui::HWND child : ui::GetChildren(hwnd)) InvalidateTree(child);
}

void BM_PaintSampleDialog(benchmark::State& state) {
  static const bool backend = ui::InstallBackend(ui::MakeHeadlessBackend().release());
  if (!backend) return state.SkipWithError("no headless back end");
  qmk::toolkit::InstallToolkitSeams();
  const Family& family = kFamilies[state.range(0)];
  qmk::toolkit::theme::SelectPaintManagerById(family.theme_id, [](int) {});
  qmk::toolkit::CExtResizableDialog dialog(kSampleDialog);
  if (!dialog.Create(kSampleDialog, nullptr)) return state.SkipWithError("no sample dialog");
  ui::ShowWindow(dialog.GetSafeHwnd(), ui::SW_SHOW);
  ui::PumpMessages(0);
  for (auto _ : state) {
    InvalidateTree(dialog.GetSafeHwnd());
    ui::UpdateWindow(dialog.GetSafeHwnd());
  }
  dialog.DestroyWindow();
  ui::PumpMessages(0);
  state.SetLabel(family.name);
  state.counters["paints/s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PaintSampleDialog)->DenseRange(0, 8)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
