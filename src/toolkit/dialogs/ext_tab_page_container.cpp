// ext_tab_page_container.cpp: the container's window and its strip window, page bookkeeping,
// selection with its notices, layout, theme painting and the page keys.
#include "toolkit/dialogs/ext_tab_page_container.h"

#include <algorithm>

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/paint.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/themed_paint.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit {
namespace {

namespace ui = platform::ui;
using ui::HWND;

constexpr const char* kContainerClass = "QmkTabPageContainer";
constexpr const char* kStripClass = "QmkTabPageStrip";
constexpr const char* kObjectProp = "qmk.tab-page-container";
// Pages sit inside the pane's frame, two pixels from its edge in every look.
constexpr int kPaneInset = 2;

ui::LRESULT ContainerProc(HWND hwnd, unsigned msg, ui::WPARAM wp, ui::LPARAM lp) {
  bool handled = false;
  ui::LRESULT r = 0;
  if (auto* self = CExtTabPageContainerWnd::FromHandle(hwnd)) r = self->HandleMessage(msg, wp, lp, handled);
  return handled ? r : ui::DefWindowProc(hwnd, msg, wp, lp);
}

ui::LRESULT StripProc(HWND hwnd, unsigned msg, ui::WPARAM wp, ui::LPARAM lp) {
  bool handled = false;
  ui::LRESULT r = 0;
  if (auto* self = CExtTabPageContainerWnd::FromHandle(ui::GetParent(hwnd)))
    r = self->HandleStripMessage(msg, wp, lp, handled);
  return handled ? r : ui::DefWindowProc(hwnd, msg, wp, lp);
}

bool RegisterClasses() {
  static const bool done = [] {
    ui::WNDCLASS container;
    container.lpszClassName = kContainerClass;
    container.lpfnWndProc = &ContainerProc;
    container.background = ui::kNoBackground;
    ui::WNDCLASS strip;
    strip.lpszClassName = kStripClass;
    strip.lpfnWndProc = &StripProc;
    strip.background = ui::kNoBackground;
    ui::WNDCLASS existing;
    const bool a = ui::GetClassInfo(kContainerClass, &existing) || ui::RegisterClass(container);
    const bool b = ui::GetClassInfo(kStripClass, &existing) || ui::RegisterClass(strip);
    return a && b;
  }();
  return done;
}

ui::Rect ClientOf(HWND hwnd) {
  ui::Rect r;
  ui::GetClientRect(hwnd, &r);
  return r;
}

}  // namespace

CExtTabPageContainerWnd::~CExtTabPageContainerWnd() {
  if (m_nFilterId >= 0) ui::RemoveMessageFilter(m_nFilterId);
  m_nFilterId = -1;
  if (ui::IsWindow(m_hWnd)) {
    ui::RemoveProp(m_hWnd, kObjectProp);
    ui::DestroyWindow(m_hWnd);
  }
}

bool CExtTabPageContainerWnd::Create(HWND parent, const Rect& rc, int id, uint32_t style) {
  if (m_hWnd || !RegisterClasses() || !ui::IsWindow(parent)) return false;
  // The dialog manager looks inside the container for tab stops, and the pages inside it.
  m_hWnd = ui::CreateWindowEx(ui::WS_EX_CONTROLPARENT, kContainerClass, "",
                              style | ui::WS_CHILD | ui::WS_CLIPCHILDREN, rc.left, rc.top, rc.Width(),
                              rc.Height(), parent, id, nullptr);
  if (!m_hWnd) return false;
  ui::SetProp(m_hWnd, kObjectProp, this);
  PmBridge_Install();
  m_nFilterId = ui::AddMessageFilter([this](ui::MSG& msg) { return FilterKey(msg); });
  return true;
}

CExtTabPageContainerWnd* CExtTabPageContainerWnd::FromHandle(HWND hwnd) {
  return hwnd ? static_cast<CExtTabPageContainerWnd*>(ui::GetProp(hwnd, kObjectProp)) : nullptr;
}

theme::WindowHandle CExtTabPageContainerWnd::PmBridge_GetSafeHwnd() const {
  return reinterpret_cast<theme::WindowHandle>(m_hWnd);
}

void CExtTabPageContainerWnd::PmBridge_OnPaintManagerChanged(theme::CExtPaintManagerAutoPtr* sender) {
  RecalcLayout();
  CExtPmBridge::PmBridge_OnPaintManagerChanged(sender);
}

bool CExtTabPageContainerWnd::EnsureStrip() {
  if (ui::IsWindow(m_hWndTabs)) return true;
  const Rect client = ClientOf(m_hWnd);
  m_hWndTabs = ui::CreateWindowEx(0, kStripClass, "", ui::WS_CHILD | ui::WS_VISIBLE, 0, 0, client.Width(),
                                  TabStripHeight(), m_hWnd, kTabStripId, nullptr);
  return m_hWndTabs != nullptr;
}

// ---- pages ----

bool CExtTabPageContainerWnd::PageInsert(HWND page, const std::string& title, bool icon, int pos, bool select) {
  DropDeadPages();
  if (!m_hWnd || !ui::IsWindow(page) || page == m_hWnd || PageFind(page) >= 0 || !EnsureStrip()) return false;
  if (ui::GetParent(page) != m_hWnd) ui::SetParent(page, m_hWnd);
  auto style = static_cast<uint32_t>(ui::GetWindowLongPtr(page, ui::GWL_STYLE));
  style = (style & ~(ui::WS_POPUP | ui::WS_CAPTION | ui::WS_THICKFRAME)) | ui::WS_CHILD;
  ui::SetWindowLongPtr(page, ui::GWL_STYLE, static_cast<intptr_t>(style));
  const auto ex = static_cast<uint32_t>(ui::GetWindowLongPtr(page, ui::GWL_EXSTYLE));
  ui::SetWindowLongPtr(page, ui::GWL_EXSTYLE, static_cast<intptr_t>(ex | ui::WS_EX_CONTROLPARENT));
  const int count = PageGetCount();
  const int at = (pos < 0 || pos > count) ? count : pos;
  m_pages.insert(m_pages.begin() + at, Page{page, title, icon});
  if (m_nSelected >= at) ++m_nSelected;
  RenumberPages();
  ui::ShowWindow(page, ui::SW_HIDE);
  if (m_nSelected < 0 || select) {
    if (!PageSelectionSet(at) && m_nSelected < 0) m_nSelected = at;
  }
  RecalcLayout();
  return true;
}

bool CExtTabPageContainerWnd::PageRemove(int index, bool destroy) {
  DropDeadPages();
  if (index < 0 || index >= PageGetCount()) return false;
  const HWND page = m_pages[static_cast<size_t>(index)].hwnd;
  m_pages.erase(m_pages.begin() + index);
  if (m_nSelected == index) {
    // The page after the removed one takes its place, or the new last one.
    m_nSelected = -1;
    if (!m_pages.empty()) m_nSelected = std::min(index, PageGetCount() - 1);
  } else if (m_nSelected > index) {
    --m_nSelected;
  }
  RenumberPages();
  if (destroy) ui::DestroyWindow(page);
  else ui::ShowWindow(page, ui::SW_HIDE);
  RecalcLayout();
  return true;
}

HWND CExtTabPageContainerWnd::PageHwndGet(int index) const {
  if (index < 0 || index >= PageGetCount()) return nullptr;
  return m_pages[static_cast<size_t>(index)].hwnd;
}

int CExtTabPageContainerWnd::PageFind(HWND page) const {
  for (size_t i = 0; i < m_pages.size(); ++i)
    if (m_pages[i].hwnd == page) return static_cast<int>(i);
  return -1;
}

std::string CExtTabPageContainerWnd::PageTextGet(int index) const {
  if (index < 0 || index >= PageGetCount()) return {};
  return m_pages[static_cast<size_t>(index)].title;
}

bool CExtTabPageContainerWnd::PageHasIcon(int index) const {
  return index >= 0 && index < PageGetCount() && m_pages[static_cast<size_t>(index)].icon;
}

bool CExtTabPageContainerWnd::PageTextSet(int index, const std::string& title) {
  if (index < 0 || index >= PageGetCount()) return false;
  m_pages[static_cast<size_t>(index)].title = title;
  ui::InvalidateRect(m_hWndTabs, nullptr, false);
  return true;
}

void CExtTabPageContainerWnd::RenumberPages() {
  for (size_t i = 0; i < m_pages.size(); ++i)
    ui::SetWindowLongPtr(m_pages[i].hwnd, ui::GWLP_ID, static_cast<intptr_t>(kFirstPageId + static_cast<int>(i)));
}

void CExtTabPageContainerWnd::DropDeadPages() {
  // A page destroyed from outside leaves the list; the selection follows its page.
  const HWND selected = PageHwndGet(m_nSelected);
  const auto dead = std::remove_if(m_pages.begin(), m_pages.end(), [](const Page& p) { return !ui::IsWindow(p.hwnd); });
  if (dead == m_pages.end()) return;
  m_pages.erase(dead, m_pages.end());
  m_nSelected = PageFind(selected);
  if (m_nSelected < 0 && !m_pages.empty()) m_nSelected = 0;
  RenumberPages();
  RecalcLayout();
}

std::vector<std::string> CExtTabPageContainerWnd::Titles() const {
  std::vector<std::string> titles;
  for (const Page& p : m_pages) titles.push_back(p.title);
  return titles;
}

// ---- selection ----

bool CExtTabPageContainerWnd::Notify(unsigned code) {
  const HWND parent = ui::GetParent(m_hWnd);
  if (!parent) return false;
  ui::NMHDR header;
  header.hwndFrom = m_hWnd;
  header.idFrom = static_cast<uintptr_t>(ui::GetDlgCtrlID(m_hWnd));
  header.code = code;
  return ui::SendMessage(parent, ui::WM_NOTIFY, header.idFrom, reinterpret_cast<ui::LPARAM>(&header)) != 0;
}

bool CExtTabPageContainerWnd::PageSelectionSet(int index) {
  DropDeadPages();
  if (index < 0 || index >= PageGetCount()) return false;
  if (index == m_nSelected) return true;
  if (Notify(ui::TCN_SELCHANGING)) return false;
  // Focus inside the page that goes away would be left on a hidden window.
  const HWND focus = ui::GetFocus();
  const HWND old_page = PageHwndGet(m_nSelected);
  const bool focus_was_inside = old_page && (focus == old_page || ui::IsChild(old_page, focus));
  m_nSelected = index;
  RecalcLayout();
  if (focus_was_inside) {
    const HWND page = PageHwndGet(index);
    const HWND first = ui::GetNextDlgTabItem(page, nullptr, false);
    ui::SetFocus(first ? first : m_hWndTabs);
  }
  ui::InvalidateRect(m_hWndTabs, nullptr, false);
  Notify(ui::TCN_SELCHANGE);
  return true;
}

void CExtTabPageContainerWnd::SelectByUser(int index) {
  if (!PageSelectionSet(index)) return;
  const HWND page = PageHwndGet(index);
  const HWND focus = ui::GetFocus();
  if (focus == page || ui::IsChild(page, focus)) return;
  if (const HWND first = ui::GetNextDlgTabItem(page, nullptr, false)) ui::SetFocus(first);
}

// ---- layout ----

int CExtTabPageContainerWnd::TabStripHeight() const {
  const Rect client = ClientOf(m_hWnd);
  return theme::layout::TabStrip(*theme::g_PaintManager().GetPM(), client, {}).strip.Height();
}

CExtTabPageContainerWnd::Rect CExtTabPageContainerWnd::PageRect() const {
  const Rect client = ClientOf(m_hWnd);
  const Rect pane = theme::layout::TabStrip(*theme::g_PaintManager().GetPM(), client, {}).pane;
  const Rect inside{pane.left + kPaneInset, pane.top + kPaneInset, pane.right - kPaneInset, pane.bottom - kPaneInset};
  return inside.IsEmpty() ? Rect{pane.left, pane.top, pane.left, pane.top} : inside;
}

void CExtTabPageContainerWnd::RecalcLayout() {
  if (!ui::IsWindow(m_hWnd)) return;
  const Rect client = ClientOf(m_hWnd);
  if (ui::IsWindow(m_hWndTabs)) ui::MoveWindow(m_hWndTabs, 0, 0, client.Width(), TabStripHeight(), true);
  // Every page gets the active page's rectangle, so that a switch needs no move.
  const Rect r = PageRect();
  for (size_t i = 0; i < m_pages.size(); ++i) {
    const HWND page = m_pages[i].hwnd;
    ui::MoveWindow(page, r.left, r.top, r.Width(), r.Height(), false);
    const bool show = static_cast<int>(i) == m_nSelected;
    if (show != ((ui::GetWindowLongPtr(page, ui::GWL_STYLE) & ui::WS_VISIBLE) != 0))
      ui::ShowWindow(page, show ? ui::SW_SHOWNA : ui::SW_HIDE);
  }
  ui::InvalidateRect(m_hWnd, nullptr, false);
}

uint32_t CExtTabPageContainerWnd::GetStyle() const {
  return static_cast<uint32_t>(ui::GetWindowLongPtr(m_hWnd, ui::GWL_STYLE));
}

bool CExtTabPageContainerWnd::ModifyStyle(uint32_t remove, uint32_t add) {
  if (!ui::IsWindow(m_hWnd)) return false;
  const uint32_t next = (GetStyle() & ~remove) | add;
  ui::SetWindowLongPtr(m_hWnd, ui::GWL_STYLE, static_cast<intptr_t>(next));
  RecalcLayout();
  return true;
}

// ---- messages ----

void CExtTabPageContainerWnd::Paint(HWND target, ui::Dc* dc) {
  // The strip and the container draw the same picture: the strip its top rows, the container
  // the pane's frame around the pages.
  const Rect client = ClientOf(m_hWnd);
  const Rect mine = ClientOf(target);
  const std::vector<std::string> titles = Titles();
  const int selected = m_nSelected, hot = m_nHotTab;
  PaintThemed(dc, mine, [&](platform::DrawTarget& t, const platform::DrawRect&) {
    theme::g_PaintManager()->PaintTabStrip(t, client, titles, selected, hot);
  });
}

intptr_t CExtTabPageContainerWnd::HandleMessage(unsigned msg, uintptr_t wp, intptr_t lp, bool& handled) {
  handled = true;
  switch (msg) {
    case ui::WM_ERASEBKGND:
      return 1;
    case ui::WM_PAINT: {
      ui::PAINTSTRUCT ps;
      Paint(m_hWnd, ui::BeginPaint(m_hWnd, &ps));
      ui::EndPaint(m_hWnd, &ps);
      return 0;
    }
    case ui::WM_PRINTCLIENT:
      Paint(m_hWnd, ui::DcFromWParam(wp));
      return 0;
    case ui::WM_SIZE:
      RecalcLayout();
      return 0;
    case ui::WM_NCDESTROY:
      ui::RemoveProp(m_hWnd, kObjectProp);
      PmBridge_Uninstall();
      if (m_nFilterId >= 0) ui::RemoveMessageFilter(m_nFilterId);
      m_nFilterId = -1;
      m_hWnd = m_hWndTabs = nullptr;
      m_pages.clear();
      m_nSelected = -1;
      handled = false;
      return 0;
    default:
      handled = false;
      (void)lp;
      return 0;
  }
}

int CExtTabPageContainerWnd::TabAt(ui::Point p) const {
  const auto parts = theme::layout::TabStrip(*theme::g_PaintManager().GetPM(), ClientOf(m_hWnd), Titles());
  for (size_t i = 0; i < parts.tabs.size(); ++i)
    if (ui::PtInRect(parts.tabs[i], p)) return static_cast<int>(i);
  return -1;
}

intptr_t CExtTabPageContainerWnd::HandleStripMessage(unsigned msg, uintptr_t wp, intptr_t lp, bool& handled) {
  handled = true;
  const ui::Point at{ui::GET_X_LPARAM(lp), ui::GET_Y_LPARAM(lp)};
  switch (msg) {
    case ui::WM_ERASEBKGND:
      return 1;
    case ui::WM_PAINT: {
      ui::PAINTSTRUCT ps;
      Paint(m_hWndTabs, ui::BeginPaint(m_hWndTabs, &ps));
      ui::EndPaint(m_hWndTabs, &ps);
      return 0;
    }
    case ui::WM_PRINTCLIENT:
      Paint(m_hWndTabs, ui::DcFromWParam(wp));
      return 0;
    case ui::WM_LBUTTONDOWN: {
      const int tab = TabAt(at);
      if (tab >= 0) SelectByUser(tab);
      return 0;
    }
    case ui::WM_MOUSEMOVE: {
      const int tab = TabAt(at);
      if (tab != m_nHotTab) {
        m_nHotTab = tab;
        ui::InvalidateRect(m_hWndTabs, nullptr, false);
      }
      return 0;
    }
    case ui::WM_GETDLGCODE:
      return ui::DLGC_WANTARROWS;
    case ui::WM_KEYDOWN:
      // The strip itself, when it has the focus, moves between tabs with the arrows.
      if (wp == ui::VK_LEFT || wp == ui::VK_RIGHT) {
        const int count = PageGetCount();
        if (count > 0) SelectByUser((m_nSelected + (wp == ui::VK_LEFT ? count - 1 : 1)) % count);
        return 0;
      }
      handled = false;
      return 0;
    default:
      handled = false;
      return 0;
  }
}

bool CExtTabPageContainerWnd::FilterKey(ui::MSG& msg) {
  // The window system tells no window that the mouse left it: a move elsewhere cools the tab.
  if (msg.message == ui::WM_MOUSEMOVE && msg.hwnd != m_hWndTabs && m_nHotTab >= 0) {
    m_nHotTab = -1;
    ui::InvalidateRect(m_hWndTabs, nullptr, false);
  }
  if (msg.message != ui::WM_KEYDOWN || !ui::IsWindow(m_hWnd)) return false;
  if (msg.hwnd != m_hWnd && !ui::IsChild(m_hWnd, msg.hwnd)) return false;
  const int count = PageGetCount();
  if (count == 0) return false;
  const bool ctrl = ui::GetKeyState(ui::VK_CONTROL) < 0;
  const bool shift = ui::GetKeyState(ui::VK_SHIFT) < 0;
  int step = 0;
  if (ctrl && msg.wParam == ui::VK_TAB) step = shift ? -1 : 1;
  if (ctrl && msg.wParam == ui::VK_NEXT) step = 1;
  if (ctrl && msg.wParam == ui::VK_PRIOR) step = -1;
  if (step != 0) {
    SelectByUser(((m_nSelected + step) % count + count) % count);
    return true;
  }
  // Tab and Shift+Tab stay inside the active page.
  const HWND page = PageHwndGet(m_nSelected);
  if (msg.wParam != ui::VK_TAB || ctrl || !page || !ui::IsChild(page, msg.hwnd)) return false;
  const auto code = static_cast<unsigned>(ui::SendMessage(msg.hwnd, ui::WM_GETDLGCODE, msg.wParam,
                                                          reinterpret_cast<ui::LPARAM>(&msg)));
  if (code & (ui::DLGC_WANTTAB | ui::DLGC_WANTMESSAGE)) return false;
  if (const HWND next = ui::GetNextDlgTabItem(page, msg.hwnd, shift)) {
    if (ui::SendMessage(next, ui::WM_GETDLGCODE, 0, 0) & ui::DLGC_HASSETSEL)
      ui::SendMessage(next, ui::EM_SETSEL, 0, -1);
    ui::SetFocus(next);
  }
  return true;
}

}  // namespace qmk::toolkit
