// dialog_script.cpp: the scripted operator: plays what a person would do in a modal dialog, one
// step each time the dialog's loop falls idle, through injected keys and clicks.
#include "platform/ui/dialog_script.h"

#include <cctype>
#include <cstdio>
#include <deque>
#include <memory>

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

// Finds a control anywhere inside the dialog (tab pages and other containers included).
HWND FindControl(HWND dlg, int id) {
  if (HWND direct = GetDlgItem(dlg, id)) return direct;
  for (HWND c : DialogControls(dlg))
    if (GetDlgCtrlID(c) == id) return c;
  return nullptr;
}

class Player {
 public:
  Player(HWND dlg, DialogScript script)
      : dlg_(dlg), script_(std::move(script)), depth_(ModalDepth() + 1) {}

  // One idle turn: true while there is more to play now.
  bool Idle() {
    if (HasInjectedInput()) return true;  // the last step's input is still on its way
    if (!IsWindow(dlg_) || ModalDepth() != depth_) return false;
    if (next_ >= script_.steps().size()) return false;
    if (Play(script_.steps()[next_])) {
      ++next_;
      phase_ = 0;
    }
    return true;
  }

 private:
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
  size_t next_ = 0;
  int phase_ = 0;
};

struct Running {
  std::unique_ptr<Player> player;
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

void QueueDialogScript(DialogScript script) { Scripts().push_back(std::move(script)); }
int PendingDialogScripts() { return static_cast<int>(Scripts().size()); }
void ClearDialogScripts() {
  Scripts().clear();
  Log().clear();
}
std::vector<std::string> DialogScriptLog() { return Log(); }

int StartDialogScript(HWND dlg, int template_id) {
  if (Scripts().empty() || Scripts().front().template_id() != template_id) return 0;
  Running r;
  r.player = std::make_unique<Player>(dlg, std::move(Scripts().front()));
  Scripts().pop_front();
  Player* p = r.player.get();
  r.idle_id = AddIdleHandler([p](int) { return p->Idle(); });
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
