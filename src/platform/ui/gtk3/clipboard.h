// clipboard.h: text on the desktop's clipboard, through GtkClipboard.
#pragma once

#include <optional>
#include <string>

namespace qmk::platform::ui::gtk3 {

// Puts UTF-8 text on the clipboard; this process owns it until another takes it.
void SetClipboardText(const std::string& utf8);
// The clipboard's text in UTF-8, or nothing when it holds no text. Waits for the owner's answer
// while iterating the main loop, as GTK does.
std::optional<std::string> GetClipboardText();
bool ClipboardHasText();

}  // namespace qmk::platform::ui::gtk3
