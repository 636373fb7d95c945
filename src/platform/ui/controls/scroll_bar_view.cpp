// scroll_bar_view.cpp: arrows, track and thumb of a scroll bar in the neutral look.
#include "platform/ui/controls/scroll_bar_view.h"

#include <algorithm>

#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

int ScrollBarLayout::ArrowLength() const { return std::min(Thickness(), Length() / 2); }

ScrollPart ScrollBarLayout::HitTest(const ScrollBarModel& model, Point p) const {
  if (!PtInRect(bar, p)) return ScrollPart::kNone;
  return model.HitTest(Along(p), Length(), ArrowLength(), kMinThumb);
}

Rect ScrollBarLayout::PartRect(const ScrollBarModel& model, ScrollPart part) const {
  int arrow = ArrowLength();
  ThumbGeometry thumb = model.Thumb(TrackLength(), kMinThumb);
  int from = 0, to = 0;
  switch (part) {
    case ScrollPart::kLineBack: from = 0; to = arrow; break;
    case ScrollPart::kLineForward: from = Length() - arrow; to = Length(); break;
    case ScrollPart::kThumb:
      if (thumb.length == 0) return {};
      from = arrow + thumb.offset; to = from + thumb.length;
      break;
    case ScrollPart::kPageBack: from = arrow; to = arrow + thumb.offset; break;
    case ScrollPart::kPageForward:
      from = arrow + thumb.offset + thumb.length; to = Length() - arrow;
      break;
    case ScrollPart::kNone: return {};
  }
  if (vertical) return {bar.left, bar.top + from, bar.right, bar.top + to};
  return {bar.left + from, bar.top, bar.left + to, bar.bottom};
}

void PaintScrollBar(Dc& dc, const ScrollBarLayout& layout, const ScrollBarModel& model,
                    bool enabled, ScrollPart pressed) {
  if (layout.bar.IsEmpty()) return;
  dc.FillRect(layout.bar, 0xFFE8E8E8u);
  // A bar with nothing to scroll shows its arrows greyed and no thumb.
  bool active = enabled && model.MaxPos() > model.min();
  auto arrow = [&](ScrollPart part, Arrow dir) {
    DrawArrowButton(dc, layout.PartRect(model, part), dir, pressed == part, active);
  };
  arrow(ScrollPart::kLineBack, layout.vertical ? Arrow::kUp : Arrow::kLeft);
  arrow(ScrollPart::kLineForward, layout.vertical ? Arrow::kDown : Arrow::kRight);
  if (pressed == ScrollPart::kPageBack || pressed == ScrollPart::kPageForward) {
    dc.FillRect(layout.PartRect(model, pressed), colors::kDarkShadow);
  }
  if (!active) return;
  Rect thumb = layout.PartRect(model, ScrollPart::kThumb);
  if (thumb.IsEmpty()) return;
  dc.FillRect(thumb, colors::kFace);
  DrawEdge(dc, thumb, Edge::kRaised);
}

}  // namespace qmk::platform::ui::controls
