// input.cpp: input from the back end (or injected by code) turned into queued messages for the
// focus window, the capture window or the window under the pointer.
#include <deque>

#include "platform/clock.h"
#include "platform/ui/headless.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {

void ApplyConfigure(HWND top, const Rect& screen_rect);

namespace {

unsigned g_buttons = 0;  // MK_ bits of the mouse buttons held

unsigned ButtonBit(MouseButton b) {
  switch (b) {
    case MouseButton::Left:
      return MK_LBUTTON;
    case MouseButton::Right:
      return MK_RBUTTON;
    case MouseButton::Middle:
      return MK_MBUTTON;
    default:
      return 0;
  }
}

unsigned ButtonMessage(MouseAction action, MouseButton b, bool dblclks) {
  const unsigned base = b == MouseButton::Right ? WM_RBUTTONDOWN
                        : b == MouseButton::Middle ? WM_MBUTTONDOWN
                                                   : WM_LBUTTONDOWN;
  if (action == MouseAction::Up) return base + 1;
  if (action == MouseAction::DoubleClick && dblclks && b != MouseButton::Middle) return base + 2;
  return base;
}

bool Usable(Window* w) {
  for (Window* a = w; a; a = a->is_child() ? Find(a->parent) : nullptr)
    if (!(a->style & WS_VISIBLE) || (a->style & WS_DISABLED)) return false;
  return true;
}

// A click on a window disabled by a modal dialog brings the dialog forward instead.
void ActivateModalOf(Window* top) {
  for (HWND t : TopLevels()) {
    Window* w = Find(t);
    if (w && w->owner == top->handle && Usable(w)) {
      SetActiveWindow(t);
      return;
    }
  }
}

class WindowSystemHost final : public BackendHost {
 public:
  void OnKey(HWND top, bool down, unsigned vk, unsigned mods, bool repeat) override {
    Window* t = Find(top);
    if (!t || (t->style & WS_DISABLED)) return;
    const bool system = (mods & kModAlt) || vk == VK_MENU;
    unsigned msg = down ? WM_KEYDOWN : WM_KEYUP;
    if (system && !(mods & kModControl)) msg = down ? WM_SYSKEYDOWN : WM_SYSKEYUP;
    LPARAM lp = 1;
    if (mods & kModAlt) lp |= LPARAM{1} << 29;
    if (repeat) lp |= LPARAM{1} << 30;
    if (!down) lp |= LPARAM{3} << 30;
    PostInput(MSG{Target(t), msg, vk & 0xFF, lp, CurrentClock().NowMs(), {}}, mods);
  }

  void OnChar(HWND top, char32_t ch, unsigned mods) override {
    Window* t = Find(top);
    if (!t || (t->style & WS_DISABLED)) return;
    const unsigned msg = (mods & kModAlt) && !(mods & kModControl) ? WM_SYSCHAR : WM_CHAR;
    PostInput(MSG{Target(t), msg, static_cast<WPARAM>(ch), 1, CurrentClock().NowMs(), {}}, mods);
  }

  void OnMouse(HWND top, MouseAction action, MouseButton button, Point at, unsigned mods,
               int wheel_delta) override {
    Window* t = Find(top);
    if (!t) return;
    const Point screen{t->window_rect.left + at.x, t->window_rect.top + at.y};
    const bool press = action == MouseAction::Down || action == MouseAction::DoubleClick;
    if (press) g_buttons |= ButtonBit(button);
    if (action == MouseAction::Up) g_buttons &= ~ButtonBit(button);
    unsigned keys = g_buttons;
    if (mods & kModShift) keys |= MK_SHIFT;
    if (mods & kModControl) keys |= MK_CONTROL;
    if (action == MouseAction::Leave) return;

    HWND target = GetCapture();
    if (!target) target = WindowFromPoint(screen);
    Window* w = Find(target);
    if (!w) return;
    if (action == MouseAction::Wheel) {
      HWND focus = GetFocus() ? GetFocus() : target;
      PostInput(MSG{focus, WM_MOUSEWHEEL, MAKEWPARAM(keys, static_cast<unsigned>(wheel_delta)),
                    MAKELPARAM(static_cast<unsigned>(screen.x), static_cast<unsigned>(screen.y)),
                    CurrentClock().NowMs(), screen},
                mods);
      return;
    }
    if (!GetCapture() && !Usable(w)) {
      if (press) {
        if (BackendStarted()) TheBackend().Beep();
        if (Window* tw = TopLevelOf(w); tw && (tw->style & WS_DISABLED)) ActivateModalOf(tw);
      }
      return;
    }
    Point client = screen;
    ScreenToClient(target, &client);
    unsigned msg = WM_MOUSEMOVE;
    if (action != MouseAction::Move) {
      WNDCLASS wc;
      const bool dbl = GetClassInfo(w->class_name.c_str(), &wc) && (wc.style & CS_DBLCLKS);
      msg = ButtonMessage(action, button, dbl);
    }
    PostInput(MSG{target, msg, keys,
                  MAKELPARAM(static_cast<unsigned>(client.x), static_cast<unsigned>(client.y)),
                  CurrentClock().NowMs(), screen},
              mods);
  }

