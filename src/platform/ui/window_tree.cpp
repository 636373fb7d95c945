// window_tree.cpp: window classes, window records by handle, creation and destruction, the tree
// of parents, children and owners, window words, properties and text.
#include <cairo.h>
#include <strings.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "platform/ui/dialog_state.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

struct CaseLess {
  bool operator()(const std::string& a, const std::string& b) const {
    return strcasecmp(a.c_str(), b.c_str()) < 0;
  }
};

struct ClassEntry {
  std::string name;
  WNDCLASS wc;
};

std::map<std::string, ClassEntry, CaseLess>& Classes() {
  static std::map<std::string, ClassEntry, CaseLess> classes;
  return classes;
}

std::unordered_map<uint64_t, std::unique_ptr<Window>>& Windows() {
  static std::unordered_map<uint64_t, std::unique_ptr<Window>> windows;
  return windows;
}

// Handles count up from here and are never reused, so a stale handle cannot reach a new window.
uint64_t g_next_id = 0x10000;

HWND HandleOf(uint64_t id) { return reinterpret_cast<HWND>(static_cast<uintptr_t>(id)); }

// Native host windows stand in the tree as hidden top-level records of this class.
constexpr const char* kNativeClass = "#native";

LRESULT NativeProc(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  return DefWindowProc(hwnd, msg, wparam, lparam);
}

int Clamp16(int v) { return std::clamp(v, -32768, 32767); }

// Sends WM_DESTROY to a window and its children, parent first.
void SendDestroy(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w) return;
  Send(hwnd, WM_DESTROY);
  w = Find(hwnd);
  if (!w) return;
  const std::vector<HWND> children = w->children;
  for (HWND c : children) SendDestroy(c);
}

// WM_NCDESTROY from the deepest child up, then the record goes.
void SendNcDestroyAndFree(HWND hwnd);

void Unlink(Window* w) {
  std::vector<HWND>& list = SiblingList(w);
  list.erase(std::remove(list.begin(), list.end(), w->handle), list.end());
}

}  // namespace

void KillTimersOf(HWND hwnd);
void PurgeQueueOf(HWND hwnd);

Window::~Window() {
  if (surface) cairo_surface_destroy(surface);
}

Window* Find(HWND hwnd) {
  if (!hwnd) return nullptr;
  auto it = Windows().find(reinterpret_cast<uintptr_t>(hwnd));
  return it == Windows().end() ? nullptr : it->second.get();
}

std::vector<HWND>& TopLevels() {
  static std::vector<HWND> tops;
  return tops;
}

std::vector<HWND>& SiblingList(Window* w) {
  if (w->is_child()) {
    if (Window* p = Find(w->parent)) return p->children;
  }
  return TopLevels();
}

void Trace(const char* fmt, ...) {
  if (!std::getenv("QMK_TRACE")) return;
  std::va_list args;
  va_start(args, fmt);
  std::fputs("qmk-ui: ", stderr);
  std::vfprintf(stderr, fmt, args);
  std::fputc('\n', stderr);
  va_end(args);
}

LRESULT Send(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  Window* w = Find(hwnd);
  if (!w || !w->proc) return 0;
  return w->proc(hwnd, msg, wparam, lparam);
}

// ---- Classes ---------------------------------------------------------------------------------
bool RegisterClass(const WNDCLASS& wc) {
  if (!wc.lpszClassName || !*wc.lpszClassName || !wc.lpfnWndProc) return false;
  auto& classes = Classes();
  if (classes.count(wc.lpszClassName)) return false;
  ClassEntry entry{wc.lpszClassName, wc};
  entry.wc.lpszClassName = nullptr;
  classes.emplace(entry.name, std::move(entry));
  return true;
}

bool UnregisterClass(const char* name) {
  if (!name) return false;
  auto it = Classes().find(name);
  if (it == Classes().end()) return false;
  for (auto& [id, w] : Windows())
    if (!strcasecmp(w->class_name.c_str(), name)) return false;
  Classes().erase(it);
  return true;
}

