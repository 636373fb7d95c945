// screen.h: the monitors of the GTK display, for the window system's screen model.
#pragma once

#include <gdk/gdk.h>

#include <vector>

namespace qmk::platform::ui::gtk3 {

// Rectangles are in screen device pixels (GDK's logical pixels times the scale factor).
struct MonitorInfo {
  int x = 0, y = 0, width = 0, height = 0;
  int work_x = 0, work_y = 0, work_width = 0, work_height = 0;
  int scale = 1;
  int dpi = 96;          // 96 for each step of the scale factor
  bool primary = false;
};

// The display's monitors, the primary one first; a display that lists none (some virtual
// servers) yields one monitor the size of its root window.
std::vector<MonitorInfo> ListMonitors(GdkDisplay* display);

}  // namespace qmk::platform::ui::gtk3
