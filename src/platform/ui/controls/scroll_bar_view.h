// scroll_bar_view.h: the geometry and painting of a scroll bar: the ScrollBar class and the
// scroll bars that lists draw inside themselves share it.
#pragma once

#include "platform/ui/controls/scroll_bar_model.h"
#include "platform/ui/paint.h"

namespace qmk::platform::ui::controls {

// The width of a vertical scroll bar and the height of a horizontal one.
constexpr int kScrollBarSize = 17;
constexpr int kMinThumb = 8;

struct ScrollBarLayout {
  Rect bar;
  bool vertical = true;

  int Length() const { return vertical ? bar.Height() : bar.Width(); }
  int Thickness() const { return vertical ? bar.Width() : bar.Height(); }
  // The arrows are square, or share a bar too short for two squares.
  int ArrowLength() const;
  // Distance along the bar of a client point.
  int Along(Point p) const { return vertical ? p.y - bar.top : p.x - bar.left; }
  ScrollPart HitTest(const ScrollBarModel& model, Point p) const;
  int TrackLength() const { return Length() - 2 * ArrowLength(); }
  Rect PartRect(const ScrollBarModel& model, ScrollPart part) const;
};

void PaintScrollBar(Dc& dc, const ScrollBarLayout& layout, const ScrollBarModel& model,
                    bool enabled, ScrollPart pressed);

}  // namespace qmk::platform::ui::controls
