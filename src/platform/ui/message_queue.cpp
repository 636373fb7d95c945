// message_queue.cpp: the thread's queue, sending and posting, window timers, message loops with
// idle processing, modal loops and message filters.
#include <algorithm>
#include <climits>
#include <list>

#include "platform/clock.h"
#include "platform/timers.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {

bool DeliverInjectedInput();
bool HasInjectedInput();
bool RouteDialogMessage(MSG* msg);
void RestoreFocusOnActivate(Window* w);

namespace {

struct WindowTimer {
  HWND hwnd;
  uintptr_t id;
  TIMERPROC proc;
  int platform_id;
  bool due;
};

std::list<WindowTimer>& WindowTimers() {
  static std::list<WindowTimer> timers;
  return timers;
}

uintptr_t g_next_thread_timer = 1;
int g_modal_depth = 0;
int g_next_handler_id = 1;
std::vector<std::pair<int, IdleHandler>> g_idle;
std::vector<std::pair<int, MessageFilter>> g_filters;
int g_idle_count = 0;
bool g_idle_done = false;

bool Matches(const MSG& m, HWND filter, unsigned first, unsigned last) {
  if (m.message == WM_QUIT) return true;
  if (filter && m.hwnd != filter && !IsChild(filter, m.hwnd)) return false;
  if (first == 0 && last == 0) return true;
  return m.message >= first && m.message <= last;
}

bool InRange(unsigned msg, unsigned first, unsigned last) {
  return (first == 0 && last == 0) || (msg >= first && msg <= last);
}

bool IsButtonDown(unsigned m) {
  return m == WM_LBUTTONDOWN || m == WM_RBUTTONDOWN || m == WM_MBUTTONDOWN ||
         m == WM_LBUTTONDBLCLK || m == WM_RBUTTONDBLCLK;
}

// Input takes effect when it is taken from the queue: key states, and activation by a click.
void OnInputTaken(const QueuedMessage& q) {
  FocusState& f = Focus();
  f.keys[VK_SHIFT] = (q.mods & kModShift) ? 0x80 : 0;
  f.keys[VK_CONTROL] = (q.mods & kModControl) ? 0x80 : 0;
  f.keys[VK_MENU] = (q.mods & kModAlt) ? 0x80 : 0;
  const unsigned m = q.msg.message;
  if (m == WM_KEYDOWN || m == WM_SYSKEYDOWN) {
    uint8_t& k = f.keys[q.msg.wParam & 0xFF];
    if (!(k & 0x80)) k ^= 0x01;
    k |= 0x80;
  } else if (m == WM_KEYUP || m == WM_SYSKEYUP) {
    f.keys[q.msg.wParam & 0xFF] &= 0x01;
  }
  if (IsButtonDown(m)) {
    Window* w = Find(q.msg.hwnd);
    Window* top = w ? TopLevelOf(w) : nullptr;
    if (top && f.active != top->handle) {
      const LRESULT r = Send(top->handle, WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(top->handle),
                             MAKELPARAM(HTCLIENT, m));
      if (r != MA_NOACTIVATE && Find(top->handle)) SetActiveWindow(top->handle);
    }
  }
}

WindowTimer* FindTimer(HWND hwnd, uintptr_t id) {
  for (WindowTimer& t : WindowTimers())
    if (t.hwnd == hwnd && t.id == id) return &t;
  return nullptr;
}

bool TakeMessage(MSG* out, HWND filter, unsigned first, unsigned last, bool remove) {
  qmk::platform::RunDueTimers();
  auto& q = Queue();
  for (auto it = q.begin(); it != q.end(); ++it) {
    if (!Matches(it->msg, filter, first, last)) continue;
    *out = it->msg;
    if (remove) {
      const QueuedMessage taken = *it;
      q.erase(it);
      if (taken.input) OnInputTaken(taken);
    }
    g_idle_count = 0;
    g_idle_done = false;
    return true;
  }
  if (InRange(WM_PAINT, first, last)) {
    if (HWND h = NextWindowToPaint(); h && (!filter || h == filter || IsChild(filter, h))) {
      *out = MSG{h, WM_PAINT, 0, 0, CurrentClock().NowMs(), {}};
      return true;
    }
  }
  PresentAll();
  if (InRange(WM_TIMER, first, last)) {
    for (WindowTimer& t : WindowTimers()) {
      if (!t.due || (filter && t.hwnd != filter && !IsChild(filter, t.hwnd))) continue;
      *out = MSG{t.hwnd, WM_TIMER, t.id, reinterpret_cast<LPARAM>(t.proc),
                 CurrentClock().NowMs(), {}};
      if (remove) t.due = false;
      return true;
    }
  }
  return false;
}

// Runs the idle handlers once; true when one of them wants to run again.
bool RunIdle() {
  if (g_idle_done || g_idle.empty()) return false;
  bool more = false;
  const auto handlers = g_idle;
  for (const auto& [id, handler] : handlers) more |= handler(g_idle_count);
  ++g_idle_count;
  if (!more) g_idle_done = true;
  return more;
}

// Waits for something to happen. False when nothing ever can (no back end input, no timer).
bool WaitForInput(bool idle_wants_more) {
  PresentAll();
  if (DeliverInjectedInput()) return true;
  int timeout = -1;
  const int64_t next = qmk::platform::MsUntilNextTimer();
  if (next >= 0) timeout = static_cast<int>(std::min<int64_t>(next, INT_MAX));
  if (idle_wants_more || HasInjectedInput()) timeout = 0;
  const bool got = TheBackend().PumpEvents(timeout);
  return got || timeout >= 0 || TheBackend().HasInputSource();
}

}  // namespace

