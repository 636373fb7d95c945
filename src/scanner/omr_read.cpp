// omr_read.cpp: ScnScanForOMR's steps and the bar-code buffer.
#include "scanner/omr_read.h"

#include <algorithm>
#include <cstring>

#include "qmk/QmkLink.h"
#include "scanner/pick.h"
#include "scanner/scan_errors.h"
#include "scanner/sheet_steps.h"
#include "scanner/status_bits.h"

namespace qmk::scanner {
namespace {

void Zero(char* buffer, int size) {
  if (buffer && size > 0) std::memset(buffer, 0, static_cast<size_t>(size));
}

void Set(int* out, int value) {
  if (out) *out = value;
}

}  // namespace

int PickUntilRead(qlkdata_rec* rec, QMK_HWND parent, bool stop_on_empty) {
  for (;;) {
    const int picked = ScnPickSheet(rec, parent);
    if (picked == kPickRead) return kPickRead;
    if (picked == kPickStopped) return kPickStopped;
    // The one automatic stop: no dialog, no stop sent.
    if (stop_on_empty && (rec->status3 & kHopperEmpty)) return kPickStopped;
    if (ScnShowScanError(rec) != 1) return kPickStopped;
  }
}

int ScanForOMR(QMK_HWND parent, qlkdata_rec* rec, int stop_on_empty, int buffer_size, char* front,
               char* back, int* max_cell_front, int* max_cell_back, int* omr_length_front,
               int* omr_length_back) {
  Zero(front, buffer_size);
  Zero(back, buffer_size);
  for (int* out : {max_cell_front, max_cell_back, omr_length_front, omr_length_back}) Set(out, 0);
  QlkSetTuneParams(rec, QLK_TUNE_PICK_PREPARE, 1);
  const int read_mode = ReadMode();
  if (PickUntilRead(rec, parent, stop_on_empty != 0) == kPickStopped) return QMK_SCAN_STOPPED;
  // A blank sheet: nothing to hand over, and no accept step.
  if (rec->lines_front == 0 && rec->lines_back == 0) return QMK_SCAN_DONE;
  Set(max_cell_front, QlkGetMaxCell(0));
  Set(max_cell_back, QlkGetMaxCell(1));
  const int front_length = QlkGetOMRLength(0), back_length = QlkGetOMRLength(1);
  Set(omr_length_front, front_length);
  Set(omr_length_back, back_length);
  if (BuildsBubbles(*rec)) ScnBuildBubbleMap(rec, read_mode);
  ScnFinishSheet(rec);
  CopyCells(*rec, buffer_size, front, back, front_length, back_length);
  return QMK_SCAN_DONE;
}

int ReadBarcodeBuffer(qlkdata_rec* rec, int size, char* text) {
  const int result = DrlReadBar(nullptr);
  if (result != 0) return result;
  if (!text || size <= 0) return 0;  // nowhere to write: the host gets the result alone
  std::memcpy(text, rec->bar_code_text, static_cast<size_t>(std::min(size, QMK_BAR_CODE_BYTES)));
  text[size > QMK_BAR_CODE_BYTES ? QMK_BAR_CODE_BYTES : size - 1] = '\0';
  return 0;
}

}  // namespace qmk::scanner
