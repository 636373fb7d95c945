// list_pane.h: the rows of a list model drawn in a rectangle with a scroll bar when they don't
// fit: the list box, the drop-down list of a combo box and the list of a simple combo use it.
#pragma once

#include "platform/ui/controls/list_box_model.h"
#include "platform/ui/controls/scroll_bar_view.h"
#include "platform/ui/paint.h"

namespace qmk::platform::ui::controls {

class ListPane {
 public:
  explicit ListPane(ListBoxModel& model) : model_(model) {}

  // Places the rows in `area`; a vertical scroll bar takes its right edge when `scroll` is
  // allowed and the rows don't all fit (or always, with `always_scroll`).
  void Layout(const Rect& area, int item_height, bool scroll, bool always_scroll = false);
  int item_height() const { return item_height_; }
  bool has_scroll_bar() const { return !bar_.bar.IsEmpty(); }

  void Paint(Dc& dc, bool focused, bool enabled);
  // The item under a client point, or -1 outside the rows or past the last item.
  int ItemFromPoint(Point p) const;
  // The nearest row to a point above or below the rows (dragging out of the list).
  int NearestItem(Point p) const;
  Rect ItemRect(int index) const;

  // Mouse on the scroll bar: true when the point was on it.
  bool ScrollBarDown(Point p);
  void ScrollBarDrag(Point p);
  void ScrollBarUp();
  bool dragging_scroll() const { return pressed_ != ScrollPart::kNone; }
  void Wheel(int delta);

 private:
  ScrollBarModel BarModel() const;

  ListBoxModel& model_;
  Rect rows_;
  int item_height_ = 13;
  ScrollBarLayout bar_;
  ScrollPart pressed_ = ScrollPart::kNone;
  int drag_offset_ = 0;  // where in the thumb the mouse took it
};

}  // namespace qmk::platform::ui::controls
