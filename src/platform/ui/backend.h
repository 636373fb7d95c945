// backend.h: what a back end gives the window system (surfaces, input, a main loop, a clipboard,
// monitors) and what the window system gives a back end to report into.
//
// A back end in a loadable module reaches the window system only through the BackendHost
// object it is given: the library exports no other symbol to it. Both sides must be built from
// the same header; the module entry point checks kBackendAbiVersion.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/ui/screen.h"
#include "platform/ui/types.h"

typedef struct _cairo_surface cairo_surface_t;

namespace qmk::platform::ui {

constexpr int kBackendAbiVersion = 3;

// Modifier keys held during an input event.
constexpr unsigned kModShift = 0x1, kModControl = 0x2, kModAlt = 0x4;

enum class MouseAction { Move, Down, Up, DoubleClick, Wheel, Leave };
enum class MouseButton { None, Left, Right, Middle };

// How a top-level window of ours should appear natively.
struct SurfaceParams {
  Rect screen_rect;             // where, in virtual screen coordinates
  std::string title;
  bool decorated = true;        // a caption and frame (dialogs), or none (pop-up lists)
  bool resizable = false;
  bool modal = false;
  HWND owner = nullptr;         // our top-level owner window, if any
  uintptr_t native_parent = 0;  // a host's native window (X11 id) to be transient for
};

// The window system's side, called by the back end on the user-interface thread, from inside
// PumpEvents (or from injection in tests). Coordinates are in the surface's pixels.
class BackendHost {
 public:
  virtual ~BackendHost() = default;
  // `vk` is a key code of messages.h; `repeat` for auto-repeated downs.
  virtual void OnKey(HWND top, bool down, unsigned vk, unsigned mods, bool repeat) = 0;
  // A character typed, after input methods and keyboard layouts (a Unicode code point).
  virtual void OnChar(HWND top, char32_t ch, unsigned mods) = 0;
  virtual void OnMouse(HWND top, MouseAction action, MouseButton button, Point at,
                       unsigned mods, int wheel_delta) = 0;
  // Part of the surface must be shown again (the window system presents its picture).
  virtual void OnExpose(HWND top, const Rect& r) = 0;
  // The native window moved or was resized by the user or the window manager.
  virtual void OnConfigure(HWND top, const Rect& screen_rect) = 0;
  // The user asked to close the window (WM_CLOSE).
  virtual void OnCloseRequest(HWND top) = 0;
  virtual void OnFocus(HWND top, bool gained) = 0;
  // Monitors or their resolution changed.
  virtual void OnScreenChanged() = 0;
};

class Backend {
 public:
  virtual ~Backend() = default;
  // "headless" or "gtk3".
  virtual const char* Name() const = 0;
  // Called once before any other call; false when the back end cannot run (no display).
  virtual bool Start(BackendHost* host) = 0;
  virtual void Stop() = 0;

  // Top-level surfaces, one per top-level window of ours.
  virtual bool CreateSurface(HWND top, const SurfaceParams& params) = 0;
  virtual void DestroySurface(HWND top) = 0;
  virtual void MoveSurface(HWND top, const Rect& screen_rect) = 0;
  virtual void ShowSurface(HWND top, bool show, bool activate) = 0;
  virtual void SetSurfaceTitle(HWND top, const std::string& title) = 0;
  // Makes the surface the one that gets keyboard input.
  virtual void ActivateSurface(HWND top) = 0;
  // The window system's picture of the whole surface changed in `dirty`; `image` is an ARGB32
  // cairo image surface the size of the window, owned by the window system and valid until
  // DestroySurface or the next Present.
  virtual void Present(HWND top, cairo_surface_t* image, const Rect& dirty) = 0;
  // Grabs the pointer for the surface while the window system holds a capture.
  virtual void SetPointerGrab(HWND top, bool grab) = 0;

  // Takes in pending native events, calling the host; waits up to `timeout_ms` when there are
  // none (-1: until one comes, 0: no wait). Returns true when something was delivered.
  virtual bool PumpEvents(int timeout_ms) = 0;
  // Ends a PumpEvents wait early (after a message was posted from a callback, a timer reset).
  virtual void Wake() = 0;

  // Takes in native events until the surface of `top` is on the screen showing its last
  // Present, or `limit_ms` passed; true when it is. For a window shown just before the thread
  // blocks without pumping: a display server maps and draws a window only when asked through
  // its event loop. Input that arrives meanwhile reaches the host as in PumpEvents.
  virtual bool WaitUntilShown(HWND top, int limit_ms) = 0;

  // False when no input can come but what code injects (headless): a loop that finds nothing
  // to wait for then gives up instead of blocking. Back ends with a display keep waiting.
  virtual bool HasInputSource() const { return true; }

  virtual bool GetClipboardText(std::string* out) = 0;
  virtual bool SetClipboardText(const std::string& text) = 0;
  virtual std::vector<Monitor> Monitors() = 0;
  virtual void Beep() = 0;
};

// The module's entry point, looked up by this name in qmkscan-ui-gtk3.so: returns a new back
// end (deleted by the window system), or null when `abi_version` differs from the module's.
extern "C" typedef Backend* (*CreateBackendFn)(int abi_version);
inline constexpr const char* kCreateBackendSymbol = "qmk_ui_create_backend";

// The back end in use, chosen on first need: QMK_UI=headless|gtk3; without it gtk3 when DISPLAY
// or WAYLAND_DISPLAY is set and the module loads (looked for in QMK_UI_MODULE_DIR, beside the
// library, then in the build tree), headless otherwise. A failed gtk3 start falls back to
// headless with a trace line.
Backend& CurrentBackend();
// Replaces the back end (tests); every window must be destroyed first. Takes ownership.
bool InstallBackend(Backend* backend);
// The name of the back end that would be chosen for the given environment values, without
// loading anything but the probe of the module file's existence.
std::string ChooseBackendName(const char* qmk_ui, const char* display, const char* wayland,
                              bool module_found);
// Where the loader looked and what it found, for traces and tests.
std::vector<std::string> ModuleSearchPath();

// Makes the library's top-level windows without an owner transient for a host's `GtkWindow*`
// (null ends it). Starts the back end if it isn't yet. True when the GTK back end took the
// window; false on the headless back end or for an object that is not a GtkWindow.
bool SetHostGtkParentWindow(void* gtk_window);

}  // namespace qmk::platform::ui
