// headless.h: the back end without a display: top-level windows as pictures in memory, input
// injected by code, any window or the whole screen written to PNG.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/ui/backend.h"

namespace qmk::platform::ui {

class HeadlessBackend;

// A new headless back end (InstallBackend takes it).
std::unique_ptr<Backend> MakeHeadlessBackend();
// The headless back end when it is the current one, else null.
HeadlessBackend* CurrentHeadless();

// Sets the monitors the headless screen reports (empty: the default 1280x1024 at 96 DPI).
void SetHeadlessMonitors(const std::vector<Monitor>& monitors);

// ---- Injected input --------------------------------------------------------------------------
// Input goes to the active top-level window, through the same path a display's input takes: it
// is queued, and dispatched when the thread pumps. Key codes are those of messages.h.
void InjectKey(unsigned vk, bool down, unsigned mods = 0);
// Down and up of one key.
void InjectKeyPress(unsigned vk, unsigned mods = 0);
// Each character as key down, WM_CHAR, key up (UTF-8 text).
void InjectText(const std::string& utf8);
// A click (down and up) of a button at a point in screen coordinates.
void InjectClick(Point screen, MouseButton button = MouseButton::Left, unsigned mods = 0);
void InjectMouse(MouseAction action, Point screen, MouseButton button = MouseButton::Left,
                 unsigned mods = 0);
// A click in the middle of a window.
bool ClickWindow(HWND hwnd);

// ---- Pictures --------------------------------------------------------------------------------
// Paints what is pending, then writes the window (its top-level's picture clipped to the
// window) to a PNG file.
bool RenderWindowToPng(HWND hwnd, const std::string& path);
// The whole virtual screen: a neutral background with the visible top-level windows in z-order.
bool RenderScreenToPng(const std::string& path);
// The same pictures in memory.
std::unique_ptr<DrawTarget> RenderWindow(HWND hwnd);
std::unique_ptr<DrawTarget> RenderScreen();

}  // namespace qmk::platform::ui
