// table_arrange.cpp: laying out a table: column widths from the cells' measured widths, row
// heights from the cells' heights with spans spread, then each cell moved to its place.
#include <algorithm>

#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent {
namespace {

struct ColumnNeeds {
  std::vector<int> minimum, preferred, percent;
};

constexpr int kDisplayCaption = 8;
constexpr int kTableLayoutFixed = 1, kCaptionBottom = 1;

bool HasWidth(const CExtRichStyleDescription& s) {
  return s.m_lengths[kWidth] >= 0 && s.m_lengths[kWidth] != kAutoLength;
}

// What the first row's cells declare for their columns: pixels, a percent of `available`, or -1.
std::vector<int> DeclaredFirstRow(const CExtRichTableLayout& t, int columns, int available) {
  std::vector<int> declared(columns, -1);
  for (const TableCell& cell : t.m_cells) {
    if (cell.row != 0 || cell.span.m_nColSpan != 1) continue;
    const CExtRichStyleDescription& cs = *cell.item->m_pStyle;
    if (cs.m_percents[kWidth] > 0)
      declared[cell.column] = static_cast<int>(static_cast<long long>(available) * cs.m_percents[kWidth] / 100);
    else if (HasWidth(cs))
      declared[cell.column] = cs.m_lengths[kWidth];
  }
  return declared;
}

std::vector<CExtRichContentItem*> CaptionsOf(const CExtRichContentItem& table, bool bottom) {
  std::vector<CExtRichContentItem*> captions;
  for (CExtRichContentItem* child : table.m_children)
    if (child->m_nKind == kKindTag && child->m_pStyle && child->m_pStyle->Display() == kDisplayCaption &&
        (child->m_pStyle->m_enums[kCaptionSide] == kCaptionBottom) == bottom)
      captions.push_back(child);
  return captions;
}

}  // namespace

