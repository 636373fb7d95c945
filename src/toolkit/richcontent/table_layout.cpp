// table_layout.cpp: gathering a table's rows and cells, its sums, and the sharing of widths and
// heights.
#include "toolkit/richcontent/table_layout.h"

#include <algorithm>
#include <numeric>

#include "toolkit/richcontent/item.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr int kDisplayTable = 7, kDisplayCell = 9, kDisplayRow = 14;

int DisplayOf(const CExtRichContentItem* item) {
  return item->m_pStyle ? item->m_pStyle->Display() : 2;
}

bool IsRowGroup(int display) { return display == 12 || display == 13 || display == 15; }

int SumUpTo(const std::vector<int32_t>& v, int count) {
  return std::accumulate(v.begin(), v.begin() + std::clamp(count, 0, static_cast<int>(v.size())), 0);
}

}  // namespace

CExtRichTableLayout::~CExtRichTableLayout() {
  for (CExtRichTableRow* row : *this) delete row;
}

void CExtRichTableLayout::AddCell(CExtRichTableRow& row, CExtRichContentItem* cell, int rowIndex) {
  if (static_cast<int>(m_taken.size()) <= rowIndex) m_taken.resize(rowIndex + 1);
  std::vector<bool>& taken = m_taken[rowIndex];
  int column = 0;
  while (column < static_cast<int>(taken.size()) && taken[column]) ++column;
  span_info_t span;
  span.m_nRowSpan = std::max(1, cell->m_pStyle->m_lengths[kRowSpan]);
  span.m_nColSpan = std::max(1, cell->m_pStyle->m_lengths[kColSpan]);
  // Spans are clamped so a broken document cannot ask for an absurd grid.
  span.m_nRowSpan = std::min(span.m_nRowSpan, 1000);
  span.m_nColSpan = std::min(span.m_nColSpan, 1000);
  for (int r = rowIndex; r < rowIndex + span.m_nRowSpan; ++r) {
    if (static_cast<int>(m_taken.size()) <= r) m_taken.resize(r + 1);
    std::vector<bool>& line = m_taken[r];
    if (static_cast<int>(line.size()) < column + span.m_nColSpan) line.resize(column + span.m_nColSpan, false);
    for (int c = column; c < column + span.m_nColSpan; ++c) line[c] = true;
  }
  row.push_back(cell);
  m_cells.push_back({cell, rowIndex, column, span});
  m_spans.push_back(span);
}

int CExtRichTableLayout::Gather(CExtRichContentItem& table) {
  // Depth-first over the table's children: row groups are walked as the table itself is.
  CExtRichTableRow* implied = nullptr;
  std::vector<CExtRichContentItem*> work(table.m_children.rbegin(), table.m_children.rend());
  while (!work.empty()) {
    CExtRichContentItem* child = work.back();
    work.pop_back();
    if (!child->IsElement()) continue;
    const int display = DisplayOf(child);
    if (display == kDisplayRow) {
      implied = nullptr;
      auto* row = new CExtRichTableRow;
      push_back(row);
      const int index = RowCount() - 1;
      for (CExtRichContentItem* cell : child->m_children)
        if (cell->IsElement() && DisplayOf(cell) == kDisplayCell) AddCell(*row, cell, index);
    } else if (IsRowGroup(display)) {
      work.insert(work.end(), child->m_children.rbegin(), child->m_children.rend());
    } else if (display == kDisplayCell && DisplayOf(&table) != kDisplayTable) {
      if (!implied) {
        implied = new CExtRichTableRow;
        push_back(implied);
      }
      AddCell(*implied, child, RowCount() - 1);
    }
  }
  int columns = 0;
  for (const auto& line : m_taken) columns = std::max(columns, static_cast<int>(line.size()));
  // Rows that only spans reach still get a height.
  while (RowCount() < static_cast<int>(m_taken.size())) push_back(new CExtRichTableRow);
  m_columnWidths[0].assign(columns, 0);
  m_columnWidths[1].assign(columns, 0);
  m_sizes.assign(RowCount(), 0);
  return columns;
}

int CExtRichTableLayout::TotalColumns(int mode) const {
  return std::accumulate(m_columnWidths[mode ? 1 : 0].begin(), m_columnWidths[mode ? 1 : 0].end(), 0);
}

int CExtRichTableLayout::TotalRows(int mode) const {
  int total = 0;
  for (const CExtRichTableRow* row : *this) total += row->m_nHeight[mode ? 1 : 0];
  return total;
}

