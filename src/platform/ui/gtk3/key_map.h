// key_map.h: GDK key values to the window system's virtual-key codes, and the control
// characters that keys produce beside their key messages.
#pragma once

#include <cstdint>

namespace qmk::platform::ui::gtk3 {

// The virtual-key code of a key, given the key value it has without modifiers on the current
// layout (so Shift+1 is the key "1", not "!"); 0 for keys the window system has no code for.
unsigned VirtualKeyFromKeyval(uint32_t base_keyval);

// The character message a key sends that an input method never commits: Backspace, Tab,
// Enter and Escape send their control codes, Ctrl+letter sends 1 to 26; 0 when none.
int ControlCharForKey(unsigned virtual_key, bool control_down, bool alt_down);

}  // namespace qmk::platform::ui::gtk3
