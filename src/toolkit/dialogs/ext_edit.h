// ext_edit.h: CExtEdit, the edit with a themed frame and a tooltip; typing, selection and
// scrolling stay the plain edit's.
#pragma once

#include <string>

#include "toolkit/dialogs/themed_control.h"
#include "toolkit/dialogs/tool_tip.h"

namespace qmk::toolkit {

class CExtEdit : public ThemedControl {
 public:
  CExtEdit() = default;

  // The tip shown while the mouse rests on the edit (a path too long for a short field, say);
  // `activate` false keeps the text but shows nothing.
  void SetTooltipText(const std::string& text, bool activate = true);
  const std::string& GetTooltipText() const { return m_strToolTipText; }

  std::string m_strToolTipText;
  bool m_bToolTipActive = false;

 protected:
  LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp) override;
  bool PaintsClient() const override { return false; }
  void OnHoverChanged() override;
  std::string HoverTip() const override { return m_bToolTipActive ? m_strToolTipText : std::string(); }
};

}  // namespace qmk::toolkit
