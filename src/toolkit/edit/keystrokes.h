// keystrokes.h: keystroke scripts ("12<BS><S-LEFT><PASTE:ab>") and their replay on an edit.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "toolkit/edit/memory_edit.h"

namespace qmk::toolkit::edit {

struct Keystroke {
  enum class Kind { kChar, kKey, kPaste, kCut };
  Kind kind = Kind::kChar;
  unsigned code = 0;   // the byte typed, or the virtual key
  bool shift = false;  // held down with a key: stretches the selection
  bool control = false;
  std::string text;    // what a paste brings
  // How the step is written in a script.
  std::string Label() const;
};

// Reads a script: plain bytes are typed one by one; "<BS>", "<DEL>", "<LEFT>", "<RIGHT>",
// "<HOME>", "<END>", "<INS>" are keys, "<S-LEFT>" and the like hold Shift, "<C-V>" and the like
// hold Control (with C, V, X or INS), "<PASTE:text>" pastes text, "<CUT>" cuts, "<LT>" types "<". Nullopt with `error` set for an unknown name.
std::optional<std::vector<Keystroke>> ParseKeystrokes(const std::string& script, std::string* error);

// Sends one step through the edit's behaviour as a window would: a key down, and for Backspace
// the character 8 that follows it.
void Replay(MemoryEdit& edit, const Keystroke& step);

}  // namespace qmk::toolkit::edit
