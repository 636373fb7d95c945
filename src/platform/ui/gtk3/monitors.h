// monitors.h: the monitors of the GTK display, for the window system's screen model.
#pragma once

#include <gdk/gdk.h>

#include <vector>

#include "platform/ui/screen.h"

namespace qmk::platform::ui::gtk3 {

// The display's monitors in screen device pixels (GDK's logical pixels times the scale factor),
// the primary one first, at 96 DPI for each step of the scale factor. A display that lists none
// (some virtual servers) yields one monitor the size of its root window; no display, none.
std::vector<Monitor> ListMonitors(GdkDisplay* display);

}  // namespace qmk::platform::ui::gtk3
