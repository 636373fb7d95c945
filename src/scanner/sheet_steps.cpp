// sheet_steps.cpp: bubbles, accept and copy.
#include "scanner/sheet_steps.h"

#include <algorithm>
#include <cstring>

#include "qmk/QmkLink.h"
#include "scanner/records.h"
#include "scanner/status_bits.h"

namespace qmk::scanner {

int ReadMode() {
  int32_t mode = 0;
  QlkGetTuneParams(nullptr, QLK_TUNE_READ_MODE, &mode, 0, 0);
  return mode;
}

bool BuildsBubbles(const qlkdata_rec& rec) {
  const Features feat = FeaturesOf(rec);
  return feat.family() == 3 || feat.image_read();
}

void ScnBuildBubbleMap(qlkdata_rec* rec, int read_mode) {
  const bool family3 = FeaturesOf(*rec).family() == 3;
  const int kind = (read_mode == 7 || (family3 && read_mode == 5)) ? 3 : 0;
  QlkBuildBubbles(nullptr, 1, 1, 1, 1, QlkGetMaxCell(0), rec->lines_front, kind);
  QlkBuildBubbles(nullptr, 1, 1 | kBackRow, 1, 1, QlkGetMaxCell(1), rec->lines_back | kBackRow, kind);
}

void ScnFinishSheet(qlkdata_rec* rec) {
  const Features feat = FeaturesOf(*rec);
  if (feat.padlot())
    QlkControl(nullptr, QLK_CONTROL_ACCEPT);
  else if (feat.family() == 12)
    QlkFlush(nullptr, QLK_FLUSH_ACCEPT);
  else if (!(rec->status1 & kJam))  // a jammed sheet isn't accepted
    QlkControl(nullptr, QLK_CONTROL_ACCEPT);
}

int SideBytes(int lines, int length) {
  if (lines <= 0 || length <= 0) return 0;
  return static_cast<int>(std::min<int64_t>(int64_t{lines} * length, QMK_OMR_BYTES));
}

void CopyCells(const qlkdata_rec& rec, int buffer_size, char* front, char* back, int front_length,
               int back_length) {
  const int limit = std::max(buffer_size, 0);
  if (front)
    std::memcpy(front, rec.omr_front,
                static_cast<size_t>(std::min(limit, SideBytes(rec.lines_front, front_length))));
  if (back)
    std::memcpy(back, rec.omr_back,
                static_cast<size_t>(std::min(limit, SideBytes(rec.lines_back, back_length))));
}

void CopyCells(const qlkdata_rec& rec, int buffer_size, char* front, char* back) {
  const int front_length = QlkGetOMRLength(0);
  CopyCells(rec, buffer_size, front, back, front_length, back ? QlkGetOMRLength(1) : 0);
}

}  // namespace qmk::scanner