RichRect CExtRichTableLayout::CellAreaOf(int firstRow, int lastRow, int firstColumn, int lastColumn, int mode) const {
  const std::vector<int32_t>& widths = m_columnWidths[mode ? 1 : 0];
  const int rows = RowCount(), columns = static_cast<int>(widths.size());
  if (rows == 0 || columns == 0) return {};
  lastRow = std::min(lastRow, rows - 1);
  lastColumn = std::min(lastColumn, columns - 1);
  firstRow = std::max(firstRow, 0);
  firstColumn = std::max(firstColumn, 0);
  if (firstRow > lastRow || firstColumn > lastColumn) return {};
  std::vector<int32_t> heights;
  for (const CExtRichTableRow* row : *this) heights.push_back(row->m_nHeight[mode ? 1 : 0]);
  RichRect r;
  r.left = m_nSpacingX * (firstColumn + 1) + SumUpTo(widths, firstColumn);
  r.right = m_nSpacingX * lastColumn + SumUpTo(widths, lastColumn + 1) + m_nSpacingX;
  r.top = m_nSpacingY * (firstRow + 1) + SumUpTo(heights, firstRow);
  r.bottom = m_nSpacingY * lastRow + SumUpTo(heights, lastRow + 1) + m_nSpacingY;
  return r;
}

int VerticalGap(int spacing, int rows) { return rows < 1 ? 0 : spacing * (rows + 1); }
int HorizontalGap(int spacing, int columns) { return spacing * columns; }

namespace {

// Adds `amount` (may be negative) to the chosen columns in equal shares, the remainder one pixel
// each to the first of them.
void ShareOut(std::vector<int>& widths, const std::vector<size_t>& chosen, int amount) {
  if (chosen.empty() || amount == 0) return;
  const int count = static_cast<int>(chosen.size());
  const int share = amount / count;
  int rest = amount % count;
  for (size_t c : chosen) {
    widths[c] += share;
    if (rest > 0) { ++widths[c]; --rest; }
    if (rest < 0) { --widths[c]; ++rest; }
  }
}

}  // namespace

std::vector<int> ShareColumnWidths(const std::vector<int>& minimum, const std::vector<int>& preferred,
                                   const std::vector<int>& percent, int available, bool fill) {
  const size_t n = minimum.size();
  std::vector<int> widths(n);
  std::vector<size_t> all(n), plain;
  std::iota(all.begin(), all.end(), 0);
  for (size_t c = 0; c < n; ++c) {
    const int pct = c < percent.size() ? percent[c] : 0;
    const int min = minimum[c];
    const int pref = std::max(min, c < preferred.size() ? preferred[c] : min);
    widths[c] = pct > 0 ? std::max(min, available * pct / 100) : pref;
    if (pct <= 0) plain.push_back(c);
  }
  const int total = std::accumulate(widths.begin(), widths.end(), 0);
  if (total <= available) {
    if (fill) ShareOut(widths, plain.empty() ? all : plain, available - total);
    return widths;
  }
  // The preferred widths don't fit: start from the minimums and share what is left.
  for (size_t c = 0; c < n; ++c) widths[c] = minimum[c];
  const int left = available - std::accumulate(widths.begin(), widths.end(), 0);
  if (left > 0) ShareOut(widths, plain.empty() ? all : plain, left);
  return widths;
}

void SpreadSpanned(std::vector<int>& heights, int first, int count, int need) {
  if (count <= 0 || first < 0 || first + count > static_cast<int>(heights.size())) return;
  const int have = std::accumulate(heights.begin() + first, heights.begin() + first + count, 0);
  const int missing = need - have;
  if (missing <= 0) return;
  for (int r = first; r < first + count; ++r) heights[r] += missing / count;
  for (int r = first; r < first + missing % count; ++r) ++heights[r];
}

std::vector<int> FixedColumnWidths(const std::vector<int>& declared, int available) {
  std::vector<int> widths(declared.size(), 0);
  int left = std::max(0, available), open = 0;
  for (size_t c = 0; c < declared.size(); ++c) {
    if (declared[c] < 0) {
      ++open;
      continue;
    }
    widths[c] = declared[c];
    left -= declared[c];
  }
  if (open == 0 || left <= 0) return widths;
  const int share = left / open;
  int rest = left % open;
  for (size_t c = 0; c < declared.size(); ++c) {
    if (declared[c] >= 0) continue;
    widths[c] = share + (rest > 0 ? 1 : 0);
    if (rest > 0) --rest;
  }
  return widths;
}

}  // namespace qmk::toolkit::richcontent
