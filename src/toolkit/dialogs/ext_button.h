// ext_button.h: CExtButton, the themed push button: normal, hot, pressed, default, disabled
// and focused faces from the paint manager over the plain button's behaviour.
#pragma once

#include <string>

#include "toolkit/dialogs/ext_label.h"
#include "toolkit/dialogs/themed_control.h"

namespace qmk::toolkit {

class CExtButton : public ThemedControl {
 public:
  CExtButton() = default;

  void SetTooltipText(const std::string& text) { m_strToolTipText = text; }
  const std::string& GetTooltipText() const { return m_strToolTipText; }
  void ActivateTooltip(bool on) { m_bToolTipActive = on; }
  // Text colours for the normal, hot, pressed and disabled faces, and the face behind the text;
  // kThemeColor gives a slot back to the theme.
  void SetTextColorNormal(uint32_t rgb) { m_clrTextNormal = rgb; Invalidate(); }
  void SetTextColorHover(uint32_t rgb) { m_clrTextHover = rgb; Invalidate(); }
  void SetTextColorPressed(uint32_t rgb) { m_clrTextPressed = rgb; Invalidate(); }
  void SetTextColorDisabled(uint32_t rgb) { m_clrTextDisabled = rgb; Invalidate(); }
  void SetBkColor(uint32_t rgb) { m_clrBackground = rgb; Invalidate(); }

  // The theme's widget state the button is drawn in now.
  unsigned PaintState() const;

  // The hover animation's steps and step time, kept for hosts that read them; every look
  // switches between its faces at once (no fading is drawn).
  int m_nAnimationSteps = 5;
  int m_nAnimationStepTime = 40;
  bool m_bToolTipActive = true;
  // The button answers its mnemonic when the dialog offers it (its "&" letter).
  bool m_bMnemonics = true;
  std::string m_strToolTipText;
  uint32_t m_clrTextNormal = kThemeColor, m_clrTextHover = kThemeColor, m_clrTextPressed = kThemeColor,
           m_clrTextDisabled = kThemeColor, m_clrBackground = kThemeColor;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) override;
  std::string HoverTip() const override { return m_bToolTipActive ? m_strToolTipText : std::string(); }
  // The face without text; the check box and radio button draw their mark instead.
  virtual void PaintFace(platform::DrawTarget& target, const platform::DrawRect& rc, const std::string& text,
                         unsigned state);
  // The override of the text colour for `state`, or kThemeColor.
  uint32_t CustomTextColor(unsigned state) const;
};

}  // namespace qmk::toolkit