std::deque<QueuedMessage>& Queue() {
  static std::deque<QueuedMessage> queue;
  return queue;
}

void PostInput(const MSG& msg, unsigned mods) {
  Queue().push_back({msg, mods, true});
  g_idle_count = 0;
  g_idle_done = false;
}

void PurgeQueueOf(HWND hwnd) {
  auto& q = Queue();
  q.erase(std::remove_if(q.begin(), q.end(),
                         [&](const QueuedMessage& m) { return m.msg.hwnd == hwnd; }),
          q.end());
}

void KillTimersOf(HWND hwnd) {
  auto& timers = WindowTimers();
  for (auto it = timers.begin(); it != timers.end();) {
    if (it->hwnd == hwnd) {
      qmk::platform::KillTimer(it->platform_id);
      it = timers.erase(it);
    } else {
      ++it;
    }
  }
}

bool PostMessage(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  if (hwnd && !Find(hwnd)) return false;
  Queue().push_back({MSG{hwnd, msg, wparam, lparam, CurrentClock().NowMs(), {}}, 0, false});
  g_idle_count = 0;
  g_idle_done = false;
  if (BackendStarted()) TheBackend().Wake();
  return true;
}

LRESULT SendMessage(HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  return Send(hwnd, msg, wparam, lparam);
}

LRESULT CallWindowProc(WNDPROC proc, HWND hwnd, unsigned msg, WPARAM wparam, LPARAM lparam) {
  return proc ? proc(hwnd, msg, wparam, lparam) : 0;
}

void PostQuitMessage(int exit_code) {
  Queue().push_back({MSG{nullptr, WM_QUIT, static_cast<WPARAM>(exit_code), 0,
                         CurrentClock().NowMs(), {}},
                     0, false});
}

// ---- Timers ----------------------------------------------------------------------------------
uintptr_t SetTimer(HWND hwnd, uintptr_t id, unsigned elapse_ms, TIMERPROC proc) {
  if (hwnd && !Find(hwnd)) return 0;
  if (!hwnd) id = g_next_thread_timer++;
  // The platform refuses very short periods; ten milliseconds is the floor.
  const int64_t period = std::max<unsigned>(elapse_ms, 10);
  if (WindowTimer* old = FindTimer(hwnd, id)) {
    qmk::platform::KillTimer(old->platform_id);
    old->proc = proc;
    old->due = false;
  } else {
    WindowTimers().push_back({hwnd, id, proc, 0, false});
  }
  WindowTimer* t = FindTimer(hwnd, id);
  t->platform_id = qmk::platform::SetTimer(period, [hwnd, id] {
    if (WindowTimer* due = FindTimer(hwnd, id)) due->due = true;
  });
  if (BackendStarted()) TheBackend().Wake();
  return id;
}

bool KillTimer(HWND hwnd, uintptr_t id) {
  auto& timers = WindowTimers();
  for (auto it = timers.begin(); it != timers.end(); ++it) {
    if (it->hwnd == hwnd && it->id == id) {
      qmk::platform::KillTimer(it->platform_id);
      timers.erase(it);
      return true;
    }
  }
  return false;
}

