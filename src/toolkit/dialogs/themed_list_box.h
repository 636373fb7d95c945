// themed_list_box.h: ThemedListBox, a plain list box whose rows and frame the theme draws where
// the plain list places them, so that clicks land on what is drawn.
#pragma once

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class ThemedListBox : public ThemedControl {
 public:
  ThemedListBox() = default;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  // A list long enough for its scroll bar keeps the plain drawing of its rows, whose bar the
  // mouse works; the frame is the theme's either way.
  bool PaintsClient() const override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;
  void OnHoverChanged() override { RedrawFieldFrame(); }
};

}  // namespace qmk::toolkit
