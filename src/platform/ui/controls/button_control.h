// button_control.h: the "Button" class: push, default push, check, three-state, radio and their
// automatic kinds, and the group box.
#pragma once

#include "platform/ui/controls/plain_control.h"

namespace qmk::platform::ui::controls {

enum class ButtonKind { kPush, kCheck, kRadio, kGroupBox };

// The kind of a button style's low four bits; owner-drawn and user buttons count as push kinds.
ButtonKind KindOfButtonStyle(uint32_t style);
// The automatic kinds change their own check state when clicked.
bool IsAutomaticButton(uint32_t style);
// The highest check state a style takes: 2 for the three-state kinds, 1 for the other check and
// radio kinds, 0 for push buttons and group boxes.
int MaxCheckState(uint32_t style);

class ButtonControl : public PlainControl {
 public:
  using PlainControl::PlainControl;
  LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam) override;

 protected:
  void Paint(Dc& dc) override;

 private:
  ButtonKind kind() const { return KindOfButtonStyle(style()); }
  // The click of a person: the automatic kinds change state, then the parent hears BN_CLICKED.
  void Click();
  void SetCheck(int state);
  void SetPushed(bool on);
  void LowerGroupBox();
  LRESULT DialogCode(LPARAM lparam) const;
  void PaintPush(Dc& dc, const Rect& r);
  void PaintCheckOrRadio(Dc& dc, const Rect& r);
  void PaintGroupBox(Dc& dc, const Rect& r);
  unsigned TextFormat(unsigned fallback_horizontal) const;

  int check_ = 0;
  bool pushed_ = false;    // drawn pressed
  bool tracking_ = false;  // the mouse went down on it and is captured
  bool space_down_ = false;
  bool lowered_ = false;  // a group box moved below its siblings
};

}  // namespace qmk::platform::ui::controls
