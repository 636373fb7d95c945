// hit_test.cpp: hit testing through scrolling boxes and docked children, the ancestor clipping
// test, and focus side effects.
#include "toolkit/richcontent/hit_test.h"

#include <algorithm>

#include "toolkit/richcontent/scroll_bars.h"

namespace qmk::toolkit::richcontent {
namespace {

constexpr int kOn = 2;
constexpr int kMaxHitDepth = 250;

int DockOf(const CExtRichContentItem& item) {
  return item.m_pStyle && item.m_pStyle->Display() == kDisplayDock ? item.m_pStyle->m_enums[kDockPosition] : -1;
}

bool IsFillDock(int dock) { return dock == 0 || dock == 9 || dock == 10; }

class HitWalker {
 public:
  HitWalker(RichDocumentLayout& layout, RichHitTestRecord& record, bool noScroll)
      : m_layout(layout), m_record(record), m_noScroll(noScroll) {}

  bool Test(CExtRichContentItem& item, int x, int y, int depth) {
    if (depth > kMaxHitDepth) return false;
    if (item.m_nKind > kKindSpace && item.m_nKind != kKindTag) return false;
    const RichItemBox* b = m_layout.BoxOf(&item);
    if (item.m_nKind != kKindRoot) {
      if (!b || !b->box.Contains(x, y)) return false;
      if (item.m_pStyle && item.m_pStyle->Display() == kDisplayNone) return false;
    }
    if (item.m_nKind == kKindWord || item.m_nKind == kKindSpace) return true;
    if (!m_noScroll && b && (b->barH || b->barV)) {
      // A bar answers for its item; the children never see the point.
      for (bool vertical : {true, false}) {
        const ScrollBarParts parts = ScrollBarPartsOf(*b, vertical);
        if (parts.bar.Contains(x, y)) return true;
      }
      x += b->scrollX;
      y += b->scrollY;
    }
    std::vector<CExtRichContentItem*> order;
    for (CExtRichContentItem* child : item.m_children)
      if (!IsFillDock(DockOf(*child))) order.push_back(child);
    for (int wanted : {0, 9, 10})
      for (CExtRichContentItem* child : item.m_children)
        if (DockOf(*child) == wanted) order.push_back(child);
    // Later siblings are painted over earlier ones, so they answer first.
    for (auto at = order.rbegin(); at != order.rend(); ++at)
      if (Test(**at, x, y, depth + 1)) {
        m_record.items.push_back(*at);
        return true;
      }
    return item.m_nKind != kKindRoot;
  }