int RichDocumentLayout::ArrangeTable(CExtRichContentItem& table, int x, int y, int width) {
  const CExtRichStyleDescription& s = *table.m_pStyle;
  CExtRichTableLayout& t = TableFor(table);
  const int columns = t.ColumnCount();
  // Collapsed borders have no horizontal spacing; the rows keep the vertical one.
  const bool collapse = s.m_enums[kBorderCollapse] == 0;
  t.m_nSpacingX = collapse ? 0 : std::max(0, s.m_lengths[kBorderSpacingX]);
  t.m_nSpacingY = std::max(0, s.m_lengths[kBorderSpacingY]);
  const RichSides sides = OuterSidesOf(s, true);

  ColumnNeeds needs{std::vector<int>(columns, 0), std::vector<int>(columns, 0), std::vector<int>(columns, 0)};
  for (const TableCell& cell : t.m_cells) {
    MeasureItem(*cell.item);
    const RichItemBox& b = BoxFor(cell.item);
    const CExtRichStyleDescription& cs = *cell.item->m_pStyle;
    if (cell.span.m_nColSpan == 1) {
      needs.minimum[cell.column] = std::max(needs.minimum[cell.column], b.measuredMin);
      needs.preferred[cell.column] = std::max(needs.preferred[cell.column], b.measuredWidth);
      if (cs.m_percents[kWidth] > 0)
        needs.percent[cell.column] = std::max(needs.percent[cell.column], static_cast<int>(cs.m_percents[kWidth]));
    }
  }
  for (const TableCell& cell : t.m_cells) {
    if (cell.span.m_nColSpan == 1) continue;
    const int count = std::min(cell.span.m_nColSpan, columns - cell.column);
    const int gaps = t.m_nSpacingX * (count - 1);
    SpreadSpanned(needs.minimum, cell.column, count, BoxFor(cell.item).measuredMin - gaps);
    SpreadSpanned(needs.preferred, cell.column, count, BoxFor(cell.item).measuredWidth - gaps);
  }
  const bool fill = HasWidth(s);
  const int outer = WidthFor(table, width, true);
  const int available = std::max(0, outer - sides.Horizontal() - t.m_nSpacingX * (columns + 1));
  // A fixed layout with a width of its own takes the first row's widths and ignores the content.
  const bool fixed = s.m_enums[kTableLayout] == kTableLayoutFixed && fill;
  const std::vector<int> widths = fixed ? FixedColumnWidths(DeclaredFirstRow(t, columns, available), available)
                                        : ShareColumnWidths(needs.minimum, needs.preferred, needs.percent, available, fill);
  t.m_columnWidths[0].assign(needs.minimum.begin(), needs.minimum.end());
  t.m_columnWidths[1].assign(widths.begin(), widths.end());

  // Heights: each cell laid out in its columns' width; a row is as tall as its tallest cell.
  std::vector<int> heights(t.RowCount(), 0);
  for (const TableCell& cell : t.m_cells) {
    const RichRect area = t.CellAreaOf(cell.row, cell.row + cell.span.m_nRowSpan - 1, cell.column,
                                       cell.column + cell.span.m_nColSpan - 1);
    const int h = ArrangeItem(*cell.item, 0, 0, area.Width());
    if (cell.span.m_nRowSpan == 1) heights[cell.row] = std::max(heights[cell.row], h);
  }
  for (const TableCell& cell : t.m_cells) {
    if (cell.span.m_nRowSpan == 1) continue;
    const int count = std::min(cell.span.m_nRowSpan, t.RowCount() - cell.row);
    SpreadSpanned(heights, cell.row, count, BoxFor(cell.item).box.Height() - t.m_nSpacingY * (count - 1));
  }
  for (int r = 0; r < t.RowCount(); ++r) t[r]->m_nHeight[0] = t[r]->m_nHeight[1] = heights[r];
  t.m_sizes.assign(heights.begin(), heights.end());

  // Captions sit inside the table's box above or below the grid, as wide as the grid or as their
  // text wants within the room there is; the grid stays at the left.
  const int gridWidth = t.TotalColumns() + HorizontalGap(t.m_nSpacingX, columns) + (columns > 0 ? t.m_nSpacingX : 0);
  int contentWidth = gridWidth;
  for (bool bottom : {false, true})
    for (CExtRichContentItem* caption : CaptionsOf(table, bottom)) {
      MeasureItem(*caption);
      contentWidth = std::max(contentWidth, std::min(BoxFor(caption).measuredWidth, std::max(0, width - sides.Horizontal())));
    }
  int captionTop = y + sides.top;
  for (CExtRichContentItem* caption : CaptionsOf(table, false))
    captionTop += ArrangeItem(*caption, x + sides.left, captionTop, contentWidth);

  // Each cell is moved to its place and stretched to its rows.
  const int originX = x + sides.left, originY = captionTop;
  for (const TableCell& cell : t.m_cells) {
    RichRect area = t.CellAreaOf(cell.row, cell.row + cell.span.m_nRowSpan - 1, cell.column,
                                 cell.column + cell.span.m_nColSpan - 1);
    area.Offset(originX, originY);
    RichItemBox& b = BoxFor(cell.item);
    const int extra = area.Height() - b.box.Height();
    const int align = cell.item->m_pStyle->m_enums[kVerticalAlign];
    // Cells keep their content at the top unless they ask for the middle: "bottom" is the stored
    // default of every item, so it cannot tell a cell that asked for it.
    const int down = align == kAlignMiddle ? extra / 2 : 0;
    OffsetItem(*cell.item, area.left - b.box.left, area.top - b.box.top + down);
    RichItemBox& moved = BoxFor(cell.item);
    moved.box.top -= down;
    moved.box.bottom = moved.box.top + area.Height();
  }
  int contentHeight = captionTop - (y + sides.top) + t.TotalRows() + VerticalGap(t.m_nSpacingY, t.RowCount());
  for (CExtRichContentItem* caption : CaptionsOf(table, true))
    contentHeight += ArrangeItem(*caption, x + sides.left, y + sides.top + contentHeight, contentWidth);
  RichItemBox& b = BoxFor(&table);
  b.box = {x, y, x + contentWidth + sides.Horizontal(), y + contentHeight + sides.Vertical()};
  b.content = Deflate(b.box, sides);
  // Rows and row groups cover their cells, so a point on a cell finds its way down to it.
  std::vector<std::pair<CExtRichContentItem*, bool>> work;
  for (CExtRichContentItem* child : table.m_children) work.emplace_back(child, false);
  while (!work.empty()) {
    auto [item, done] = work.back();
    work.pop_back();
    const int display = DisplayOf(*item);
    if (item->m_nKind != kKindTag || display == kDisplayTableCell || display == kDisplayNone ||
        display == kDisplayCaption)
      continue;
    if (!done) {
      work.emplace_back(item, true);
      for (CExtRichContentItem* child : item->m_children) work.emplace_back(child, false);
      continue;
    }
    RichRect all{};
    bool any = false;
    for (const CExtRichContentItem* child : item->m_children)
      if (const RichItemBox* c = BoxOf(child); c && !c->box.IsEmpty()) {
        all = any ? RichRect{std::min(all.left, c->box.left), std::min(all.top, c->box.top),
                             std::max(all.right, c->box.right), std::max(all.bottom, c->box.bottom)}
                  : c->box;
        any = true;
      }
    BoxFor(item).box = BoxFor(item).content = all;
  }
  return b.box.Height();
}

}  // namespace qmk::toolkit::richcontent
