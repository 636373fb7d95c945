// scroll_bars.cpp: scroll bar geometry and thumb dragging.
#include "toolkit/richcontent/scroll_bars.h"

#include <algorithm>

namespace qmk::toolkit::richcontent {

ScrollBarParts ScrollBarPartsOf(const RichItemBox& b, bool vertical) {
  ScrollBarParts p;
  const int size = RichDocumentLayout::kScrollBarSize;
  if (vertical ? !b.barV : !b.barH) return p;
  const RichRect& c = b.content;
  if (vertical) {
    p.bar = {c.right, c.top, c.right + size, c.bottom};
    p.arrowLow = {p.bar.left, p.bar.top, p.bar.right, p.bar.top + std::min(size, p.bar.Height() / 2)};
    p.arrowHigh = {p.bar.left, p.bar.bottom - std::min(size, p.bar.Height() / 2), p.bar.right, p.bar.bottom};
  } else {
    p.bar = {c.left, c.bottom, c.right, c.bottom + size};
    p.arrowLow = {p.bar.left, p.bar.top, p.bar.left + std::min(size, p.bar.Width() / 2), p.bar.bottom};
    p.arrowHigh = {p.bar.right - std::min(size, p.bar.Width() / 2), p.bar.top, p.bar.right, p.bar.bottom};
  }
  // The thumb shows the visible share of the extent at the scroll position.
  const int track = vertical ? p.arrowHigh.top - p.arrowLow.bottom : p.arrowHigh.left - p.arrowLow.right;
  const int view = vertical ? c.Height() : c.Width();
  const int extent = std::max(view, vertical ? b.extentHeight : b.extentWidth);
  const int position = vertical ? b.scrollY : b.scrollX;
  if (track <= 0 || extent <= 0) return p;
  const int length = std::max(std::min(size, track), static_cast<int>(static_cast<long long>(track) * view / extent));
  const int range = extent - view;
  const int start = range > 0 ? static_cast<int>(static_cast<long long>(track - length) * position / range) : 0;
  if (vertical)
    p.thumb = {p.bar.left + 2, p.arrowLow.bottom + start, p.bar.right - 2, p.arrowLow.bottom + start + length};
  else
    p.thumb = {p.arrowLow.right + start, p.bar.top + 2, p.arrowLow.right + start + length, p.bar.bottom - 2};
  return p;
}

bool DragScrollPosition(int startPosition, int pointerDelta, int lineSize, int minimum, int maximum, int& position) {
  const long long moved = static_cast<long long>(startPosition) + pointerDelta / std::max(1, lineSize);
  const int next = static_cast<int>(std::clamp<long long>(moved, minimum, static_cast<long long>(maximum) + 1));
  if (next == position) return false;
  position = next;
  return true;
}

}  // namespace qmk::toolkit::richcontent
