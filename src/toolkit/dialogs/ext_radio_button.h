// ext_radio_button.h: CExtRadioButton, the themed radio button: its group is one tab stop, on
// the checked button, and the arrow keys move the choice round the group.
#pragma once

#include <vector>

#include "toolkit/dialogs/ext_check_box.h"

namespace qmk::toolkit {

class CExtRadioButton : public CExtCheckBox {
 public:
  CExtRadioButton() = default;

  // The radio buttons of this button's dialog group (from the WS_GROUP at or before it to the
  // next one), in dialog order, this one included.
  std::vector<HWND> GroupRadios() const;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  bool IsRadio() const override { return true; }

 private:
  void SetCheck(WPARAM check);
  // The arrows: the next (or previous) visible, enabled radio button of the group, wrapping.
  void MoveChoice(bool forward);
};

}  // namespace qmk::toolkit
