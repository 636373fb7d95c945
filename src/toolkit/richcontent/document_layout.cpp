// document_layout.cpp: the whole-document pass, measuring and block flow of RichDocumentLayout.
#include "toolkit/richcontent/document_layout.h"

#include <algorithm>

namespace qmk::toolkit::richcontent {
namespace {

// Deeper nesting than this is laid out as empty boxes rather than exhausting the stack.
constexpr int kMaxDepth = 200;
constexpr int kOverflowHidden = 1, kOverflowScroll = 2, kOverflowAuto = 3;
constexpr int kBarHidden = 1, kBarVisible = 2;

bool HasBorder(const CExtRichContentItem& item) { return item.m_nKind != kKindWord && item.m_nKind != kKindSpace; }

bool IsSet(int length) { return length != kAutoLength && length != kNoValue && length >= 0; }
// A relative offset: "auto" moves nothing, negative pixels move back.
int OffsetValue(int length) { return length == kAutoLength || length == kNoValue ? 0 : length; }

}  // namespace

RichDocumentLayout::RichDocumentLayout(CExtRichContentLayout& document, RichTextMeasurer* measurer)
    : m_document(document), m_measurer(measurer) {
  if (!m_measurer) {
    m_ownMeasurer = std::make_unique<PangoTextMeasurer>();
    m_measurer = m_ownMeasurer.get();
  }
}

RichDocumentLayout::~RichDocumentLayout() = default;

int RichDocumentLayout::DisplayOf(const CExtRichContentItem& item) {
  if (item.m_nKind == kKindRoot) return kDisplayBlock;
  if (item.m_nKind == kKindWord || item.m_nKind == kKindSpace) return kDisplayInline;
  if (item.m_nKind != kKindTag) return kDisplayNone;
  return item.m_pStyle ? item.m_pStyle->Display() : kDisplayInline;
}

bool RichDocumentLayout::IsBlockLevel(int display) {
  return display != kDisplayInline && display != kDisplayInlineBlock && display != kDisplayInlineTable &&
         display != kDisplayNone;
}

const RichItemBox* RichDocumentLayout::BoxOf(const CExtRichContentItem* item) const {
  return const_cast<RichDocumentLayout*>(this)->BoxOf(item);
}

RichItemBox* RichDocumentLayout::BoxOf(const CExtRichContentItem* item) {
  if (!item) return nullptr;
  const size_t slot = static_cast<size_t>(item->m_nLayoutSlot);
  if (slot < m_slotItems.size() && m_slotItems[slot] == item) return m_made[slot] ? &m_boxes[slot] : nullptr;
  const auto found = m_looseBoxes.find(item);
  return found == m_looseBoxes.end() ? nullptr : &found->second;
}

RichItemBox& RichDocumentLayout::BoxFor(const CExtRichContentItem* item) {
  const size_t slot = static_cast<size_t>(item->m_nLayoutSlot);
  if (slot < m_slotItems.size() && m_slotItems[slot] == item) {
    // A box is cleared when it is first asked for, while its memory is being fetched anyway,
    // rather than in a pass of its own over every box.
    if (!m_made[slot]) {
      m_made[slot] = 1;
      m_boxes[slot] = RichItemBox();
    }
    return m_boxes[slot];
  }
  return m_looseBoxes[item];
}

CExtRichTableLayout& RichDocumentLayout::TableFor(CExtRichContentItem& table) {
  // Gathered once a layout: measuring and arranging both need the rows and cells.
  std::unique_ptr<CExtRichTableLayout>& kept = m_tables[&table];
  if (!kept) {
    kept = std::make_unique<CExtRichTableLayout>();
    kept->Gather(table);
  }
  return *kept;
}

const CExtRichTableLayout* RichDocumentLayout::TableOf(const CExtRichContentItem* item) const {
  const auto found = m_tables.find(item);
  return found == m_tables.end() ? nullptr : found->second.get();
}

int RichDocumentLayout::DocumentHeight() const {
  int bottom = 0;
  if (const RichItemBox* root = BoxOf(m_document.Root())) bottom = root->box.bottom;
  for (const CExtRichContentItem* item : m_outOfFlow)
    if (const RichItemBox* b = BoxOf(item)) bottom = std::max(bottom, b->box.bottom);
  return bottom;
}

void RichDocumentLayout::ComputeTree(const CExtRichFontDescription& font) {
  m_rootStyle = CExtRichStyleDescription();
  m_rootStyle.m_font = font;
  m_slotItems.clear();
  m_docks.clear();
  m_blankStyle = nullptr;  // a style made again may come back at the address of an old one
  CExtRichContentItem* root = m_document.Root();
  if (root) {
    // One walk, depth first and without recursion, gives every item of the tree its slot and
    // every element its style, and notes the boxes with docked children: a long document does
    // not fit the processor's caches, so each walk over it costs.
    std::vector<std::pair<CExtRichContentItem*, const CExtRichStyleDescription*>> work{{root, &m_rootStyle}};
    while (!work.empty()) {
      auto [item, parentStyle] = work.back();
      work.pop_back();
      item->m_nLayoutSlot = static_cast<int>(m_slotItems.size());
      m_slotItems.push_back(item);
      // Words and spaces are drawn in their element's style; they keep none of their own.
      if (item->m_nKind == kKindWord || item->m_nKind == kKindSpace) continue;
      item->m_bComputed = false;
      const CExtRichStyleDescription& style = item->ComputeStyle(*parentStyle);
      if (item->m_nKind == kKindTag && style.Display() == kDisplayDock && item->m_pParent) m_docks.insert(item->m_pParent);
      for (auto child = item->m_children.rbegin(); child != item->m_children.rend(); ++child)
        work.emplace_back(*child, &style);
    }
  }
  // Styles changed: the boxes are made again.
  m_boxes.resize(m_slotItems.size());
  m_made.assign(m_slotItems.size(), 0);
  m_looseBoxes.clear();
}

void RichDocumentLayout::LayoutTree(const RichRect& client) {
  m_extentsStale = true;
  m_tables.clear();
  m_outOfFlow.clear();
  m_containers.clear();
  m_client = client;
  const int rotation = m_document.m_nRotation;
  // A document turned on its side is laid out in the turned page.
  if (rotation == 90 || rotation == 270)
    m_client = {client.left, client.top, client.left + client.Height(), client.top + client.Width()};
  ComputeTree(CExtRichFontDescription());
  CExtRichContentItem* root = m_document.Root();
  if (!root) return;
  MeasureItem(*root);
  ArrangeItem(*root, m_client.left, m_client.top, m_client.Width());
  for (size_t i = 0; i < m_outOfFlow.size(); ++i) ArrangeOutOfFlow(*m_outOfFlow[i]);
  m_client = client;
}

void RichDocumentLayout::OffsetItem(CExtRichContentItem& item, int dx, int dy, bool recursive) {
  if (dx == 0 && dy == 0) return;
  m_extentsStale = true;
  std::vector<CExtRichContentItem*> work{&item};
  while (!work.empty()) {
    CExtRichContentItem* current = work.back();
    work.pop_back();
    if (RichItemBox* b = BoxOf(current)) {
      b->box.Offset(dx, dy);
      b->content.Offset(dx, dy);
      b->markerBox.Offset(dx, dy);
    }
    if (recursive) work.insert(work.end(), current->m_children.begin(), current->m_children.end());
  }
}

int RichDocumentLayout::WidthFor(const CExtRichContentItem& item, int available, bool shrink) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const RichSides sides = OuterSidesOf(s, HasBorder(item));
  if (IsSet(s.m_lengths[kWidth]) && s.m_percents[kWidth] <= 0) return s.m_lengths[kWidth] + sides.Horizontal();
  if (s.m_percents[kWidth] > 0)
    return static_cast<int>((available - sides.Horizontal()) * s.m_percents[kWidth] / 100) + sides.Horizontal();
  if (!shrink) return available;
  const RichItemBox& b = BoxFor(&item);
  return std::min(std::max(b.measuredMin, available), b.measuredWidth);
}

