// screen.cpp: the screen model as the back end reports it.
#include <algorithm>

#include "platform/ui/screen.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

Monitor DefaultMonitor() {
  Monitor m;
  m.bounds = m.work = {0, 0, 1280, 1024};
  m.dpi = 96;
  m.primary = true;
  m.name = "default";
  return m;
}

long long Overlap(const Rect& a, const Rect& b) {
  const Rect i = IntersectRect(a, b);
  return static_cast<long long>(i.Width()) * i.Height();
}

long long Distance(const Rect& r, Point p) {
  const long long dx = p.x < r.left ? r.left - p.x : p.x >= r.right ? p.x - r.right + 1 : 0;
  const long long dy = p.y < r.top ? r.top - p.y : p.y >= r.bottom ? p.y - r.bottom + 1 : 0;
  return dx * dx + dy * dy;
}

}  // namespace

std::vector<Monitor> GetMonitors() {
  std::vector<Monitor> monitors = TheBackend().Monitors();
  if (monitors.empty()) monitors.push_back(DefaultMonitor());
  return monitors;
}

Monitor PrimaryMonitor() {
  const std::vector<Monitor> monitors = GetMonitors();
  for (const Monitor& m : monitors)
    if (m.primary) return m;
  return monitors.front();
}

Monitor MonitorFromPoint(Point p) {
  const std::vector<Monitor> monitors = GetMonitors();
  const Monitor* best = &monitors.front();
  for (const Monitor& m : monitors)
    if (Distance(m.bounds, p) < Distance(best->bounds, p)) best = &m;
  return *best;
}

Monitor MonitorFromRect(const Rect& r) {
  const std::vector<Monitor> monitors = GetMonitors();
  const Monitor* best = nullptr;
  for (const Monitor& m : monitors)
    if (Overlap(m.bounds, r) > 0 && (!best || Overlap(m.bounds, r) > Overlap(best->bounds, r)))
      best = &m;
  if (best) return *best;
  return MonitorFromPoint({(r.left + r.right) / 2, (r.top + r.bottom) / 2});
}

Monitor MonitorFromWindow(HWND hwnd) {
  Rect r;
  if (!GetWindowRect(hwnd, &r)) return PrimaryMonitor();
  return MonitorFromRect(r);
}

Rect VirtualScreenRect() {
  Rect all{};
  for (const Monitor& m : GetMonitors()) all = UnionRect(all, m.bounds);
  return all;
}

}  // namespace qmk::platform::ui