  void OnExpose(HWND top, const Rect& r) override {
    Window* t = Find(top);
    if (!t || !t->surface) return;
    t->presented_dirty = UnionRect(t->presented_dirty, r);
    PresentAll();
  }

  void OnConfigure(HWND top, const Rect& screen_rect) override {
    ApplyConfigure(top, screen_rect);
  }

  void OnCloseRequest(HWND top) override {
    Window* t = Find(top);
    if (!t || (t->style & WS_DISABLED)) return;
    PostMessage(top, WM_SYSCOMMAND, SC_CLOSE, 0);
  }

  void OnFocus(HWND top, bool gained) override {
    Window* t = Find(top);
    if (gained && t && GetActiveWindow() != top) SetActiveWindow(top);
  }

  void OnScreenChanged() override {}

 private:
  // Keys go to the focus window when it is inside this top-level window, else to the window.
  static HWND Target(Window* top) {
    HWND focus = GetFocus();
    Window* f = Find(focus);
    if (f && TopLevelOf(f) == top) return focus;
    return top->handle;
  }
};

// ---- Injected input --------------------------------------------------------------------------
struct Injected {
  enum class Kind { Key, Char, Mouse } kind = Kind::Key;
  unsigned vk = 0;
  bool down = false;
  char32_t ch = 0;
  MouseAction action = MouseAction::Move;
  MouseButton button = MouseButton::None;
  Point screen;
  unsigned mods = 0;
};

std::deque<Injected>& Pending() {
  static std::deque<Injected> pending;
  return pending;
}

HWND ActiveTop() {
  if (HWND a = GetActiveWindow()) return a;
  for (HWND t : TopLevels())
    if (Window* w = Find(t); w && (w->style & WS_VISIBLE) && !w->native_id) return t;
  return nullptr;
}

// The top-level window that gets a pointer event at a screen point.
HWND PointerTop(Point screen) {
  if (Window* c = Find(GetCapture())) return TopLevelOf(c)->handle;
  const HWND under = WindowFromPoint(screen);
  Window* w = Find(under);
  return w ? TopLevelOf(w)->handle : nullptr;
}

// Decodes one UTF-8 character; malformed bytes come out as U+FFFD, one byte each.
char32_t NextCodePoint(const std::string& s, size_t* i) {
  const auto c = static_cast<unsigned char>(s[*i]);
  if (c < 0x80) {
    ++*i;
    return c;
  }
  const int n = (c >> 5) == 6 ? 1 : (c >> 4) == 14 ? 2 : (c >> 3) == 30 ? 3 : -1;
  if (n < 0 || *i + static_cast<size_t>(n) >= s.size()) {
    ++*i;
    return 0xFFFD;
  }
  char32_t cp = c & (0x3F >> n);
  for (int k = 1; k <= n; ++k) {
    const auto cc = static_cast<unsigned char>(s[*i + static_cast<size_t>(k)]);
    if ((cc & 0xC0) != 0x80) {
      ++*i;
      return 0xFFFD;
    }
    cp = (cp << 6) | (cc & 0x3F);
  }
  *i += static_cast<size_t>(n) + 1;
  return cp;
}

// The key that types a character, for the key messages around WM_CHAR.
unsigned KeyForChar(char32_t ch) {
  if (ch >= 'a' && ch <= 'z') return static_cast<unsigned>(ch - 'a' + 'A');
  if ((ch >= 'A' && ch <= 'Z') || (ch >= '0' && ch <= '9') || ch == ' ')
    return static_cast<unsigned>(ch);
  if (ch == '\r' || ch == '\n') return VK_RETURN;
  if (ch == '\t') return VK_TAB;
  if (ch == 8) return VK_BACK;
  if (ch == 27) return VK_ESCAPE;
  return 0;
}

}  // namespace