int RichDocumentLayout::ArrangeItem(CExtRichContentItem& item, int x, int y, int width) {
  RichItemBox& b = BoxFor(&item);
  b.box = b.content = {x, y, x, y};
  const int display = DisplayOf(item);
  if (display == kDisplayNone || !item.m_pStyle || m_depth >= kMaxDepth) return 0;
  ++m_depth;
  const int height = (display == kDisplayTable || display == kDisplayInlineTable)
                         ? ArrangeTable(item, x, y, width)
                         : ArrangeBlock(item, x, y, width);
  --m_depth;
  const CExtRichStyleDescription& s = *item.m_pStyle;
  if (s.m_enums[kPosition] == 2) {  // relative: moved after its place in the flow is taken
    OffsetItem(item, OffsetValue(s.m_lengths[kLeft]), OffsetValue(s.m_lengths[kTop]));
  }
  return height;
}

int RichDocumentLayout::ArrangeBlock(CExtRichContentItem& item, int x, int y, int width) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const RichSides m = MarginOf(s), bd = HasBorder(item) ? BorderOf(s) : RichSides{}, p = PaddingOf(s);
  // A table cell gets the width of its columns whatever it asked for.
  const bool given = item.m_nKind == kKindRoot || DisplayOf(item) == kDisplayTableCell;
  int outer = given ? width : WidthFor(item, width, false);
  const RichSides sides = OuterSidesOf(s, HasBorder(item));
  int contentWidth = std::max(0, outer - sides.Horizontal());
  if (s.m_lengths[kMaxWidth] >= 0 && s.m_percents[kMaxWidth] <= 0) contentWidth = std::min(contentWidth, s.m_lengths[kMaxWidth]);
  if (s.m_lengths[kMinWidth] > 0 && s.m_percents[kMinWidth] <= 0) contentWidth = std::max(contentWidth, s.m_lengths[kMinWidth]);
  outer = contentWidth + sides.Horizontal();

  RichItemBox& b = BoxFor(&item);
  b.box = {x, y, x + outer, y};
  b.content = {x + sides.left, y + sides.top, x + sides.left + contentWidth, y + sides.top};
  b.barH = b.barV = false;
  const bool fixedHeight = IsSet(s.m_lengths[kHeight]) && s.m_percents[kHeight] <= 0;
  int contentHeight = DockAndFlow(item, b.content, fixedHeight ? s.m_lengths[kHeight] : -1);
  int height = fixedHeight ? s.m_lengths[kHeight] : contentHeight;
  if (s.m_lengths[kMinHeight] > 0) height = std::max(height, s.m_lengths[kMinHeight]);
  if (s.m_lengths[kMaxHeight] >= 0) height = std::min(height, s.m_lengths[kMaxHeight]);
  RichItemBox& again = BoxFor(&item);  // children may have grown the map
  again.content.bottom = again.content.top + height;
  again.box.bottom = again.content.bottom + p.bottom + bd.bottom + m.bottom;
  ApplyScrolling(item, again, contentHeight);
  if (again.barV) {
    // The vertical bar took its room from the content: the children flow again, narrower.
    RichRect narrower = again.content;
    narrower.bottom = narrower.top;
    const int narrowHeight = DockAndFlow(item, narrower, again.content.Height());
    RichItemBox& after = BoxFor(&item);
    after.extentHeight = narrowHeight;
    after.scrollY = std::clamp(after.scrollY, 0, std::max(0, narrowHeight - after.content.Height()));
  }
  return BoxFor(&item).box.Height();
}

