// tool_tip.cpp: the shared tooltip window: its class, placement under the owner and painting.
#include "toolkit/dialogs/tool_tip.h"

#include <algorithm>

#include "platform/draw/text.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/themed_paint.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
constexpr const char* kTipClass = "QmkToolTip";
constexpr int kPadX = 4, kPadY = 2, kGap = 2;

struct TipState {
  ui::HWND window = nullptr;
  ui::HWND owner = nullptr;
  std::string text;
  unsigned align = kTipAlignDefault;
};
TipState& Tip() {
  static TipState state;
  return state;
}

platform::TextAlign AlignOf(unsigned format) {
  if (format & 2) return platform::TextAlign::kRight;
  if (format & 1) return platform::TextAlign::kCenter;
  return platform::TextAlign::kLeft;
}

void PaintTip(ui::Dc* dc) {
  ui::Rect client;
  if (!ui::GetClientRect(Tip().window, &client)) return;
  PaintThemed(dc, client, [](platform::DrawTarget& t, const platform::DrawRect& r) {
    auto* pm = theme::g_PaintManager().GetPM();
    theme::draw::Fill(t, r, pm->GetColor(theme::COLOR_INFOBK));
    theme::draw::Frame(t, r, pm->GetColor(theme::COLOR_INFOTEXT));
    platform::TextOptions options;
    options.align = AlignOf(Tip().align);
    platform::DrawText(t, theme::draw::Deflate(r, kPadX, kPadY), Tip().text, pm->Font(),
                       pm->GetColor(theme::COLOR_INFOTEXT), options);
  });
}

ui::LRESULT TipProc(ui::HWND hwnd, unsigned msg, ui::WPARAM wp, ui::LPARAM lp) {
  switch (msg) {
    case ui::WM_ERASEBKGND:
      return 1;
    case ui::WM_PAINT: {
      ui::PAINTSTRUCT ps;
      PaintTip(ui::BeginPaint(hwnd, &ps));
      ui::EndPaint(hwnd, &ps);
      return 0;
    }
    case ui::WM_PRINTCLIENT:
      PaintTip(ui::DcFromWParam(wp));
      return 0;
    case ui::WM_MOUSEACTIVATE:
      return ui::MA_NOACTIVATE;
    case ui::WM_NCHITTEST:
      return ui::HTTRANSPARENT;  // the tip never takes the mouse from its owner
    case ui::WM_NCDESTROY:
      if (Tip().window == hwnd) Tip() = TipState{};
      return ui::DefWindowProc(hwnd, msg, wp, lp);
    default:
      return ui::DefWindowProc(hwnd, msg, wp, lp);
  }
}

bool EnsureTipWindow() {
  if (ui::IsWindow(Tip().window)) return true;
  ui::WNDCLASS wc;
  if (!ui::GetClassInfo(kTipClass, &wc)) {
    wc.lpszClassName = kTipClass;
    wc.lpfnWndProc = &TipProc;
    wc.background = ui::kNoBackground;
    if (!ui::RegisterClass(wc)) return false;
  }
  Tip().window = ui::CreateWindowEx(ui::WS_EX_TOPMOST | ui::WS_EX_TOOLWINDOW, kTipClass, "", ui::WS_POPUP, 0, 0,
                                    10, 10, nullptr, 0, nullptr);
  return Tip().window != nullptr;
}

}  // namespace

bool ShowToolTip(ui::HWND owner, const std::string& text, unsigned align) {
  if (text.empty() || !ui::IsWindow(owner)) {
    HideToolTip(owner);
    return false;
  }
  if (!EnsureTipWindow()) return false;
  Tip().owner = owner;
  Tip().text = text;
  Tip().align = align;
  ui::Rect owner_rect;
  ui::GetWindowRect(owner, &owner_rect);
  const platform::TextSize size = platform::MeasureText(text, theme::g_PaintManager()->Font());
  const int width = std::max(size.width + 2 * kPadX, 8), height = size.height + 2 * kPadY;
  ui::SetWindowPos(Tip().window, nullptr, owner_rect.left, owner_rect.bottom + kGap, width, height,
                   ui::SWP_NOACTIVATE | ui::SWP_SHOWWINDOW);
  ui::InvalidateRect(Tip().window, nullptr, false);
  return true;
}

void HideToolTip(ui::HWND owner) {
  if (!ui::IsWindow(Tip().window) || (owner && owner != Tip().owner)) return;
  // The tip goes away whole: a hidden top-level window left behind would outlive the dialogs
  // (and keep a new back end from being installed).
  ui::DestroyWindow(Tip().window);
  Tip() = TipState{};
}

ui::HWND ToolTipWindow() { return ui::IsWindow(Tip().window) ? Tip().window : nullptr; }

ui::HWND ToolTipOwner() { return Tip().owner; }

std::string ToolTipText() { return Tip().owner ? Tip().text : std::string(); }

}  // namespace qmk::toolkit
