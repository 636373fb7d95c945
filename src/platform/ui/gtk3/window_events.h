// window_events.h: what a GTK top-level window reports to the window system, already in its
// terms: virtual keys, client coordinates in device pixels, wheel notches of 120.
#pragma once

#include <cstdint>
#include <string>

namespace qmk::platform::ui::gtk3 {

enum Modifier : unsigned { kShift = 1, kControl = 2, kAlt = 4 };
enum MouseButtonMask : unsigned { kLeftDown = 1, kRightDown = 2, kMiddleDown = 4 };

struct KeyInput {
  bool down = true;
  int virtual_key = 0;
  int scan_code = 0;     // the hardware key code
  bool repeat = false;   // a press while the key is already down
  unsigned modifiers = 0;
};

enum class PointerKind { kMove, kDown, kUp, kDoubleClick, kWheel, kLeave };
enum class MouseButton { kNone, kLeft, kMiddle, kRight };

struct PointerInput {
  PointerKind kind = PointerKind::kMove;
  MouseButton button = MouseButton::kNone;
  int x = 0, y = 0;          // client coordinates, device pixels
  int wheel_delta = 0;       // positive away from the user, 120 a notch
  unsigned modifiers = 0;
  unsigned buttons = 0;      // MouseButtonMask of the buttons held after this event
};

// Receives one top-level window's input and state changes. Calls come from GTK's main loop, on
// the user-interface thread.
class WindowEvents {
 public:
  virtual ~WindowEvents() = default;
  virtual void OnKey(const KeyInput& key) = 0;
  // A control character of a key (Tab, Enter, Escape, Backspace, Ctrl+letter).
  virtual void OnControlChar(int code) = 0;
  // Text that the input method committed, in UTF-8.
  virtual void OnText(const std::string& utf8) = 0;
  virtual void OnPointer(const PointerInput& pointer) = 0;
  virtual void OnFocus(bool gained) = 0;
  // The window manager moved or resized the window: its client area in screen device pixels.
  virtual void OnConfigured(int x, int y, int width, int height) = 0;
  // The user asked the window manager to close the window; nothing is closed yet.
  virtual void OnCloseRequest() = 0;
};

}  // namespace qmk::platform::ui::gtk3
