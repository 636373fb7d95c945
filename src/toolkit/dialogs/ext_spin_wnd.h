// ext_spin_wnd.h: CExtSpinWnd, the themed up-down: two arrow buttons drawn by the paint manager,
// each hot and pressed on its own; stepping and the buddy stay the plain up-down's.
#pragma once

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class CExtSpinWnd : public ThemedControl {
 public:
  CExtSpinWnd() = default;

  // The theme's states of the up (or right) and down (or left) buttons now.
  unsigned UpState() const { return PartState(+1); }
  unsigned DownState() const { return PartState(-1); }

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;
  // A horizontal up-down keeps the plain look: the theme draws the arrows one above the other.
  bool PaintsClient() const override;

 private:
  // +1 for the up half, -1 for the down half, 0 elsewhere.
  int PartAt(platform::ui::Point p) const;
  unsigned PartState(int part) const;

  int m_nPressed = 0;
  int m_nHotPart = 0;
};

}  // namespace qmk::toolkit
