// inline_flow.cpp: the flow of one block's children: lines of words, spaces and inline boxes
// broken at spaces, finished by alignment and justification; block children stacked between
// lines; list markers; and the measuring pass that gives narrowest and preferred widths.
#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "toolkit/richcontent/doc_objects.h"
#include "toolkit/richcontent/document_layout.h"
#include "toolkit/richcontent/word_text.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr int kAlignCenter = 1, kAlignRight = 2, kAlignJustify = 3, kAlignJustifyAll = 4;
constexpr int kWhiteNoWrap = 1, kWhitePre = 2, kWhitePreLine = 3, kWhitePreWrap = 4;
// Nesting deeper than this is left out of the flow and the measure rather than exhausting the stack.
constexpr int kMaxInlineDepth = 200;

const CExtRichStyleDescription* TextStyleOf(const CExtRichContentItem& item) {
  for (const CExtRichContentItem* at = &item; at; at = at->m_pParent)
    if (at->m_pStyle) return at->m_pStyle;
  return nullptr;
}

bool IsOutOfFlow(const CExtRichStyleDescription& s) {
  return s.m_enums[kPosition] == 0 || s.m_enums[kPosition] == 1 || s.m_enums[kFloat] == 0 || s.m_enums[kFloat] == 1;
}

// "pre", "pre-line" and "pre-wrap" end a line at each newline of the text.
bool KeepsNewlines(int whiteSpace) {
  return whiteSpace == kWhitePre || whiteSpace == kWhitePreLine || whiteSpace == kWhitePreWrap;
}
// "pre" and "pre-wrap" keep a run of blanks as wide as it is; the others show one blank.
bool KeepsBlanks(int whiteSpace) { return whiteSpace == kWhitePre || whiteSpace == kWhitePreWrap; }
bool Wraps(int whiteSpace) { return whiteSpace != kWhiteNoWrap && whiteSpace != kWhitePre; }

bool IsBreak(const CExtRichContentItem& item) { return item.m_nKind == kKindTag && item.m_strName == "br"; }
// Images are atomic boxes on the line whatever their display says.
bool IsImage(const CExtRichContentItem& item) { return item.m_nKind == kKindTag && item.m_strName == "img"; }

}  // namespace

struct RichDocumentLayout::LineState {
  RichRect area;
  int y = 0, x = 0;
  int indent = 0;
  bool firstLine = true;
  int textAlign = 0, whiteSpace = 0;
  std::vector<LineItem> items;
  bool pendingSpace = false;
  CExtRichContentItem* spaceItem = nullptr;
  const CExtRichStyleDescription* spaceStyle = nullptr;
  size_t spaceFrom = 0;    // the blanks of the space item that follow its last newline
  bool afterBreak = true;  // the line was begun by the block, a newline or `br`, not by wrapping
  int listNumber = 0;
  std::vector<CExtRichContentItem*> inlines;

  bool Wraps() const { return richcontent::Wraps(whiteSpace); }
  int LineLeft() const { return area.left + (firstLine ? indent : 0); }
};

namespace {

// The height a word of this style takes on its line.
int WordHeight(const CExtRichStyleDescription& s, int measured) {
  if (s.m_nLineHeight > 0) return s.m_nLineHeight;
  return static_cast<int>(std::lround(measured * s.m_lfLineHeightFactor));
}

}  // namespace

void RichDocumentLayout::AddWord(CExtRichContentItem& word, const CExtRichStyleDescription& s, LineState& line) {
  const RichTextSize size = WordSize(word, s);
  int spaceWidth = PendingSpaceWidth(line);
  if (spaceWidth > 0) spaceWidth += s.m_lengths[kWordSpacing];
  if (line.Wraps() && !line.items.empty() && line.x + spaceWidth + size.width > line.area.right) {
    FinishLine(line, false);
    spaceWidth = 0;
  }
  const bool afterSpace = line.pendingSpace || line.items.empty();
  if (spaceWidth > 0) {
    LineItem space;
    space.kind = 1;
    space.item = line.spaceItem;
    space.box = {line.x, 0, line.x + spaceWidth, WordHeight(*line.spaceStyle, size.height)};
    line.items.push_back(space);
    line.x += spaceWidth;
  }
  line.pendingSpace = false;
  LineItem li;
  li.kind = word.m_nKind == kKindWord ? 0 : 2;
  li.item = &word;
  li.afterSpace = afterSpace;
  li.hidden = s.m_enums[kVisibility] != 0;
  li.box = {line.x, 0, line.x + size.width, WordHeight(s, size.height)};
  line.items.push_back(li);
  line.x += size.width;
}

