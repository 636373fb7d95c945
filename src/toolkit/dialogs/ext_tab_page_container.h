// ext_tab_page_container.h: CExtTabPageContainerWnd, a tab strip drawn by the theme over pages
// that are child windows (usually child dialogs): one page shows at a time, the rest are hidden
// in the same place.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/messages.h"
#include "platform/ui/paint.h"
#include "platform/ui/types.h"
#include "toolkit/theme/pm_bridge.h"

namespace qmk::toolkit {

// Window ids inside the container: the strip, and the pages from kFirstPageId on by index.
constexpr int kTabStripId = 256;
constexpr int kFirstPageId = 257;

class CExtTabPageContainerWnd : public theme::CExtPmBridge {
 public:
  using HWND = platform::ui::HWND;
  using Rect = platform::ui::Rect;

  CExtTabPageContainerWnd() = default;
  // Destroys the container's window and, with it, its pages.
  ~CExtTabPageContainerWnd() override;
  CExtTabPageContainerWnd(const CExtTabPageContainerWnd&) = delete;
  CExtTabPageContainerWnd& operator=(const CExtTabPageContainerWnd&) = delete;

  // Makes the container as a child of `parent` at `rc` (parent's client coordinates).
  bool Create(HWND parent, const Rect& rc, int id,
              uint32_t style = platform::ui::WS_CHILD | platform::ui::WS_VISIBLE);
  HWND GetSafeHwnd() const { return m_hWnd; }
  // The strip window; made on first need (the first page).
  HWND GetSafeTabWindow() const { return m_hWndTabs; }

  // Takes `page` over as a page titled `title` at `pos` (-1 or past the end: last). The first
  // page, or `select`, makes it the selected one. False when `page` is not a window or is
  // already a page. `icon` is kept with the page (PageHasIcon); tabs draw no pictures.
  bool PageInsert(HWND page, const std::string& title, bool icon = false, int pos = -1, bool select = false);
  // Removes a page; `destroy` destroys its window too, otherwise it is hidden and left a child.
  bool PageRemove(int index, bool destroy = true);
  int PageGetCount() const { return static_cast<int>(m_pages.size()); }
  HWND PageHwndGet(int index) const;
  int PageFind(HWND page) const;
  std::string PageTextGet(int index) const;
  bool PageHasIcon(int index) const;
  bool PageTextSet(int index, const std::string& title);
  int PageSelectionGet() const { return m_nSelected; }
  // The tab under the mouse, or -1.
  int HotTab() const { return m_nHotTab; }
  // Shows page `index` and hides the rest. The parent hears TCN_SELCHANGING (and may refuse by
  // answering non-zero) and TCN_SELCHANGE. False for a bad index or a refusal.
  bool PageSelectionSet(int index);

  // The size and style operations: the strip's height, the rectangle pages get, a new layout.
  int TabStripHeight() const;
  Rect PageRect() const;
  void RecalcLayout();
  uint32_t GetStyle() const;
  bool ModifyStyle(uint32_t remove, uint32_t add);

  theme::WindowHandle PmBridge_GetSafeHwnd() const override;
  // A new theme may have another strip height: the pages move before the repaint.
  void PmBridge_OnPaintManagerChanged(theme::CExtPaintManagerAutoPtr* sender) override;

  // Used by the container's window procedures.
  static CExtTabPageContainerWnd* FromHandle(HWND hwnd);
  intptr_t HandleMessage(unsigned msg, uintptr_t wp, intptr_t lp, bool& handled);
  intptr_t HandleStripMessage(unsigned msg, uintptr_t wp, intptr_t lp, bool& handled);

 private:
  struct Page {
    HWND hwnd = nullptr;
    std::string title;
    bool icon = false;
  };

  bool EnsureStrip();
  void RenumberPages();
  void DropDeadPages();
  std::vector<std::string> Titles() const;
  // The tab under a point of the strip's client area, or -1.
  int TabAt(platform::ui::Point p) const;
  bool Notify(unsigned code);
  // A change asked for by the person: the same notices, then the focus moves into the page.
  void SelectByUser(int index);
  // Ctrl+Tab, Ctrl+PgDn and the other page keys, and Tab kept inside the page; the hot tab
  // cools when the mouse moves over another window.
  bool FilterKey(platform::ui::MSG& msg);
  void Paint(platform::ui::HWND target, platform::ui::Dc* dc);

  HWND m_hWnd = nullptr;
  HWND m_hWndTabs = nullptr;
  std::vector<Page> m_pages;
  int m_nSelected = -1;
  int m_nHotTab = -1;
  int m_nFilterId = -1;
};

}  // namespace qmk::toolkit
