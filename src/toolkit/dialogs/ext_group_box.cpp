// ext_group_box.cpp: the group frame over the parent's themed background.
#include "toolkit/dialogs/ext_group_box.h"

#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

ThemedControl::LRESULT CExtGroupBox::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  if (msg == ui::WM_SETTEXT || msg == ui::WM_ENABLE) {
    const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
    Invalidate();
    return r;
  }
  // A frame is never hot: the mouse belongs to the controls inside it.
  if (msg == ui::WM_MOUSEMOVE) return Default(msg, wp, lp);
  return ThemedControl::WindowProc(msg, wp, lp);
}

void CExtGroupBox::OnSubclassed() {
  ui::SetWindowPos(m_hWnd, ui::HWND_BOTTOM(), 0, 0, 0, 0,
                   ui::SWP_NOMOVE | ui::SWP_NOSIZE | ui::SWP_NOACTIVATE | ui::SWP_NOREDRAW);
}

void CExtGroupBox::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  // The frame's inside is the parent's background: the controls it holds lie above it.
  PaintParentBackground(target, rc);
  theme::g_PaintManager()->PaintGroupBox(target, rc, Text(),
                                         ui::IsWindowEnabled(m_hWnd) ? theme::kStateNormal : theme::kStateDisabled);
}

}  // namespace qmk::toolkit
