// ext_spin_wnd.cpp: which arrow is under the mouse or held, and the themed arrows.
#include "toolkit/dialogs/ext_spin_wnd.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

int CExtSpinWnd::PartAt(ui::Point p) const {
  ui::Rect client;
  ui::GetClientRect(m_hWnd, &client);
  const theme::layout::SpinParts parts = theme::layout::Spin(client);
  if (ui::PtInRect(parts.up, p)) return +1;
  if (ui::PtInRect(parts.down, p)) return -1;
  return 0;
}

unsigned CExtSpinWnd::PartState(int part) const {
  if (!ui::IsWindowEnabled(m_hWnd)) return theme::kStateDisabled;
  unsigned state = theme::kStateNormal;
  if (IsHot() && m_nHotPart == part) state |= theme::kStateHot;
  if (m_nPressed == part) state |= theme::kStatePressed;
  return state;
}

ThemedControl::LRESULT CExtSpinWnd::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  const ui::Point at{ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp)};
  switch (msg) {
    case ui::WM_LBUTTONDOWN:
    case ui::WM_LBUTTONDBLCLK:
      if (ui::IsWindowEnabled(m_hWnd)) m_nPressed = PartAt(at);
      Invalidate();
      return ThemedControl::WindowProc(msg, wp, lp);
    case ui::WM_LBUTTONUP:
    case ui::WM_CAPTURECHANGED:
    case ui::WM_ENABLE:
      m_nPressed = 0;
      Invalidate();
      return ThemedControl::WindowProc(msg, wp, lp);
    case ui::WM_MOUSEMOVE: {
      const int part = PartAt(at);
      if (part != m_nHotPart) {
        m_nHotPart = part;
        Invalidate();
      }
      return ThemedControl::WindowProc(msg, wp, lp);
    }
    default:
      return ThemedControl::WindowProc(msg, wp, lp);
  }
}

bool CExtSpinWnd::PaintsClient() const { return !(Style() & ui::UDS_HORZ); }

void CExtSpinWnd::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  PaintParentBackground(target, rc);
  theme::g_PaintManager()->PaintSpinButtons(target, rc, UpState(), DownState());
}

}  // namespace qmk::toolkit
