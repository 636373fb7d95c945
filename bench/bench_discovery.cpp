// bench_discovery.cpp: the wall time of the serial probes against the simulated serial scanner,
// beside what the protocol itself takes: its waits, its time-outs and the reply's time on the
// line. "overhead_ms" is what the library adds of its own; it should stay within a few
// milliseconds.
#include <benchmark/benchmark.h>

#include <chrono>

#include "discovery/probe_settings.h"
#include "discovery/probes.h"
#include "discovery/status_query.h"
#include "platform/serial/termios_port.h"
#include "serial_scanner_sim.h"

namespace {

using namespace qmk;
using platform::serial::LineSettings;
using platform::serial::Parity;

// Times `run` once per iteration as the benchmark's time and reports the mean wall time beside
// `expected_ms`. `run` returns an error text, or null when the probe went as it should.
template <class Run>
void TimeAgainst(benchmark::State& state, double expected_ms, Run run) {
  double total_ms = 0;
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    const char* error = run();
    const auto end = std::chrono::steady_clock::now();
    if (error) return state.SkipWithError(error);
    const double ms = std::chrono::duration<double, std::milli>(end - start).count();
    state.SetIterationTime(ms / 1000);
    total_ms += ms;
  }
  const double mean_ms = total_ms / static_cast<double>(state.iterations());
  state.counters["expected_ms"] = expected_ms;
  state.counters["wall_ms"] = mean_ms;
  state.counters["overhead_ms"] = mean_ms - expected_ms;
}

// One status query at the scanner's own setting: two waits, then 52 bytes at the line's speed.
void StatusQuery(benchmark::State& state) {
  const LineSettings at{static_cast<uint32_t>(state.range(0)), 8, 2, Parity::kNone};
  serialsim::SimConfig config;
  config.setting = at;
  serialsim::PtySerialScanner sim(config);
  std::string error;
  if (!sim.Start(&error)) return state.SkipWithError(error.c_str());
  int open_error = 0;
  auto port = platform::serial::OpenTermiosPort(sim.path(), &open_error);
  if (!port) return state.SkipWithError("can't open the simulator's terminal");

  const discovery::QueryWaits waits = discovery::ProbeWaits(at.baud);
  const double char_ms = 11 * 1000.0 / at.baud;  // start bit, 8 data bits, 2 stop bits
  const double expected_ms =
      waits.settle_ms + waits.between_ms + discovery::kStatusLineBytes * char_ms;
  TimeAgainst(state, expected_ms, [&]() -> const char* {
    discovery::StatusReply reply;
    discovery::RunStatusQuery(*port, at, waits, &reply);
    return reply.Accepted() ? nullptr : "the simulator's reply was not accepted";
  });
}

BENCHMARK(StatusQuery)->Arg(9600)->Arg(19200)->Arg(38400)->UseManualTime()->Iterations(8)
    ->Unit(benchmark::kMillisecond);

// The whole quick check on a scanner that never answers: every setting costs its two waits
// and one read's full time-out (15 ms per byte plus 100 ms for the one byte asked), since the
// reader looks at its own time-out only between reads.
void SilentQuickCheck(benchmark::State& state) {
  serialsim::SimConfig config;
  config.fault = serialsim::Fault::kSilent;
  serialsim::PtySerialScanner sim(config);
  std::string error;
  if (!sim.Start(&error)) return state.SkipWithError(error.c_str());
  double expected_ms = 0;
  for (const LineSettings& s : discovery::QuickCheckOrder()) {
    const discovery::QueryWaits w = discovery::ProbeWaits(s.baud);
    expected_ms += w.settle_ms + w.between_ms + platform::serial::ReadTotalTimeoutMs(1);
  }
  TimeAgainst(state, expected_ms, [&]() -> const char* {
    return discovery::ScnCheckForNonPadLot(sim.path()).answered ? "a silent scanner answered"
                                                                : nullptr;
  });
}

BENCHMARK(SilentQuickCheck)->UseManualTime()->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
