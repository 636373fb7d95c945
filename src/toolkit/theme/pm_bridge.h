// pm_bridge.h: CExtPmBridge, the mix-in through which a window hears theme events, and the two
// window calls it makes, which the window system supplies.
#pragma once

#include <cstdint>
#include <functional>

#include "toolkit/theme/paint_manager_holder.h"

namespace qmk::toolkit::theme {

// Frame changed, no move, size, z-order or activation: the window lays out its frame again.
constexpr unsigned kBridgeSetWindowPosFlags = 567;
// Invalidate, erase, all children.
constexpr unsigned kBridgeRedrawFlags = 133;
// The frame as well, for windows that draw their non-client area.
constexpr unsigned kBridgeRedrawFrameFlag = 0x400;

using WindowHandle = uintptr_t;

struct BridgeWindowCalls {
  std::function<bool(WindowHandle, unsigned flags)> set_window_pos;
  std::function<bool(WindowHandle, unsigned flags)> redraw_window;
};
// Sets the calls; until then a bridge's hooks change nothing.
void SetBridgeWindowCalls(BridgeWindowCalls calls);

class CExtPmBridge : public CExtPmSynchronizeSink {
 public:
  CExtPmBridge() = default;
  ~CExtPmBridge() override;
  CExtPmBridge(const CExtPmBridge&) = delete;
  CExtPmBridge& operator=(const CExtPmBridge&) = delete;

  // Joins or leaves the sinks of `holder` (the process holder when null).
  void PmBridge_Install(CExtPaintManagerAutoPtr* holder = nullptr);
  void PmBridge_Uninstall();

  // The window that inherits the bridge; 0 while it has none.
  virtual WindowHandle PmBridge_GetSafeHwnd() const { return 0; }

  void PmBridge_OnPaintManagerChanged(CExtPaintManagerAutoPtr* sender) override;
  void PmBridge_OnSysColorChange(CExtPaintManagerAutoPtr* sender) override;
  virtual void PmBridge_OnThemeChanged(CExtPaintManagerAutoPtr* sender);
  virtual void PmBridge_OnSettingChange(CExtPaintManagerAutoPtr* sender) { (void)sender; }
  virtual void PmBridge_OnDisplayChange(CExtPaintManagerAutoPtr* sender) { (void)sender; }

 protected:
  // Lays the window out again and repaints it, when there is a window and `sender` is the
  // holder the bridge listens to.
  void RefreshWindow(CExtPaintManagerAutoPtr* sender, unsigned redraw_flags);
  virtual unsigned RedrawFlags() const { return kBridgeRedrawFlags; }

 private:
  CExtPaintManagerAutoPtr* m_pHolder = nullptr;
};

// A bridge for windows that draw their own frame: its repaint includes the frame.
class CExtPmBridgeNC : public CExtPmBridge {
 protected:
  unsigned RedrawFlags() const override { return kBridgeRedrawFlags | kBridgeRedrawFrameFlag; }
};

}  // namespace qmk::toolkit::theme
