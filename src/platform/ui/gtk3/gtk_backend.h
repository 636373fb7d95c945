// gtk_backend.h: the window system's back end over GTK 3: each top-level window of ours is a
// GtkWindow painted from our picture, GTK's input reaches the window system through BackendHost,
// and the window system's waits iterate GLib's default main context.
#pragma once

#include <gtk/gtk.h>

#include <map>
#include <memory>

#include "platform/ui/backend.h"
#include "platform/ui/gtk3/top_level.h"

namespace qmk::platform::ui::gtk3 {

class GtkBackend : public Backend {
 public:
  GtkBackend();
  ~GtkBackend() override;

  const char* Name() const override { return "gtk3"; }
  bool Start(BackendHost* host) override;
  void Stop() override;

  bool CreateSurface(HWND top, const SurfaceParams& params) override;
  void DestroySurface(HWND top) override;
  void MoveSurface(HWND top, const Rect& screen_rect) override;
  void ShowSurface(HWND top, bool show, bool activate) override;
  void SetSurfaceTitle(HWND top, const std::string& title) override;
  void ActivateSurface(HWND top) override;
  void Present(HWND top, cairo_surface_t* image, const Rect& dirty) override;
  void SetPointerGrab(HWND top, bool grab) override;

  bool PumpEvents(int timeout_ms) override;
  void Wake() override;
  bool WaitUntilShown(HWND top, int limit_ms) override;

  bool GetClipboardText(std::string* out) override;
  bool SetClipboardText(const std::string& text) override;
  std::vector<Monitor> Monitors() override;
  void Beep() override;

  // The GTK window behind one of our top-level windows (null when it has none), for tests and
  // for hosts that need the native window.
  TopLevel* SurfaceOf(HWND top);

 private:
  class Surface;
  static void OnMonitorsChanged(gpointer, gpointer self);
  static void OnMonitorsChangedOnScreen(GdkScreen*, gpointer self);
  void Delivered() { ++delivered_; }

  BackendHost* host_ = nullptr;
  GdkDisplay* display_ = nullptr;
  std::map<HWND, std::unique_ptr<Surface>> surfaces_;
  bool positions_known_ = true;  // X11 reports where windows are; Wayland does not
  unsigned long delivered_ = 0;  // calls made to the host, so PumpEvents can tell
};

// A GtkWindow of the host that our dialogs without an owner of ours become transient for
// (null: none). Held weakly: it is forgotten when GTK destroys it.
void SetHostParentWindow(GtkWindow* window);
GtkWindow* HostParentWindow();

}  // namespace qmk::platform::ui::gtk3
