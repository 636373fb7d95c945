// clipboard.cpp: the CLIPBOARD selection through GtkClipboard.
#include "platform/ui/gtk3/clipboard.h"

#include <gtk/gtk.h>

namespace qmk::platform::ui::gtk3 {
namespace {

GtkClipboard* Clipboard() { return gtk_clipboard_get(GDK_SELECTION_CLIPBOARD); }

}  // namespace

void SetClipboardText(const std::string& utf8) {
  gtk_clipboard_set_text(Clipboard(), utf8.data(), static_cast<gint>(utf8.size()));
}

std::optional<std::string> GetClipboardText() {
  gchar* text = gtk_clipboard_wait_for_text(Clipboard());
  if (!text) return std::nullopt;
  std::string result(text);
  g_free(text);
  return result;
}

bool ClipboardHasText() { return gtk_clipboard_wait_is_text_available(Clipboard()); }

}  // namespace qmk::platform::ui::gtk3
