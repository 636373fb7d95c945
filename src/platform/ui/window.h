// window.h: windows of the window system: classes, the window tree, geometry, states, messages.
//
// Every call runs on the user-interface thread. A window handle stays a valid value after its
// window is destroyed: calls on it fail (IsWindow is false) and never touch freed memory.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/messages.h"
#include "platform/ui/types.h"

namespace qmk::platform::ui {

// ---- Classes ---------------------------------------------------------------------------------
constexpr uint32_t CS_VREDRAW = 0x0001, CS_HREDRAW = 0x0002, CS_DBLCLKS = 0x0008;
// A class background of this value is not erased by DefWindowProc.
constexpr uint32_t kNoBackground = 0x00FFFFFFu | 0x01000000u;
// The neutral face colour (colour words have red in the low byte).
constexpr uint32_t kFaceColor = 0xFFF0F0F0u;

struct WNDCLASS {
  const char* lpszClassName = nullptr;
  WNDPROC lpfnWndProc = nullptr;
  uint32_t style = 0;
  // Filled by WM_ERASEBKGND's default handling; kNoBackground leaves the pixels as they are.
  uint32_t background = kFaceColor;
};

// False when the name is empty, already registered or the procedure is null.
bool RegisterClass(const WNDCLASS& wc);
// False while windows of the class still exist, or for an unknown name.
bool UnregisterClass(const char* name);
bool GetClassInfo(const char* name, WNDCLASS* out);
std::string GetClassName(HWND hwnd);

// ---- Creation and the tree -------------------------------------------------------------------
// Creates a window. With WS_CHILD, `parent` is its parent and (x, y) are in the parent's client
// coordinates; otherwise `parent` becomes the owner and (x, y) are screen coordinates. The
// window gets WM_GETMINMAXINFO (top-level), WM_NCCREATE, WM_NCCALCSIZE, WM_CREATE, and with
// WS_VISIBLE it is shown afterwards. Returns null when the class is unknown, the parent is not a
// window, or WM_NCCREATE / WM_CREATE refused (the window is then destroyed again).
HWND CreateWindowEx(uint32_t ex_style, const char* class_name, const char* text, uint32_t style,
                    int x, int y, int cx, int cy, HWND parent, int id, void* param);
// Sends WM_DESTROY to the window, then to its children (parent first), then WM_NCDESTROY from
// the deepest child up; owned top-level windows are destroyed first.
bool DestroyWindow(HWND hwnd);
bool IsWindow(HWND hwnd);

// A host's native window (an X11 window id) as a handle that dialogs can be owned by; the back
// end makes our top-level windows transient for it. The same id gives the same handle.
HWND WrapNativeWindow(uintptr_t native_id);
// The native id behind a wrapped handle, or 0.
uintptr_t NativeWindowId(HWND hwnd);

constexpr unsigned GA_PARENT = 1, GA_ROOT = 2, GA_ROOTOWNER = 3;
// The parent of a child window, the owner of a top-level one.
HWND GetParent(HWND hwnd);
HWND GetAncestor(HWND hwnd, unsigned flags);
HWND SetParent(HWND child, HWND new_parent);
HWND GetWindow(HWND hwnd, unsigned relation);
HWND GetTopWindow(HWND parent);
bool IsChild(HWND parent, HWND hwnd);
// The direct children of `parent` (null: the top-level windows), topmost first.
std::vector<HWND> GetChildren(HWND parent);
int GetDlgCtrlID(HWND hwnd);

intptr_t GetWindowLongPtr(HWND hwnd, int index);
// Returns the previous value. GWL_STYLE / GWL_EXSTYLE send WM_STYLECHANGING and WM_STYLECHANGED.
intptr_t SetWindowLongPtr(HWND hwnd, int index, intptr_t value);
inline WNDPROC GetWindowProc(HWND hwnd) {
  return reinterpret_cast<WNDPROC>(GetWindowLongPtr(hwnd, GWLP_WNDPROC));
}
// Subclassing: installs `proc` and returns the previous procedure, to be called on with
// CallWindowProc.
inline WNDPROC SubclassWindow(HWND hwnd, WNDPROC proc) {
  return reinterpret_cast<WNDPROC>(
      SetWindowLongPtr(hwnd, GWLP_WNDPROC, reinterpret_cast<intptr_t>(proc)));
}

// Named values attached to a window, removed with it.
bool SetProp(HWND hwnd, const char* name, void* value);
void* GetProp(HWND hwnd, const char* name);
void* RemoveProp(HWND hwnd, const char* name);

// ---- Geometry --------------------------------------------------------------------------------
// The window's whole rectangle (frame included) in screen coordinates.
bool GetWindowRect(HWND hwnd, Rect* out);
// The client rectangle: always at (0, 0).
bool GetClientRect(HWND hwnd, Rect* out);
bool ClientToScreen(HWND hwnd, Point* p);
bool ScreenToClient(HWND hwnd, Point* p);
// Maps points from one window's client coordinates to another's; null stands for the screen.
int MapWindowPoints(HWND from, HWND to, Point* points, int count);
bool MapWindowRect(HWND from, HWND to, Rect* r);

bool MoveWindow(HWND hwnd, int x, int y, int cx, int cy, bool repaint);
bool SetWindowPos(HWND hwnd, HWND insert_after, int x, int y, int cx, int cy, unsigned flags);

// Deferred positioning: collect many moves, apply them together with one repaint.
struct DeferredPositions;
using HDWP = DeferredPositions*;
HDWP BeginDeferWindowPos(int expected);
// Returns the same list, or null (and the list is freed) when `hwnd` is not a window.
HDWP DeferWindowPos(HDWP list, HWND hwnd, HWND insert_after, int x, int y, int cx, int cy,
                    unsigned flags);
bool EndDeferWindowPos(HDWP list);

// The deepest visible, enabled-or-not child under a screen point, or the top-level window there.
HWND WindowFromPoint(Point screen);
// The direct visible child of `parent` under a client point, `parent` itself, or null outside.
HWND ChildWindowFromPoint(HWND parent, Point client);

// ---- States ----------------------------------------------------------------------------------
// Returns whether the window was visible before.
bool ShowWindow(HWND hwnd, int command);
// True when the window and all its ancestors are visible.
bool IsWindowVisible(HWND hwnd);
// Returns whether the window was disabled before. Disabling the focus window moves focus away.
bool EnableWindow(HWND hwnd, bool enable);
bool IsWindowEnabled(HWND hwnd);

bool SetWindowText(HWND hwnd, const char* text);
std::string GetWindowText(HWND hwnd);
int GetWindowText(HWND hwnd, char* buffer, int size);
int GetWindowTextLength(HWND hwnd);

// Focus, activation and capture. SetFocus returns the previous focus window; a disabled or
// hidden window does not take focus.
HWND SetFocus(HWND hwnd);
HWND GetFocus();
HWND SetActiveWindow(HWND hwnd);
HWND GetActiveWindow();
HWND SetCapture(HWND hwnd);
bool ReleaseCapture();
HWND GetCapture();
// The state of a key as the last processed input left it: the high bit pressed, bit 0 toggled.
int16_t GetKeyState(unsigned vk);

// ---- Messages --------------------------------------------------------------------------------
LRESULT SendMessage(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam);
// Queues the message; false when the window is not a window (null posts a thread message).
bool PostMessage(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam);
LRESULT DefWindowProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam);
LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam);