bool GetClassInfo(const char* name, WNDCLASS* out) {
  RegisterSystemClasses();
  if (!name) return false;
  auto it = Classes().find(name);
  if (it == Classes().end()) return false;
  if (out) {
    *out = it->second.wc;
    out->lpszClassName = it->second.name.c_str();
  }
  return true;
}

std::string GetClassName(HWND hwnd) {
  Window* w = Find(hwnd);
  return w ? w->class_name : std::string();
}

// ---- Creation --------------------------------------------------------------------------------
HWND CreateWindowEx(uint32_t ex_style, const char* class_name, const char* text, uint32_t style,
                    int x, int y, int cx, int cy, HWND parent, int id, void* param) {
  RegisterSystemClasses();
  if (!class_name) return nullptr;
  auto cls = Classes().find(class_name);
  if (cls == Classes().end()) {
    Trace("CreateWindowEx: no window class \"%s\"", class_name);
    return nullptr;
  }
  Window* parent_w = Find(parent);
  if (parent && !parent_w) return nullptr;
  if ((style & WS_CHILD) && !parent_w) return nullptr;

  auto owned = std::make_unique<Window>();
  Window* w = owned.get();
  w->id = g_next_id++;
  w->handle = HandleOf(w->id);
  w->class_name = cls->second.name;
  w->proc = cls->second.wc.lpfnWndProc;
  w->style = style & ~WS_VISIBLE;
  w->ex_style = ex_style;
  w->text = text ? text : "";
  cx = std::max(0, Clamp16(cx));
  cy = std::max(0, Clamp16(cy));
  x = Clamp16(x);
  y = Clamp16(y);
  const HWND hwnd = w->handle;
  Windows().emplace(w->id, std::move(owned));

  if (w->is_child()) {
    w->parent = parent;
    w->ctrl_id = id;
    parent_w->children.push_back(hwnd);  // new children go to the bottom of the z-order
  } else {
    // The owner of a top-level window is always a top-level window.
    Window* top = parent_w ? TopLevelOf(parent_w) : nullptr;
    w->owner = top ? top->handle : nullptr;
    TopLevels().insert(TopLevels().begin(), hwnd);
  }
  w->window_rect = {x, y, x + cx, y + cy};
  w->client_rect = w->window_rect;

  if (!w->is_child()) {
    MINMAXINFO mmi;
    const Rect screen = VirtualScreenRect();
    mmi.ptMaxSize = {screen.Width(), screen.Height()};
    mmi.ptMaxTrackSize = mmi.ptMaxSize;
    mmi.ptMinTrackSize = {1, 1};
    Send(hwnd, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&mmi));
    if (!(w = Find(hwnd))) return nullptr;
    cx = std::clamp(cx, std::max(0, mmi.ptMinTrackSize.x), std::max(1, mmi.ptMaxTrackSize.x));
    cy = std::clamp(cy, std::max(0, mmi.ptMinTrackSize.y), std::max(1, mmi.ptMaxTrackSize.y));
    w->window_rect = w->client_rect = {x, y, x + cx, y + cy};
  }

  CREATESTRUCT cs;
  cs.lpCreateParams = param;
  cs.hwndParent = parent;
  cs.id = id;
  cs.x = x;
  cs.y = y;
  cs.cx = cx;
  cs.cy = cy;
  cs.style = style;
  cs.dwExStyle = ex_style;
  const std::string name = w->text;
  cs.lpszName = name.c_str();
  cs.lpszClass = class_name;
  if (!Send(hwnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&cs))) {
    SendNcDestroyAndFree(hwnd);
    return nullptr;
  }
  if (!(w = Find(hwnd))) return nullptr;
  NCCALCSIZE_PARAMS nc;
  nc.rgrc[0] = w->window_rect;
  Send(hwnd, WM_NCCALCSIZE, 0, reinterpret_cast<LPARAM>(&nc));
  if (!(w = Find(hwnd))) return nullptr;
  w->client_rect = IntersectRect(nc.rgrc[0], w->window_rect);
  if (w->client_rect.IsEmpty())
    w->client_rect = {w->window_rect.left, w->window_rect.top, w->window_rect.left,
                      w->window_rect.top};

  if (!w->is_child()) {
    EnsureSurface(w);
    SurfaceParams sp;
    sp.screen_rect = w->window_rect;
    sp.title = w->text;
    sp.decorated = (style & WS_CAPTION) == WS_CAPTION;
    sp.resizable = (style & WS_THICKFRAME) != 0;
    sp.owner = w->owner;
    if (Window* o = Find(w->owner)) sp.native_parent = o->native_id;
    TheBackend().CreateSurface(hwnd, sp);
  }

  if (Send(hwnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&cs)) == -1) {
    DestroyWindow(hwnd);
    return nullptr;
  }
  if (!(w = Find(hwnd))) return nullptr;
  if (!w->size_sent) {
    w->size_sent = true;
    Send(hwnd, WM_SIZE, SIZE_RESTORED,
         MAKELPARAM(w->client_rect.Width(), w->client_rect.Height()));
    if (!(w = Find(hwnd))) return nullptr;
    Send(hwnd, WM_MOVE, 0, MAKELPARAM(w->client_rect.left, w->client_rect.top));
  }
  if ((style & WS_VISIBLE) && Find(hwnd)) ShowWindow(hwnd, w->is_child() ? SW_SHOWNA : SW_SHOW);
  return Find(hwnd) ? hwnd : nullptr;
}

