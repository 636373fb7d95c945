// combo_drop_list.cpp: the dropped list's frame, rows and highlight in the theme's colours.
#include "toolkit/dialogs/combo_drop_list.h"

#include "platform/ui/controls/combo_box_control.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/themed_list_rows.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
using ui::controls::ComboBoxControl;

}  // namespace

ThemedControl::LRESULT ComboDropList::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  // The list keeps its plain mouse handling: it isn't a control the hover look applies to.
  if (msg == ui::WM_MOUSEMOVE) return Default(msg, wp, lp);
  return ThemedControl::WindowProc(msg, wp, lp);
}

bool ComboDropList::PaintsClient() const {
  // A list long enough for a scroll bar keeps the plain drawing, whose bar the mouse works.
  auto* combo = ui::controls::ControlOf<ComboBoxControl>(m_hWndCombo);
  return combo && !combo->pane().has_scroll_bar();
}

void ComboDropList::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  auto* combo = ui::controls::ControlOf<ComboBoxControl>(m_hWndCombo);
  if (!combo) return;
  auto& pm = *theme::g_PaintManager().GetPM();
  const ListColors c = ListColorsOf(pm);
  theme::draw::Fill(target, rc, c.field);
  theme::draw::Frame(target, rc, c.border);
  const auto& list = combo->model().list();
  const int selected = list.CurSel();
  for (int i = list.top_index(); i < list.Count(); ++i) {
    const platform::DrawRect row = combo->pane().ItemRect(i);
    if (row.IsEmpty() || row.top >= rc.bottom) break;
    PaintListRow(pm, target, row, list.Text(i), i == selected, c);
  }
}

}  // namespace qmk::toolkit
