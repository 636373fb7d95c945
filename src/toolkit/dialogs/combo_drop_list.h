// combo_drop_list.h: ComboDropList, the themed painting of a dropped combo box's list window,
// rows placed where the plain list places them so that clicks land where they are drawn.
#pragma once

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class ComboDropList : public ThemedControl {
 public:
  explicit ComboDropList(HWND combo) : m_hWndCombo(combo) {}

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  bool PaintsClient() const override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;

 private:
  HWND m_hWndCombo;
};

}  // namespace qmk::toolkit
