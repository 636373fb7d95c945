// scroll_bar_control.h: the "ScrollBar" class: it tells its parent what the person asks for,
// and the parent moves it.
#pragma once

#include "platform/ui/controls/plain_control.h"
#include "platform/ui/controls/scroll_bar_model.h"
#include "platform/ui/controls/scroll_bar_view.h"

namespace qmk::platform::ui::controls {

class ScrollBarControl : public PlainControl {
 public:
  using PlainControl::PlainControl;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;
  const ScrollBarModel& model() const { return model_; }

 protected:
  void Paint(Dc& dc) override;

 private:
  ScrollBarLayout Layout() const;
  // WM_HSCROLL or WM_VSCROLL to the parent with a scroll code and, for the thumb, a position.
  void Tell(int code, int pos = 0);
  int CodeFor(ScrollPart part) const;
  LRESULT HandleMouse(unsigned msg, LPARAM lparam);
  LRESULT HandleBarMessage(unsigned msg, WPARAM wparam, LPARAM lparam, bool* handled);

  ScrollBarModel model_;
  ScrollPart pressed_ = ScrollPart::kNone;
  int drag_offset_ = 0;
  bool repeating_ = false;
};

}  // namespace qmk::platform::ui::controls
