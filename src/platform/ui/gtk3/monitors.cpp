// monitors.cpp: monitors, work areas and scale factors from GDK.
#include "platform/ui/gtk3/monitors.h"

#include <algorithm>

namespace qmk::platform::ui::gtk3 {
namespace {

Rect Scaled(const GdkRectangle& r, int s) {
  return Rect{r.x * s, r.y * s, (r.x + r.width) * s, (r.y + r.height) * s};
}

Monitor Describe(GdkMonitor* monitor) {
  Monitor info;
  int s = std::max(1, gdk_monitor_get_scale_factor(monitor));
  GdkRectangle whole, work;
  gdk_monitor_get_geometry(monitor, &whole);
  gdk_monitor_get_workarea(monitor, &work);
  info.bounds = Scaled(whole, s);
  info.work = Scaled(work, s);
  info.dpi = 96 * s;
  info.primary = gdk_monitor_is_primary(monitor);
  if (const char* model = gdk_monitor_get_model(monitor)) info.name = model;
  return info;
}

}  // namespace

std::vector<Monitor> ListMonitors(GdkDisplay* display) {
  std::vector<Monitor> monitors;
  if (!display) return monitors;
  int count = gdk_display_get_n_monitors(display);
  for (int i = 0; i < count; ++i)
    if (GdkMonitor* monitor = gdk_display_get_monitor(display, i)) monitors.push_back(Describe(monitor));
  if (monitors.empty()) {
    GdkWindow* root = gdk_screen_get_root_window(gdk_display_get_default_screen(display));
    Monitor info;
    info.bounds = info.work = Rect{0, 0, gdk_window_get_width(root), gdk_window_get_height(root)};
    monitors.push_back(info);
  }
  // Without a primary monitor named by the display, the first one is.
  auto primary = std::find_if(monitors.begin(), monitors.end(), [](auto& m) { return m.primary; });
  if (primary == monitors.end()) monitors.front().primary = true;
  else std::rotate(monitors.begin(), primary, primary + 1);
  return monitors;
}

}  // namespace qmk::platform::ui::gtk3