void RichDocumentLayout::AddAtomic(CExtRichContentItem& item, LineState& line) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  int width, height;
  if (IsImage(item)) {
    // An image without a size of its own shows as a small frame.
    const RichSides sides = OuterSidesOf(s, true);
    width = (s.m_lengths[kWidth] >= 0 && s.m_lengths[kWidth] != kAutoLength ? s.m_lengths[kWidth] : 16) + sides.Horizontal();
    height = (s.m_lengths[kHeight] >= 0 && s.m_lengths[kHeight] != kAutoLength ? s.m_lengths[kHeight] : 16) + sides.Vertical();
    RichItemBox& b = BoxFor(&item);
    b.box = {0, 0, width, height};
    b.content = Deflate(b.box, sides);
  } else {
    MeasureItem(item);
    width = WidthFor(item, line.area.Width(), true);
    height = ArrangeItem(item, 0, 0, width);
    width = BoxFor(&item).box.Width();
  }
  int spaceWidth = PendingSpaceWidth(line);
  if (line.Wraps() && !line.items.empty() && line.x + spaceWidth + width > line.area.right) {
    FinishLine(line, false);
    spaceWidth = 0;
  }
  if (spaceWidth > 0) {
    LineItem space;
    space.kind = 1;
    space.item = line.spaceItem;
    space.box = {line.x, 0, line.x + spaceWidth, BlankSize(*line.spaceStyle).height};
    line.items.push_back(space);
    line.x += spaceWidth;
  }
  LineItem li;
  li.kind = 2;
  li.item = &item;
  li.afterSpace = line.pendingSpace || line.items.empty();
  li.image = IsImage(item);
  li.verticalAlign = s.m_enums[kVerticalAlign];
  li.box = {line.x, 0, line.x + width, height};
  line.items.push_back(li);
  line.x += width;
  line.pendingSpace = false;
}

RichTextSize RichDocumentLayout::WordSize(const CExtRichContentItem& word, const CExtRichStyleDescription& s) {
  RichItemBox& b = BoxFor(&word);
  if (!b.measured) {
    b.text = MeasureShown(*m_measurer, ShownText(word.m_strName, s), s);
    b.measured = true;
  }
  return b.text;
}

RichTextSize RichDocumentLayout::BlankSize(const CExtRichStyleDescription& s) {
  // The spaces of a paragraph come one after the other in the same style: the last answer is
  // kept, which spares a cache lookup for each of them.
  if (m_blankStyle != &s) {
    m_blankStyle = &s;
    m_blankSize = m_measurer->Measure(" ", s.m_font);
  }
  return m_blankSize;
}

int RichDocumentLayout::PendingSpaceWidth(const LineState& line) {
  if (!line.pendingSpace) return 0;
  const bool keep = KeepsBlanks(line.spaceStyle->m_enums[kWhiteSpace]);
  // Blanks at the start of a line show only where they are kept and the line was not wrapped.
  if (line.items.empty() && !(keep && line.afterBreak)) return 0;
  if (!keep) return BlankSize(*line.spaceStyle).width;
  return m_measurer->Measure(line.spaceItem->m_strName.substr(line.spaceFrom), line.spaceStyle->m_font).width;
}

void RichDocumentLayout::AddSpace(CExtRichContentItem& space, const CExtRichStyleDescription& s, LineState& line) {
  BoxFor(&space).box = {};
  const std::string& text = space.m_strName;
  size_t from = 0;
  // Text is cut into words and spaces before any style is known, so the newlines of a run wait
  // in its space items until the layout knows whether "white-space" keeps them.
  if (KeepsNewlines(s.m_enums[kWhiteSpace]))
    for (size_t newline = text.find('\n'); newline != std::string::npos; newline = text.find('\n', from)) {
      BreakLine(s, line);
      from = newline + 1;
    }
  line.pendingSpace = from < text.size();
  line.spaceItem = &space;
  line.spaceStyle = &s;
  line.spaceFrom = from;
}

