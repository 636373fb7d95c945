// plain_control.h: what every plain control shares: its state object tied to the window, font,
// notifications to the parent, painting through WM_PAINT and WM_PRINTCLIENT.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/messages.h"
#include "platform/ui/paint.h"
#include "platform/ui/window.h"

namespace qmk::platform::ui::controls {

class PlainControl {
 public:
  explicit PlainControl(HWND hwnd) : hwnd_(hwnd) {}
  virtual ~PlainControl() = default;
  PlainControl(const PlainControl&) = delete;
  PlainControl& operator=(const PlainControl&) = delete;

  // Handles a message; what a control does not handle goes to Default().
  virtual LRESULT Handle(unsigned msg, WPARAM wparam, LPARAM lparam);

 protected:
  // Paints the whole client area; the font is selected already.
  virtual void Paint(Dc& dc) = 0;
  // The window's creation record, once, before WM_CREATE reaches Handle.
  virtual void OnCreate(const CREATESTRUCT& cs) { (void)cs; }

  LRESULT Default(unsigned msg, WPARAM wparam, LPARAM lparam) {
    return DefWindowProc(hwnd_, msg, wparam, lparam);
  }
  HWND hwnd() const { return hwnd_; }
  uint32_t style() const { return static_cast<uint32_t>(GetWindowLongPtr(hwnd_, GWL_STYLE)); }
  uint32_t ex_style() const {
    return static_cast<uint32_t>(GetWindowLongPtr(hwnd_, GWL_EXSTYLE));
  }
  void SetStyleBits(uint32_t bits, bool on);
  int id() const { return GetDlgCtrlID(hwnd_); }
  HFONT font() const { return font_ ? font_ : GetStockGuiFont(); }
  bool enabled() const { return IsWindowEnabled(hwnd_); }
  bool focused() const { return GetFocus() == hwnd_; }
  Rect ClientRect() const;
  void Invalidate() { InvalidateRect(hwnd_, nullptr, false); }
  // WM_COMMAND to the parent with the control's id and `code`.
  void NotifyCommand(unsigned code);
  // WM_NOTIFY to the parent; `header` is filled with the sender and `code`.
  LRESULT NotifyParent(NMHDR* header, unsigned code);
  // Keeps the window system's copy of the text in step with the control's own.
  void StoreWindowText(const std::string& text);
  // Height of one line of text in the control's font.
  int LineHeight() const;
  static bool ShiftDown();
  static bool ControlDown();

 private:
  HWND hwnd_;
  HFONT font_ = nullptr;
  template <class T> friend LRESULT ControlProc(HWND, unsigned, WPARAM, LPARAM);
  void PaintWith(Dc& dc);
};

// The property under which a window keeps its control object.
inline constexpr const char* kControlProp = "qmk.plain-control";

// The window procedure of a control class: makes the object on WM_NCCREATE, hands it every
// message, deletes it after WM_NCDESTROY.
template <class T>
LRESULT ControlProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  auto* control = static_cast<PlainControl*>(GetProp(hwnd, kControlProp));
  if (msg == WM_NCCREATE && !control) {
    control = new T(hwnd);
    SetProp(hwnd, kControlProp, control);
    control->OnCreate(*reinterpret_cast<const CREATESTRUCT*>(lparam));
  }
  if (!control) return DefWindowProc(hwnd, msg, wparam, lparam);
  if (msg == WM_NCDESTROY) {
    RemoveProp(hwnd, kControlProp);
    delete control;
    return DefWindowProc(hwnd, msg, wparam, lparam);
  }
  return control->Handle(msg, wparam, lparam);
}

// The control object behind a window of one of the plain classes, or null.
template <class T>
T* ControlOf(HWND hwnd) {
  return dynamic_cast<T*>(static_cast<PlainControl*>(GetProp(hwnd, kControlProp)));
}

}  // namespace qmk::platform::ui::controls
