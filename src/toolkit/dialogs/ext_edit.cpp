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
  switch (msg) {
    case ui::WM_NCPAINT: {
      ui::Dc* dc = ui::GetWindowDC(m_hWnd);
      PaintFrame(dc);
      if (dc) ui::ReleaseDC(m_hWnd, dc);
      return 0;
    }
    case ui::WM_PRINT: {
      const LRESULT r = Default(msg, wp, lp);
      if (static_cast<unsigned>(lp) & ui::PRF_NONCLIENT) PaintFrame(ui::DcFromWParam(wp));
      return r;
    }
    case ui::WM_SETFOCUS:
    case ui::WM_KILLFOCUS:
    case ui::WM_ENABLE:
    case ui::EM_SETREADONLY: {
      const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
      RedrawFrame();
      return r;
    }
    default:
      return ThemedControl::WindowProc(msg, wp, lp);
  }
}

void CExtEdit::OnHoverChanged() { RedrawFrame(); }

void CExtEdit::PaintFrame(ui::Dc* dc) const {
  const unsigned state = BaseState();
  PaintFrameWith(dc, [state](platform::DrawTarget& t, const platform::DrawRect& r) {
    theme::g_PaintManager()->PaintEdit(t, r, "", state);
  });
}

void CExtEdit::RedrawFrame() const {
  if (!ui::IsWindowVisible(m_hWnd)) return;
  ui::Dc* dc = ui::GetWindowDC(m_hWnd);
  if (!dc) return;
  PaintFrame(dc);
  ui::ReleaseDC(m_hWnd, dc);
}

}  // namespace qmk::toolkit
