// bench_dialog_controls.cpp: the sample dialog repainted whole on the headless back end, with
// its plain controls and with every control themed in each theme family, as paints per second.
#include <benchmark/benchmark.h>

#include "platform/ui/dialog.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/resizable_dialog.h"
#include "toolkit/dialogs/subclass_controls.h"
#include "toolkit/theme/selection.h"

namespace {

using namespace qmk::platform::ui;

// The sample dialog; `themed` binds a toolkit control to every control of the table.
class Sample : public qmk::toolkit::CExtResizableDialog {
 public:
  explicit Sample(bool themed) : CExtResizableDialog(9000), themed_(themed) {}

 protected:
  bool OnInitDialog() override {
    if (themed_) qmk::toolkit::SubclassChildControls(m_hWnd);
    return CExtResizableDialog::OnInitDialog();
  }

 private:
  bool themed_;
};

void InvalidateAll(HWND window) {
  InvalidateRect(window, nullptr, true);
  for (HWND child : GetChildren(window)) InvalidateAll(child);
}

// Theme ids by family; 0 stands for the plain controls on the classic dialog.
constexpr int kLooks[] = {0, 29750, 29751, 29752, 29753, 29754, 29756, 29757, 29764};

void BM_PaintSample(benchmark::State& state) {
  static const bool backend = InstallBackend(MakeHeadlessBackend().release());
  const int theme = kLooks[state.range(0)];
  if (!backend || !qmk::toolkit::theme::SelectPaintManagerById(theme ? theme : 29750, [](int) {})) {
    state.SkipWithError("no headless back end or theme");
    return;
  }
  Sample dialog(theme != 0);
  if (!dialog.Create(9000, nullptr)) {
    state.SkipWithError("the sample dialog can't be made");
    return;
  }
  ShowWindow(dialog.GetSafeHwnd(), SW_SHOW);
  UpdateWindow(dialog.GetSafeHwnd());
  for (auto _ : state) {
    InvalidateAll(dialog.GetSafeHwnd());
    UpdateWindow(dialog.GetSafeHwnd());
  }
  state.SetLabel(theme ? "theme " + std::to_string(theme) : "plain controls");
  state.counters["paints_per_s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  dialog.DestroyWindow();
  PumpMessages(0);
}
BENCHMARK(BM_PaintSample)->DenseRange(0, 8)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
