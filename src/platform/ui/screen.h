// screen.h: the screen model: monitors with their work areas and resolutions.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/types.h"

namespace qmk::platform::ui {

struct Monitor {
  Rect bounds;         // in virtual screen coordinates
  Rect work;           // bounds less panels and task bars
  int dpi = 96;
  bool primary = false;
  std::string name;
};

// What the back end reports; never empty (a default 1280x1024 monitor at 96 DPI).
std::vector<Monitor> GetMonitors();
Monitor PrimaryMonitor();
// The monitor that holds most of the rectangle, or the nearest one.
Monitor MonitorFromRect(const Rect& r);
Monitor MonitorFromPoint(Point p);
Monitor MonitorFromWindow(HWND hwnd);
// The bounding box of every monitor.
Rect VirtualScreenRect();

}  // namespace qmk::platform::ui
