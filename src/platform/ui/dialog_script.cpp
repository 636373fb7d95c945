// dialog_script.cpp: the scripted operator: plays what a person would do in a dialog, one step
// each time the thread's loop falls idle, through injected keys and clicks.
#include "platform/ui/dialog_script.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdio>
#include <deque>
#include <memory>
#include <utility>

#include "platform/clock.h"

#include "platform/ui/control_messages.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_state.h"
#include "platform/ui/headless.h"
#include "platform/ui/message_loop.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {

bool HasInjectedInput();

namespace {

std::deque<DialogScript>& Scripts() {
  static std::deque<DialogScript> scripts;
  return scripts;
}

std::vector<std::string>& Log() {
  static std::vector<std::string> log;
  return log;
}

std::string Quote(const std::string& s) { return "\"" + s + "\""; }

// How often a script whose modeless dialog is hidden, or under a modal loop, looks again.
constexpr int64_t kLookAgainMs = 50;

// A loop whose idle work said "nothing more now" runs it again only after a message: a player
// that waits on the clock has a one-shot timer post one.
void WakeIdle(HWND, unsigned, uintptr_t id, int64_t) {
  KillTimer(nullptr, id);
  PostMessage(nullptr, WM_NULL, 0, 0);
}

// Finds a control anywhere inside the dialog (tab pages and other containers included).
HWND FindControl(HWND dlg, int id) {
  if (HWND direct = GetDlgItem(dlg, id)) return direct;
  for (HWND c : DialogControls(dlg))
    if (GetDlgCtrlID(c) == id) return c;
  return nullptr;
}

class Player {
 public:
  // A modal dialog's script plays inside its loop, one level deeper than where it was made; a
  // modeless one's at the level it was made on, and pauses while a modal loop runs above it.
  Player(HWND dlg, DialogScript script, bool modal)
      : dlg_(dlg), script_(std::move(script)), depth_(ModalDepth() + (modal ? 1 : 0)),
        modal_(modal) {}
  ~Player() {
    if (wake_timer_) KillTimer(nullptr, wake_timer_);
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  // One idle turn: true while there is more to play now.
  bool Idle() {
    if (HasInjectedInput()) return true;  // the last step's input is still on its way
    if (!IsWindow(dlg_) || next_ >= script_.steps().size()) return false;
    if (ModalDepth() != depth_) return modal_ ? false : WakeIn(kLookAgainMs);
    // A person acts on a dialog they can see; a modeless one may be made hidden, shown later.
    if (!modal_ && !IsWindowVisible(dlg_)) return WakeIn(kLookAgainMs);
    later_ = false;
    if (Play(script_.steps()[next_])) {
      ++next_;
      phase_ = 0;
    }
    return !later_;
  }

 private:
  // Nothing to do before `ms` have passed: a timer brings the next idle turn. Returns false, the
  // idle answer for "nothing more now", so the loop waits instead of spinning.
  bool WakeIn(int64_t ms) {
    if (wake_timer_) KillTimer(nullptr, wake_timer_);
    wake_timer_ = SetTimer(nullptr, 0, static_cast<unsigned>(std::clamp<int64_t>(ms, 1, INT_MAX)),
                           WakeIdle);
    later_ = true;
    return false;
  }

  void Note(const std::string& line) {
    Log().push_back(std::to_string(script_.template_id()) + ": " + line);
  }

  // Gives the control focus the way a person at the keyboard would: Tab until it has it.
  bool TabTo(HWND h) {
    const HWND f = GetFocus();
    if (f == h || IsChild(h, f)) return true;
    if (phase_ > static_cast<int>(DialogControls(dlg_).size()) + 1) {
      ClickWindow(h);
      return true;
    }
    ++phase_;
    InjectKeyPress(VK_TAB);
    return false;
  }

  // Plays a step; false when the step needs another idle turn.
  bool Play(const ScriptStep& s) {
    using Kind = ScriptStep::Kind;
    if (s.kind == Kind::Key) {
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "key 0x%02X", static_cast<unsigned>(s.value));
      Note(buffer);
      InjectKeyPress(static_cast<unsigned>(s.value), s.mods);
      return true;
    }
    if (s.kind == Kind::Type) {
      Note("type " + Quote(s.text));
      InjectText(s.text);
      return true;
    }
    if (s.kind == Kind::Wait) return Wait(s.value);
    const HWND h = FindControl(dlg_, s.control);
    if (!h) {
      Note("no control " + std::to_string(s.control));
      return true;
    }
    const std::string id = std::to_string(s.control);
    switch (s.kind) {
      case Kind::Click:
        Note("click " + id);
        ClickWindow(h);
        return true;
      case Kind::SetText:
        if (phase_ == 0) {
          Note("set text " + id + " " + Quote(s.text));
          ClickWindow(h);
          phase_ = 1;
          return false;
        }
        InjectKeyPress(VK_HOME);
        InjectKeyPress(VK_END, kModShift);
        if (s.text.empty())
          InjectKeyPress(VK_DELETE);
        else
          InjectText(s.text);
        return true;
      case Kind::Choose:
        return Choose(h, s, id);
      case Kind::Check: {
        const auto state = static_cast<unsigned>(Send(h, BM_GETCHECK));
        if (phase_ == 0) Note("check " + id + " " + std::to_string(s.value));
        if (state == static_cast<unsigned>(s.value)) return true;
        if (phase_ >= 3) {
          Note("could not check " + id);
          return true;
        }
        ++phase_;
        ClickWindow(h);
        return false;
      }
      default:
        return true;
    }
  }

