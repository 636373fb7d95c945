// edit_keys.h: the editing keys an edit model answers wherever it is shown: caret moves,
// deletion, select all and undo. The edit control and the combo box's edit share them.
#pragma once

#include "platform/ui/controls/edit_model.h"

namespace qmk::platform::ui::controls {

struct EditKeyOutcome {
  bool handled = false;  // the key is an editing key
  bool moved = false;    // the caret or the selection changed
  EditResult result;     // the text changed (or was refused)
};

// Applies a key down; Enter, Tab, Escape and the clipboard keys are left to the caller.
EditKeyOutcome ApplyEditKey(EditModel& model, unsigned vk, bool shift, bool ctrl);

}  // namespace qmk::platform::ui::controls