namespace {

void SendNcDestroyAndFree(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w) return;
  const std::vector<HWND> children = w->children;
  for (HWND c : children) SendNcDestroyAndFree(c);
  if (!(w = Find(hwnd))) return;
  Send(hwnd, WM_NCDESTROY);
  if (!(w = Find(hwnd))) return;
  KillTimersOf(hwnd);
  PurgeQueueOf(hwnd);
  FocusState& f = Focus();
  if (f.focus == hwnd) f.focus = nullptr;
  if (f.capture == hwnd) f.capture = nullptr;
  if (f.active == hwnd) f.active = nullptr;
  if (!w->is_child() && BackendStarted()) TheBackend().DestroySurface(hwnd);
  Unlink(w);
  Windows().erase(w->id);
}

void MarkDestroying(Window* w) {
  w->destroying = true;
  for (HWND c : w->children)
    if (Window* cw = Find(c)) MarkDestroying(cw);
}

}  // namespace

bool DestroyWindow(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w || w->destroying) return false;
  if (!w->is_child()) {
    const std::vector<HWND> tops = TopLevels();
    for (HWND t : tops) {
      Window* tw = Find(t);
      if (tw && tw->owner == hwnd) DestroyWindow(t);
    }
    if (!(w = Find(hwnd)) || w->destroying) return false;
  }
  if (w->style & WS_VISIBLE) {
    PositionChange c;
    c.hwnd = hwnd;
    c.flags = SWP_HIDEWINDOW | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (PrepareChange(&c)) {
      ApplyChange(&c);
      FinishChange(c);
    }
    if (!(w = Find(hwnd))) return true;
  }
  ForgetFocus(w);
  if (!(w = Find(hwnd))) return true;
  MarkDestroying(w);
  SendDestroy(hwnd);
  SendNcDestroyAndFree(hwnd);
  return true;
}

bool IsWindow(HWND hwnd) { return Find(hwnd) != nullptr; }

