// dialog_script.h: the scripted operator of dialogs. A test queues what a person would do in the
// next dialog made from a template; it is played through real input (keys and clicks injected
// into the back end), never by calling the dialog's methods. A modal dialog's script plays in the
// dialog's own loop; a modeless one's (a wait notice, say) in whatever loop pumps the thread's
// messages meanwhile, once the dialog is visible and no modal loop was started above it.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/backend.h"
#include "platform/ui/types.h"

namespace qmk::platform::ui {

struct ScriptStep {
  enum class Kind {
    SetText,   // click the control, select all, type `text`
    Choose,    // pick the item `text` in a list or combo box with the keyboard
    Check,     // click the check box or radio button until its state is `value`
    Click,     // click the control
    Key,       // press `value` (a key code) with `mods`, wherever the focus is
    Type,      // type `text` wherever the focus is
    Wait,      // do nothing until `value` milliseconds of the clock have passed
  };
  Kind kind = Kind::Click;
  int control = 0;
  std::string text;
  int value = 0;
  unsigned mods = 0;
};

// What a person does in one dialog.
class DialogScript {
 public:
  explicit DialogScript(int template_id) : template_id_(template_id) {}
  DialogScript& SetText(int control, std::string text);
  DialogScript& Choose(int control, std::string item);
  DialogScript& Check(int control, unsigned state = 1);
  DialogScript& Click(int control);
  DialogScript& Key(unsigned vk, unsigned mods = 0);
  DialogScript& Type(std::string text);
  // Looks at the dialog for `ms` milliseconds of the clock before the next step (a countdown
  // read for a while, then Cancel). The loop is not kept busy meanwhile: a timer wakes it.
  DialogScript& Wait(int ms);
  // Presses a button by clicking it (IDOK, IDCANCEL, ...).
  DialogScript& Press(int button) { return Click(button); }

  int template_id() const { return template_id_; }
  const std::vector<ScriptStep>& steps() const { return steps_; }

 private:
  int template_id_;
  std::vector<ScriptStep> steps_;
};

// Queues a script for the next dialog made from its template, modal or modeless (a top-level
// one: pages made inside another dialog take none); scripts play in order.
void QueueDialogScript(DialogScript script);
// Scripts not yet played.
int PendingDialogScripts();
void ClearDialogScripts();
// What was played, one line per step ("9000: set text 1001 \"abc\"", "2001: wait 3000"), and
// failures such as a missing control ("9000: no control 1099").
std::vector<std::string> DialogScriptLog();

}  // namespace qmk::platform::ui
