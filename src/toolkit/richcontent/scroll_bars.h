// scroll_bars.h: the parts of a scrolling box's bars (shared by painting and hit testing) and
// dragging a thumb.
#pragma once

#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent {

// Values of "ui-sb-type" that lay the bars over the content.
constexpr int kScrollBarPopOverLight = 3, kScrollBarPopOverFull = 4;

struct ScrollBarParts {
  RichRect bar, arrowLow, arrowHigh, thumb;
};

// The parts of the vertical or horizontal bar of a laid out box; an empty bar when it has none.
ScrollBarParts ScrollBarPartsOf(const RichItemBox& box, bool vertical);

// Dragging a thumb: the pointer moved `pointerDelta` pixels since the drag started at position
// `startPosition` (in lines); `lineSize` pixels make one line. The new position is clamped between
// `minimum` and `maximum + 1`. False, and `position` left, when it does not change.
bool DragScrollPosition(int startPosition, int pointerDelta, int lineSize, int minimum, int maximum, int& position);

}  // namespace qmk::toolkit::richcontent
