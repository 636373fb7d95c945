// ext_combo_box.h: CExtComboBox, the themed combo box: the field and its drop button drawn by
// the paint manager, and the dropped list in the theme's colours; picking, typing and the
// notices stay the plain combo box's.
#pragma once

#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class CExtComboBox : public ThemedControl {
 public:
  CExtComboBox() = default;

  // The theme's widget state of the field now (pressed while the list is down).
  unsigned PaintState() const;
  // The dropped list's window while the list is down, else null.
  HWND DroppedList() const;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  bool PaintsClient() const override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;

 private:
  int Kind() const;
  // A combo with an edit: the plain field with its caret, and the theme's frame and button over it.
  void PaintOverPlain(platform::ui::Dc* dc) const;
  // Binds a themed painter to the list window the first time it shows.
  void ThemeDroppedList();
};

}  // namespace qmk::toolkit
