// main_loop.h: GLib's default main context as the window system's wait: our modal loops
// iterate it, so that a host's own GTK (or Qt on GLib) windows keep working meanwhile.
#pragma once

#include <functional>

namespace qmk::platform::ui::gtk3 {

// Opens GTK on the default display unless the host already has; false when no display opens.
bool EnsureGtk();

// Dispatches what is ready in the default main context, first waiting up to `timeout_ms` for
// something to arrive (-1: no limit, 0: no wait). True when something other than the end of
// the wait was dispatched.
bool Iterate(int timeout_ms);

// Ends a wait of Iterate from any thread, for messages posted by other threads.
void Wake();

// A repeating timer on GLib's clock; the callback returns false to stop it. Returns its id.
unsigned AddTimer(unsigned interval_ms, std::function<bool()> callback);
void RemoveTimer(unsigned id);

}  // namespace qmk::platform::ui::gtk3
