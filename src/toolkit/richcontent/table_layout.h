// table_layout.h: the structure of a laid out table (rows of cells, column widths, row heights,
// cell spans) and the sums and sharing rules that size it.
#pragma once

#include <cstdint>
#include <vector>

#include "toolkit/richcontent/box_model.h"

namespace qmk::toolkit::richcontent {

class CExtRichContentItem;

struct span_info_t {
  int32_t m_nRowSpan = 1;
  int32_t m_nColSpan = 1;
};
using span_info_array_t = std::vector<span_info_t>;

// One row: its cells and a height per measuring mode (0 the minimum, 1 the preferred).
class CExtRichTableRow : public std::vector<CExtRichContentItem*> {
 public:
  int32_t m_nHeight[2] = {0, 0};
};

// A cell as placed on the grid.
struct TableCell {
  CExtRichContentItem* item = nullptr;
  int row = 0, column = 0;
  span_info_t span;
};

class CExtRichTableLayout : public std::vector<CExtRichTableRow*> {
 public:
  CExtRichTableLayout() = default;
  CExtRichTableLayout(const CExtRichTableLayout&) = delete;
  CExtRichTableLayout& operator=(const CExtRichTableLayout&) = delete;
  ~CExtRichTableLayout();

  // Gathers rows and cells under `table`: rows of "table-row", loose cells under a row group
  // become an implied row. Returns the column count.
  int Gather(CExtRichContentItem& table);

  // Sum of the column widths of `mode`, or of the row heights.
  int TotalColumns(int mode = 1) const;
  int TotalRows(int mode = 1) const;
  // The rectangle of cells rows [firstRow, lastRow] x columns [firstColumn, lastColumn], with the
  // spacing between them, relative to the table's content corner. Indices past the end are
  // clamped to the last row and column; an inverted range gives an empty rectangle.
  RichRect CellAreaOf(int firstRow, int lastRow, int firstColumn, int lastColumn, int mode = 1) const;

  int ColumnCount() const { return static_cast<int>(m_columnWidths[1].size()); }
  int RowCount() const { return static_cast<int>(size()); }

  uint8_t m_flags[2] = {2, 0};
  std::vector<int32_t> m_sizes;               // row heights as finally stacked
  std::vector<int32_t> m_columnWidths[2];     // per measuring mode
  span_info_array_t m_spans;                  // one per cell, in the order of m_cells
  std::vector<TableCell> m_cells;
  int m_nSpacingX = 0, m_nSpacingY = 0;

 private:
  void AddCell(CExtRichTableRow& row, CExtRichContentItem* cell, int rowIndex);
  std::vector<std::vector<bool>> m_taken;  // grid places covered by a span from a row above
};

// Total vertical gap of `rows` rows: spacing * (rows + 1), 0 for no rows.
int VerticalGap(int spacing, int rows);
// Total horizontal gap of `columns` columns: spacing * columns.
int HorizontalGap(int spacing, int columns);

// Column widths for `available` pixels from each column's minimum, preferred width and percent
// (0 for none). The preferred widths are taken when they fit (and widened in equal shares when
// `fill` asks for the whole width); otherwise the minimums, and what is left goes to the
// columns without a percent in equal shares, the remainder one pixel each to the first ones.
std::vector<int> ShareColumnWidths(const std::vector<int>& minimum, const std::vector<int>& preferred,
                                   const std::vector<int>& percent, int available, bool fill);

// Column widths of a table with "table-layout: fixed": the width each column's cell in the first
// row declares (-1 where none does), the other columns sharing what is left in equal shares, the
// remainder a pixel each to the first ones. Content never widens a column.
std::vector<int> FixedColumnWidths(const std::vector<int>& declared, int available);

// A cell spanning `sizes[first .. first+count)` (rows or columns) that needs `need` pixels in all
// spreads what is missing: missing / count each, then one pixel at a time from the first.
void SpreadSpanned(std::vector<int>& sizes, int first, int count, int need);

}  // namespace qmk::toolkit::richcontent
