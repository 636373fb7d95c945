// themed_progress.h: ThemedProgress, the toolkit's progress bar: the plain bar's range and
// position drawn by the paint manager.
#pragma once

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class ThemedProgress : public ThemedControl {
 public:
  ThemedProgress() = default;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;
};

}  // namespace qmk::toolkit
