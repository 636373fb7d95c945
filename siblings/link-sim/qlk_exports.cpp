// qlk_exports.cpp: the transport ABI of libQmkLink, answered by the simulated scanner.
#include "qmk/QmkLink.h"
#include "simulator.h"

using qmk::sim::Arg;
using qmk::sim::Call;
using qmk::sim::TheSimulator;

namespace {
qmk::sim::Scanner& S() { return TheSimulator().scanner; }
Arg N(long long v) { return Arg::Number(v); }
Arg Ses(const void* p) { return Arg::Session(p); }
Arg Adr(const void* p) { return Arg::Address(p); }
}  // namespace

extern "C" {

QMK_API int QlkOpen(feat_mask* feat, qlkdata_rec** rec) {
  const int result = Call("QlkOpen", {Adr(feat), Adr(rec)}, [&] { return S().Open(feat, rec); });
  S().NoteOpenResult(result);
  return result;
}

QMK_API int QlkClose(qlkdata_rec* rec) {
  return Call("QlkClose", {Ses(rec)}, [&] { return S().Close(rec); });
}

QMK_API int QlkCommSet(qlkdata_rec* session, int port, int data_bits, int stop_bits, char parity,
                       uint32_t baud, int timeout) {
  return Call("QlkCommSet",
              {Ses(session), N(port), N(data_bits), N(stop_bits), N(static_cast<unsigned char>(parity)),
               N(baud), N(timeout)},
              [&] { return S().CommSet(port, data_bits, stop_bits, parity, baud, timeout); });
}

QMK_API int QlkModeSet(qlkdata_rec* session, int m1, int m2, int m3, int m4) {
  return Call("QlkModeSet", {Ses(session), N(m1), N(m2), N(m3), N(m4)},
              [&] { return S().ModeSet(m1, m2, m3, m4); });
}

QMK_API int QlkControl(qlkdata_rec* session, int code) {
  return Call("QlkControl", {Ses(session), N(code)}, [&] { return S().Control(code); });
}

QMK_API int QlkSetRead(qlkdata_rec* session, int a, int b, int c, int d, int e) {
  return Call("QlkSetRead", {Ses(session), N(a), N(b), N(c), N(d), N(e)}, [] { return 0; });
}

QMK_API int QlkThickSet(qlkdata_rec* session, int low, int high) {
  return Call("QlkThickSet", {Ses(session), N(low), N(high)}, [] { return 0; });
}

QMK_API int QlkSetSpectra(qlkdata_rec* session, int spectrum) {
  return Call("QlkSetSpectra", {Ses(session), N(spectrum)}, [&] { return S().SetSpectra(spectrum); });
}

QMK_API int QlkSetTuneParams(qlkdata_rec* session, int param, int value) {
  return Call("QlkSetTuneParams", {Ses(session), N(param), N(value)},
              [&] { return S().SetTune(param, value); });
}

QMK_API int QlkGetTuneParams(qlkdata_rec* session, int param, int32_t* value, int a, int b) {
  return Call("QlkGetTuneParams", {Ses(session), N(param), Adr(value), N(a), N(b)},
              [&] { return S().GetTune(param, value); });
}

QMK_API int QlkIsScanner(qlkdata_rec* session) {
  return Call("QlkIsScanner", {Ses(session)}, [] { return S().IsScanner(); });
}

QMK_API int QlkSetBarCodeDelay(qlkdata_rec* session, bar_code_delay_t* delay) {
  return Call("QlkSetBarCodeDelay", {Ses(session), Adr(delay)},
              [&] { return S().SetBarCodeDelay(delay); });
}

QMK_API int QlkBarSet(qlkdata_rec* session, int code, int port) {
  return Call("QlkBarSet", {Ses(session), N(code), N(port)}, [&] { return S().BarSet(code, port); });
}

// The transport's own detection of the sheet's print: it reports the host's byte back.
QMK_API int AdaptiveDetect(unsigned char detect, int* first, int* second, int a, int b) {
  return Call("AdaptiveDetect", {N(detect), Adr(first), Adr(second), N(a), N(b)}, [&] {
    if (first) *first = detect;
    if (second) *second = 0;
    return static_cast<int>(detect);
  });
}

QMK_API int QlkRemainingLampWarmUpTime(qlkdata_rec* session) {
  return Call("QlkRemainingLampWarmUpTime", {Ses(session)},
              [] { return S().RemainingLampSeconds(); });
}

QMK_API int QlkPick(qlkdata_rec* session, int a) {
  return Call("QlkPick", {Ses(session), N(a)}, [] { return S().Pick(); });
}

QMK_API int QlkWaitEndOp(qlkdata_rec* session) {
  return Call("QlkWaitEndOp", {Ses(session)}, [] { return S().WaitEndOp(); });
}

QMK_API int QlkStatus(qlkdata_rec* session) {
  return Call("QlkStatus", {Ses(session)}, [] { return S().Status(); });
}

QMK_API int QlkGetMaxCell(int side) {
  return Call("QlkGetMaxCell", {N(side)}, [&] { return S().MaxCell(side); });
}

QMK_API int QlkGetOMRLength(int side) {
  return Call("QlkGetOMRLength", {N(side)}, [&] { return S().OmrLength(side); });
}

// Called once per cell, so it stays out of the journal.
QMK_API int QlkImgVal(unsigned char cell, uint32_t feat) {
  return qmk::sim::Scanner::ImgVal(cell, feat);
}

QMK_API int QlkBuildBubbles(qlkdata_rec* session, int a, int first_row, int b, int c, int columns,
                            int last_row, int kind) {
  return Call("QlkBuildBubbles",
              {Ses(session), N(a), N(first_row), N(b), N(c), N(columns), N(last_row), N(kind)},
              [&] { return S().BuildBubbles(first_row, columns, last_row, kind); });
}

QMK_API int QlkFlush(qlkdata_rec* session, int code) {
  return Call("QlkFlush", {Ses(session), N(code)}, [&] { return S().Flush(code); });
}

QMK_API int DrlReadBar(qlkdata_rec* session) {
  return Call("DrlReadBar", {Ses(session)}, [] { return S().ReadBar(); });
}

QMK_API int QlkReadLogData(scan_error_log_registry* log, char* first, char* second) {
  return Call("QlkReadLogData", {Adr(log), Adr(first), Adr(second)},
              [&] { return S().ReadLog(log, first, second); });
}

QMK_API int QlkResetLog(qlkdata_rec* session) {
  return Call("QlkResetLog", {Ses(session)}, [] { return S().ResetLog(); });
}

QMK_API int QlkWriteLog(qlkdata_rec* session, const char* first, const char* second) {
  return Call("QlkWriteLog", {Ses(session), Adr(first), Adr(second)},
              [&] { return S().WriteLog(first, second); });
}

// The simulator has a TWAIN scanner of either model attached.
QMK_API int QlkDetectTwainScanner(int model) {
  return Call("QlkDetectTwainScanner", {N(model)},
              [&] { return model == 12 || model == 13 ? 0 : -1; });
}

// No USB scanner is attached to the simulator.
QMK_API int CheckUSB(int* first, int* second, int* third, int* fourth) {
  return Call("CheckUSB", {Adr(first), Adr(second), Adr(third), Adr(fourth)}, [&] {
    for (int* p : {first, second, third, fourth})
      if (p) *p = 0;
    return 0;
  });
}

}
