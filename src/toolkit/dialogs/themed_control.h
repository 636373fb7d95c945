// themed_control.h: ThemedControl, the base of the toolkit's controls: an object bound to an
// existing window by replacing its window procedure, so that the plain control keeps its
// behaviour while the object paints it through the current paint manager.
#pragma once

#include <cstdint>
#include <string>

#include "platform/draw/draw_target.h"
#include "platform/ui/messages.h"
#include "platform/ui/paint.h"
#include "toolkit/dialogs/themed_paint.h"
#include "toolkit/theme/pm_bridge.h"

namespace qmk::toolkit {

// Sent by the hover tracker to a control the mouse has left (the platform's number).
constexpr unsigned kMsgMouseLeave = 0x02A3;

class ThemedControl : public theme::CExtPmBridge {
 public:
  using HWND = platform::ui::HWND;
  using WPARAM = platform::ui::WPARAM;
  using LPARAM = platform::ui::LPARAM;
  using LRESULT = platform::ui::LRESULT;

  ThemedControl() = default;
  // Gives the window its plain procedure back when it still lives.
  ~ThemedControl() override;

  // Binds the object to `hwnd`. False, and nothing changes, when `hwnd` is not a window or
  // already has a toolkit object.
  bool SubclassWindow(HWND hwnd);
  // Gives the window its plain procedure back; false when not bound.
  bool UnsubclassWindow();
  HWND GetSafeHwnd() const { return m_hWnd; }
  theme::WindowHandle PmBridge_GetSafeHwnd() const override;

  // The toolkit object bound to a window, or null.
  static ThemedControl* FromHandle(HWND hwnd);

  // An object made by the subclassing walk belongs to its window and dies with it.
  void SetAutoDelete(bool on) { m_bAutoDelete = on; }
  bool IsHot() const { return m_bHot; }

 protected:
  // Every message of the window; what a control leaves goes to ThemedControl::WindowProc.
  virtual LRESULT WindowProc(unsigned msg, WPARAM wp, LPARAM lp);
  // The plain control's own procedure.
  LRESULT Default(unsigned msg, WPARAM wp, LPARAM lp);
  // Called once the window is bound (its plain object exists and holds its state).
  virtual void OnSubclassed() {}
  // Draws the whole client area onto `target`; controls that paint themselves override it.
  virtual void PaintControl(platform::DrawTarget& target, const platform::DrawRect& rc) {
    (void)target;
    (void)rc;
  }
  // False lets the plain control paint its client area.
  virtual bool PaintsClient() const { return true; }
  // The mouse came over the control or left it.
  virtual void OnHoverChanged() { Invalidate(); }
  // The text of the shared tooltip while the mouse rests on the control; empty for none.
  virtual std::string HoverTip() const { return {}; }
  virtual unsigned HoverTipAlign() const;

  // Fills `rc` with the parent's background as it lies behind this window, so that shaded
  // dialog backgrounds continue under labels and check boxes.
  void PaintParentBackground(platform::DrawTarget& target, const platform::DrawRect& rc) const;
  // Draws the window's frame (the ring between its window and client rectangles) with
  // `painter`, which draws the whole window; `dc` has the window's origin. False without a frame.
  bool PaintFrameWith(platform::ui::Dc* dc, const ThemePainter& painter) const;
  // The frame of a field (edit, list) drawn by the theme in the control's hot, focused or
  // disabled state, where the plain frame would be; and the same at once on a visible window.
  void PaintFieldFrame(platform::ui::Dc* dc) const;
  void RedrawFieldFrame() const;
  // WM_NCPAINT and WM_PRINT of a field whose frame the theme draws: true when `msg` was one.
  bool HandleFieldFrame(unsigned msg, WPARAM wp, LPARAM lp, LRESULT* result);
  // Hot, disabled and focused bits of the theme's widget states.
  unsigned BaseState() const;
  uint32_t Style() const;
  std::string Text() const;
  void Invalidate() const;

  HWND m_hWnd = nullptr;

 private:
  static LRESULT StaticProc(HWND hwnd, unsigned msg, WPARAM wp, LPARAM lp);
  void PaintWith(platform::ui::Dc* dc);
  void SetHot(bool hot);
  void Unbind();

  platform::ui::WNDPROC m_pfnPlain = nullptr;
  bool m_bAutoDelete = false;
  bool m_bHot = false;
};

}  // namespace qmk::toolkit