// Sounds the back end's bell (the type is the message-box icon bits, one sound for all); false
// before a back end has started.
bool MessageBeep(unsigned type);

// ---- Timers ----------------------------------------------------------------------------------
// Window timers post WM_TIMER (or call `proc`) every `elapse_ms` of the platform clock. Setting
// an id again replaces the timer. Returns the id, or 0 on failure. With a null window the id is
// chosen by the system.
uintptr_t SetTimer(HWND hwnd, uintptr_t id, unsigned elapse_ms, TIMERPROC proc);
bool KillTimer(HWND hwnd, uintptr_t id);

// ---- Painting state --------------------------------------------------------------------------
// Adds a client rectangle (null: the whole client area) to the window's invalid region.
bool InvalidateRect(HWND hwnd, const Rect* r, bool erase);
bool ValidateRect(HWND hwnd, const Rect* r);
// The bounding box of the invalid region; false when nothing is invalid.
bool GetUpdateRect(HWND hwnd, Rect* out, bool erase);
// The invalid region as disjoint rectangles, in client coordinates.
std::vector<Rect> GetUpdateRegion(HWND hwnd);
// Sends WM_PAINT now to the window and its children that have something invalid.
bool UpdateWindow(HWND hwnd);
// Puts a shown window's top-level window on the screen as it is painted now, for code that
// shows a notice and then works without pumping messages: paints what is owed, presents it, and
// has the back end take in native events until the window is mapped and drawn, for at most
// `limit_ms`. True when it is on the screen; false for a hidden window or when time ran out.
bool FlushWindowToScreen(HWND hwnd, int limit_ms);

}  // namespace qmk::platform::ui
