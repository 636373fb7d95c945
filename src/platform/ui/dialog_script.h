// dialog_script.h: the scripted operator of dialogs. A test queues what a person would do in the
// next modal dialog made from a template; the modal loop plays it through real input (keys and
// clicks injected into the back end), never by calling the dialog's methods.
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
  // Presses a button by clicking it (IDOK, IDCANCEL, ...).
  DialogScript& Press(int button) { return Click(button); }

  int template_id() const { return template_id_; }
  const std::vector<ScriptStep>& steps() const { return steps_; }

 private:
  int template_id_;
  std::vector<ScriptStep> steps_;
};

// Queues a script for the next modal dialog made from its template; scripts play in order.
void QueueDialogScript(DialogScript script);
// Scripts not yet played.
int PendingDialogScripts();
void ClearDialogScripts();
// What was played, one line per step ("9000: set text 1001 \"abc\""), and failures such as a
// missing control ("9000: no control 1099").
std::vector<std::string> DialogScriptLog();

}  // namespace qmk::platform::ui
