// top_level.h: one top-level window of ours as a GtkWindow with a drawing area that shows our
// own back buffer, and whose GTK input becomes WindowEvents.
#pragma once

#include <gtk/gtk.h>

#include <string>

#include "platform/ui/gtk3/window_events.h"

namespace qmk::platform::ui::gtk3 {

struct TopLevelOptions {
  bool decorated = true;   // the window manager draws a caption and frame
  bool popup = false;      // a drop-down list: placed by us, never activated, no task bar entry
  bool resizable = true;
  std::string title;
  Rect screen_rect{0, 0, 1, 1};  // the surface, screen device pixels
};

class TopLevel {
 public:
  static constexpr int kMaxSide = 32767;  // the largest back buffer, in device pixels a side

  // `events` (not owned) must outlive the window.
  TopLevel(const TopLevelOptions& options, WindowEvents* events);
  ~TopLevel();
  TopLevel(const TopLevel&) = delete;
  TopLevel& operator=(const TopLevel&) = delete;

  void Show(bool visible);
  bool visible() const { return visible_; }
  // The server reported the window mapped, and GTK drew it since then and since the last
  // Present: what the back buffer holds was sent to the screen.
  bool on_screen() const { return visible_ && map_seen_ && drawn_; }
  void Move(int x, int y);
  void Resize(int width, int height);
  void SetTitle(const std::string& title);
  // Copies a part of `image` (device pixels, the surface's origin) into the back buffer and
  // has GTK draw that part.
  void Present(cairo_surface_t* image, const Rect& dirty);
  // Has GTK draw a part again from the back buffer.
  void Invalidate(const Rect& r);
  // Makes this window transient for a host's window: an X11 window id of any process, or a
  // GtkWindow of this process. False when the id is not a window of this display.
  bool SetTransientForX11(unsigned long xid);
  void SetTransientFor(GtkWindow* parent);
  void SetModal(bool modal);
  void Focus();

  int scale() const;
  int back_width() const { return back_width_; }
  int back_height() const { return back_height_; }
  // The back buffer, for tests and screenshots: ARGB32 in device pixels.
  cairo_surface_t* back_buffer() const { return back_; }
  GtkWindow* gtk_window() const { return window_; }

 private:
  static gboolean OnDraw(GtkWidget*, cairo_t* cr, gpointer self);
  static gboolean OnKeyEvent(GtkWidget*, GdkEventKey* event, gpointer self);
  static gboolean OnButton(GtkWidget*, GdkEventButton* event, gpointer self);
  static gboolean OnMotion(GtkWidget*, GdkEventMotion* event, gpointer self);
  static gboolean OnScroll(GtkWidget*, GdkEventScroll* event, gpointer self);
  static gboolean OnCrossing(GtkWidget*, GdkEventCrossing* event, gpointer self);
  static gboolean OnFocusChange(GtkWidget*, GdkEventFocus* event, gpointer self);
  static gboolean OnConfigure(GtkWidget*, GdkEventConfigure* event, gpointer self);
  static gboolean OnDelete(GtkWidget*, GdkEvent*, gpointer self);
  static void OnCommit(GtkIMContext*, const gchar* text, gpointer self);
  static void OnRealize(GtkWidget*, gpointer self);
  static gboolean OnMapChange(GtkWidget*, GdkEvent* event, gpointer self);

  void HandleKey(GdkEventKey* event);
  // Whether a press completes a double click: the same button again, soon and near enough.
  bool IsSecondClick(const GdkEventButton* event);
  void EnsureBackBuffer(int width, int height);
  void ApplyTransientParent();
  unsigned Modifiers(unsigned gdk_state) const;
  unsigned Buttons(unsigned gdk_state) const;
  int ToDevice(double logical) const;

  WindowEvents* events_;
  GtkWindow* window_ = nullptr;
  GtkWidget* area_ = nullptr;
  GtkIMContext* im_ = nullptr;
  cairo_surface_t* back_ = nullptr;
  int back_width_ = 0, back_height_ = 0;
  bool visible_ = false;
  bool resizable_ = true;
  bool presented_ = false;     // something was presented since the window was made
  bool map_seen_ = false;      // the server's map notice came after the last show
  bool drawn_ = false;         // GTK drew the window after the last map notice and Present
  unsigned typing_modifiers_ = 0;  // of the key the input method is looking at
  double wheel_rest_ = 0;  // unfinished notches of smooth scrolling
  bool keys_down_[256] = {};
  GdkWindow* foreign_parent_ = nullptr;
  struct Press {
    guint button = 0;
    guint32 time = 0;
    double x = 0, y = 0;
    bool was_double = false;
  } last_press_;
};

}  // namespace qmk::platform::ui::gtk3
