// themed_scroll_bar.cpp: the scroll bar's arrows, track and thumb drawn by the theme in their
// hot and pressed states, following the plain bar's range, page and dragged position.
#include "toolkit/dialogs/themed_scroll_bar.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

namespace {

// Messages after which the bar looks different: its range, page, position or arrows changed.
bool ChangesTheBar(unsigned msg) {
  for (unsigned m : {ui::SBM_SETPOS, ui::SBM_SETRANGE, ui::controls::SBM_SETRANGEREDRAW,
                     ui::controls::SBM_SETSCROLLINFO, ui::controls::SBM_ENABLE_ARROWS, ui::WM_ENABLE})
    if (msg == m) return true;
  return false;
}

}  // namespace

theme::PAINTSCROLLBARDATA ThemedScrollBar::Data(const platform::DrawRect& rc) const {
  ui::controls::SCROLLINFO info;
  info.fMask = ui::controls::SIF_ALL;
  ui::SendMessage(m_hWnd, ui::controls::SBM_GETSCROLLINFO, 0, reinterpret_cast<LPARAM>(&info));
  theme::PAINTSCROLLBARDATA d;
  d.m_rcBar = rc;
  d.m_bHorzBar = !(Style() & ui::SBS_VERT);
  d.m_nMin = info.nMin;
  d.m_nMax = info.nMax;
  d.m_nPage = static_cast<int>(info.nPage);
  // While the thumb is dragged it follows the mouse, before the owner moves the bar.
  d.m_nPos = m_ePressed == Part::kThumb ? info.nTrackPos : info.nPos;
  // A bar with nothing to scroll shows no thumb, as the plain bar does.
  d.m_bEnabled = ui::IsWindowEnabled(m_hWnd) && info.nMax > info.nMin;
  auto state = [&](Part part) {
    if (!d.m_bEnabled) return theme::kStateDisabled;
    if (m_ePressed == part) return theme::kStatePressed;
    return m_eHot == part ? theme::kStateHot : theme::kStateNormal;
  };
  d.m_nStateArrowUp = state(Part::kArrowUp);
  d.m_nStateArrowDown = state(Part::kArrowDown);
  d.m_nStateThumb = state(Part::kThumb);
  theme::layout::ScrollBar(*theme::g_PaintManager().GetPM(), d);
  return d;
}

ThemedScrollBar::Part ThemedScrollBar::PartAt(ui::Point p) const {
  ui::Rect client;
  ui::GetClientRect(m_hWnd, &client);
  const theme::PAINTSCROLLBARDATA d = Data(client);
  if (ui::PtInRect(d.m_rcButtonUp, p)) return Part::kArrowUp;
  if (ui::PtInRect(d.m_rcButtonDown, p)) return Part::kArrowDown;
  if (ui::PtInRect(d.m_rcThumb, p)) return Part::kThumb;
  return ui::PtInRect(client, p) ? Part::kTrack : Part::kNone;
}

void ThemedScrollBar::SetHotPart(Part part) {
  if (m_eHot == part) return;
  m_eHot = part;
  Invalidate();
}

ThemedControl::LRESULT ThemedScrollBar::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  const ui::Point at{ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp)};
  switch (msg) {
    case ui::WM_LBUTTONDOWN:
      m_ePressed = PartAt(at);
      Invalidate();
      break;
    case ui::WM_LBUTTONUP:
    case ui::WM_CANCELMODE:
    case ui::WM_CAPTURECHANGED:
      m_ePressed = Part::kNone;
      Invalidate();
      break;
    case ui::WM_MOUSEMOVE:
      SetHotPart(PartAt(at));
      if (m_ePressed == Part::kThumb) Invalidate();
      break;
    case kMsgMouseLeave:
      SetHotPart(Part::kNone);
      break;
    default:
      break;
  }
  const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
  if (ChangesTheBar(msg)) Invalidate();
  return r;
}

void ThemedScrollBar::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  PaintParentBackground(target, rc);
  theme::PAINTSCROLLBARDATA d = Data(rc);
  theme::g_PaintManager()->PaintScrollBar(target, d);
}

}  // namespace qmk::toolkit
