// themed_paint.cpp: the bridge from the window system's device context to the theme's painters.
#include "toolkit/dialogs/themed_paint.h"

#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

bool PaintThemed(ui::Dc* dc, const ui::Rect& rc, const ThemePainter& painter) {
  if (!dc || rc.Width() <= 0 || rc.Height() <= 0) return false;
  platform::DrawTarget target(rc.Width(), rc.Height());
  if (!target.ok()) return false;
  painter(target, platform::DrawRect{0, 0, rc.Width(), rc.Height()});
  return dc->DrawPicture(target, ui::Point{rc.left, rc.top});
}

bool PaintDialogBackgroundOn(ui::HWND hwnd, ui::Dc* dc, uint32_t colour) {
  ui::Rect client;
  if (!dc || !ui::GetClientRect(hwnd, &client)) return false;
  if (colour != 0xFFFFFFFFu) {
    dc->FillRect(client, colour | 0xFF000000u);
    return true;
  }
  return PaintThemed(dc, client, [](platform::DrawTarget& t, const platform::DrawRect& r) {
    theme::g_PaintManager()->PaintDialogBackground(t, r);
  });
}

bool FrameResizable(ui::HWND hwnd) {
  return (ui::GetWindowLongPtr(hwnd, ui::GWL_STYLE) & ui::WS_THICKFRAME) != 0;
}

}  // namespace qmk::toolkit