void RichDocumentLayout::BreakLine(const CExtRichStyleDescription& s, LineState& line) {
  // An empty line still takes the height of a line of text.
  if (line.items.empty()) line.y += WordHeight(s, m_measurer->Measure("M", s.m_font).height);
  FinishLine(line, true);
}

void RichDocumentLayout::FinishLine(LineState& line, bool lastOfBlock) {
  line.pendingSpace = false;
  line.afterBreak = lastOfBlock;
  while (!line.items.empty() && line.items.back().kind == 1) {
    BoxFor(line.items.back().item).box = {};
    line.items.pop_back();
  }
  if (line.items.empty()) return;
  int height = 0;
  for (const LineItem& i : line.items) height = std::max(height, i.box.Height());
  for (LineItem& i : line.items) {
    const int h = i.box.Height();
    i.box.top = line.y + height - h;
    i.box.bottom = i.box.top + h;
  }
  int contentRight = line.items.front().box.left;
  for (const LineItem& i : line.items) contentRight = std::max(contentRight, i.box.right);
  const int free = line.area.right - contentRight;
  if (line.textAlign == kAlignCenter && free > 0) ShiftLine(line.items, free / 2);
  if (line.textAlign == kAlignRight && free > 0) ShiftLine(line.items, free);
  // "justify" leaves the last line of a block as it is; "justifywithlastline" does not.
  if (line.textAlign == kAlignJustifyAll || (line.textAlign == kAlignJustify && !lastOfBlock))
    JustifyLine(line.items, line.area.right);
  const int needed = AlignLine(line.items, height);
  if (needed > height) height = needed;
  for (const LineItem& i : line.items) {
    RichItemBox& b = BoxFor(i.item);
    if (i.kind == 2 && i.item->m_nKind == kKindTag) {
      OffsetItem(*i.item, i.box.left - b.box.left, i.box.top - b.box.top);
    } else {
      b.box = b.content = i.box;
    }
  }
  line.items.clear();
  line.y += height;
  line.firstLine = false;
  line.x = line.LineLeft();
}

void RichDocumentLayout::PlaceMarker(CExtRichContentItem& item, int number) {
  RichItemBox& b = BoxFor(&item);
  const CExtRichStyleDescription& s = *item.m_pStyle;
  b.markerType = s.m_enums[kListType];
  b.marker = ListMarkerText(b.markerType, number, true);
  b.markerImage.clear();
  const RichTextSize size = m_measurer->Measure(b.marker.empty() ? "M" : b.marker, s.m_font);
  int top = b.content.top;
  for (const CExtRichContentItem* child : item.m_children)
    if (const RichItemBox* c = BoxOf(child); c && !c->box.IsEmpty()) {
      top = c->box.top;
      break;
    }
  // A list image the document holds stands for the marker, left of the content with a gap of a
  // quarter line; an image it does not hold leaves the marker of the list type.
  if (const CExtRichDocObjectImage* image = FindImageObject(m_document, s.m_strings[kListImage])) {
    b.marker.clear();
    b.markerImage = s.m_strings[kListImage];
    const int gap = size.height / 4, w = image->m_bitmap.Width(), h = image->m_bitmap.Height();
    b.markerBox = {b.content.left - gap - w, top, b.content.left - gap, top + h};
  } else if (b.marker.empty()) {
    // Bullets are drawn: a square a third of the text height, centred on the first line.
    const int side = std::max(4, size.height / 3);
    const int right = b.content.left - side;
    b.markerBox = {right - side, top + (size.height - side) / 2, right, top + (size.height - side) / 2 + side};
  } else {
    b.markerBox = {b.content.left - size.width, top, b.content.left, top + size.height};
  }
}

