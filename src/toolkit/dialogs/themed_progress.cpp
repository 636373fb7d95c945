// themed_progress.cpp: the progress bar's share done, drawn by the theme.
#include "toolkit/dialogs/themed_progress.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

ThemedControl::LRESULT ThemedProgress::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
  if (msg >= ui::PBM_SETRANGE && msg <= ui::PBM_SETRANGE32) Invalidate();
  return r;
}

void ThemedProgress::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  const auto low = static_cast<int>(ui::SendMessage(m_hWnd, ui::PBM_GETRANGE, 1, 0));
  const auto high = static_cast<int>(ui::SendMessage(m_hWnd, ui::PBM_GETRANGE, 0, 0));
  const auto pos = static_cast<int>(ui::SendMessage(m_hWnd, ui::PBM_GETPOS, 0, 0));
  PaintParentBackground(target, rc);
  theme::g_PaintManager()->PaintProgress(target, rc, pos - low, high - low,
                                         ui::IsWindowEnabled(m_hWnd) ? theme::kStateNormal : theme::kStateDisabled);
}

}  // namespace qmk::toolkit
