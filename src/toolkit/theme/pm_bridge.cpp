// pm_bridge.cpp: a bridge joins a holder's sinks and repaints its window on theme events.
#include "toolkit/theme/pm_bridge.h"

#include <utility>

namespace qmk::toolkit::theme {
namespace {

BridgeWindowCalls& Calls() {
  static BridgeWindowCalls calls;
  return calls;
}

}  // namespace

void SetBridgeWindowCalls(BridgeWindowCalls calls) { Calls() = std::move(calls); }

CExtPmBridge::~CExtPmBridge() { PmBridge_Uninstall(); }

void CExtPmBridge::PmBridge_Install(CExtPaintManagerAutoPtr* holder) {
  PmBridge_Uninstall();
  m_pHolder = holder ? holder : &g_PaintManager();
  m_pHolder->AddSink(this);
}

void CExtPmBridge::PmBridge_Uninstall() {
  if (m_pHolder) m_pHolder->RemoveSink(this);
  m_pHolder = nullptr;
}

void CExtPmBridge::RefreshWindow(CExtPaintManagerAutoPtr* sender, unsigned redraw_flags) {
  const WindowHandle hwnd = PmBridge_GetSafeHwnd();
  if (!hwnd || !sender || sender != m_pHolder) return;
  if (Calls().set_window_pos) Calls().set_window_pos(hwnd, kBridgeSetWindowPosFlags);
  if (Calls().redraw_window) Calls().redraw_window(hwnd, redraw_flags);
}

void CExtPmBridge::PmBridge_OnPaintManagerChanged(CExtPaintManagerAutoPtr* sender) {
  RefreshWindow(sender, RedrawFlags());
}

void CExtPmBridge::PmBridge_OnSysColorChange(CExtPaintManagerAutoPtr* sender) {
  RefreshWindow(sender, RedrawFlags());
}

void CExtPmBridge::PmBridge_OnThemeChanged(CExtPaintManagerAutoPtr* sender) {
  RefreshWindow(sender, RedrawFlags());
}

}  // namespace qmk::toolkit::theme