HWND WrapNativeWindow(uintptr_t native_id) {
  if (!native_id) return nullptr;
  for (auto& [id, w] : Windows())
    if (w->native_id == native_id) return w->handle;
  static const bool registered = [] {
    WNDCLASS wc;
    wc.lpszClassName = kNativeClass;
    wc.lpfnWndProc = NativeProc;
    return RegisterClass(wc);
  }();
  (void)registered;
  auto owned = std::make_unique<Window>();
  owned->id = g_next_id++;
  owned->handle = HandleOf(owned->id);
  owned->class_name = kNativeClass;
  owned->proc = NativeProc;
  owned->style = WS_POPUP;
  owned->native_id = native_id;
  const HWND hwnd = owned->handle;
  TopLevels().push_back(hwnd);
  Windows().emplace(owned->id, std::move(owned));
  return hwnd;
}

uintptr_t NativeWindowId(HWND hwnd) {
  Window* w = Find(hwnd);
  return w ? w->native_id : 0;
}

// ---- The tree --------------------------------------------------------------------------------
Window* TopLevelOf(Window* w) {
  while (w && w->is_child()) w = Find(w->parent);
  return w;
}

HWND GetParent(HWND hwnd) {
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  return w->is_child() ? w->parent : w->owner;
}

HWND GetAncestor(HWND hwnd, unsigned flags) {
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  switch (flags) {
    case GA_PARENT:
      return w->is_child() ? w->parent : nullptr;
    case GA_ROOT:
      return TopLevelOf(w)->handle;
    case GA_ROOTOWNER: {
      Window* top = TopLevelOf(w);
      while (Window* o = Find(top->owner)) top = o;
      return top->handle;
    }
    default:
      return nullptr;
  }
}

HWND SetParent(HWND child, HWND new_parent) {
  Window* w = Find(child);
  Window* p = Find(new_parent);
  if (!w || (new_parent && !p)) return nullptr;
  for (Window* a = p; a; a = a->is_child() ? Find(a->parent) : nullptr)
    if (a == w) return nullptr;  // a window cannot become its own descendant
  const HWND old = w->is_child() ? w->parent : nullptr;
  const bool visible = (w->style & WS_VISIBLE) != 0;
  if (visible) ShowWindow(child, SW_HIDE);
  if (!(w = Find(child))) return nullptr;
  Unlink(w);
  if (p) {
    w->style = (w->style & ~WS_POPUP) | WS_CHILD;
    w->parent = new_parent;
    w->owner = nullptr;
    p->children.insert(p->children.begin(), child);
  } else {
    w->style &= ~WS_CHILD;
    w->parent = nullptr;
    TopLevels().insert(TopLevels().begin(), child);
    EnsureSurface(w);
  }
  if (visible) ShowWindow(child, SW_SHOWNA);
  return old;
}

HWND GetWindow(HWND hwnd, unsigned relation) {
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  if (relation == GW_CHILD) return w->children.empty() ? nullptr : w->children.front();
  if (relation == GW_OWNER) return w->is_child() ? nullptr : w->owner;
  const std::vector<HWND>& list = SiblingList(w);
  auto it = std::find(list.begin(), list.end(), hwnd);
  if (it == list.end()) return nullptr;
  switch (relation) {
    case GW_HWNDFIRST:
      return list.front();
    case GW_HWNDLAST:
      return list.back();
    case GW_HWNDNEXT:
      return it + 1 == list.end() ? nullptr : *(it + 1);
    case GW_HWNDPREV:
      return it == list.begin() ? nullptr : *(it - 1);
    default:
      return nullptr;
  }
}

HWND GetTopWindow(HWND parent) {
  if (!parent) return TopLevels().empty() ? nullptr : TopLevels().front();
  return GetWindow(parent, GW_CHILD);
}

bool IsChild(HWND parent, HWND hwnd) {
  Window* w = Find(hwnd);
  while (w && w->is_child()) {
    if (w->parent == parent) return true;
    w = Find(w->parent);
  }
  return false;
}

std::vector<HWND> GetChildren(HWND parent) {
  if (!parent) return TopLevels();
  Window* w = Find(parent);
  return w ? w->children : std::vector<HWND>{};
}

