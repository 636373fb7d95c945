// form_id_search.cpp: the search rectangles, the 48-mark limit, edge marks and clipping.
#include "scanner/form_id_search.h"

#include <algorithm>
#include <iterator>

#include "qmk/QmkLink.h"
#include "scanner/cell_grid.h"
#include "scanner/records.h"
#include "scanner/sheet_steps.h"
#include "scanner/status_bits.h"

namespace qmk::scanner {
namespace {

constexpr int kMaxMarks = QMK_MAX_FORM_ID_MARKS;
// A cell counts as a mark for form definition above this darkness.
constexpr int kMarkAbove = 10;

struct MarkList {
  int col[kMaxMarks];
  int row[kMaxMarks];
  int count = 0;
  bool overflow = false;
};

// The rows (at most two of them, or all) and the columns that one side's search looks at.
struct SearchRect {
  bool all_rows;
  int rows[2];
  int row_count;
  int first_col, last_col;
};

SearchRect RectFor(const CellGrid& g, int side, int read_mode, bool first_line, bool last_line) {
  const int last_row = g.lines - 1;
  SearchRect r{false, {0, last_row}, 2, 0, QlkGetMaxCell(side) - 1};
  const bool narrow_modes = read_mode >= 2 && read_mode <= 4;
  if (narrow_modes) {
    r.all_rows = !last_line;
    if (first_line) r.last_col = 1;
  } else if (first_line && !last_line) {
    r.row_count = 1;
  } else if (last_line && !first_line) {
    r.rows[0] = last_row;
    r.row_count = 1;
  } else if (!first_line && !last_line) {
    r.all_rows = true;
  }
  if (r.row_count == 2 && last_row == 0) r.row_count = 1;  // one line is one row, not two
  return r;
}

// Looks at one row's columns; false once the list overflowed.
bool SearchRow(const CellGrid& g, int row, const SearchRect& r, MarkList& list) {
  for (int col = std::max(r.first_col, 0); col <= r.last_col; ++col) {
    if (!g.Holds(row, col) || g.Darkness(row, col) <= kMarkAbove) continue;
    if (list.count == kMaxMarks) {
      list.overflow = true;
      return false;
    }
    list.col[list.count] = col + 1;
    list.row[list.count] = row + 1;
    ++list.count;
  }
  return true;
}

MarkList SearchSide(const CellGrid& g, const SearchRect& r) {
  MarkList list;
  if (g.lines <= 0) return list;
  if (r.all_rows) {
    for (int row = 0; row < g.lines; ++row)
      if (!SearchRow(g, row, r, list)) break;
  } else {
    for (int i = 0; i < r.row_count; ++i)
      if (!SearchRow(g, r.rows[i], r, list)) break;
  }
  return list;
}

// The side's first and last rows alone, with the rectangle's columns. Replaces the list and its
// count only when it finds a mark, and returns whether it did; the side's overflow stays as the
// full search left it, so a front that overflowed still reports it.
bool ScnFindEdgeMarks(const CellGrid& g, const SearchRect& rect, MarkList& list) {
  if (g.lines <= 0) return false;
  SearchRect edges = rect;
  edges.all_rows = false;
  edges.rows[0] = 0;
  edges.rows[1] = g.lines - 1;
  edges.row_count = g.lines > 1 ? 2 : 1;
  const MarkList found = SearchSide(g, edges);
  if (found.count == 0) return false;
  std::copy(found.col, found.col + found.count, list.col);
  std::copy(found.row, found.row + found.count, list.row);
  list.count = found.count;
  return true;
}

void Store(sht_desc& desc, const MarkList& front, const MarkList& back) {
  int at = 0;
  for (int i = 0; i < front.count && at < kMaxMarks; ++i, ++at) {
    desc.id_mark_col[at] = front.col[i];
    desc.id_mark_row[at] = front.row[i];
  }
  for (int i = 0; i < back.count && at < kMaxMarks; ++i, ++at) {
    desc.id_mark_col[at] = back.col[i];
    desc.id_mark_row[at] = back.row[i] | kBackRow;
  }
}

// Both sides searched and too many marks: edge marks first, else cut the back.
void ClipBothSides(const CellGrid& fg, const SearchRect& fr, const CellGrid& bg,
                   const SearchRect& br, bool first_line, bool last_line, MarkList& front,
                   MarkList& back) {
  if (!first_line && !last_line) {
    const bool on_front = ScnFindEdgeMarks(fg, fr, front);
    const bool on_back = ScnFindEdgeMarks(bg, br, back);
    if (on_front != on_back) {
      (on_front ? back : front).count = 0;
      return;
    }
  }
  if (front.count >= kMaxMarks) {
    front.count = kMaxMarks;
    back.count = 0;
  } else if (front.count + back.count > kMaxMarks) {
    back.count = kMaxMarks - front.count;
  }
}

}  // namespace

int ScnFindFormIdMarks(qlkdata_rec* rec, sht_desc* desc, bool front_only, bool first_line,
                       bool last_line) {
  const int read_mode = ReadMode();
  std::fill(std::begin(desc->id_mark_col), std::end(desc->id_mark_col), 0);
  std::fill(std::begin(desc->id_mark_row), std::end(desc->id_mark_row), 0);
  const CellGrid fg = CellGrid::Side(*rec, 0);
  const SearchRect fr = RectFor(fg, 0, read_mode, first_line, last_line);
  MarkList front = SearchSide(fg, fr), back;

  // A sheet without front lines goes on to the back even with front_only.
  if (front_only && fg.lines > 0) {
    if (front.overflow && !first_line && !last_line) ScnFindEdgeMarks(fg, fr, front);
    Store(*desc, front, back);
    return front.overflow ? 1 : 0;
  }
  const CellGrid bg = CellGrid::Side(*rec, 1);
  const SearchRect br = RectFor(bg, 1, read_mode, first_line, last_line);
  back = SearchSide(bg, br);
  int result = 0;
  if (front.overflow || back.overflow || front.count + back.count > kMaxMarks) {
    ClipBothSides(fg, fr, bg, br, first_line, last_line, front, back);
    result = 1;
  }
  Store(*desc, front, back);
  return result;
}

int ScnFindSolidRow(qlkdata_rec* rec, const sht_desc* desc) {
  if (!FeaturesOf(*rec).padlot()) return 0;
  const CellGrid g = CellGrid::Side(*rec, 0);
  constexpr int kSolidCells = 12;
  for (int row = 0; row < desc->id_lines_front && row < QMK_OMR_BYTES; ++row) {
    bool solid = true;
    for (int col = 0; col < kSolidCells && solid; ++col)
      solid = int64_t{row} * g.length + col < QMK_OMR_BYTES && g.Darkness(row, col) >= kSolid;
    if (solid) return row + 1;
  }
  return 0;
}

ThicknessWindow WindowForThickness(int t) {
  if (t <= 0) return {0, 0};
  if (t == 1) return {1, 1};
  if (t == 2) return {1, 2};
  if (t == 3) return {2, 4};
  if (t <= 13) return {(3 * t + 2) / 4, std::min(3 * t / 2, 15)};
  if (t == 14) return {11, 15};
  return {12, 15};
}

}  // namespace qmk::scanner