BackendHost& Host() {
  static WindowSystemHost host;
  return host;
}

bool HasInjectedInput() { return !Pending().empty(); }

bool DeliverInjectedInput() {
  if (Pending().empty()) return false;
  // One event at a time leaves room for each to change focus before the next is aimed.
  while (!Pending().empty()) {
    const Injected e = Pending().front();
    Pending().pop_front();
    if (e.kind == Injected::Kind::Mouse) {
      const HWND top = PointerTop(e.screen);
      Window* t = Find(top);
      if (!t) continue;
      Host().OnMouse(top, e.action, e.button,
                     {e.screen.x - t->window_rect.left, e.screen.y - t->window_rect.top}, e.mods,
                     0);
      continue;
    }
    const HWND top = ActiveTop();
    if (!top) continue;
    if (e.kind == Injected::Kind::Key)
      Host().OnKey(top, e.down, e.vk, e.mods, false);
    else
      Host().OnChar(top, e.ch, e.mods);
  }
  return true;
}

void InjectKey(unsigned vk, bool down, unsigned mods) {
  Injected e;
  e.kind = Injected::Kind::Key;
  e.vk = vk;
  e.down = down;
  e.mods = mods;
  Pending().push_back(e);
}

void InjectKeyPress(unsigned vk, unsigned mods) {
  InjectKey(vk, true, mods);
  // Keys that type something also give their character, as a keyboard would.
  char32_t ch = 0;
  if (vk == VK_RETURN) ch = '\r';
  if (vk == VK_ESCAPE) ch = 27;
  if (vk == VK_TAB) ch = '\t';
  if (vk == VK_BACK) ch = 8;
  if (vk == VK_SPACE) ch = ' ';
  if ((mods & kModAlt) && ((vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9')))
    ch = static_cast<char32_t>(vk >= 'A' ? vk - 'A' + 'a' : vk);
  if (ch && !(mods & kModControl)) {
    Injected c;
    c.kind = Injected::Kind::Char;
    c.ch = ch;
    c.mods = mods;
    Pending().push_back(c);
  }
  InjectKey(vk, false, mods);
}

void InjectText(const std::string& utf8) {
  for (size_t i = 0; i < utf8.size();) {
    const char32_t ch = NextCodePoint(utf8, &i);
    const unsigned vk = KeyForChar(ch);
    const unsigned mods = (ch >= 'A' && ch <= 'Z') ? kModShift : 0;
    if (vk) InjectKey(vk, true, mods);
    Injected c;
    c.kind = Injected::Kind::Char;
    c.ch = ch;
    c.mods = mods;
    Pending().push_back(c);
    if (vk) InjectKey(vk, false, mods);
  }
}

void InjectMouse(MouseAction action, Point screen, MouseButton button, unsigned mods) {
  Injected e;
  e.kind = Injected::Kind::Mouse;
  e.action = action;
  e.screen = screen;
  e.button = button;
  e.mods = mods;
  Pending().push_back(e);
}

void InjectClick(Point screen, MouseButton button, unsigned mods) {
  InjectMouse(MouseAction::Move, screen, MouseButton::None, mods);
  InjectMouse(MouseAction::Down, screen, button, mods);
  InjectMouse(MouseAction::Up, screen, button, mods);
}

bool ClickWindow(HWND hwnd) {
  Rect r;
  if (!GetWindowRect(hwnd, &r)) return false;
  InjectClick({(r.left + r.right) / 2, (r.top + r.bottom) / 2});
  return true;
}

}  // namespace qmk::platform::ui