// ---- Loops -----------------------------------------------------------------------------------
bool PeekMessage(MSG* msg, HWND hwnd, unsigned first, unsigned last, unsigned remove) {
  if (!msg) return false;
  DeliverInjectedInput();
  if (BackendStarted() && Queue().empty()) TheBackend().PumpEvents(0);
  return TakeMessage(msg, hwnd, first, last, (remove & PM_REMOVE) != 0);
}

bool GetMessage(MSG* msg, HWND hwnd, unsigned first, unsigned last) {
  if (!msg) return false;
  for (;;) {
    if (TakeMessage(msg, hwnd, first, last, true)) return msg->message != WM_QUIT;
    const bool more = RunIdle();
    if (TakeMessage(msg, hwnd, first, last, true)) return msg->message != WM_QUIT;
    if (!WaitForInput(more) && Queue().empty() && !NeedsPaint() && !HasInjectedInput() &&
        !RunIdle()) {
      // Nothing can ever arrive: end the loop as if asked to quit.
      Trace("message loop: nothing left to wait for; leaving");
      *msg = MSG{nullptr, WM_QUIT, 0, 0, CurrentClock().NowMs(), {}};
      return false;
    }
  }
}

LRESULT DispatchMessage(const MSG* msg) {
  if (!msg) return 0;
  if (msg->message == WM_TIMER && msg->lParam) {
    reinterpret_cast<TIMERPROC>(msg->lParam)(msg->hwnd, WM_TIMER, msg->wParam, msg->time);
    return 0;
  }
  if (!msg->hwnd) return 0;
  const LRESULT r = Send(msg->hwnd, msg->message, msg->wParam, msg->lParam);
  // A window that does not validate what it was asked to paint would be asked forever.
  if (msg->message == WM_PAINT)
    if (Window* w = Find(msg->hwnd)) {
      w->invalid.Clear();
      w->erase = false;
    }
  return r;
}

namespace {

void Route(MSG& msg) {
  for (const auto& [id, filter] : std::vector(g_filters))
    if (filter(msg)) return;
  if (RouteDialogMessage(&msg)) return;
  DispatchMessage(&msg);
}

}  // namespace

bool PumpMessages(int timeout_ms) {
  DeliverInjectedInput();
  const bool waiting = Queue().empty() && !NeedsPaint();
  TheBackend().PumpEvents(waiting ? timeout_ms : 0);
  DeliverInjectedInput();
  // A message that keeps posting itself must not hold the batch forever.
  for (int budget = 100000; budget > 0; --budget) {
    MSG msg;
    if (!TakeMessage(&msg, nullptr, 0, 0, true)) break;
    if (msg.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(msg.wParam));
      return false;
    }
    Route(msg);
    DeliverInjectedInput();
  }
  RunIdle();
  PresentAll();
  return true;
}

int RunMessageLoop() {
  MSG msg;
  while (GetMessage(&msg, nullptr, 0, 0)) Route(msg);
  return static_cast<int>(msg.wParam);
}

bool RunModalLoop(HWND owner, const std::function<bool()>& done) {
  ++g_modal_depth;
  bool ok = true;
  while (!done()) {
    if (owner && !Find(owner)) break;
    MSG msg;
    if (!GetMessage(&msg, nullptr, 0, 0)) {
      PostQuitMessage(static_cast<int>(msg.wParam));
      ok = false;
      break;
    }
    Route(msg);
  }
  --g_modal_depth;
  return ok;
}

int ModalDepth() { return g_modal_depth; }

int AddIdleHandler(IdleHandler handler) {
  const int id = g_next_handler_id++;
  g_idle.emplace_back(id, std::move(handler));
  g_idle_done = false;
  return id;
}

void RemoveIdleHandler(int id) {
  std::erase_if(g_idle, [&](const auto& h) { return h.first == id; });
}

int AddMessageFilter(MessageFilter filter) {
  const int id = g_next_handler_id++;
  g_filters.emplace_back(id, std::move(filter));
  return id;
}

void RemoveMessageFilter(int id) {
  std::erase_if(g_filters, [&](const auto& f) { return f.first == id; });
}

}  // namespace qmk::platform::ui
