// bench_discovery.cpp: the wall time of one status query against the simulated serial scanner,
// beside what the protocol itself takes: the two waits and the reply's time on the line.
// "overhead_ms" is what the library adds of its own; it should stay within a few milliseconds.
#include <benchmark/benchmark.h>

#include <chrono>

#include "discovery/status_query.h"
#include "platform/serial/termios_port.h"
#include "serial_scanner_sim.h"

namespace {

using namespace qmk;
using platform::serial::LineSettings;
using platform::serial::Parity;

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
  double total_ms = 0;
  for (auto _ : state) {
    discovery::StatusReply reply;
    const auto start = std::chrono::steady_clock::now();
    discovery::RunStatusQuery(*port, at, waits, &reply);
    const auto end = std::chrono::steady_clock::now();
    if (!reply.Accepted()) return state.SkipWithError("the simulator's reply was not accepted");
    const double ms = std::chrono::duration<double, std::milli>(end - start).count();
    state.SetIterationTime(ms / 1000);
    total_ms += ms;
  }
  const double mean_ms = total_ms / static_cast<double>(state.iterations());
  state.counters["expected_ms"] = expected_ms;
  state.counters["wall_ms"] = mean_ms;
  state.counters["overhead_ms"] = mean_ms - expected_ms;
}

BENCHMARK(StatusQuery)->Arg(9600)->Arg(19200)->Arg(38400)->UseManualTime()->Iterations(8)
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
