// window_size_layer.h: CExtADLG and CExtWS: the gripper, the painted background and the window
// placement memory and the themed system menu, over any dialog class below them.
#pragma once

#include <cstdio>
#include <string>

#include "platform/ui/window.h"
#include "toolkit/dialogs/dialog_profile.h"
#include "toolkit/dialogs/size_gripper.h"
#include "toolkit/dialogs/subclass_controls.h"
#include "toolkit/dialogs/system_menu.h"
#include "toolkit/dialogs/themed_paint.h"

namespace qmk::toolkit {

// A layer without behaviour of its own, kept so that the chain has its usual shape.
template <class Base>
class CExtADLG : public Base {
 public:
  using Base::Base;
};

// Bits of CExtWS::m_nFlags.
constexpr unsigned kWsSaveRestore = 2, kWsSysMenuTracking = 4, kWsGripperWanted = 8,
                   kWsSubclassChildren = 16, kWsRightToLeft = 32;

// The placement string: left, top, right, bottom of the normal rectangle, show command, flags.
std::string FormatPlacement(const platform::ui::Rect& r, int show, int flags);
// Six numbers or nothing.
bool ParsePlacement(const std::string& text, platform::ui::Rect* r, int* show, int* flags);

template <class Base, unsigned kTimerId = 301>
class CExtWS : public Base {
 public:
  using Base::Base;
  using typename Base::LPARAM;
  using typename Base::WPARAM;

  std::string m_strSection, m_strEntry;
  unsigned m_nFlags = 0;
  uint32_t m_clrBackground = 0xFFFFFFFFu;  // the theme's background
  CExtWSGripper m_wndGripper;

  // Returns the new state; nothing happens when it is unchanged.
  virtual bool ShowSizeGrip(bool show) {
    if (((m_nFlags & kWsGripperWanted) != 0) == show) return show;
    m_nFlags = show ? (m_nFlags | kWsGripperWanted) : (m_nFlags & ~kWsGripperWanted);
    m_wndGripper.Show(show);
    return show;
  }

  virtual bool SaveWindowRect() {
    namespace ui = platform::ui;
    if (m_strSection.empty() || m_strEntry.empty() || !ui::IsWindow(this->m_hWnd)) return false;
    ui::Rect r;
    ui::GetWindowRect(this->m_hWnd, &r);
    const int show = ui::IsWindowVisible(this->m_hWnd) ? ui::SW_SHOWNORMAL : ui::SW_HIDE;
    return WriteDialogProfileString(m_strSection, m_strEntry, FormatPlacement(r, show, 0));
  }

  virtual bool LoadWindowRect(bool force_hide) {
    namespace ui = platform::ui;
    if (m_strSection.empty() || m_strEntry.empty() || !ui::IsWindow(this->m_hWnd)) return false;
    ui::Rect r;
    int show = 0, flags = 0;
    if (!ParsePlacement(ReadDialogProfileString(m_strSection, m_strEntry, ""), &r, &show, &flags))
      return false;
    ui::MoveWindow(this->m_hWnd, r.left, r.top, r.Width(), r.Height(), true);
    if (!force_hide) ui::ShowWindow(this->m_hWnd, show);
    ui::InvalidateRect(this->m_hWnd, nullptr, true);
    return true;
  }

  virtual bool EnableSaveRestore(const std::string& section, const std::string& entry,
                                 bool force_hide = false) {
    m_strSection = section;
    m_strEntry = entry;
    m_nFlags |= kWsSaveRestore;
    return LoadWindowRect(force_hide);
  }

  virtual void DisableSaveRestore() {
    m_strSection.clear();
    m_strEntry.clear();
    m_nFlags &= ~kWsSaveRestore;
  }

  // Opens the themed system menu at `at` (screen coordinates), or at the default place below
  // the caption: for windows with the popup style only. While it is up, bit 4 is set and a
  // timer of 20 ms watches for its end.
  virtual bool TrackSystemMenu(const platform::ui::Point* at = nullptr, bool by_keyboard = false) {
    namespace ui = platform::ui;
    (void)by_keyboard;  // the popup always starts on its first item
    const ui::HWND h = this->m_hWnd;
    if (!ui::IsWindow(h) || !(ui::GetWindowLongPtr(h, ui::GWL_STYLE) & ui::WS_POPUP)) return false;
    const ui::HWND focus = ui::GetFocus();
    if (focus != h && !ui::IsChild(h, focus)) ui::SetFocus(h);
    const bool rtl = (m_nFlags & kWsRightToLeft) != 0;
    ui::Point place{};
    if (at) {
      place = *at;
    } else {
      // Below the caption, inside the frame: the client area's top corner on the reading side.
      ui::Rect client;
      ui::GetClientRect(h, &client);
      place = {rtl ? client.right : 0, 0};
      ui::ClientToScreen(h, &place);
    }
    if (!OpenSystemMenu(h, place, DialogSystemMenuItems(SystemMenuCloseEnabled()), rtl))
      return false;
    m_nFlags |= kWsSysMenuTracking;
    ui::SetTimer(h, kTimerId, 20, nullptr);
    return true;
  }

  // Whether the system menu offers Close.
  virtual bool SystemMenuCloseEnabled() const { return true; }

  virtual void CreateGripper() {
    namespace ui = platform::ui;
    const bool existed = m_wndGripper.Exists();
    const bool was_visible = existed && m_wndGripper.IsVisible();
    m_wndGripper.Place(this->m_hWnd);
    const auto ex = ui::GetWindowLongPtr(this->m_hWnd, ui::GWL_EXSTYLE);
    m_nFlags = (ex & ui::WS_EX_LAYOUTRTL) ? (m_nFlags | kWsRightToLeft) : (m_nFlags & ~kWsRightToLeft);
    if (!(m_nFlags & kWsGripperWanted)) return m_wndGripper.Show(false);
    m_wndGripper.Show(existed ? was_visible : FrameResizable(this->m_hWnd));
  }

 protected:
  intptr_t WindowProc(unsigned msg, WPARAM wp, LPARAM lp, bool& handled) override {
    namespace ui = platform::ui;
    if (msg == ui::WM_INITDIALOG) {
      const intptr_t r = Base::WindowProc(msg, wp, lp, handled);
      CreateGripper();
      if (m_nFlags & kWsSubclassChildren) SubclassChildren();
      return r;
    }
    if (msg == ui::WM_SIZE) m_wndGripper.Place(this->m_hWnd);
    if (msg == ui::WM_ERASEBKGND) {
      handled = true;
      PaintBackground(reinterpret_cast<ui::Dc*>(wp));
      return 1;
    }
    if (msg == ui::WM_TIMER && wp == kTimerId) {
      handled = true;
      if (!SystemMenuOf(this->m_hWnd)) {
        m_nFlags &= ~kWsSysMenuTracking;
        ui::KillTimer(this->m_hWnd, kTimerId);
      }
      return 0;
    }
    if (msg == ui::WM_DESTROY && SystemMenuOf(this->m_hWnd)) CloseSystemMenu();
    if (msg == ui::WM_DESTROY && (m_nFlags & kWsSaveRestore)) SaveWindowRect();
    return Base::WindowProc(msg, wp, lp, handled);
  }

  // Themes the child controls that have no toolkit object yet, just after the gripper is made.
  virtual void SubclassChildren() { SubclassChildControls(this->m_hWnd); }

 private:
  void PaintBackground(platform::ui::Dc* dc) {
    PaintDialogBackgroundOn(this->m_hWnd, dc, m_clrBackground);
  }
};

}  // namespace qmk::toolkit
