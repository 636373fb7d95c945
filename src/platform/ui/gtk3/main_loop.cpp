// main_loop.cpp: waits and timers on GLib's default main context.
#include "platform/ui/gtk3/main_loop.h"

#include <gtk/gtk.h>

namespace qmk::platform::ui::gtk3 {
namespace {

gboolean MarkExpired(gpointer flag) {
  *static_cast<bool*>(flag) = true;
  return G_SOURCE_REMOVE;
}

gboolean RunTimer(gpointer data) {
  return (*static_cast<std::function<bool()>*>(data))() ? G_SOURCE_CONTINUE : G_SOURCE_REMOVE;
}

void DeleteTimer(gpointer data) { delete static_cast<std::function<bool()>*>(data); }

}  // namespace

bool EnsureGtk() {
  if (gdk_display_get_default()) return true;  // the host runs GTK already
  return gtk_init_check(nullptr, nullptr);
}

bool Iterate(int timeout_ms) {
  if (timeout_ms == 0) return g_main_context_iteration(nullptr, FALSE);
  bool expired = false;
  guint limit = 0;
  if (timeout_ms > 0) limit = g_timeout_add(static_cast<guint>(timeout_ms), MarkExpired, &expired);
  g_main_context_iteration(nullptr, TRUE);
  if (expired) return false;
  if (limit) g_source_remove(limit);
  return true;
}

void Wake() { g_main_context_wakeup(nullptr); }

unsigned AddTimer(unsigned interval_ms, std::function<bool()> callback) {
  auto* held = new std::function<bool()>(std::move(callback));
  return g_timeout_add_full(G_PRIORITY_DEFAULT, interval_ms, RunTimer, held, DeleteTimer);
}

void RemoveTimer(unsigned id) {
  // A timer whose callback stopped it is gone already; removing it again is harmless here.
  if (id && g_main_context_find_source_by_id(nullptr, id)) g_source_remove(id);
}

}  // namespace qmk::platform::ui::gtk3