 private:
  RichDocumentLayout& m_layout;
  RichHitTestRecord& m_record;
  bool m_noScroll;
};

bool IsScrolled(const RichItemBox& b) { return b.barH || b.barV; }

int CornersInside(const RichRect& r, const RichRect& area) {
  const int corners[4][2] = {{r.left, r.top}, {r.right - 1, r.top}, {r.left, r.bottom - 1}, {r.right - 1, r.bottom - 1}};
  int inside = 0;
  for (const auto& c : corners) inside += area.Contains(c[0], c[1]) ? 1 : 0;
  return inside;
}

}  // namespace

bool HitTest(RichDocumentLayout& layout, RichHitTestRecord& record, bool noScroll) {
  record.items.clear();
  CExtRichContentItem* root = layout.Document().Root();
  if (!root) return false;
  HitWalker walker(layout, record, noScroll);
  // Out-of-flow items lie over the flow.
  for (auto at = layout.OutOfFlow().rbegin(); at != layout.OutOfFlow().rend(); ++at)
    if (walker.Test(**at, record.x, record.y, 0)) {
      record.items.push_back(*at);
      break;
    }
  if (record.items.empty()) walker.Test(*root, record.x, record.y, 0);
  if (record.items.empty()) return false;
  // Words and spaces are reported through the element that holds them.
  CExtRichContentItem* first = record.items.front();
  if (first->m_nKind == kKindWord || first->m_nKind == kKindSpace) record.items.erase(record.items.begin());
  return !record.items.empty();
}

bool IsVisibleInAncestors(const RichDocumentLayout& layout, const CExtRichContentItem& item, bool anyPart) {
  const RichItemBox* own = layout.BoxOf(&item);
  if (!own) return false;
  RichRect r = own->box;
  // The walk ends at the root: the document itself clips nothing.
  for (const CExtRichContentItem* at = item.m_pParent; at && at->m_nKind != kKindRoot; at = at->m_pParent) {
    const RichItemBox* b = layout.BoxOf(at);
    if (at->m_nKind == kKindTag && (!b || !IsScrolled(*b))) continue;
    if (!b) continue;
    RichRect view = b->content;
    view.Offset(b->scrollX, b->scrollY);  // the part of the content the view shows
    const int inside = CornersInside(r, view);
    if (inside == 4 || (anyPart && inside > 0)) continue;
    if (inside == 0 && CornersInside(view, r) == 0) {
      // Neither holds a corner of the other; they may still cross like a plus sign.
      const bool cross = r.left < view.right && view.left < r.right && r.top < view.bottom && view.top < r.bottom;
      if (!cross) return false;
    }
    if (!anyPart) return false;
  }
  return true;
}

bool EnsureVisible(RichDocumentLayout& layout, const CExtRichContentItem& item) {
  const RichItemBox* own = layout.BoxOf(&item);
  if (!own) return false;
  bool moved = false;
  for (CExtRichContentItem* at = item.m_pParent; at; at = at->m_pParent) {
    RichItemBox* b = layout.BoxOf(at);
    if (!b || !IsScrolled(*b)) continue;
    int sx = b->scrollX, sy = b->scrollY;
    const RichRect& r = own->box;
    if (r.top - sy < b->content.top) sy = r.top - b->content.top;
    else if (r.bottom - sy > b->content.bottom) sy = std::min(r.top - b->content.top, r.bottom - b->content.bottom);
    if (r.left - sx < b->content.left) sx = r.left - b->content.left;
    else if (r.right - sx > b->content.right) sx = std::min(r.left - b->content.left, r.right - b->content.right);
    moved = layout.ScrollTo(*at, sx, sy) || moved;
  }
  return moved;
}

namespace {

PseudoStateSet SelectionOnly() {
  PseudoStateSet fields;
  fields.m_fields[kPseudoSelection] = kOn;
  return fields;
}

// Siblings of the same kind and name (compared without case) that are selected lose it.
void UnselectSiblings(CExtRichContentItem& item) {
  if (!item.m_pParent) return;
  for (CExtRichContentItem* sibling : item.m_pParent->m_children)
    if (sibling != &item && sibling->m_nKind == item.m_nKind &&
        EqualsNoCase(sibling->m_strNameAttr, item.m_strNameAttr) && sibling->m_state.m_fields[kPseudoSelection])
      sibling->SetState(SelectionOnly(), 0, false);
}

}  // namespace

void ItemFocusGained(RichDocumentLayout& layout, CExtRichContentItem& item, const std::vector<RichFocusEvents*>& sinks) {
  if (item.m_pStyle) {
    const CExtRichStyleDescription& s = *item.m_pStyle;
    if (s.m_enums[kFocusEnsureVisibility] == kOn) EnsureVisible(layout, item);
    if (s.m_enums[kFocusOnMakeSelected] == kOn) item.SetState(SelectionOnly(), kOn, false);
    if (s.m_enums[kFocusOnMakeUnselectedSibling] == kOn) UnselectSiblings(item);
  }
  for (RichFocusEvents* sink : sinks) sink->OnFocusGained(item);
}

void ItemFocusLost(RichDocumentLayout&, CExtRichContentItem& item, const std::vector<RichFocusEvents*>& sinks) {
  if (item.m_pStyle) {
    const CExtRichStyleDescription& s = *item.m_pStyle;
    if (s.m_enums[kFocusOffMakeUnselected] == kOn) item.SetState(SelectionOnly(), 0, false);
    if (s.m_enums[kFocusOffMakeUnselectedSibling] == kOn) UnselectSiblings(item);
  }
  for (RichFocusEvents* sink : sinks) sink->OnFocusLost(item);
}

}  // namespace qmk::toolkit::richcontent
