// focus.cpp: keyboard focus, activation of top-level windows, mouse capture and the key state.
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

bool Within(HWND hwnd, Window* root) {
  return hwnd && (hwnd == root->handle || IsChild(root->handle, hwnd));
}

bool CanTakeFocus(Window* w) {
  for (Window* a = w; a; a = a->is_child() ? Find(a->parent) : nullptr)
    if (!(a->style & WS_VISIBLE) || (a->style & WS_DISABLED)) return false;
  return true;
}

bool EnabledChain(Window* w) {
  for (Window* a = w; a; a = a->is_child() ? Find(a->parent) : nullptr)
    if (a->style & WS_DISABLED) return false;
  return true;
}

// The window to activate when `leaving` stops being active: its owner, else the topmost other
// visible and enabled top-level window.
HWND NextActive(Window* leaving) {
  if (Window* o = Find(leaving->owner); o && CanTakeFocus(o) && !o->native_id) return o->handle;
  for (HWND t : TopLevels()) {
    Window* w = Find(t);
    if (w && w != leaving && !w->native_id && !w->destroying && CanTakeFocus(w)) return t;
  }
  return nullptr;
}

}  // namespace

FocusState& Focus() {
  static FocusState state;
  return state;
}

HWND GetFocus() { return Focus().focus; }
HWND GetActiveWindow() { return Focus().active; }
HWND GetCapture() { return Focus().capture; }

HWND SetFocus(HWND hwnd) {
  FocusState& f = Focus();
  const HWND old = f.focus;
  if (!hwnd) {
    f.focus = nullptr;
    if (old) Send(old, WM_KILLFOCUS, 0);
    return old;
  }
  Window* w = Find(hwnd);
  if (!w || w->destroying || !EnabledChain(w)) return nullptr;
  if (old == hwnd) return old;
  Window* top = TopLevelOf(w);
  if (!CanTakeFocus(w)) {
    // Focus asked for inside a window not yet shown is given when the window is activated.
    if (!(top->style & WS_VISIBLE)) {
      top->saved_focus = hwnd;
      return old;
    }
    return nullptr;
  }
  if (f.active != top->handle) {
    SetActiveWindow(top->handle);
    if (f.focus == hwnd) return old;  // activation put the focus there already
    if (!(w = Find(hwnd)) || !CanTakeFocus(w)) return nullptr;
  }
  const HWND previous = f.focus;
  f.focus = hwnd;
  if (previous) Send(previous, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hwnd));
  if (f.focus == hwnd) Send(hwnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(previous));
  return previous;
}

HWND SetActiveWindow(HWND hwnd) {
  FocusState& f = Focus();
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  w = TopLevelOf(w);
  hwnd = w->handle;
  const HWND old = f.active;
  if (old == hwnd) return old;
  if (w->destroying || !CanTakeFocus(w)) return nullptr;
  if (Window* ow = Find(old)) {
    if (Within(f.focus, ow)) ow->saved_focus = f.focus;
    Send(old, WM_NCACTIVATE, 0, 0);
    Send(old, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(hwnd));
  }
  if (!(w = Find(hwnd))) return old;
  f.active = hwnd;
  auto& tops = TopLevels();
  std::erase(tops, hwnd);
  tops.insert(tops.begin(), hwnd);
  if (BackendStarted()) TheBackend().ActivateSurface(hwnd);
  Send(hwnd, WM_NCACTIVATE, 1, 0);
  Send(hwnd, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(old));
  return old;
}

// The default activation: give focus back to where it was in this window, or to the window.
void RestoreFocusOnActivate(Window* w) {
  FocusState& f = Focus();
  if (Within(f.focus, w)) return;
  Window* saved = Find(w->saved_focus);
  if (saved && Within(saved->handle, w) && CanTakeFocus(saved))
    SetFocus(saved->handle);
  else
    SetFocus(w->handle);
}

void ForgetFocus(Window* w) {
  FocusState& f = Focus();
  const HWND hwnd = w->handle;
  if (Within(f.capture, w)) ReleaseCapture();
  if (!(w = Find(hwnd))) return;
  if (!w->is_child() && f.active == hwnd) {
    const HWND next = NextActive(w);
    if (Within(f.focus, w)) SetFocus(nullptr);
    if (next) {
      SetActiveWindow(next);
    } else if (Find(hwnd)) {
      f.active = nullptr;
      Send(hwnd, WM_NCACTIVATE, 0, 0);
      Send(hwnd, WM_ACTIVATE, WA_INACTIVE, 0);
    }
    return;
  }
  if (!Within(f.focus, w)) return;
  // Focus moves up to the nearest ancestor that can hold it (a dialog passes it on).
  for (Window* a = w->is_child() ? Find(w->parent) : nullptr; a;
       a = a->is_child() ? Find(a->parent) : nullptr) {
    if (CanTakeFocus(a) && !a->destroying) {
      SetFocus(a->handle);
      return;
    }
  }
  SetFocus(nullptr);
}

HWND SetCapture(HWND hwnd) {
  FocusState& f = Focus();
  const HWND old = f.capture;
  if (!Find(hwnd)) return old;
  f.capture = hwnd;
  if (old && old != hwnd) Send(old, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(hwnd));
  if (BackendStarted())
    if (Window* top = TopLevelOf(Find(hwnd))) TheBackend().SetPointerGrab(top->handle, true);
  return old;
}

bool ReleaseCapture() {
  FocusState& f = Focus();
  const HWND old = f.capture;
  f.capture = nullptr;
  if (old) {
    if (BackendStarted())
      if (Window* top = TopLevelOf(Find(old))) TheBackend().SetPointerGrab(top->handle, false);
    Send(old, WM_CAPTURECHANGED, 0, 0);
  }
  return true;
}

int16_t GetKeyState(unsigned vk) {
  const uint8_t k = Focus().keys[vk & 0xFF];
  return static_cast<int16_t>(((k & 0x80) ? 0x8000 : 0) | (k & 0x01));
}

}  // namespace qmk::platform::ui
