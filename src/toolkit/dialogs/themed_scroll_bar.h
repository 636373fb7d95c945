// themed_scroll_bar.h: ThemedScrollBar, the toolkit's scroll bar: the plain bar's range, page
// and position drawn by the paint manager. The theme lays out arrows and thumb as the plain bar
// does, so the plain bar's own mouse handling lands on what is drawn.
#pragma once

#include "toolkit/dialogs/themed_control.h"
#include "toolkit/theme/widget_state.h"

namespace qmk::toolkit {

class ThemedScrollBar : public ThemedControl {
 public:
  ThemedScrollBar() = default;

  // The record the theme draws from for a bar in `rc`, its parts placed.
  theme::PAINTSCROLLBARDATA Data(const platform::DrawRect& rc) const;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;

 private:
  enum class Part { kNone, kArrowUp, kArrowDown, kThumb, kTrack };
  Part PartAt(platform::ui::Point p) const;
  void SetHotPart(Part part);

  Part m_ePressed = Part::kNone;
  Part m_eHot = Part::kNone;
};

}  // namespace qmk::toolkit
