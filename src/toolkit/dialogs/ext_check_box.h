// ext_check_box.h: CExtCheckBox, the themed check box (two- and three-state) with its mark
// drawn by the paint manager.
#pragma once

#include "toolkit/dialogs/ext_button.h"

namespace qmk::toolkit {

class CExtCheckBox : public CExtButton {
 public:
  CExtCheckBox() = default;

  // Space between the control's edges and its mark and text, in pixels.
  int m_nMarginLeft = 1, m_nMarginTop = 1, m_nMarginRight = 1, m_nMarginBottom = 1;

 protected:
  void PaintFace(platform::DrawTarget& target, const platform::DrawRect& rc, const std::string& text,
                 unsigned state) override;
  // The mark: a box, or a circle for radio buttons.
  virtual bool IsRadio() const { return false; }
};

}  // namespace qmk::toolkit
