// ext_edit.cpp: the edit's themed frame, drawn where the plain frame would be, and its tooltip.
#include "toolkit/dialogs/ext_edit.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

void CExtEdit::SetTooltipText(const std::string& text, bool activate) {
  m_strToolTipText = text;
  m_bToolTipActive = activate;
  // Under a resting mouse the tip follows at once.
  if (!IsHot()) return;
  if (HoverTip().empty()) HideToolTip(m_hWnd);
  else ShowToolTip(m_hWnd, HoverTip());
}

ThemedControl::LRESULT CExtEdit::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  LRESULT result = 0;
  if (HandleFieldFrame(msg, wp, lp, &result)) return result;
  switch (msg) {
    case ui::WM_SETFOCUS:
    case ui::WM_KILLFOCUS:
    case ui::WM_ENABLE:
    case ui::EM_SETREADONLY: {
      const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
      RedrawFieldFrame();
      return r;
    }
    default:
      return ThemedControl::WindowProc(msg, wp, lp);
  }
}

void CExtEdit::OnHoverChanged() { RedrawFieldFrame(); }

}  // namespace qmk::toolkit
