// gtk_backend.cpp: surfaces, input, waits, clipboard and monitors of the GTK back end.
#include "platform/ui/gtk3/gtk_backend.h"

#include <algorithm>
#include <optional>

#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

#include "platform/ui/gtk3/clipboard.h"
#include "platform/ui/gtk3/main_loop.h"
#include "platform/ui/gtk3/monitors.h"

namespace qmk::platform::ui::gtk3 {
namespace {

GtkWindow* g_host_parent = nullptr;

}  // namespace

void SetHostParentWindow(GtkWindow* window) {
  if (g_host_parent) g_object_remove_weak_pointer(G_OBJECT(g_host_parent), reinterpret_cast<gpointer*>(&g_host_parent));
  g_host_parent = window;
  if (g_host_parent) g_object_add_weak_pointer(G_OBJECT(g_host_parent), reinterpret_cast<gpointer*>(&g_host_parent));
}

GtkWindow* HostParentWindow() { return g_host_parent; }

// One top-level window of ours: its GTK window, and the road of its events to the host.
class GtkBackend::Surface : public WindowEvents {
 public:
  Surface(GtkBackend* backend, HWND top, const TopLevelOptions& options)
      : backend_(backend), top_(top), known_(options.screen_rect), window_(options, this) {}

  TopLevel& window() { return window_; }
  void Moved(const Rect& r) { pending_ = r; }

  void OnKey(const KeyInput& key) override {
    backend_->Delivered();
    Host()->OnKey(top_, key.down, key.virtual_key, key.modifiers, key.repeat);
  }
  void OnChar(char32_t ch, unsigned modifiers) override {
    backend_->Delivered();
    Host()->OnChar(top_, ch, modifiers);
  }
  void OnPointer(const PointerInput& p) override {
    backend_->Delivered();
    Host()->OnMouse(top_, p.action, p.button, p.at, p.modifiers, p.wheel_delta);
  }
  void OnFocus(bool gained) override {
    backend_->Delivered();
    Host()->OnFocus(top_, gained);
  }
  void OnConfigured(const Rect& reported) override {
    Rect r = reported;
    // Wayland tells no window its place on the screen: the place stays the one we asked for.
    if (!backend_->positions_known_)
      r = Rect{known_.left, known_.top, known_.left + r.Width(), known_.top + r.Height()};
    // Our own moves come back from the server, sometimes in two steps (the place, then the
    // size); only what differs from what the window system asked for is news.
    if (pending_) {
      bool on_the_way = (r.left == pending_->left && r.top == pending_->top) ||
                        (r.Width() == pending_->Width() && r.Height() == pending_->Height());
      if (r == *pending_) pending_.reset();
      if (on_the_way) {
        known_ = r;
        return;
      }
      pending_.reset();
    }
    if (r == known_) return;
    known_ = r;
    backend_->Delivered();
    Host()->OnConfigure(top_, r);
  }
  void OnExposed(const Rect& r) override {
    backend_->Delivered();
    Host()->OnExpose(top_, r);
  }
  void OnCloseRequest() override {
    backend_->Delivered();
    Host()->OnCloseRequest(top_);
  }

 private:
  BackendHost* Host() { return backend_->host_; }