void RichDocumentLayout::ApplyScrolling(CExtRichContentItem& item, RichItemBox& box, int contentHeight) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const int overflow = s.m_enums[kOverflow];
  const bool clips = overflow == kOverflowHidden || overflow == kOverflowScroll || overflow == kOverflowAuto;
  if (!clips) return;
  int extentRight = box.content.right;
  for (const CExtRichContentItem* child : item.m_children)
    if (const RichItemBox* c = BoxOf(child)) extentRight = std::max(extentRight, c->box.right);
  box.extentWidth = extentRight - box.content.left;
  box.extentHeight = contentHeight;
  bool v = overflow == kOverflowScroll || (overflow == kOverflowAuto && contentHeight > box.content.Height());
  bool h = overflow == kOverflowScroll || (overflow == kOverflowAuto && box.extentWidth > box.content.Width());
  if (s.m_enums[kScrollBarV] == kBarVisible) v = overflow != kOverflowHidden;
  if (s.m_enums[kScrollBarV] == kBarHidden) v = false;
  if (s.m_enums[kScrollBarH] == kBarVisible) h = overflow != kOverflowHidden;
  if (s.m_enums[kScrollBarH] == kBarHidden) h = false;
  box.barV = v;
  box.barH = h;
  // The bars take their room from the content box.
  if (v) box.content.right = std::max(box.content.left, box.content.right - kScrollBarSize);
  if (h) box.content.bottom = std::max(box.content.top, box.content.bottom - kScrollBarSize);
  box.scrollX = std::clamp(box.scrollX, 0, std::max(0, box.extentWidth - box.content.Width()));
  box.scrollY = std::clamp(box.scrollY, 0, std::max(0, box.extentHeight - box.content.Height()));
}