  bool Wait(int ms) {
    const int64_t now = CurrentClock().NowMs();
    if (phase_ == 0) {
      Note("wait " + std::to_string(ms));
      wait_until_ = now + std::max(ms, 0);
      phase_ = 1;
    }
    if (now >= wait_until_) return true;
    WakeIn(wait_until_ - now);
    return false;
  }

  bool Choose(HWND h, const ScriptStep& s, const std::string& id) {
    // Combo boxes (any class with "combo" in its name) take the combo messages, others the
    // list box ones.
    std::string cls = GetClassName(h);
    for (char& c : cls) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const bool combo = cls.find("combo") != std::string::npos;
    const unsigned find = combo ? CB_FINDSTRINGEXACT : LB_FINDSTRINGEXACT;
    const LRESULT index = Send(h, find, static_cast<WPARAM>(-1),
                               reinterpret_cast<LPARAM>(s.text.c_str()));
    if (phase_ == 0) Note("choose " + id + " " + Quote(s.text));
    if (index < 0) {
      Note("no item " + Quote(s.text) + " in " + id);
      return true;
    }
    if (!TabTo(h)) return false;
    InjectKeyPress(VK_HOME);
    for (LRESULT i = 0; i < index; ++i) InjectKeyPress(VK_DOWN);
    return true;
  }

  HWND dlg_;
  DialogScript script_;
  int depth_;
  bool modal_;
  size_t next_ = 0;
  int phase_ = 0;
  bool later_ = false;        // this turn's step waits for the wake timer
  int64_t wait_until_ = 0;    // of a Wait step under way
  uintptr_t wake_timer_ = 0;
};

struct Running {
  // Shared with the idle handler only weakly: a dialog destroyed during another idle handler
  // stops its player while the loop still holds a copy of the handler.
  std::shared_ptr<Player> player;
  int idle_id = 0;
};

std::vector<Running>& Players() {
  static std::vector<Running> players;
  return players;
}

}  // namespace

DialogScript& DialogScript::SetText(int control, std::string text) {
  steps_.push_back({ScriptStep::Kind::SetText, control, std::move(text), 0, 0});
  return *this;
}
DialogScript& DialogScript::Choose(int control, std::string item) {
  steps_.push_back({ScriptStep::Kind::Choose, control, std::move(item), 0, 0});
  return *this;
}
DialogScript& DialogScript::Check(int control, unsigned state) {
  steps_.push_back({ScriptStep::Kind::Check, control, {}, static_cast<int>(state), 0});
  return *this;
}
DialogScript& DialogScript::Click(int control) {
  steps_.push_back({ScriptStep::Kind::Click, control, {}, 0, 0});
  return *this;
}
DialogScript& DialogScript::Key(unsigned vk, unsigned mods) {
  steps_.push_back({ScriptStep::Kind::Key, 0, {}, static_cast<int>(vk), mods});
  return *this;
}
DialogScript& DialogScript::Type(std::string text) {
  steps_.push_back({ScriptStep::Kind::Type, 0, std::move(text), 0, 0});
  return *this;
}
DialogScript& DialogScript::Wait(int ms) {
  steps_.push_back({ScriptStep::Kind::Wait, 0, {}, ms, 0});
  return *this;
}

void QueueDialogScript(DialogScript script) { Scripts().push_back(std::move(script)); }
int PendingDialogScripts() { return static_cast<int>(Scripts().size()); }
void ClearDialogScripts() {
  Scripts().clear();
  Log().clear();
}
std::vector<std::string> DialogScriptLog() { return Log(); }

int StartDialogScript(HWND dlg, int template_id) {
  if (Scripts().empty() || Scripts().front().template_id() != template_id) return 0;
  Window* w = Find(dlg);
  if (!w || !w->dialog) return 0;
  Running r;
  r.player = std::make_shared<Player>(dlg, std::move(Scripts().front()), w->dialog->modal);
  Scripts().pop_front();
  std::weak_ptr<Player> weak = r.player;
  r.idle_id = AddIdleHandler([weak](int) {
    const std::shared_ptr<Player> p = weak.lock();
    return p && p->Idle();
  });
  const int id = r.idle_id;
  Players().push_back(std::move(r));
  return id;
}

void StopDialogScript(int handle) {
  if (!handle) return;
  RemoveIdleHandler(handle);
  std::erase_if(Players(), [&](const Running& r) { return r.idle_id == handle; });
}

}  // namespace qmk::platform::ui
