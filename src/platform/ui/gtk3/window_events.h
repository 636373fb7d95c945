// window_events.h: what a GTK top-level window reports to the window system, already in its
// terms: key codes of messages.h, Unicode characters, surface coordinates in device pixels,
// wheel notches of 120.
#pragma once

#include "platform/ui/backend.h"

namespace qmk::platform::ui::gtk3 {

// Mouse buttons held after a pointer event.
enum MouseButtonMask : unsigned { kLeftDown = 1, kRightDown = 2, kMiddleDown = 4 };

struct KeyInput {
  bool down = true;
  unsigned virtual_key = 0;
  int scan_code = 0;     // the hardware key code
  bool repeat = false;   // a press while the key is already down
  unsigned modifiers = 0;  // kModShift, kModControl, kModAlt
};

struct PointerInput {
  MouseAction action = MouseAction::Move;
  MouseButton button = MouseButton::None;
  Point at;               // surface coordinates, device pixels
  int wheel_delta = 0;    // positive away from the user, 120 a notch
  unsigned modifiers = 0;
  unsigned buttons = 0;   // MouseButtonMask after this event
};

// Receives one top-level window's input and state changes. Calls come from GTK's main loop, on
// the user-interface thread.
class WindowEvents {
 public:
  virtual ~WindowEvents() = default;
  virtual void OnKey(const KeyInput& key) = 0;
  // A character typed: text that the input method committed, the control characters of keys
  // (Tab, Enter, Escape, Backspace, Ctrl+letter), and the characters of Alt+key for mnemonics.
  virtual void OnChar(char32_t ch, unsigned modifiers) = 0;
  virtual void OnPointer(const PointerInput& pointer) = 0;
  virtual void OnFocus(bool gained) = 0;
  // The window manager moved or resized the window: its surface in screen device pixels.
  virtual void OnConfigured(const Rect& screen_rect) = 0;
  // Part of the surface has never been presented and must be painted.
  virtual void OnExposed(const Rect& r) = 0;
  // The user asked the window manager to close the window; nothing is closed yet.
  virtual void OnCloseRequest() = 0;
};

}  // namespace qmk::platform::ui::gtk3