int RichDocumentLayout::DockAndFlow(CExtRichContentItem& item, const RichRect& content, int height) {
  if (!m_docks.count(&item)) return FlowChildren(item, content);
  std::vector<CExtRichContentItem*> docked;
  for (CExtRichContentItem* child : item.m_children)
    if (child->m_nKind == kKindTag && DisplayOf(*child) == kDisplayDock) docked.push_back(child);
  // The "pre-" sides take their room first, then the other sides, then the fill children share
  // what is left; the ordinary flow goes into that rest as well.
  RichRect rest = content;
  rest.bottom = height >= 0 ? content.top + height : content.top;
  int lowest = content.top;
  std::vector<CExtRichContentItem*> bottoms;
  auto dockOf = [](const CExtRichContentItem* child) { return child->m_pStyle->m_enums[kDockPosition]; };
  for (bool pre : {true, false})
    for (CExtRichContentItem* child : docked) {
      const int dock = dockOf(child);
      if (dock < 1 || dock > 8 || (dock % 2 == 0) != pre) continue;
      const int side = (dock - 1) / 2;  // 0 top, 1 bottom, 2 left, 3 right
      if (side == 1 && height < 0) {
        bottoms.push_back(child);  // placed under the flow when the height is not known
        continue;
      }
      const int width = side >= 2 ? WidthFor(*child, rest.Width(), true) : rest.Width();
      const int h = ArrangeItem(*child, side == 3 ? rest.right - width : rest.left, rest.top, width);
      RichItemBox& b = BoxFor(child);
      if (side == 0) rest.top += h;
      if (side == 1) {
        OffsetItem(*child, 0, rest.bottom - h - rest.top);
        rest.bottom -= h;
      }
      if (side >= 2 && height >= 0) b.box.bottom = std::max(b.box.bottom, rest.bottom);
      if (side == 2) rest.left += b.box.Width();
      if (side == 3) rest.right -= b.box.Width();
      lowest = std::max(lowest, BoxFor(child).box.bottom);
    }
  for (CExtRichContentItem* child : docked) {
    const int dock = dockOf(child);
    if (dock >= 1 && dock <= 8) continue;
    ArrangeItem(*child, rest.left, rest.top, std::max(0, rest.Width()));
    RichItemBox& b = BoxFor(child);
    if (height >= 0) b.box.bottom = std::max(b.box.bottom, rest.bottom);
    lowest = std::max(lowest, b.box.bottom);
  }
  RichRect flow = rest;
  flow.bottom = flow.top;
  int bottom = std::max(lowest, rest.top + FlowChildren(item, flow));
  for (CExtRichContentItem* child : bottoms) bottom += ArrangeItem(*child, content.left, bottom, content.Width());
  return bottom - content.top;
}

bool RichDocumentLayout::ScrollTo(CExtRichContentItem& item, int x, int y) {
  RichItemBox* b = BoxOf(&item);
  if (!b || (!b->barH && !b->barV && item.m_pStyle->m_enums[kOverflow] <= 0)) return false;
  const int nx = std::clamp(x, 0, std::max(0, b->extentWidth - b->content.Width()));
  const int ny = std::clamp(y, 0, std::max(0, b->extentHeight - b->content.Height()));
  if (nx == b->scrollX && ny == b->scrollY) return false;
  b->scrollX = nx;
  b->scrollY = ny;
  return true;
}

void RichDocumentLayout::ArrangeOutOfFlow(CExtRichContentItem& item) {
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const int position = s.m_enums[kPosition];
  const OutOfFlowPlace place = m_containers[&item];
  // Fixed items are placed on the page; absolute ones in their parent's content box; floats
  // where the flow met them.
  const RichRect area = position == 1 ? m_client : place.area;
  const int width = WidthFor(item, area.Width(), true);
  ArrangeItem(item, 0, 0, width);
  const RichRect box = BoxFor(&item).box;
  int x = area.left, y = place.staticY;
  if (s.m_enums[kFloat] == 1) x = area.right - box.Width();
  if (position == 0 || position == 1) {
    if (IsSet(s.m_lengths[kLeft])) x = area.left + s.m_lengths[kLeft];
    else if (IsSet(s.m_lengths[kRight])) x = area.right - s.m_lengths[kRight] - box.Width();
    if (IsSet(s.m_lengths[kTop])) y = area.top + s.m_lengths[kTop];
    else if (IsSet(s.m_lengths[kBottom])) y = area.bottom - s.m_lengths[kBottom] - box.Height();
  }
  OffsetItem(item, x - box.left, y - box.top);
}

}  // namespace qmk::toolkit::richcontent
