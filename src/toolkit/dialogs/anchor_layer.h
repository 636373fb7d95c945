// anchor_layer.h: CExtWA, the layer that moves anchored child controls with the dialog's size
// and keeps the dialog from shrinking below its first size.
#pragma once

#include <vector>

#include "platform/ui/dialog.h"
#include "platform/ui/window.h"
#include "toolkit/dialogs/anchor_map.h"

namespace qmk::toolkit {

// Bits of CExtWA::m_nLimits.
constexpr unsigned kLimitFirstSizeKnown = 1, kLimitMaxTrack = 2, kLimitMinTrack = 4,
                   kLimitMaxSize = 8;

// Anchor pairs the library's dialogs use.
constexpr int ANCHOR_TOP_LEFT[2] = {0, 0};
constexpr int ANCHOR_TOP_RIGHT[2] = {100, 0};

// Moves every anchored window of `map` for a client of `width` by `height` in one deferred
// group, leaving out controls already in place; drops entries whose window is gone.
void ArrangeAnchors(platform::ui::HWND parent, AnchorMap& map, int width, int height);

template <class Base>
class CExtWA : public Base {
 public:
  using Base::Base;
  using typename Base::HWND;
  using typename Base::LPARAM;
  using typename Base::WPARAM;

  AnchorMap m_mapRDI;
  unsigned m_nLimits = 0;
  platform::ui::Size m_sizeMinTrack{0, 0}, m_sizeMaxTrack{0, 0};
  platform::ui::Point m_ptMaxPos{0, 0};
  platform::ui::Size m_sizeMaxSize{0, 0};

  virtual bool AddAnchor(HWND child, int left_pct, int top_pct, int right_pct, int bottom_pct) {
    namespace ui = platform::ui;
    if ((left_pct == -1 && top_pct == -1) || !ui::IsWindow(this->m_hWnd) ||
        ui::GetParent(child) != this->m_hWnd || !ui::IsChild(this->m_hWnd, child))
      return false;
    if (right_pct == -1 && bottom_pct == -1) {
      right_pct = left_pct;
      bottom_pct = top_pct;
    }
    ui::Rect client, r;
    ui::GetClientRect(this->m_hWnd, &client);
    ui::GetWindowRect(child, &r);
    ui::MapWindowRect(nullptr, this->m_hWnd, &r);
    m_mapRDI[child] =
        MakeAnchor(r, client.Width(), client.Height(), left_pct, top_pct, right_pct, bottom_pct);
    return true;
  }
  // By control id; (-1, -1) as the second pair repeats the first.
  bool AddAnchor(int id, const int (&top_left)[2], const int (&bottom_right)[2]) {
    HWND child = platform::ui::GetDlgItem(this->m_hWnd, id);
    if (!child) return false;
    return AddAnchor(child, top_left[0], top_left[1], bottom_right[0], bottom_right[1]);
  }

  virtual void ArrangeLayout(int width = -1, int height = -1) {
    namespace ui = platform::ui;
    if (!ui::IsWindow(this->m_hWnd)) return;
    if (width < 0 || height < 0) {
      ui::Rect client;
      ui::GetClientRect(this->m_hWnd, &client);
      width = client.Width();
      height = client.Height();
    }
    ArrangeAnchors(this->m_hWnd, m_mapRDI, width, height);
  }

  virtual bool ApplyMinMax(platform::ui::MINMAXINFO* mmi) {
    if (!mmi) return false;
    if (m_nLimits & kLimitMinTrack) mmi->ptMinTrackSize = {m_sizeMinTrack.cx, m_sizeMinTrack.cy};
    if (m_nLimits & kLimitMaxTrack) mmi->ptMaxTrackSize = {m_sizeMaxTrack.cx, m_sizeMaxTrack.cy};
    if (m_nLimits & kLimitMaxSize) {
      mmi->ptMaxSize = {m_sizeMaxSize.cx, m_sizeMaxSize.cy};
      mmi->ptMaxPosition = m_ptMaxPos;
    }
    return true;
  }

 protected:
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override {
    namespace ui = platform::ui;
    if (msg == ui::WM_INITDIALOG) {
      // The window's creation sizes came before this object was bound to it: the first size
      // is taken here, after the dialog added its anchors.
      const intptr_t r = Base::WindowProc(msg, wp, lp, handled);
      ui::Rect client;
      ui::GetClientRect(this->m_hWnd, &client);
      if (!(m_nLimits & kLimitFirstSizeKnown))
        OnSize(ui::SIZE_RESTORED, client.Width(), client.Height());
      return r;
    }
    if (msg == ui::WM_SIZE)
      OnSize(wp, static_cast<int>(lp & 0xFFFF), static_cast<int>((lp >> 16) & 0xFFFF));
    if (msg == ui::WM_GETMINMAXINFO) {
      // Swallowed until the first size is known, so creation keeps the template's size.
      if (!(m_nLimits & kLimitFirstSizeKnown)) {
        handled = true;
        return 0;
      }
      const intptr_t r = Base::WindowProc(msg, wp, lp, handled);
      ApplyMinMax(reinterpret_cast<ui::MINMAXINFO*>(lp));
      handled = true;
      return r;
    }
    const intptr_t r = Base::WindowProc(msg, wp, lp, handled);
    if (msg == ui::WM_DESTROY || msg == ui::WM_NCDESTROY) m_mapRDI.clear();
    return r;
  }

 private:
  void OnSize(WPARAM type, int cx, int cy) {
    namespace ui = platform::ui;
    if (type == ui::SIZE_MINIMIZED) return;
    if (!(m_nLimits & kLimitFirstSizeKnown)) {
      ui::Rect whole;
      ui::GetWindowRect(this->m_hWnd, &whole);
      m_sizeMinTrack = {whole.Width(), whole.Height()};
      m_nLimits |= kLimitFirstSizeKnown | kLimitMinTrack;
      ArrangeLayout(-1, -1);
      return;
    }
    // 3 and 4 tell that another window was maximised or restored: nothing moves here.
    if (type == 3 || type == 4) return;
    ArrangeLayout(cx, cy);
  }
};

}  // namespace qmk::toolkit
