// size_gripper.cpp: the gripper's window class, place and painting.
#include "toolkit/dialogs/size_gripper.h"

#include "platform/ui/paint.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/anchor_map.h"
#include "toolkit/dialogs/themed_paint.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

ui::LRESULT GripperProc(ui::HWND hwnd, unsigned msg, ui::WPARAM wp, ui::LPARAM lp) {
  if (msg == ui::WM_ERASEBKGND) return 1;
  if (msg != ui::WM_PAINT) return ui::DefWindowProc(hwnd, msg, wp, lp);
  ui::PAINTSTRUCT ps;
  ui::Dc* dc = ui::BeginPaint(hwnd, &ps);
  ui::Rect client;
  ui::GetClientRect(hwnd, &client);
  PaintThemed(dc, client, [](platform::DrawTarget& t, const platform::DrawRect& r) {
    auto* pm = theme::g_PaintManager().GetPM();
    pm->PaintDialogBackground(t, r);
    pm->PaintGripper(t, r);
  });
  ui::EndPaint(hwnd, &ps);
  return 0;
}

bool RegisterGripperClass() {
  ui::WNDCLASS wc;
  if (ui::GetClassInfo(kGripperClassName, &wc)) return true;
  wc.lpszClassName = kGripperClassName;
  wc.lpfnWndProc = &GripperProc;
  wc.style = ui::CS_DBLCLKS;
  wc.background = ui::kNoBackground;
  return ui::RegisterClass(wc);
}

}  // namespace

int CExtWSGripper::Side() { return MulDiv(16, theme::g_PaintManager().Dpi(0), 96); }

bool CExtWSGripper::Place(ui::HWND dialog) {
  ui::Rect client;
  if (!ui::GetClientRect(dialog, &client)) return false;
  const int side = Side();
  const ui::Rect r{client.right - side, client.bottom - side, client.right, client.bottom};
  if (Exists()) {
    ui::SetWindowPos(m_hWnd, nullptr, r.left, r.top, side, side,
                     ui::SWP_NOZORDER | ui::SWP_NOACTIVATE);
    ui::InvalidateRect(m_hWnd, nullptr, true);
    return true;
  }
  if (!RegisterGripperClass()) return false;
  m_hWnd = ui::CreateWindowEx(0, kGripperClassName, "",
                              ui::WS_CHILD | ui::WS_CLIPSIBLINGS | ui::WS_CLIPCHILDREN, r.left,
                              r.top, side, side, dialog, kGripperControlId, nullptr);
  return m_hWnd != nullptr;
}

void CExtWSGripper::Show(bool show) {
  if (!Exists()) return;
  if (!show && IsVisible()) {
    ui::Rect r;
    ui::GetWindowRect(m_hWnd, &r);
    const ui::HWND parent = ui::GetParent(m_hWnd);
    ui::MapWindowRect(nullptr, parent, &r);
    ui::InvalidateRect(parent, &r, true);
  }
  ui::SetWindowPos(m_hWnd, ui::HWND_TOP(), 0, 0, 0, 0,
                   ui::SWP_NOMOVE | ui::SWP_NOSIZE | ui::SWP_NOACTIVATE |
                       (show ? ui::SWP_SHOWWINDOW : ui::SWP_HIDEWINDOW));
}

bool CExtWSGripper::Exists() const { return ui::IsWindow(m_hWnd); }

bool CExtWSGripper::IsVisible() const {
  return Exists() && (ui::GetWindowLongPtr(m_hWnd, ui::GWL_STYLE) & ui::WS_VISIBLE) != 0;
}

}  // namespace qmk::toolkit
