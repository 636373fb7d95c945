// register.h: the one call that makes the plain controls' window classes known.
#pragma once

namespace qmk::platform::ui {

// Registers "Static", "Button", "Edit", "ListBox", "ComboBox" (and its pop-up "ComboLBox"),
// "msctls_updown32", "SysTabControl32", "msctls_progress32" and "ScrollBar". The window system
// calls it once before the first window is made; calling again changes nothing. False when a
// class could not be registered.
bool RegisterPlainControls();

}  // namespace qmk::platform::ui
