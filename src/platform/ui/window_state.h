// window_state.h: the window system's private state: window records, classes, the queue, focus,
// and the helpers the window system's files share. Not for use outside src/platform/ui.
#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/ui/backend.h"
#include "platform/ui/messages.h"
#include "platform/ui/paint.h"
#include "platform/ui/region.h"
#include "platform/ui/window.h"

namespace qmk::platform::ui {

struct DialogState;

struct Window {
  uint64_t id = 0;
  HWND handle = nullptr;
  std::string class_name;
  WNDPROC proc = nullptr;
  uint32_t style = 0;
  uint32_t ex_style = 0;
  int ctrl_id = 0;
  intptr_t user_data = 0;
  std::map<std::string, void*> props;

  HWND parent = nullptr;  // child windows only
  HWND owner = nullptr;   // top-level windows only
  std::vector<HWND> children;  // topmost first

  Rect window_rect;  // in the parent's client coordinates (screen for top-level windows)
  Rect client_rect;  // the same coordinates; inside window_rect
  std::string text;
  HFONT font = nullptr;

  Region invalid;        // client coordinates
  bool erase = false;    // WM_ERASEBKGND owed before the next paint
  bool frame_dirty = false;  // WM_NCPAINT owed
  bool redraw_off = false;   // WM_SETREDRAW FALSE
  bool destroying = false;
  bool size_sent = false;    // WM_SIZE and WM_MOVE went out once after WM_CREATE
  Dc* paint_redirect = nullptr;  // WM_PRINTCLIENT: BeginPaint gives this context
  uintptr_t native_id = 0;       // wrapped host window
  HWND saved_focus = nullptr;    // focus to restore when the top-level is activated again

  std::unique_ptr<DialogState> dialog;
  // Top-level windows only: the picture of the whole window, presented by the back end.
  cairo_surface_t* surface = nullptr;
  Rect presented_dirty;

  bool is_child() const { return (style & WS_CHILD) != 0; }
  ~Window();
};

// Handles are numbers, never pointers, so that a stale handle can only miss.
Window* Find(HWND hwnd);
// Every live top-level window, topmost first.
std::vector<HWND>& TopLevels();
// The list `hwnd` sits in: its parent's children or the top-level list.
std::vector<HWND>& SiblingList(Window* w);

// Offset of a window's client origin in screen coordinates.
Point ClientOrigin(Window* w);
// The top-level window that holds `hwnd` (itself for a top-level window).
Window* TopLevelOf(Window* w);
// The rectangle of `w` (whole window or client area) in its top-level window's pixels.
Rect RectInTop(Window* w, bool client);

// Invalidation in the top-level window's pixels, handed down to every window it covers.
void InvalidateInTop(Window* top, const Rect& r, bool erase);
// Runs WM_NCPAINT / WM_PAINT for every window with something owed, then presents.
void PaintPending();
bool NeedsPaint();
// The first window (parent before children, in z-order) owing a paint, or null.
HWND NextWindowToPaint();
// Makes or resizes a top-level window's picture.
void EnsureSurface(Window* top);
// Presents what changed in every top-level window.
void PresentAll();
// A copy of part of a cairo image surface as a drawing target.
std::unique_ptr<DrawTarget> CopyToTarget(cairo_surface_t* surface, const Rect& src);

// The queue of the user-interface thread.
struct QueuedMessage {
  MSG msg;
  unsigned mods = 0;  // input: modifier keys at the time of the event
  bool input = false;
};
std::deque<QueuedMessage>& Queue();
void PostInput(const MSG& msg, unsigned mods);

// Focus, activation and capture state.
struct FocusState {
  HWND focus = nullptr;
  HWND active = nullptr;
  HWND capture = nullptr;
  uint8_t keys[256] = {};
};
FocusState& Focus();
// Moves focus when `w` is going away or becomes hidden or disabled.
void ForgetFocus(Window* w);

// The window system's side of the back end.
BackendHost& Host();
// The back end, started on first need.
Backend& TheBackend();
bool BackendStarted();

// Sends a message and returns the answer; 0 for a window that went away.
LRESULT Send(HWND hwnd, unsigned msg, WPARAM wparam = 0, LPARAM lparam = 0);

// Position change with the messages and the repaint, shared by SetWindowPos and deferred lists.
struct PositionChange {
  HWND hwnd = nullptr;
  HWND insert_after = nullptr;
  int x = 0, y = 0, cx = 0, cy = 0;
  unsigned flags = 0;
};
// Sends WM_WINDOWPOSCHANGING (unless told not to) and fixes up the change; false to skip it.
bool PrepareChange(PositionChange* c);
// Applies the geometry and visibility; returns the area to repaint in the parent (or screen).
void ApplyChange(PositionChange* c);
void FinishChange(const PositionChange& c);

// Built-in window classes are registered on first need.
void RegisterSystemClasses();

// Trace line to stderr when QMK_TRACE is set.
void Trace(const char* fmt, ...) __attribute__((format(printf, 1, 2)));

}  // namespace qmk::platform::ui
