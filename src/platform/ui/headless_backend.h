// headless_backend.h: the headless back end's class, for the window system and its tests.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/ui/backend.h"

namespace qmk::platform::ui {

class HeadlessBackend final : public Backend {
 public:
  struct SurfaceRecord {
    SurfaceParams params;
    bool visible = false;
    cairo_surface_t* image = nullptr;  // the window system's picture, not owned
    int presents = 0;
  };

  const char* Name() const override { return "headless"; }
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
  void Wake() override {}
  // Its picture is what it shows: a shown surface that was presented once is on the screen.
  bool WaitUntilShown(HWND top, int limit_ms) override;
  bool HasInputSource() const override { return false; }
  bool GetClipboardText(std::string* out) override;
  bool SetClipboardText(const std::string& text) override;
  std::vector<Monitor> Monitors() override;
  void Beep() override { ++beeps_; }

  int beeps() const { return beeps_; }
  const SurfaceRecord* surface(HWND top) const;
  HWND active() const { return active_; }
  HWND grab() const { return grab_; }
  // Times the loop found nothing left to wait for and closed the active window.
  int stalls() const { return stalls_; }

 private:
  BackendHost* host_ = nullptr;
  std::map<HWND, SurfaceRecord> surfaces_;
  HWND active_ = nullptr;
  HWND grab_ = nullptr;
  std::string clipboard_;
  bool has_clipboard_ = false;
  int beeps_ = 0;
  int stalls_ = 0;
};

}  // namespace qmk::platform::ui
