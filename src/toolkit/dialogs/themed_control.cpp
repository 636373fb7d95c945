// themed_control.cpp: binding an object to a plain control's window, hover tracking, and the
// themed painting every toolkit control shares.
#include "toolkit/dialogs/themed_control.h"

#include "platform/ui/message_loop.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/tool_tip.h"
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
  HideToolTip(m_hWnd);
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
  // Only paint messages ask PaintsClient, which may itself query the plain control.
  const bool paint = msg == ui::WM_ERASEBKGND || msg == ui::WM_PAINT || msg == ui::WM_PRINTCLIENT;
  if (paint && PaintsClient()) {
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
  if (msg == ui::WM_MOUSEMOVE) {
    ui::Rect client;
    ui::GetClientRect(m_hWnd, &client);
    SetHot(ui::PtInRect(client, {ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp)}));
  }
  if (msg == ui::WM_LBUTTONDOWN) HideToolTip(m_hWnd);
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
  if (hot) ShowToolTip(m_hWnd, HoverTip(), HoverTipAlign());
  else HideToolTip(m_hWnd);
  OnHoverChanged();
}

unsigned ThemedControl::HoverTipAlign() const { return kTipAlignDefault; }

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

bool ThemedControl::PaintFrameWith(ui::Dc* dc, const ThemePainter& painter) const {
  ui::Rect window, client;
  if (!dc || !ui::GetWindowRect(m_hWnd, &window) || !ui::GetClientRect(m_hWnd, &client)) return false;
  ui::Point origin{0, 0};
  ui::ClientToScreen(m_hWnd, &origin);
  const int left = origin.x - window.left, top = origin.y - window.top;
  const int w = window.Width(), h = window.Height();
  const int right = left + client.Width(), bottom = top + client.Height();
  if (w <= 0 || h <= 0 || (left == 0 && top == 0 && right == w && bottom == h)) return false;
  platform::DrawTarget picture(w, h);
  if (!picture.ok()) return false;
  painter(picture, {0, 0, w, h});
  auto image = platform::DeviceImage::Create(picture.Pixels());
  if (!image) return false;
  // Four strips round the client area; the plain control's own drawing inside stays.
  const ui::Rect strips[] = {{0, 0, w, top}, {0, bottom, w, h}, {0, top, left, bottom}, {right, top, w, bottom}};
  for (const ui::Rect& strip : strips)
    if (!strip.IsEmpty()) dc->DrawImage(*image, strip, strip);
  return true;
}

void ThemedControl::PaintFieldFrame(ui::Dc* dc) const {
  const unsigned state = BaseState();
  PaintFrameWith(dc, [state](platform::DrawTarget& t, const platform::DrawRect& r) {
    theme::g_PaintManager()->PaintEdit(t, r, "", state);
  });
}

void ThemedControl::RedrawFieldFrame() const {
  if (!ui::IsWindowVisible(m_hWnd)) return;
  ui::Dc* dc = ui::GetWindowDC(m_hWnd);
  if (!dc) return;
  PaintFieldFrame(dc);
  ui::ReleaseDC(m_hWnd, dc);
}

bool ThemedControl::HandleFieldFrame(unsigned msg, WPARAM wp, LPARAM lp, LRESULT* result) {
  if (msg == ui::WM_NCPAINT) {
    ui::Dc* dc = ui::GetWindowDC(m_hWnd);
    PaintFieldFrame(dc);
    if (dc) ui::ReleaseDC(m_hWnd, dc);
    *result = 0;
    return true;
  }
  if (msg == ui::WM_PRINT) {
    *result = Default(msg, wp, lp);
    if (static_cast<unsigned>(lp) & ui::PRF_NONCLIENT) PaintFieldFrame(ui::DcFromWParam(wp));
    return true;
  }
  return false;
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
