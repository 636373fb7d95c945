// list_pane.cpp: rows, selection highlight, focus mark and the inner scroll bar of a list.
#include "platform/ui/controls/list_pane.h"

#include <algorithm>

#include "platform/ui/controls/control_messages.h"
#include "platform/ui/controls/plain_look.h"

namespace qmk::platform::ui::controls {

void ListPane::Layout(const Rect& area, int item_height, bool scroll, bool always_scroll) {
  item_height_ = std::max(1, item_height);
  rows_ = area;
  int fit = std::max(1, area.Height() / item_height_);
  bool needs = scroll && (always_scroll || model_.Count() > fit);
  if (needs && area.Width() > kScrollBarSize) {
    bar_ = {{area.right - kScrollBarSize, area.top, area.right, area.bottom}, true};
    rows_.right -= kScrollBarSize;
  } else {
    bar_ = {};
  }
  model_.SetVisibleRows(fit);
  model_.SetTopIndex(model_.top_index());
}

Rect ListPane::ItemRect(int index) const {
  int y = rows_.top + (index - model_.top_index()) * item_height_;
  return {rows_.left, y, rows_.right, y + item_height_};
}

int ListPane::ItemFromPoint(Point p) const {
  if (!PtInRect(rows_, p)) return -1;
  int index = model_.top_index() + (p.y - rows_.top) / item_height_;
  return index < model_.Count() ? index : -1;
}

int ListPane::NearestItem(Point p) const {
  if (model_.Count() == 0) return -1;
  int row = p.y < rows_.top ? -1 : (p.y - rows_.top) / item_height_;
  return std::clamp(model_.top_index() + row, 0, model_.Count() - 1);
}

void ListPane::Paint(Dc& dc, bool focused, bool enabled) {
  dc.FillRect(rows_, enabled ? colors::kWindow : colors::kFace);
  int last = std::min(model_.Count(), model_.top_index() + model_.visible_rows() + 1);
  for (int i = model_.top_index(); i < last; ++i) {
    Rect row = ItemRect(i);
    bool selected = model_.IsSelected(i);
    if (selected) dc.FillRect(row, colors::kSelection);
    Rect text = Deflate(row, 2, 0);
    DrawLabel(dc, model_.Text(i), text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_LEFT,
              enabled, selected ? colors::kSelectionText : colors::kText);
    if (focused && i == model_.caret()) dc.DrawFocusRect(row);
  }
  PaintScrollBar(dc, bar_, BarModel(), enabled, pressed_);
}

ScrollBarModel ListPane::BarModel() const {
  ScrollBarModel m;
  m.SetRange(0, std::max(0, model_.Count() - 1));
  m.SetPage(static_cast<unsigned>(model_.visible_rows()));
  m.SetPos(model_.top_index());
  return m;
}

bool ListPane::ScrollBarDown(Point p) {
  if (!has_scroll_bar() || !PtInRect(bar_.bar, p)) return false;
  ScrollBarModel m = BarModel();
  pressed_ = bar_.HitTest(m, p);
  int code = -1;
  switch (pressed_) {
    case ScrollPart::kLineBack: code = SB_LINEUP; break;
    case ScrollPart::kLineForward: code = SB_LINEDOWN; break;
    case ScrollPart::kPageBack: code = SB_PAGEUP; break;
    case ScrollPart::kPageForward: code = SB_PAGEDOWN; break;
    case ScrollPart::kThumb:
      drag_offset_ = bar_.Along(p) - bar_.ArrowLength() -
                     m.Thumb(bar_.TrackLength(), kMinThumb).offset;
      break;
    case ScrollPart::kNone: break;
  }
  if (code >= 0) model_.SetTopIndex(m.PosForCode(code, 0));
  return true;
}

void ListPane::ScrollBarDrag(Point p) {
  if (pressed_ != ScrollPart::kThumb) return;
  ScrollBarModel m = BarModel();
  int offset = bar_.Along(p) - bar_.ArrowLength() - drag_offset_;
  model_.SetTopIndex(m.PosFromThumbOffset(offset, bar_.TrackLength(), kMinThumb));
}

void ListPane::ScrollBarUp() { pressed_ = ScrollPart::kNone; }

void ListPane::Wheel(int delta) { model_.SetTopIndex(model_.top_index() + (delta > 0 ? -3 : 3)); }

}  // namespace qmk::platform::ui::controls