  GtkBackend* backend_;
  HWND top_;
  Rect known_;                    // where the window is, as last reported or asked for
  std::optional<Rect> pending_;   // a move of ours that has not fully arrived yet
  TopLevel window_;
};

GtkBackend::GtkBackend() = default;

GtkBackend::~GtkBackend() { Stop(); }

bool GtkBackend::Start(BackendHost* host) {
  if (!host || !EnsureGtk()) return false;
  host_ = host;
  display_ = gdk_display_get_default();
#ifdef GDK_WINDOWING_X11
  positions_known_ = GDK_IS_X11_DISPLAY(display_);
#else
  positions_known_ = false;
#endif
  g_signal_connect_swapped(display_, "monitor-added", G_CALLBACK(OnMonitorsChanged), this);
  g_signal_connect_swapped(display_, "monitor-removed", G_CALLBACK(OnMonitorsChanged), this);
  g_signal_connect(gdk_display_get_default_screen(display_), "monitors-changed",
                   G_CALLBACK(OnMonitorsChangedOnScreen), this);
  return true;
}

void GtkBackend::Stop() {
  surfaces_.clear();
  if (!display_) return;
  g_signal_handlers_disconnect_by_data(display_, this);
  g_signal_handlers_disconnect_by_data(gdk_display_get_default_screen(display_), this);
  display_ = nullptr;
  host_ = nullptr;
}

void GtkBackend::OnMonitorsChanged(gpointer self, gpointer) {
  auto* backend = static_cast<GtkBackend*>(self);
  backend->Delivered();
  backend->host_->OnScreenChanged();
}

void GtkBackend::OnMonitorsChangedOnScreen(GdkScreen*, gpointer self) { OnMonitorsChanged(self, nullptr); }

bool GtkBackend::CreateSurface(HWND top, const SurfaceParams& params) {
  if (!host_ || !top || surfaces_.count(top) || params.screen_rect.IsEmpty()) return false;
  TopLevelOptions options;
  options.decorated = params.decorated;
  // An undecorated window with an owner of ours is a drop-down list or a menu.
  options.popup = !params.decorated && params.owner && surfaces_.count(params.owner);
  options.resizable = params.resizable;
  options.title = params.title;
  options.screen_rect = params.screen_rect;
  auto surface = std::make_unique<Surface>(this, top, options);
  TopLevel& window = surface->window();
  if (auto owner = surfaces_.find(params.owner); owner != surfaces_.end())
    window.SetTransientFor(owner->second->window().gtk_window());
  else if (params.native_parent)
    window.SetTransientForX11(params.native_parent);
  else if (g_host_parent)
    window.SetTransientFor(g_host_parent);
  // A modal dialog blocks the host's own GTK windows too, as it disables its owner.
  if (params.modal) window.SetModal(true);
  surfaces_.emplace(top, std::move(surface));
  return true;
}

void GtkBackend::DestroySurface(HWND top) {
  auto it = surfaces_.find(top);
  if (it == surfaces_.end()) return;
  // Windows transient for this one lose their parent first, so GTK never sees a dead parent.
  GtkWindow* going = it->second->window().gtk_window();
  for (auto& [handle, other] : surfaces_)
    if (handle != top && gtk_window_get_transient_for(other->window().gtk_window()) == going)
      other->window().SetTransientFor(nullptr);
  surfaces_.erase(it);
}

TopLevel* GtkBackend::SurfaceOf(HWND top) {
  auto it = surfaces_.find(top);
  return it == surfaces_.end() ? nullptr : &it->second->window();
}

void GtkBackend::MoveSurface(HWND top, const Rect& r) {
  auto it = surfaces_.find(top);
  if (it == surfaces_.end() || r.IsEmpty()) return;
  it->second->Moved(r);
  it->second->window().Move(r.left, r.top);
  it->second->window().Resize(r.Width(), r.Height());
}

void GtkBackend::ShowSurface(HWND top, bool show, bool activate) {
  TopLevel* window = SurfaceOf(top);
  if (!window) return;
  // Shown without activation (a drop-down list), it must not take the keyboard from its owner.
  if (show) gtk_window_set_focus_on_map(window->gtk_window(), activate);
  window->Show(show);
  if (show && activate) window->Focus();
}

void GtkBackend::SetSurfaceTitle(HWND top, const std::string& title) {
  if (TopLevel* window = SurfaceOf(top)) window->SetTitle(title);
}

void GtkBackend::ActivateSurface(HWND top) {
  if (TopLevel* window = SurfaceOf(top)) window->Focus();
}

void GtkBackend::Present(HWND top, cairo_surface_t* image, const Rect& dirty) {
  if (TopLevel* window = SurfaceOf(top)) window->Present(image, dirty);
}

void GtkBackend::SetPointerGrab(HWND top, bool grab) {
  TopLevel* window = SurfaceOf(top);
  if (!window || !display_) return;
  GdkSeat* seat = gdk_display_get_default_seat(display_);
  if (!grab) {
    gdk_seat_ungrab(seat);
    return;
  }
  GdkWindow* native = gtk_widget_get_window(GTK_WIDGET(window->gtk_window()));
  if (!native || !gdk_window_is_visible(native)) return;
  // Owner events: our other windows still get their own pointer events, as with a capture.
  gdk_seat_grab(seat, native, GDK_SEAT_CAPABILITY_ALL_POINTING, TRUE, nullptr, nullptr, nullptr,
                nullptr);
}

bool GtkBackend::PumpEvents(int timeout_ms) {
  const unsigned long before = delivered_;
  auto took = [&] { return delivered_ != before; };
  // One native event at a time: the window system aims a key at the focus window it has when
  // the key arrives, so a Tab must be dispatched (and move the focus) before the next key is
  // taken in. GDK hands out one event per iteration.
  while (!took() && g_main_context_iteration(nullptr, FALSE)) {
  }
  if (!took() && timeout_ms != 0) {
    Iterate(timeout_ms);
    while (!took() && g_main_context_iteration(nullptr, FALSE)) {
    }
  }
  return took();
}

void GtkBackend::Wake() { gtk3::Wake(); }

bool GtkBackend::WaitUntilShown(HWND top, int limit_ms) {
  const gint64 end = g_get_monotonic_time() + gint64{std::max(limit_ms, 0)} * 1000;
  // The surface is looked up at every turn: what the host does with input may destroy it.
  for (TopLevel* window = SurfaceOf(top); window && window->visible(); window = SurfaceOf(top)) {
    if (window->on_screen()) {
      // GTK's drawing is on its way to the server; the round trip sees it done.
      gdk_display_sync(display_);
      return true;
    }
    const gint64 left_ms = (end - g_get_monotonic_time()) / 1000;
    if (left_ms <= 0) return false;
    Iterate(static_cast<int>(std::min<gint64>(left_ms, 10)));
  }
  return false;
}

bool GtkBackend::GetClipboardText(std::string* out) {
  auto text = gtk3::GetClipboardText();
  if (!text) return false;
  if (out) *out = std::move(*text);
  return true;
}

bool GtkBackend::SetClipboardText(const std::string& text) {
  gtk3::SetClipboardText(text);
  return true;
}

std::vector<Monitor> GtkBackend::Monitors() { return ListMonitors(display_); }

void GtkBackend::Beep() {
  if (display_) gdk_display_beep(display_);
}

}  // namespace qmk::platform::ui::gtk3
