// screen.cpp: monitors, work areas and scale factors from GDK.
#include "platform/ui/gtk3/screen.h"

#include <algorithm>

namespace qmk::platform::ui::gtk3 {
namespace {

MonitorInfo Describe(GdkMonitor* monitor) {
  MonitorInfo info;
  info.scale = std::max(1, gdk_monitor_get_scale_factor(monitor));
  GdkRectangle whole, work;
  gdk_monitor_get_geometry(monitor, &whole);
  gdk_monitor_get_workarea(monitor, &work);
  int s = info.scale;
  info.x = whole.x * s;
  info.y = whole.y * s;
  info.width = whole.width * s;
  info.height = whole.height * s;
  info.work_x = work.x * s;
  info.work_y = work.y * s;
  info.work_width = work.width * s;
  info.work_height = work.height * s;
  info.dpi = 96 * s;
  info.primary = gdk_monitor_is_primary(monitor);
  return info;
}

}  // namespace

std::vector<MonitorInfo> ListMonitors(GdkDisplay* display) {
  std::vector<MonitorInfo> monitors;
  if (!display) return monitors;
  int count = gdk_display_get_n_monitors(display);
  for (int i = 0; i < count; ++i)
    if (GdkMonitor* monitor = gdk_display_get_monitor(display, i)) monitors.push_back(Describe(monitor));
  if (monitors.empty()) {
    GdkWindow* root = gdk_screen_get_root_window(gdk_display_get_default_screen(display));
    MonitorInfo info;
    info.width = info.work_width = gdk_window_get_width(root);
    info.height = info.work_height = gdk_window_get_height(root);
    info.primary = true;
    monitors.push_back(info);
  }
  // Without a primary monitor named by the display, the first one is.
  auto primary = std::find_if(monitors.begin(), monitors.end(), [](auto& m) { return m.primary; });
  if (primary == monitors.end()) monitors.front().primary = true;
  else std::rotate(monitors.begin(), primary, primary + 1);
  return monitors;
}

}  // namespace qmk::platform::ui::gtk3
