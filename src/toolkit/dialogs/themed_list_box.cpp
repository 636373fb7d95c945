// themed_list_box.cpp: the list box's field, rows, highlight and frame in the theme's colours.
#include "toolkit/dialogs/themed_list_box.h"

#include <string>

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/themed_list_rows.h"
#include "toolkit/theme/draw_primitives.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;

std::string ItemText(ui::HWND list, int index) {
  const auto length = ui::SendMessage(list, ui::LB_GETTEXTLEN, static_cast<ui::WPARAM>(index), 0);
  if (length <= 0) return {};
  std::string text(static_cast<size_t>(length) + 1, '\0');
  ui::SendMessage(list, ui::LB_GETTEXT, static_cast<ui::WPARAM>(index), reinterpret_cast<ui::LPARAM>(text.data()));
  text.resize(text.find('\0'));
  return text;
}

ui::Rect ItemRect(ui::HWND list, int index) {
  ui::Rect r{};
  if (ui::SendMessage(list, ui::controls::LB_GETITEMRECT, static_cast<ui::WPARAM>(index), reinterpret_cast<ui::LPARAM>(&r)) <= 0)
    return {};
  return r;
}

}  // namespace

ThemedControl::LRESULT ThemedListBox::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  LRESULT result = 0;
  if (HandleFieldFrame(msg, wp, lp, &result)) return result;
  if (msg == ui::WM_SETFOCUS || msg == ui::WM_KILLFOCUS || msg == ui::WM_ENABLE) {
    result = ThemedControl::WindowProc(msg, wp, lp);
    Invalidate();
    RedrawFieldFrame();
    return result;
  }
  return ThemedControl::WindowProc(msg, wp, lp);
}

bool ThemedListBox::PaintsClient() const {
  ui::Rect client;
  ui::GetClientRect(m_hWnd, &client);
  const auto top = static_cast<int>(ui::SendMessage(m_hWnd, ui::LB_GETTOPINDEX, 0, 0));
  const ui::Rect row = ItemRect(m_hWnd, top);
  // Rows stop short of the right edge exactly when the plain list keeps room for its bar.
  return row.IsEmpty() || row.right >= client.right;
}

void ThemedListBox::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  auto& pm = *theme::g_PaintManager().GetPM();
  const ListColors c = ListColorsOf(pm);
  const bool enabled = ui::IsWindowEnabled(m_hWnd);
  theme::draw::Fill(target, rc, c.field);
  const auto count = static_cast<int>(ui::SendMessage(m_hWnd, ui::LB_GETCOUNT, 0, 0));
  const auto top = static_cast<int>(ui::SendMessage(m_hWnd, ui::LB_GETTOPINDEX, 0, 0));
  ListColors shown = c;
  if (!enabled) shown.text = shown.selection_text = c.border;
  for (int i = std::max(0, top); i < count; ++i) {
    const ui::Rect row = ItemRect(m_hWnd, i);
    if (row.IsEmpty() || row.top >= rc.bottom) break;
    const bool selected = ui::SendMessage(m_hWnd, ui::LB_GETSEL, static_cast<ui::WPARAM>(i), 0) > 0;
    PaintListRow(pm, target, row, ItemText(m_hWnd, i), selected && enabled, shown);
  }
}

}  // namespace qmk::toolkit
