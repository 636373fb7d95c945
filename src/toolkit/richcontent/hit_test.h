// hit_test.h: what item is under a point, whether an item shows through its ancestors, and what
// gaining and losing focus does to an item and its siblings.
#pragma once

#include <vector>

#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent {

struct RichHitTestRecord {
  int x = 0, y = 0;
  // The item found first, then the items that hold it, outwards.
  std::vector<CExtRichContentItem*> items;
  CExtRichContentItem* Found() const { return items.empty() ? nullptr : items.front(); }
};

// Tests the point (in layout coordinates) from the root down. True when an item was found.
// With `noScroll`, scroll bars and scroll offsets are left out.
bool HitTest(RichDocumentLayout& layout, RichHitTestRecord& record, bool noScroll = false);

// Does `item` show inside every scrolled ancestor? With `anyPart` one corner inside suffices.
bool IsVisibleInAncestors(const RichDocumentLayout& layout, const CExtRichContentItem& item, bool anyPart);

// Sinks that follow focus.
class RichFocusEvents {
 public:
  virtual ~RichFocusEvents() = default;
  virtual void OnFocusGained(CExtRichContentItem& /*item*/) {}
  virtual void OnFocusLost(CExtRichContentItem& /*item*/) {}
};

// The side effects of focus the item's style asks for, then the sinks.
void ItemFocusGained(RichDocumentLayout& layout, CExtRichContentItem& item, const std::vector<RichFocusEvents*>& sinks);
void ItemFocusLost(RichDocumentLayout& layout, CExtRichContentItem& item, const std::vector<RichFocusEvents*>& sinks);

// Scrolls every scrolling ancestor so that the item's box shows. True when something moved.
bool EnsureVisible(RichDocumentLayout& layout, const CExtRichContentItem& item);

}  // namespace qmk::toolkit::richcontent
