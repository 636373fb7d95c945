// ext_group_box.h: CExtGroupBox, the themed group frame with its caption; it lies below the
// controls it frames and lets the mouse through to them.
#pragma once

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class CExtGroupBox : public ThemedControl {
 public:
  CExtGroupBox() = default;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  // A dialog makes its group boxes before the controls they frame; the frame goes below them.
  void OnSubclassed() override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;
};

}  // namespace qmk::toolkit
