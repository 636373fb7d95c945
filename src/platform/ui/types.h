// types.h: the window system's basic types: handles, message parameters, points and rectangles.
#pragma once

#include <cstdint>

#include "platform/draw/draw_target.h"
#include "qmk/QmkTypes.h"

namespace qmk::platform::ui {

using HWND = QMK_HWND;
using WPARAM = uintptr_t;
using LPARAM = intptr_t;
using LRESULT = intptr_t;

// A window procedure. Subclassing replaces it and calls the previous one with CallWindowProc.
using WNDPROC = LRESULT (*)(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam);
// A dialog procedure: returns non-zero when it handled the message.
using DLGPROC = intptr_t (*)(HWND dlg, unsigned msg, WPARAM wparam, LPARAM lparam);
// A timer callback given to SetTimer instead of a WM_TIMER message.
using TIMERPROC = void (*)(HWND hwnd, unsigned msg, uintptr_t id, int64_t now_ms);

// Rectangles are right and bottom exclusive, in device pixels.
using Rect = qmk::platform::DrawRect;

struct Point {
  int x = 0, y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int cx = 0, cy = 0;
  bool operator==(const Size&) const = default;
};

inline bool PtInRect(const Rect& r, Point p) {
  return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom;
}
inline Rect OffsetRect(Rect r, int dx, int dy) {
  return {r.left + dx, r.top + dy, r.right + dx, r.bottom + dy};
}
inline Rect IntersectRect(const Rect& a, const Rect& b) {
  Rect r{a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
         a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
  if (r.IsEmpty()) return {};
  return r;
}
// The smallest rectangle holding both; an empty rectangle adds nothing.
inline Rect UnionRect(const Rect& a, const Rect& b) {
  if (a.IsEmpty()) return b;
  if (b.IsEmpty()) return a;
  return {a.left < b.left ? a.left : b.left, a.top < b.top ? a.top : b.top,
          a.right > b.right ? a.right : b.right, a.bottom > b.bottom ? a.bottom : b.bottom};
}

// Packing of two 16-bit values in one parameter, as the messages carry them.
constexpr uint16_t LOWORD(uintptr_t v) { return static_cast<uint16_t>(v & 0xFFFF); }
constexpr uint16_t HIWORD(uintptr_t v) { return static_cast<uint16_t>((v >> 16) & 0xFFFF); }
constexpr LPARAM MAKELPARAM(unsigned lo, unsigned hi) {
  return static_cast<LPARAM>((lo & 0xFFFFu) | ((hi & 0xFFFFu) << 16));
}
constexpr WPARAM MAKEWPARAM(unsigned lo, unsigned hi) {
  return static_cast<WPARAM>((lo & 0xFFFFu) | ((hi & 0xFFFFu) << 16));
}
// Signed coordinates of a mouse message's lParam.
constexpr int GET_X_LPARAM(LPARAM lp) { return static_cast<int16_t>(lp & 0xFFFF); }
constexpr int GET_Y_LPARAM(LPARAM lp) { return static_cast<int16_t>((lp >> 16) & 0xFFFF); }

}  // namespace qmk::platform::ui
