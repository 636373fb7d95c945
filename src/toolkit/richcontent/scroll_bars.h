// scroll_bars.h: the parts of a scrolling box's bars (shared by painting and hit testing) and
// dragging a thumb.
#pragma once

#include "toolkit/richcontent/document_layout.h"
#include "toolkit/theme/widget_state.h"

namespace qmk::toolkit::richcontent {

// Values of "ui-sb-type" that lay the bars over the content.
constexpr int kScrollBarPopOverLight = 3, kScrollBarPopOverFull = 4;

struct ScrollBarParts {
  RichRect bar, arrowLow, arrowHigh, thumb;
  // The record the theme draws the bar from (range in pixels of content, page the view).
  theme::PAINTSCROLLBARDATA data;
};

// The parts of the vertical or horizontal bar of a laid out box, placed by the current theme's
// scroll bar layout so that clicks land where the theme draws; an empty bar when it has none.
ScrollBarParts ScrollBarPartsOf(const RichItemBox& box, bool vertical);
// The parts of a bar at `bar` over a content of `extent` pixels of which `view` show from
// `position` on.
ScrollBarParts ScrollBarPartsAt(const RichRect& bar, bool vertical, int extent, int view, int position);

// Draws the bar through the current theme's scroll bar painter. With `lightTrack` the track lets
// what is below show through (constant alpha 96); arrows and thumb are always opaque.
void PaintScrollBar(platform::DrawTarget& target, const ScrollBarParts& parts, bool lightTrack);

// Dragging a thumb: the pointer moved `pointerDelta` pixels since the drag started at position
// `startPosition` (in lines); `lineSize` pixels make one line. The new position is clamped between
// `minimum` and `maximum + 1`. False, and `position` left, when it does not change.
bool DragScrollPosition(int startPosition, int pointerDelta, int lineSize, int minimum, int maximum, int& position);

}  // namespace qmk::toolkit::richcontent