void RichDocumentLayout::UniteInlineBoxes(const std::vector<CExtRichContentItem*>& inlines) {
  // Inner elements were listed after their parents, so walking backwards unites them first.
  for (auto at = inlines.rbegin(); at != inlines.rend(); ++at) {
    RichRect all{};
    bool any = false;
    for (const CExtRichContentItem* child : (*at)->m_children) {
      const RichItemBox* c = BoxOf(child);
      if (!c || c->box.IsEmpty()) continue;
      if (!any) all = c->box;
      all = {std::min(all.left, c->box.left), std::min(all.top, c->box.top),
             std::max(all.right, c->box.right), std::max(all.bottom, c->box.bottom)};
      any = true;
    }
    BoxFor(*at).box = BoxFor(*at).content = all;
  }
}

void RichDocumentLayout::FlowInline(CExtRichContentItem& element, LineState& line, int depth) {
  const CExtRichStyleDescription* own = TextStyleOf(element);
  if (!own || depth > kMaxInlineDepth) return;
  if (depth > 0) line.inlines.push_back(&element);
  for (CExtRichContentItem* child : element.m_children) {
    if (child->m_nKind == kKindWord) {
      AddWord(*child, *own, line);
      continue;
    }
    if (child->m_nKind == kKindSpace) {
      AddSpace(*child, *own, line);
      continue;
    }
    if (child->m_nKind != kKindTag || !child->m_pStyle) continue;
    const int display = DisplayOf(*child);
    if (display == kDisplayNone) {
      BoxFor(child).box = {};
      continue;
    }
    if (display == kDisplayDock) continue;  // placed by DockAndFlow
    if (IsOutOfFlow(*child->m_pStyle)) {
      FinishLine(line, true);
      // A box that flows twice (for its scroll bar) meets its out-of-flow children twice.
      if (std::find(m_outOfFlow.begin(), m_outOfFlow.end(), child) == m_outOfFlow.end()) m_outOfFlow.push_back(child);
      m_containers[child] = {line.area, line.y};
      continue;
    }
    if (IsBreak(*child)) {
      BreakLine(*child->m_pStyle, line);
      BoxFor(child).box = {line.area.left, line.y, line.area.left, line.y};
      continue;
    }
    if (display == kDisplayInline && !IsImage(*child)) {
      FlowInline(*child, line, depth + 1);
    } else if (IsBlockLevel(display)) {
      FinishLine(line, true);
      line.y += ArrangeItem(*child, line.area.left, line.y, line.area.Width());
      if (display == kDisplayListItem) {
        const CExtRichContentItem* value = child->FindAttribute("value");
        if (value) line.listNumber = std::atoi(value->m_strRaw.c_str()) - 1;
        PlaceMarker(*child, ++line.listNumber);
      }
      line.firstLine = true;
      line.x = line.LineLeft();
    } else {
      AddAtomic(*child, line);
    }
  }
}

int RichDocumentLayout::FlowChildren(CExtRichContentItem& item, const RichRect& content) {
  LineState line;
  const CExtRichStyleDescription& s = *item.m_pStyle;
  line.area = content;
  line.y = content.top;
  line.indent = s.m_lengths[kTextIndent];
  line.textAlign = s.m_enums[kTextAlign];
  line.whiteSpace = s.m_enums[kWhiteSpace];
  line.x = line.LineLeft();
  FlowInline(item, line, 0);
  FinishLine(line, true);
  UniteInlineBoxes(line.inlines);
  return line.y - content.top;
}

namespace {

struct WidthSums {
  int run = 0, preferred = 0, minimum = 0;
  void EndRun() {
    preferred = std::max(preferred, run);
    run = 0;
  }
};

}  // namespace

void RichDocumentLayout::MeasureItem(CExtRichContentItem& item) {
  if (BoxFor(&item).measured || m_depth >= kMaxInlineDepth) return;
  BoxFor(&item).measured = true;
  ++m_depth;
  MeasureChildren(item, BoxFor(&item).measuredMin, BoxFor(&item).measuredWidth);
  --m_depth;
}

