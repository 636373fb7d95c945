// paint_extents.cpp: what painting each item and everything it holds may touch, so that the
// painter can pass over whole subtrees that lie outside its target.
#include <algorithm>
#include <utility>
#include <vector>

#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent {
namespace {

RichRect Unite(const RichRect& a, const RichRect& b) {
  if (b.IsEmpty()) return a;
  if (a.IsEmpty()) return b;
  return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

// The item's own painting: its box, its marker, its outline and a background image's extension.
RichRect OwnInk(const CExtRichContentItem& item, const RichItemBox& b) {
  RichRect ink = Unite(b.box, b.markerBox);
  if (item.m_nKind != kKindTag || !item.m_pStyle || b.box.IsEmpty()) return ink;
  const CExtRichStyleDescription& s = *item.m_pStyle;
  const int outline = s.m_enums[kOutlineStyle] > 0 ? std::max(0, s.m_lengths[kOutlineWidth]) : 0;
  const int extend = std::max({0, s.m_lengths[kBackgroundExtendLeft], s.m_lengths[kBackgroundExtendTop],
                               s.m_lengths[kBackgroundExtendRight], s.m_lengths[kBackgroundExtendBottom]});
  const int grow = std::max(outline, extend);
  return Unite(ink, {b.box.left - grow, b.box.top - grow, b.box.right + grow, b.box.bottom + grow});
}

// A box that scrolls or hides its overflow clips what it holds to itself.
bool ClipsChildren(const CExtRichContentItem& item, const RichItemBox& b) {
  const int overflow = item.m_pStyle ? item.m_pStyle->m_enums[kOverflow] : 0;
  return b.barH || b.barV || overflow == 1 || overflow == 2 || overflow == 3;
}

}  // namespace

void RichDocumentLayout::UpdatePaintExtents() {
  if (!m_extentsStale) return;
  m_extentsStale = false;
  CExtRichContentItem* root = m_document.Root();
  if (!root) return;
  // Children are finished before their parent, without recursion: deep documents must not
  // exhaust the stack.
  std::vector<std::pair<CExtRichContentItem*, size_t>> walk{{root, 0}};
  while (!walk.empty()) {
    CExtRichContentItem* item = walk.back().first;
    const size_t next = walk.back().second;
    if (next < item->m_children.size()) {
      ++walk.back().second;
      walk.emplace_back(item->m_children[next], 0);
      continue;
    }
    walk.pop_back();
    RichItemBox* b = BoxOf(item);
    if (!b) continue;
    b->extent = OwnInk(*item, *b);
    if (ClipsChildren(*item, *b)) continue;
    for (const CExtRichContentItem* child : item->m_children)
      if (const RichItemBox* c = BoxOf(child)) b->extent = Unite(b->extent, c->extent);
  }
}

}  // namespace qmk::toolkit::richcontent