int GetDlgCtrlID(HWND hwnd) {
  Window* w = Find(hwnd);
  return w && w->is_child() ? w->ctrl_id : 0;
}

// ---- Words and properties --------------------------------------------------------------------
intptr_t GetWindowLongPtr(HWND hwnd, int index) {
  Window* w = Find(hwnd);
  if (!w) return 0;
  switch (index) {
    case GWLP_WNDPROC:
      return reinterpret_cast<intptr_t>(w->proc);
    case GWLP_ID:
      return w->ctrl_id;
    case GWL_STYLE:
      return static_cast<intptr_t>(w->style);
    case GWL_EXSTYLE:
      return static_cast<intptr_t>(w->ex_style);
    case GWLP_USERDATA:
      return w->user_data;
    case DWLP_MSGRESULT:
      return w->dialog ? w->dialog->msg_result : 0;
    default:
      return 0;
  }
}

intptr_t SetWindowLongPtr(HWND hwnd, int index, intptr_t value) {
  Window* w = Find(hwnd);
  if (!w) return 0;
  intptr_t old = GetWindowLongPtr(hwnd, index);
  switch (index) {
    case GWLP_WNDPROC:
      if (value) w->proc = reinterpret_cast<WNDPROC>(value);
      break;
    case GWLP_ID:
      w->ctrl_id = static_cast<int>(value);
      break;
    case GWL_STYLE:
    case GWL_EXSTYLE: {
      STYLESTRUCT ss{static_cast<uint32_t>(old), static_cast<uint32_t>(value)};
      Send(hwnd, WM_STYLECHANGING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&ss));
      if (!(w = Find(hwnd))) return old;
      if (index == GWL_STYLE) {
        // Visibility, and the child bit, change only through their own calls.
        const uint32_t kept = WS_VISIBLE | WS_CHILD;
        w->style = (w->style & kept) | (ss.styleNew & ~kept);
      } else {
        w->ex_style = ss.styleNew;
      }
      Send(hwnd, WM_STYLECHANGED, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&ss));
      break;
    }
    case GWLP_USERDATA:
      w->user_data = value;
      break;
    case DWLP_MSGRESULT:
      if (w->dialog) w->dialog->msg_result = value;
      break;
    default:
      return 0;
  }
  return old;
}

bool SetProp(HWND hwnd, const char* name, void* value) {
  Window* w = Find(hwnd);
  if (!w || !name) return false;
  w->props[name] = value;
  return true;
}

void* GetProp(HWND hwnd, const char* name) {
  Window* w = Find(hwnd);
  if (!w || !name) return nullptr;
  auto it = w->props.find(name);
  return it == w->props.end() ? nullptr : it->second;
}

void* RemoveProp(HWND hwnd, const char* name) {
  Window* w = Find(hwnd);
  if (!w || !name) return nullptr;
  auto it = w->props.find(name);
  if (it == w->props.end()) return nullptr;
  void* v = it->second;
  w->props.erase(it);
  return v;
}

// ---- Text ------------------------------------------------------------------------------------
bool SetWindowText(HWND hwnd, const char* text) {
  return Send(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text ? text : "")) != 0;
}

int GetWindowTextLength(HWND hwnd) {
  return static_cast<int>(Send(hwnd, WM_GETTEXTLENGTH));
}

int GetWindowText(HWND hwnd, char* buffer, int size) {
  if (!buffer || size <= 0) return 0;
  buffer[0] = 0;
  return static_cast<int>(Send(hwnd, WM_GETTEXT, static_cast<WPARAM>(size),
                               reinterpret_cast<LPARAM>(buffer)));
}

std::string GetWindowText(HWND hwnd) {
  if (!Find(hwnd)) return {};
  const int length = GetWindowTextLength(hwnd);
  std::string text(static_cast<size_t>(std::max(0, length)) + 1, '\0');
  const int got = GetWindowText(hwnd, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<size_t>(std::clamp(got, 0, length)));
  return text;
}

}  // namespace qmk::platform::ui
