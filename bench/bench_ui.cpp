// bench_ui.cpp: the window system on the headless back end: a dialog opened from its template,
// laid out, painted and closed, as dialogs per second and the time to its first full paint.
#include <benchmark/benchmark.h>

#include <chrono>
#include <string>

#include "platform/ui/dialog.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/paint.h"
#include "platform/ui/window.h"

namespace {

using namespace qmk::platform::ui;

// A control that draws its text in a frame, standing in for any class a template may name.
LRESULT PlainProc(HWND h, unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg != WM_PAINT) return DefWindowProc(h, msg, wp, lp);
  PAINTSTRUCT ps;
  Dc* dc = BeginPaint(h, &ps);
  Rect r;
  GetClientRect(h, &r);
  dc->FillRect(r, 0xFFFFFFFFu);
  dc->FrameRect(r, 0xFF808080u);
  dc->SelectFont(reinterpret_cast<HFONT>(SendMessage(h, WM_GETFONT, 0, 0)));
  dc->DrawText(GetWindowText(h), &r, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  EndPaint(h, &ps);
  return 0;
}

std::string PlainTemplate() {
  std::string t = "dialog 1\ncaption \"Bench\"\nposition 0 0 300 200\nstyle WS_POPUP | WS_CAPTION\n";
  for (int i = 0; i < 24; ++i)
    t += "control \"Plain\" " + std::to_string(100 + i) + " \"Item " + std::to_string(i) + "\" " +
         std::to_string(8 + (i % 3) * 96) + " " + std::to_string(8 + (i / 3) * 22) +
         " 90 18 style WS_TABSTOP\n";
  return t + "end\n";
}

void Setup() {
  static bool done = [] {
    InstallBackend(MakeHeadlessBackend().release());
    WNDCLASS wc;
    wc.lpszClassName = "Plain";
    wc.lpfnWndProc = PlainProc;
    return RegisterClass(wc);
  }();
  (void)done;
}

// Opens, paints and closes one dialog; returns the microseconds to its first full paint.
double Cycle(const DialogTemplate* tpl, int id) {
  const auto start = std::chrono::steady_clock::now();
  HWND dlg = tpl ? CreateDialogIndirectParam(*tpl, nullptr, nullptr, 0)
                 : CreateDialogParam(id, nullptr, nullptr, 0);
  if (!dlg) return -1;
  ShowWindow(dlg, SW_SHOW);
  UpdateWindow(dlg);
  const auto painted = std::chrono::steady_clock::now();
  DestroyWindow(dlg);
  PumpMessages(0);
  return std::chrono::duration<double, std::micro>(painted - start).count();
}

void Report(benchmark::State& state, double first_paint_total) {
  state.SetItemsProcessed(state.iterations());
  state.counters["dialogs_per_s"] =
      benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
  state.counters["first_paint_us"] = first_paint_total / static_cast<double>(state.iterations());
}

void BM_PlainDialog(benchmark::State& state) {
  Setup();
  DialogTemplate tpl;
  ParseDialogTemplate(PlainTemplate(), &tpl, nullptr);
  double total = 0;
  for (auto _ : state) total += Cycle(&tpl, 0);
  Report(state, total);
}
BENCHMARK(BM_PlainDialog)->Unit(benchmark::kMicrosecond);

// The sample dialog with every plain control; needs the control classes to be registered.
void BM_SampleDialog(benchmark::State& state) {
  Setup();
  if (Cycle(nullptr, 9000) < 0) {
    state.SkipWithError(("sample dialog: " + LastDialogError()).c_str());
    return;
  }
  double total = 0;
  for (auto _ : state) total += Cycle(nullptr, 9000);
  Report(state, total);
}
BENCHMARK(BM_SampleDialog)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
