// sim_exports.cpp: the scripting interface of the simulated scanner (QmkLinkSim.h).
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <set>
#include <string>

#include "qmk/QmkLinkSim.h"
#include "batch_file.h"
#include "simulator.h"

namespace qmk::sim {

Simulator& TheSimulator() {
  static Simulator* sim = new Simulator;  // lives until exit, whatever closes last
  return *sim;
}

void ResetSimulator() {
  Simulator& sim = TheSimulator();
  sim.scanner = Scanner{};
  sim.journal.Clear();
  sim.forced.Clear();
  sim.journal_on = true;
  sim.enter = sim.leave = nullptr;
}

}  // namespace qmk::sim

namespace {

using qmk::sim::TheSimulator;

const std::set<std::string>& OperationNames() {
  static const std::set<std::string> names = {
      "QlkOpen", "QlkClose", "QlkCommSet", "QlkModeSet", "QlkControl", "QlkSetRead",
      "QlkThickSet", "QlkSetSpectra", "QlkSetTuneParams", "QlkGetTuneParams", "QlkIsScanner",
      "QlkSetBarCodeDelay", "QlkBarSet", "AdaptiveDetect", "QlkRemainingLampWarmUpTime",
      "QlkPick", "QlkWaitEndOp", "QlkStatus", "QlkGetMaxCell", "QlkGetOMRLength",
      "QlkBuildBubbles", "QlkFlush", "DrlReadBar", "QlkReadLogData", "QlkResetLog",
      "QlkWriteLog", "QlkDetectTwainScanner", "CheckUSB"};
  return names;
}

}  // namespace

extern "C" {

QMK_API void QlkSimReset(void) { qmk::sim::ResetSimulator(); }

QMK_API int QlkSimJournalSize(void) { return TheSimulator().journal.Size(); }

QMK_API int QlkSimJournalEntry(int index, char* buffer, int size) {
  const auto& journal = TheSimulator().journal;
  if (index < 0 || index >= journal.Size()) return -1;
  const std::string& text = journal.Text(index);
  if (buffer && size > 0) {
    const size_t n = std::min(text.size(), static_cast<size_t>(size - 1));
    std::memcpy(buffer, text.data(), n);
    buffer[n] = '\0';
  }
  return static_cast<int>(text.size());
}

QMK_API void QlkSimJournalClear(void) { TheSimulator().journal.Clear(); }

QMK_API int QlkSimForceResult(const char* operation, int result, int times) {
  if (!operation || !OperationNames().count(operation)) return -1;
  TheSimulator().forced.Force(operation, result, times);
  return 0;
}

QMK_API void QlkSimClearForcedResults(void) { TheSimulator().forced.Clear(); }

QMK_API int QlkSimSessionOpen(void) { return TheSimulator().scanner.SessionOpen() ? 1 : 0; }

QMK_API int QlkSimModes(int modes[4]) { return modes && TheSimulator().scanner.Modes(modes); }

QMK_API int QlkSimSpectrum(void) { return TheSimulator().scanner.Spectrum(); }

QMK_API int QlkSimTuneParam(int param, int32_t* value) {
  return TheSimulator().scanner.TuneParam(param, value) ? 1 : 0;
}

QMK_API int QlkSimCommSettings(int* port, int* data_bits, int* stop_bits, int* parity,
                               uint32_t* baud, int* timeout) {
  return TheSimulator().scanner.CommSettings(port, data_bits, stop_bits, parity, baud, timeout);
}

QMK_API void QlkSimSetOpenBarCodeText(const char* text) {
  TheSimulator().scanner.SetOpenBarCodeText(text ? text : "");
}

QMK_API int QlkSimBarCodePort(void) { return TheSimulator().scanner.BarCodePort(); }

QMK_API int QlkSimAddSheet(const qlk_sim_sheet* sheet) {
  return sheet ? TheSimulator().scanner.AddSheet(*sheet) : -1;
}

QMK_API int QlkSimHopperCount(void) { return TheSimulator().scanner.HopperCount(); }

QMK_API int QlkSimStackerCount(int stacker) { return TheSimulator().scanner.StackerCount(stacker); }

QMK_API int QlkSimLoadBatchText(const char* text, int length, char* error, int size) {
  std::string message;
  qmk::sim::Batch batch;
  const bool ok = text && length >= 0 &&
                  qmk::sim::ParseBatch(std::string_view(text, static_cast<size_t>(length)), batch, message);
  if (!ok) {
    if (message.empty()) message = "no batch text";
    if (error && size > 0) {
      const size_t n = std::min(message.size(), static_cast<size_t>(size - 1));
      std::memcpy(error, message.data(), n);
      error[n] = '\0';
    }
    return -1;
  }
  auto& scanner = TheSimulator().scanner;
  if (batch.lamp_warm_up_s >= 0) scanner.SetLampWarmUp(batch.lamp_warm_up_s);
  for (auto& sheet : batch.sheets) scanner.AddSheet(std::move(sheet));
  return static_cast<int>(batch.sheets.size());
}

QMK_API int QlkSimLoadBatch(const char* path, char* error, int size) {
  std::ifstream file(path ? path : "", std::ios::binary);
  if (!file) {
    const std::string message = std::string("cannot read ") + (path ? path : "(no path)");
    if (error && size > 0) std::snprintf(error, static_cast<size_t>(size), "%s", message.c_str());
    return -1;
  }
  std::ostringstream text;
  text << file.rdbuf();
  const std::string content = text.str();
  if (content.size() > (1u << 30)) {
    if (error && size > 0) std::snprintf(error, static_cast<size_t>(size), "%s is too large", path);
    return -1;
  }
  return QlkSimLoadBatchText(content.data(), static_cast<int>(content.size()), error, size);
}

QMK_API void QlkSimSetCallHooks(qlk_sim_hook enter, qlk_sim_hook leave) {
  TheSimulator().enter = enter;
  TheSimulator().leave = leave;
}

QMK_API void QlkSimSetJournal(int on) { TheSimulator().journal_on = on != 0; }

QMK_API void QlkSimSetLampWarmUp(int seconds) { TheSimulator().scanner.SetLampWarmUp(seconds); }

QMK_API void QlkSimAdvanceClock(int milliseconds) {
  TheSimulator().scanner.AdvanceClock(milliseconds);
}

}
