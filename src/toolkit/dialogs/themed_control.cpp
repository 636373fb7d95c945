// themed_control.cpp: binding an object to a plain control's window, hover tracking, and the
// themed painting every toolkit control shares.
#include "toolkit/dialogs/themed_control.h"

#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
constexpr const char* kObjectProp = "qmk.toolkit-control";

// The window the mouse is over, when it is a toolkit control. The window system sends no leave
// message, so a filter that sees every mouse move tells the last control when the mouse is gone.
ui::HWND g_hotWindow = nullptr;

void LeaveHotWindow() {
  const ui::HWND was = g_hotWindow;
  g_hotWindow = nullptr;
  if (was && ui::IsWindow(was)) ui::SendMessage(was, kMsgMouseLeave, 0, 0);
}

void InstallHoverFilter() {
  static const int id = ui::AddMessageFilter([](ui::MSG& msg) {
    if (msg.message == ui::WM_MOUSEMOVE && msg.hwnd != g_hotWindow) LeaveHotWindow();
    return false;
  });
  (void)id;
}

}  // namespace

ThemedControl::~ThemedControl() {
  if (ui::IsWindow(m_hWnd)) UnsubclassWindow();
}

bool ThemedControl::SubclassWindow(HWND hwnd) {
  if (m_hWnd || !ui::IsWindow(hwnd) || FromHandle(hwnd)) return false;
  InstallHoverFilter();
  m_hWnd = hwnd;
  ui::SetProp(hwnd, kObjectProp, this);
  m_pfnPlain = ui::SubclassWindow(hwnd, &ThemedControl::StaticProc);
  PmBridge_Install();
  OnSubclassed();
  return true;
}

bool ThemedControl::UnsubclassWindow() {
  if (!m_hWnd) return false;
  if (ui::IsWindow(m_hWnd) && ui::GetWindowProc(m_hWnd) == &ThemedControl::StaticProc)
    ui::SubclassWindow(m_hWnd, m_pfnPlain);
  ui::RemoveProp(m_hWnd, kObjectProp);
  Unbind();
  return true;
}

void ThemedControl::Unbind() {
  if (g_hotWindow == m_hWnd) g_hotWindow = nullptr;
  PmBridge_Uninstall();
  m_hWnd = nullptr;
  m_bHot = false;
}

theme::WindowHandle ThemedControl::PmBridge_GetSafeHwnd() const {
  return reinterpret_cast<theme::WindowHandle>(m_hWnd);
}

ThemedControl* ThemedControl::FromHandle(HWND hwnd) {
  return hwnd ? static_cast<ThemedControl*>(ui::GetProp(hwnd, kObjectProp)) : nullptr;
}

ThemedControl::LRESULT ThemedControl::StaticProc(HWND hwnd, unsigned msg, WPARAM wp, LPARAM lp) {
  ThemedControl* self = FromHandle(hwnd);
  if (!self) return ui::DefWindowProc(hwnd, msg, wp, lp);
  const LRESULT result = self->WindowProc(msg, wp, lp);
  if (msg == ui::WM_NCDESTROY) {
    ui::RemoveProp(hwnd, kObjectProp);
    self->Unbind();
    if (self->m_bAutoDelete) delete self;
  }
  return result;
}

ThemedControl::LRESULT ThemedControl::Default(unsigned msg, WPARAM wp, LPARAM lp) {
  return ui::CallWindowProc(m_pfnPlain, m_hWnd, msg, wp, lp);
}

ThemedControl::LRESULT ThemedControl::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  if (PaintsClient()) {
    switch (msg) {
      case ui::WM_ERASEBKGND:
        return 1;  // the paint covers the whole client area
      case ui::WM_PAINT: {
        ui::PAINTSTRUCT ps;
        PaintWith(ui::BeginPaint(m_hWnd, &ps));
        ui::EndPaint(m_hWnd, &ps);
        return 0;
      }
      case ui::WM_PRINTCLIENT:
        PaintWith(ui::DcFromWParam(wp));
        return 0;
      default:
        break;
    }
  }
  if (msg == ui::WM_MOUSEMOVE) SetHot(true);
  if (msg == kMsgMouseLeave) {
    SetHot(false);
    return 0;
  }
  return Default(msg, wp, lp);
}

void ThemedControl::PaintWith(ui::Dc* dc) {
  ui::Rect client;
  if (!dc || !ui::GetClientRect(m_hWnd, &client)) return;
  PaintThemed(dc, client, [this](platform::DrawTarget& t, const platform::DrawRect& r) { PaintControl(t, r); });
}

void ThemedControl::SetHot(bool hot) {
  if (hot && g_hotWindow != m_hWnd) {
    LeaveHotWindow();
    g_hotWindow = m_hWnd;
  }
  if (m_bHot == hot) return;
  m_bHot = hot;
  OnHoverChanged();
}

void ThemedControl::PaintParentBackground(platform::DrawTarget& target, const platform::DrawRect& rc) const {
  const HWND parent = ui::GetParent(m_hWnd);
  ui::Rect parent_client, mine;
  if (!parent || !ui::GetClientRect(parent, &parent_client) || !ui::GetWindowRect(m_hWnd, &mine) ||
      !ui::MapWindowRect(nullptr, parent, &mine)) {
    theme::g_PaintManager()->PaintDialogBackground(target, rc);
    return;
  }
  // The parent's whole client area, shifted so that this window's corner lies at rc's corner.
  const int dx = rc.left - mine.left, dy = rc.top - mine.top;
  theme::g_PaintManager()->PaintDialogBackground(
      target, {dx, dy, dx + parent_client.Width(), dy + parent_client.Height()});
}

unsigned ThemedControl::BaseState() const {
  unsigned state = theme::kStateNormal;
  if (!ui::IsWindowEnabled(m_hWnd)) return theme::kStateDisabled;
  if (m_bHot) state |= theme::kStateHot;
  if (ui::GetFocus() == m_hWnd) state |= theme::kStateFocused;
  return state;
}

uint32_t ThemedControl::Style() const {
  return static_cast<uint32_t>(ui::GetWindowLongPtr(m_hWnd, ui::GWL_STYLE));
}

std::string ThemedControl::Text() const { return ui::GetWindowText(m_hWnd); }

void ThemedControl::Invalidate() const { ui::InvalidateRect(m_hWnd, nullptr, false); }

}  // namespace qmk::toolkit
