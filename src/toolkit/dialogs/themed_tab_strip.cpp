// themed_tab_strip.cpp: the tab strip's titles read from the plain strip, drawn and hit by the
// theme's layout, and the selection change asked of the parent.
#include "toolkit/dialogs/themed_tab_strip.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/controls/control_messages.h"
#include "platform/ui/window.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {

namespace ui = platform::ui;

namespace {
// The tab strip's own messages (TCM_*) lie in this range.
constexpr unsigned kTcmFirst = 0x1300, kTcmLast = 0x133F;
}  // namespace

std::vector<std::string> ThemedTabStrip::Titles() const {
  std::vector<std::string> titles;
  const auto count = static_cast<int>(ui::SendMessage(m_hWnd, ui::TCM_GETITEMCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    char text[256] = {};
    ui::controls::TCITEM item;
    item.mask = ui::controls::TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    ui::SendMessage(m_hWnd, ui::TCM_GETITEM, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    titles.emplace_back(text);
  }
  return titles;
}

int ThemedTabStrip::TabAt(ui::Point p) const {
  ui::Rect client;
  ui::GetClientRect(m_hWnd, &client);
  const auto parts = theme::layout::TabStrip(*theme::g_PaintManager().GetPM(), client, Titles());
  for (size_t i = 0; i < parts.tabs.size(); ++i)
    if (ui::PtInRect(parts.tabs[i], p)) return static_cast<int>(i);
  return -1;
}

void ThemedTabStrip::SelectByUser(int index) {
  const auto current = static_cast<int>(ui::SendMessage(m_hWnd, ui::TCM_GETCURSEL, 0, 0));
  if (index < 0 || index == current) return;
  const HWND parent = ui::GetParent(m_hWnd);
  ui::NMHDR nm;
  nm.hwndFrom = m_hWnd;
  nm.idFrom = static_cast<uintptr_t>(ui::GetDlgCtrlID(m_hWnd));
  nm.code = ui::TCN_SELCHANGING;
  if (parent && ui::SendMessage(parent, ui::WM_NOTIFY, nm.idFrom, reinterpret_cast<LPARAM>(&nm)) != 0) return;
  ui::SendMessage(m_hWnd, ui::TCM_SETCURSEL, static_cast<WPARAM>(index), 0);
  nm.code = ui::TCN_SELCHANGE;
  if (parent) ui::SendMessage(parent, ui::WM_NOTIFY, nm.idFrom, reinterpret_cast<LPARAM>(&nm));
}

void ThemedTabStrip::SetHotTab(int index) {
  if (m_nHotTab == index) return;
  m_nHotTab = index;
  Invalidate();
}

ThemedControl::LRESULT ThemedTabStrip::WindowProc(unsigned msg, WPARAM wp, LPARAM lp) {
  const ui::Point at{ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp)};
  switch (msg) {
    case ui::WM_LBUTTONDOWN: {
      // The theme's tabs lie elsewhere than the plain strip's, so the click is taken here.
      const int index = TabAt(at);
      if (index < 0) return 0;
      if (!(Style() & ui::controls::TCS_FOCUSNEVER)) ui::SetFocus(m_hWnd);
      SelectByUser(index);
      return 0;
    }
    case ui::WM_MOUSEMOVE:
      SetHotTab(TabAt(at));
      break;
    case kMsgMouseLeave:
      SetHotTab(-1);
      break;
    default:
      break;
  }
  const LRESULT r = ThemedControl::WindowProc(msg, wp, lp);
  // Every change of the tabs or the selection shows at once.
  if ((msg >= kTcmFirst && msg <= kTcmLast) || msg == ui::WM_SETFOCUS || msg == ui::WM_KILLFOCUS) Invalidate();
  return r;
}

void ThemedTabStrip::PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
  PaintParentBackground(target, rc);
  const auto selected = static_cast<int>(ui::SendMessage(m_hWnd, ui::TCM_GETCURSEL, 0, 0));
  theme::g_PaintManager()->PaintTabStrip(target, rc, Titles(), selected, m_nHotTab);
}

}  // namespace qmk::toolkit
