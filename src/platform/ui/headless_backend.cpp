// headless_backend.cpp: the back end without a display: surfaces are records of the window
// system's pictures, time passes on the platform clock, and a loop with nothing left to wait for
// closes the active window as a person would who cannot be asked.
#include "platform/ui/headless_backend.h"

#include <cairo.h>

#include <algorithm>

#include "platform/clock.h"
#include "platform/ui/headless.h"
#include "platform/ui/window_state.h"

namespace qmk::platform::ui {
namespace {

std::vector<Monitor>& ConfiguredMonitors() {
  static std::vector<Monitor> monitors;
  return monitors;
}

// A plain frame and title bar around a decorated window in the screen picture, where a
// window manager would put its own.
void DrawCaption(cairo_t* cr, const Rect& window, const std::string& title, bool active) {
  constexpr int kBar = 22, kEdge = 1;
  const Rect frame{window.left - kEdge, window.top - kBar, window.right + kEdge,
                   window.bottom + kEdge};
  cairo_set_source_rgb(cr, active ? 0.18 : 0.45, active ? 0.35 : 0.48, active ? 0.58 : 0.52);
  cairo_rectangle(cr, frame.left, frame.top, frame.Width(), frame.Height());
  cairo_fill(cr);
  cairo_save(cr);
  cairo_translate(cr, window.left, window.top - kBar);
  Dc dc(cr, nullptr, {0, 0, window.Width(), kBar});
  dc.SetTextColor(0xFFFFFFFFu);
  Rect text{6, 0, window.Width() - 6, kBar};
  dc.DrawText(title, &text, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS);
  cairo_restore(cr);
}

}  // namespace

bool HeadlessBackend::Start(BackendHost* host) {
  host_ = host;
  return true;
}

void HeadlessBackend::Stop() {
  surfaces_.clear();
  host_ = nullptr;
}

bool HeadlessBackend::CreateSurface(HWND top, const SurfaceParams& params) {
  surfaces_[top] = SurfaceRecord{params};
  return true;
}

void HeadlessBackend::DestroySurface(HWND top) {
  surfaces_.erase(top);
  if (active_ == top) active_ = nullptr;
  if (grab_ == top) grab_ = nullptr;
}

void HeadlessBackend::MoveSurface(HWND top, const Rect& screen_rect) {
  if (auto it = surfaces_.find(top); it != surfaces_.end())
    it->second.params.screen_rect = screen_rect;
}

void HeadlessBackend::ShowSurface(HWND top, bool show, bool activate) {
  auto it = surfaces_.find(top);
  if (it == surfaces_.end()) return;
  it->second.visible = show;
  if (show && activate) active_ = top;
  if (!show && active_ == top) active_ = nullptr;
}

void HeadlessBackend::SetSurfaceTitle(HWND top, const std::string& title) {
  if (auto it = surfaces_.find(top); it != surfaces_.end()) it->second.params.title = title;
}

void HeadlessBackend::ActivateSurface(HWND top) {
  if (surfaces_.count(top)) active_ = top;
}

void HeadlessBackend::Present(HWND top, cairo_surface_t* image, const Rect& dirty) {
  (void)dirty;
  auto it = surfaces_.find(top);
  if (it == surfaces_.end()) return;
  it->second.image = image;
  ++it->second.presents;
}

void HeadlessBackend::SetPointerGrab(HWND top, bool grab) { grab_ = grab ? top : nullptr; }

bool HeadlessBackend::PumpEvents(int timeout_ms) {
  if (timeout_ms > 0) {
    CurrentClock().SleepMs(timeout_ms);
    return false;
  }
  if (timeout_ms == 0 || !host_) return false;
  // Nothing can arrive: no input device, no timer. Whoever waits for a person would wait
  // forever, so the active window is asked to close, as if the person had closed it.
  const HWND target = GetActiveWindow();
  if (!target || !IsWindowVisible(target)) return false;
  ++stalls_;
  Trace("headless: nothing left to wait for; closing the active window");
  host_->OnCloseRequest(target);
  return true;
}

bool HeadlessBackend::WaitUntilShown(HWND top, int) {
  auto it = surfaces_.find(top);
  return it != surfaces_.end() && it->second.visible && it->second.presents > 0;
}

bool HeadlessBackend::GetClipboardText(std::string* out) {
  if (!has_clipboard_ || !out) return false;
  *out = clipboard_;
  return true;
}

bool HeadlessBackend::SetClipboardText(const std::string& text) {
  clipboard_ = text;
  has_clipboard_ = true;
  return true;
}

std::vector<Monitor> HeadlessBackend::Monitors() { return ConfiguredMonitors(); }

const HeadlessBackend::SurfaceRecord* HeadlessBackend::surface(HWND top) const {
  auto it = surfaces_.find(top);
  return it == surfaces_.end() ? nullptr : &it->second;
}

std::unique_ptr<Backend> MakeHeadlessBackend() { return std::make_unique<HeadlessBackend>(); }

HeadlessBackend* CurrentHeadless() { return dynamic_cast<HeadlessBackend*>(&TheBackend()); }

void SetHeadlessMonitors(const std::vector<Monitor>& monitors) {
  ConfiguredMonitors() = monitors;
  if (BackendStarted()) Host().OnScreenChanged();
}

// ---- Pictures --------------------------------------------------------------------------------
std::unique_ptr<DrawTarget> RenderWindow(HWND hwnd) {
  PaintPending();
  Window* w = Find(hwnd);
  if (!w) return nullptr;
  Window* top = TopLevelOf(w);
  EnsureSurface(top);
  return CopyToTarget(top->surface, RectInTop(w, false));
}

std::unique_ptr<DrawTarget> RenderScreen() {
  PaintPending();
  const Rect screen = VirtualScreenRect();
  cairo_surface_t* s = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, std::max(1, screen.Width()),
                                                  std::max(1, screen.Height()));
  cairo_t* cr = cairo_create(s);
  cairo_set_source_rgb(cr, 0x40 / 255.0, 0x60 / 255.0, 0x80 / 255.0);
  cairo_paint(cr);
  const std::vector<HWND> tops = TopLevels();
  for (auto it = tops.rbegin(); it != tops.rend(); ++it) {
    Window* w = Find(*it);
    if (!w || !(w->style & WS_VISIBLE) || !w->surface || w->native_id) continue;
    const Rect at = OffsetRect(w->window_rect, -screen.left, -screen.top);
    if ((w->style & WS_CAPTION) == WS_CAPTION) DrawCaption(cr, at, w->text, *it == GetActiveWindow());
    cairo_set_source_surface(cr, w->surface, at.left, at.top);
    cairo_paint(cr);
  }
  cairo_destroy(cr);
  auto target = CopyToTarget(s, {0, 0, std::max(1, screen.Width()), std::max(1, screen.Height())});
  cairo_surface_destroy(s);
  return target;
}

bool RenderWindowToPng(HWND hwnd, const std::string& path) {
  auto target = RenderWindow(hwnd);
  return target && target->WritePng(path);
}

bool RenderScreenToPng(const std::string& path) {
  auto target = RenderScreen();
  return target && target->WritePng(path);
}

}  // namespace qmk::platform::ui
