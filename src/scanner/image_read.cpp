// image_read.cpp: ScnScanForImage and ScnScanToDefineFormIds.
#include "scanner/image_read.h"

#include "frame/message_display.h"
#include "qmk/QmkLink.h"
#include "scanner/form_id_search.h"
#include "scanner/omr_read.h"
#include "scanner/pick.h"
#include "scanner/scan_errors.h"
#include "scanner/sheet_steps.h"
#include "scanner/verification.h"

namespace qmk::scanner {
namespace {

constexpr int kTooManyMarksText = 4900;
constexpr int kNoTimingMarksText = 4903;

void SetReadLevel(qlkdata_rec* rec, int read_level) {
  if (BuildsBubbles(*rec)) QlkSetTuneParams(rec, QLK_TUNE_READ_LEVEL, read_level + 1);
}

// A blank sheet where timing marks are required: reject it and say so.
int RefuseBlankSheet(qlkdata_rec* rec) {
  ScnRejectSheet(rec);
  frame::ShowMessage(kNoTimingMarksText, frame::kMbOk | frame::kMbIconExclamation);
  return QMK_SCAN_NO_TIMING_MARKS;
}

}  // namespace

int ScanForImage(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc, int read_level, char* front,
                 char* back, int buffer_size, int require_marks) {
  SetReadLevel(rec, read_level);
  const int read_mode = ReadMode();
  for (;;) {
    if (PickUntilRead(rec, parent, false) == kPickStopped) return QMK_SCAN_STOPPED;
    if (BuildsBubbles(*rec)) ScnBuildBubbleMap(rec, read_mode);
    if (rec->lines_front == 0 && rec->lines_back == 0 && require_marks) return RefuseBlankSheet(rec);
    const bool fault = ScnVerifySheetMarks(rec, desc, require_marks) != 0 ||
                       ScnVerifySkewMarks(rec, desc) != 0;
    if (!fault) break;
    if (ScnShowScanError(rec) != 1) return QMK_SCAN_STOPPED;
  }
  ScnClearSolidColumns(rec);
  // The host's buffers aren't cleared first: a short side leaves their old bytes past its end.
  CopyCells(*rec, buffer_size, front, back);
  ScnFinishSheet(rec);
  return QMK_SCAN_DONE;
}

int ScanToDefineFormIds(QMK_HWND parent, qlkdata_rec* rec, sht_desc* desc, int read_level,
                        char* front, char* back, int buffer_size, int front_only, int first_line,
                        int last_line, int stop_on_empty) {
  QlkSetTuneParams(rec, QLK_TUNE_PICK_PREPARE, 1);
  SetReadLevel(rec, read_level);
  const int read_mode = ReadMode();
  if (PickUntilRead(rec, parent, stop_on_empty != 0) == kPickStopped) return QMK_SCAN_STOPPED;
  const bool blank = rec->lines_front == 0 && rec->lines_back == 0;
  if (read_level > 0 && blank) return RefuseBlankSheet(rec);
  desc->id_lines_front = rec->lines_front;
  desc->id_lines_back = rec->lines_back;
  const ThicknessWindow window = WindowForThickness(rec->thickness);
  desc->thick_min = window.min;
  desc->thick_max = window.max;
  if (blank) return QMK_SCAN_DONE;  // no marks, no copy, no accept step
  if (BuildsBubbles(*rec)) ScnBuildBubbleMap(rec, read_mode);
  ScnClearSolidColumns(rec);
  if (ScnFindFormIdMarks(rec, desc, front_only != 0, first_line != 0, last_line != 0))
    frame::ShowMessageFormatted(kTooManyMarksText, frame::kMbOk | frame::kMbIconInformation,
                                QMK_MAX_FORM_ID_MARKS);
  desc->solid_row = ScnFindSolidRow(rec, desc);
  ScnFinishSheet(rec);
  CopyCells(*rec, buffer_size, front, back);
  return QMK_SCAN_DONE;
}

}  // namespace qmk::scanner
