// verification.cpp: form-ID marks, skew marks, line counts, thickness, and solid columns.
#include "scanner/verification.h"

#include <algorithm>

#include "scanner/cell_grid.h"
#include "scanner/records.h"
#include "scanner/sheet_steps.h"
#include "scanner/status_bits.h"

namespace qmk::scanner {
namespace {

// A mark's place from its description entry: 1-based column and row, bit 7 for the back.
struct MarkPlace {
  bool back;
  int row, col;  // 0-based
};

MarkPlace PlaceOf(int col, int row) {
  return MarkPlace{(row & kBackRow) != 0, (row & ~kBackRow) - 1, col - 1};
}

bool FormIdMarksFault(qlkdata_rec& rec, const sht_desc& desc) {
  const CellGrid front = CellGrid::Side(rec, 0), back = CellGrid::Side(rec, 1);
  bool fault = false;
  for (int i = 0; i < QMK_MAX_FORM_ID_MARKS && desc.id_mark_col[i] != 0; ++i) {
    const MarkPlace m = PlaceOf(desc.id_mark_col[i], desc.id_mark_row[i]);
    const CellGrid& own = m.back ? back : front;
    const int sense = desc.id_mark_sense[i];
    // A front mark that must be empty reads its cell from the back array, at the front's
    // offset. Hosts' descriptions are tuned to this, so it stays.
    CellGrid read = own;
    if (!m.back && sense == 1) read.cells = rec.omr_back;
    if (!own.Holds(m.row, m.col)) {
      fault = true;
      continue;
    }
    const int darkness = read.Darkness(m.row, m.col);
    if ((sense == 0 && darkness < kPresent) || (sense == 1 && darkness >= kPresent)) fault = true;
  }
  if (fault) rec.status2 |= kUnknownFormId;
  return fault;
}

}  // namespace

int ScnVerifySheetMarks(qlkdata_rec* rec, const sht_desc* desc, int require_marks) {
  if (desc->id_mark_col[0] == 0 && desc->id_lines_front == 0 && desc->id_lines_back == 0) {
    if (!require_marks) return 0;
    rec->status2 |= kUnknownFormId;
    return 1;
  }
  if (FormIdMarksFault(*rec, *desc)) return 1;
  bool fault = false;
  if (desc->id_lines_front != 0 && desc->id_lines_front != rec->lines_front) {
    rec->status2 |= kTimingTop;
    fault = true;
  }
  if (desc->id_lines_back != 0 && desc->id_lines_back != rec->lines_back) {
    rec->status2 |= kTimingBottom;
    fault = true;
  }
  // thick_max 0 switches both thickness tests off; TWAIN scanners never make them.
  if (FeaturesOf(*rec).family() != 12 && desc->thick_max != 0) {
    if (rec->thickness > desc->thick_max) {
      rec->status1 |= kTooThick;
      fault = true;
    }
    if (rec->thickness < desc->thick_min) {
      rec->status1 |= kTooThin;
      return 1;
    }
  }
  return fault ? 1 : 0;
}

int ScnVerifySkewMarks(qlkdata_rec* rec, const sht_desc* desc) {
  const CellGrid front = CellGrid::Side(*rec, 0), back = CellGrid::Side(*rec, 1);
  for (int i = 0; i < desc->skew_mark_count; ++i) {
    const MarkPlace m = PlaceOf(desc->skew_marks[i][0], desc->skew_marks[i][1]);
    const CellGrid& side = m.back ? back : front;
    if (!side.Holds(m.row, m.col) || side.Darkness(m.row, m.col) < kPresent) {
      rec->status2 |= kSkewMarkFailure;
      return 1;
    }
  }
  return 0;
}

namespace {

// A column is solid when every line but the first has a present cell there.
bool SolidColumn(const CellGrid& g, int col) {
  for (int row = 1; row < g.lines; ++row)
    if (!g.Holds(row, col) || g.Darkness(row, col) < kPresent) return false;
  return true;
}

void ClearSide(const CellGrid& g, int read_mode) {
  if (g.lines <= 1) return;
  const int start = g.length - (read_mode == 9 ? 1 : 2);
  if (start < 0) return;
  int first = 0;
  for (int col = start; col >= 1; --col)
    if (!SolidColumn(g, col)) {
      first = col + 1;
      break;
    }
  for (int row = 0; row < g.lines; ++row)
    for (int col = first; col <= start; ++col)
      if (g.Holds(row, col)) g.At(row, col) = kClearedCell;
}

}  // namespace

void ScnClearSolidColumns(qlkdata_rec* rec) {
  const int read_mode = ReadMode();
  ClearSide(CellGrid::Side(*rec, 0), read_mode);
  ClearSide(CellGrid::Side(*rec, 1), read_mode);
}

}  // namespace qmk::scanner