void RichDocumentLayout::MeasureChildren(CExtRichContentItem& item, int& minimum, int& preferred) {
  WidthSums sums;
  // Lines that never wrap are as narrow as their longest run.
  const bool wraps = !item.m_pStyle || Wraps(item.m_pStyle->m_enums[kWhiteSpace]);
  // Inline descendants add to the current run; block children end it. Each child goes with the
  // style its text is drawn in, so a word's own record is not read again for it.
  std::vector<std::pair<CExtRichContentItem*, const CExtRichStyleDescription*>> work;
  const auto pushChildren = [&work](CExtRichContentItem& parent, const CExtRichStyleDescription* style) {
    for (auto child = parent.m_children.rbegin(); child != parent.m_children.rend(); ++child)
      work.emplace_back(*child, style);
  };
  pushChildren(item, TextStyleOf(item));
  while (!work.empty()) {
    auto [child, s] = work.back();
    work.pop_back();
    if (child->m_nKind == kKindTag && child->m_pStyle) s = child->m_pStyle;
    if (!s) continue;
    if (child->m_nKind == kKindWord || child->m_nKind == kKindSpace) {
      const int w = child->m_nKind == kKindWord ? WordSize(*child, *s).width : BlankSize(*s).width;
      if (child->m_nKind == kKindSpace && KeepsNewlines(s->m_enums[kWhiteSpace]) &&
          child->m_strName.find('\n') != std::string::npos)
        sums.EndRun();
      sums.run += w;
      if (child->m_nKind == kKindWord) sums.minimum = std::max(sums.minimum, w);
      if (!wraps) sums.minimum = std::max(sums.minimum, sums.run);
      continue;
    }
    if (child->m_nKind != kKindTag || !child->m_pStyle) continue;
    const int display = DisplayOf(*child);
    if (display == kDisplayNone || IsOutOfFlow(*child->m_pStyle)) continue;
    if (IsBreak(*child)) {
      sums.EndRun();
    } else if (display == kDisplayInline && !IsImage(*child)) {
      pushChildren(*child, s);
    } else {
      MeasureItem(*child);
      const RichItemBox& c = BoxFor(child);
      sums.minimum = std::max(sums.minimum, c.measuredMin);
      if (IsBlockLevel(display)) {
        sums.EndRun();
        sums.preferred = std::max(sums.preferred, c.measuredWidth);
      } else {
        sums.run += c.measuredWidth;
      }
    }
  }
  sums.EndRun();
  if (item.m_nKind != kKindTag || !item.m_pStyle) {
    minimum = sums.minimum;
    preferred = sums.preferred;
    return;
  }
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const int sides = OuterSidesOf(s, true).Horizontal();
  if (const int display = DisplayOf(item); display == kDisplayTable || display == kDisplayInlineTable) {
    // A table's widths are those of its rows side by side.
    const CExtRichTableLayout& table = TableFor(item);
    std::vector<int> mins(table.ColumnCount(), 0), prefs(table.ColumnCount(), 0);
    for (const TableCell& cell : table.m_cells) {
      MeasureItem(*cell.item);
      if (cell.span.m_nColSpan != 1) continue;
      mins[cell.column] = std::max(mins[cell.column], BoxFor(cell.item).measuredMin);
      prefs[cell.column] = std::max(prefs[cell.column], BoxFor(cell.item).measuredWidth);
    }
    const int spacing = s.m_enums[kBorderCollapse] == 0 ? 0 : std::max(0, s.m_lengths[kBorderSpacingX]);
    for (const TableCell& cell : table.m_cells) {
      if (cell.span.m_nColSpan == 1) continue;
      const int count = std::min(cell.span.m_nColSpan, table.ColumnCount() - cell.column);
      SpreadSpanned(mins, cell.column, count, BoxFor(cell.item).measuredMin - spacing * (count - 1));
      SpreadSpanned(prefs, cell.column, count, BoxFor(cell.item).measuredWidth - spacing * (count - 1));
    }
    const int gaps = (table.ColumnCount() + 1) * spacing;
    sums.minimum = gaps;
    sums.preferred = gaps;
    for (size_t c = 0; c < mins.size(); ++c) {
      sums.minimum += mins[c];
      sums.preferred += prefs[c];
    }
  }
  if (s.m_lengths[kWidth] >= 0 && s.m_lengths[kWidth] != kAutoLength && s.m_percents[kWidth] <= 0)
    sums.minimum = sums.preferred = s.m_lengths[kWidth];
  minimum = sums.minimum + sides;
  preferred = std::max(sums.preferred, sums.minimum) + sides;
}

}  // namespace qmk::toolkit::richcontent
