// top_level.cpp: a GtkWindow painted from our back buffer, its GTK input turned into our terms.
#include "platform/ui/gtk3/top_level.h"

#include <algorithm>
#include <cmath>

#ifdef GDK_WINDOWING_X11
#include <gdk/gdkx.h>
#endif

#include "platform/ui/gtk3/key_map.h"

namespace qmk::platform::ui::gtk3 {

TopLevel::TopLevel(const TopLevelOptions& options, WindowEvents* events) : events_(events) {
  window_ = GTK_WINDOW(gtk_window_new(options.popup ? GTK_WINDOW_POPUP : GTK_WINDOW_TOPLEVEL));
  gtk_window_set_decorated(window_, options.decorated && !options.popup);
  gtk_window_set_title(window_, options.title.c_str());
  gtk_widget_set_app_paintable(GTK_WIDGET(window_), TRUE);
  int s = scale();
  gtk_window_move(window_, options.x / s, options.y / s);
  gtk_window_set_default_size(window_, std::max(1, options.width / s), std::max(1, options.height / s));
  EnsureBackBuffer(std::max(1, options.width), std::max(1, options.height));

  area_ = gtk_drawing_area_new();
  gtk_widget_set_can_focus(area_, TRUE);
  gtk_widget_add_events(area_, GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK |
                                   GDK_POINTER_MOTION_MASK | GDK_SCROLL_MASK |
                                   GDK_SMOOTH_SCROLL_MASK | GDK_LEAVE_NOTIFY_MASK);
  gtk_container_add(GTK_CONTAINER(window_), area_);
  gtk_widget_show(area_);

  GtkWidget* w = GTK_WIDGET(window_);
  gtk_widget_add_events(w, GDK_KEY_PRESS_MASK | GDK_KEY_RELEASE_MASK | GDK_FOCUS_CHANGE_MASK |
                               GDK_STRUCTURE_MASK);
  // Keys are taken at the window, before GTK's own focus moving and mnemonics see them.
  g_signal_connect(w, "key-press-event", G_CALLBACK(OnKeyEvent), this);
  g_signal_connect(w, "key-release-event", G_CALLBACK(OnKeyEvent), this);
  g_signal_connect(w, "focus-in-event", G_CALLBACK(OnFocusChange), this);
  g_signal_connect(w, "focus-out-event", G_CALLBACK(OnFocusChange), this);
  g_signal_connect(w, "configure-event", G_CALLBACK(OnConfigure), this);
  g_signal_connect(w, "delete-event", G_CALLBACK(OnDelete), this);
  g_signal_connect_after(w, "realize", G_CALLBACK(OnRealize), this);
  g_signal_connect(area_, "draw", G_CALLBACK(OnDraw), this);
  g_signal_connect(area_, "button-press-event", G_CALLBACK(OnButton), this);
  g_signal_connect(area_, "button-release-event", G_CALLBACK(OnButton), this);
  g_signal_connect(area_, "motion-notify-event", G_CALLBACK(OnMotion), this);
  g_signal_connect(area_, "scroll-event", G_CALLBACK(OnScroll), this);
  g_signal_connect(area_, "leave-notify-event", G_CALLBACK(OnCrossing), this);

  im_ = gtk_im_multicontext_new();
  g_signal_connect(im_, "commit", G_CALLBACK(OnCommit), this);
}

TopLevel::~TopLevel() {
  // Destroying a focused window reports a focus change; nobody is listening any more.
  g_signal_handlers_disconnect_by_data(window_, this);
  g_signal_handlers_disconnect_by_data(area_, this);
  g_signal_handlers_disconnect_by_data(im_, this);
  gtk_im_context_set_client_window(im_, nullptr);
  g_object_unref(im_);
  gtk_widget_destroy(GTK_WIDGET(window_));
  if (foreign_parent_) g_object_unref(foreign_parent_);
  if (back_) cairo_surface_destroy(back_);
}

void TopLevel::Show(bool visible) {
  visible_ = visible;
  if (visible) gtk_widget_show(GTK_WIDGET(window_));
  else gtk_widget_hide(GTK_WIDGET(window_));
}

void TopLevel::Move(int x, int y) {
  int s = scale();
  gtk_window_move(window_, x / s, y / s);
}

void TopLevel::Resize(int width, int height) {
  int s = scale();
  EnsureBackBuffer(std::max(1, width), std::max(1, height));
  gtk_window_resize(window_, std::max(1, width / s), std::max(1, height / s));
}

void TopLevel::SetTitle(const std::string& title) { gtk_window_set_title(window_, title.c_str()); }

void TopLevel::Present(cairo_surface_t* image, int x, int y, int width, int height) {
  if (!image || !back_ || width <= 0 || height <= 0) return;
  cairo_t* cr = cairo_create(back_);
  cairo_rectangle(cr, x, y, width, height);
  cairo_clip(cr);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cr, image, 0, 0);
  cairo_paint(cr);
  cairo_destroy(cr);
  Invalidate(x, y, width, height);
}

void TopLevel::Invalidate(int x, int y, int width, int height) {
  int s = scale();
  // Rounded outwards, so that a part smaller than one logical pixel is still drawn.
  int left = x / s, top = y / s;
  int right = (x + width + s - 1) / s, bottom = (y + height + s - 1) / s;
  gtk_widget_queue_draw_area(area_, left, top, right - left, bottom - top);
}

bool TopLevel::SetTransientForX11(unsigned long xid) {
#ifdef GDK_WINDOWING_X11
  GdkDisplay* display = gtk_widget_get_display(GTK_WIDGET(window_));
  if (!GDK_IS_X11_DISPLAY(display) || xid == 0) return false;
  GdkWindow* parent = gdk_x11_window_foreign_new_for_display(display, xid);
  if (!parent) return false;
  if (foreign_parent_) g_object_unref(foreign_parent_);
  foreign_parent_ = parent;
  gtk_window_set_type_hint(window_, GDK_WINDOW_TYPE_HINT_DIALOG);
  ApplyTransientParent();
  return true;
#else
  return false;
#endif
}

void TopLevel::SetTransientFor(GtkWindow* parent) {
  gtk_window_set_transient_for(window_, parent);
  if (parent) gtk_window_set_type_hint(window_, GDK_WINDOW_TYPE_HINT_DIALOG);
}

void TopLevel::SetModal(bool modal) { gtk_window_set_modal(window_, modal); }

void TopLevel::Focus() { gtk_window_present(window_); }

int TopLevel::scale() const { return std::max(1, gtk_widget_get_scale_factor(GTK_WIDGET(window_))); }

void TopLevel::EnsureBackBuffer(int width, int height) {
  if (back_ && back_width_ == width && back_height_ == height) return;
  cairo_surface_t* fresh = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height);
  cairo_t* cr = cairo_create(fresh);
  // What was painted stays until the window system paints the new parts.
  cairo_set_source_rgb(cr, 1, 1, 1);
  cairo_paint(cr);
  if (back_) {
    cairo_set_source_surface(cr, back_, 0, 0);
    cairo_paint(cr);
    cairo_surface_destroy(back_);
  }
  cairo_destroy(cr);
  back_ = fresh;
  back_width_ = width;
  back_height_ = height;
}

void TopLevel::ApplyTransientParent() {
  GdkWindow* own = gtk_widget_get_window(GTK_WIDGET(window_));
  if (own && foreign_parent_) gdk_window_set_transient_for(own, foreign_parent_);
}

unsigned TopLevel::Modifiers(unsigned state) const {
  unsigned m = 0;
  if (state & GDK_SHIFT_MASK) m |= kShift;
  if (state & GDK_CONTROL_MASK) m |= kControl;
  if (state & GDK_MOD1_MASK) m |= kAlt;
  return m;
}

unsigned TopLevel::Buttons(unsigned state) const {
  unsigned b = 0;
  if (state & GDK_BUTTON1_MASK) b |= kLeftDown;
  if (state & GDK_BUTTON2_MASK) b |= kMiddleDown;
  if (state & GDK_BUTTON3_MASK) b |= kRightDown;
  return b;
}

int TopLevel::ToDevice(double logical) const { return static_cast<int>(std::floor(logical * scale())); }

gboolean TopLevel::OnDraw(GtkWidget*, cairo_t* cr, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  int s = self->scale();
  // Our buffer is in device pixels; GDK's context counts logical ones.
  cairo_scale(cr, 1.0 / s, 1.0 / s);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cr, self->back_, 0, 0);
  cairo_paint(cr);
  return TRUE;
}

gboolean TopLevel::OnKeyEvent(GtkWidget*, GdkEventKey* event, gpointer data) {
  static_cast<TopLevel*>(data)->HandleKey(event);
  return TRUE;
}

void TopLevel::HandleKey(GdkEventKey* event) {
  bool down = event->type == GDK_KEY_PRESS;
  // The key as it is without Shift, so that Shift+1 is the key 1; Num Lock still counts.
  guint base = event->keyval;
  GdkKeymap* keymap = gdk_keymap_get_for_display(gtk_widget_get_display(GTK_WIDGET(window_)));
  guint translated = 0;
  if (gdk_keymap_translate_keyboard_state(keymap, event->hardware_keycode,
                                          static_cast<GdkModifierType>(event->state & GDK_MOD2_MASK),
                                          event->group, &translated, nullptr, nullptr, nullptr))
    base = translated;
  KeyInput key;
  key.down = down;
  key.virtual_key = VirtualKeyFromKeyval(base);
  key.scan_code = event->hardware_keycode;
  key.modifiers = Modifiers(event->state);
  bool& held = keys_down_[event->hardware_keycode & 0xFF];
  key.repeat = down && held;
  held = down;
  if (down) events_->OnKey(key);
  // The input method sees every key; what it commits arrives through OnCommit.
  bool taken = gtk_im_context_filter_keypress(im_, event);
  if (!down) {
    events_->OnKey(key);
    return;
  }
  if (taken) return;
  int control = ControlCharForKey(key.virtual_key, key.modifiers & kControl, key.modifiers & kAlt);
  if (control) events_->OnControlChar(control);
}

void TopLevel::OnCommit(GtkIMContext*, const gchar* text, gpointer data) {
  if (text && *text) static_cast<TopLevel*>(data)->events_->OnText(text);
}

gboolean TopLevel::OnButton(GtkWidget*, GdkEventButton* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  PointerInput p;
  switch (event->button) {
    case 1: p.button = MouseButton::kLeft; break;
    case 2: p.button = MouseButton::kMiddle; break;
    case 3: p.button = MouseButton::kRight; break;
    default: return FALSE;  // side buttons: no message
  }
  unsigned bit = p.button == MouseButton::kLeft ? kLeftDown
                 : p.button == MouseButton::kRight ? kRightDown : kMiddleDown;
  unsigned held = self->Buttons(event->state);
  switch (event->type) {
    case GDK_BUTTON_PRESS: p.kind = PointerKind::kDown; held |= bit; break;
    case GDK_2BUTTON_PRESS: p.kind = PointerKind::kDoubleClick; held |= bit; break;
    case GDK_BUTTON_RELEASE: p.kind = PointerKind::kUp; held &= ~bit; break;
    default: return TRUE;  // a third click is an ordinary press already reported
  }
  if (p.kind == PointerKind::kDown) gtk_widget_grab_focus(self->area_);
  p.x = self->ToDevice(event->x);
  p.y = self->ToDevice(event->y);
  p.modifiers = self->Modifiers(event->state);
  p.buttons = held;
  self->events_->OnPointer(p);
  return TRUE;
}

gboolean TopLevel::OnMotion(GtkWidget*, GdkEventMotion* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  PointerInput p;
  p.kind = PointerKind::kMove;
  p.x = self->ToDevice(event->x);
  p.y = self->ToDevice(event->y);
  p.modifiers = self->Modifiers(event->state);
  p.buttons = self->Buttons(event->state);
  self->events_->OnPointer(p);
  return TRUE;
}

gboolean TopLevel::OnScroll(GtkWidget*, GdkEventScroll* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  int delta = 0;
  switch (event->direction) {
    case GDK_SCROLL_UP: delta = 120; break;
    case GDK_SCROLL_DOWN: delta = -120; break;
    case GDK_SCROLL_SMOOTH: {
      // Touchpads scroll in fractions; whole units of 1/120 of a notch go out, the rest waits.
      self->wheel_rest_ += -event->delta_y * 120.0;
      delta = static_cast<int>(self->wheel_rest_);
      self->wheel_rest_ -= delta;
      break;
    }
    default: return FALSE;  // sideways scrolling has no message here
  }
  if (delta == 0) return TRUE;
  PointerInput p;
  p.kind = PointerKind::kWheel;
  p.x = self->ToDevice(event->x);
  p.y = self->ToDevice(event->y);
  p.wheel_delta = delta;
  p.modifiers = self->Modifiers(event->state);
  p.buttons = self->Buttons(event->state);
  self->events_->OnPointer(p);
  return TRUE;
}

gboolean TopLevel::OnCrossing(GtkWidget*, GdkEventCrossing* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  PointerInput p;
  p.kind = PointerKind::kLeave;
  p.x = self->ToDevice(event->x);
  p.y = self->ToDevice(event->y);
  p.modifiers = self->Modifiers(event->state);
  p.buttons = self->Buttons(event->state);
  self->events_->OnPointer(p);
  return FALSE;
}

gboolean TopLevel::OnFocusChange(GtkWidget*, GdkEventFocus* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  if (event->in) gtk_im_context_focus_in(self->im_);
  else gtk_im_context_focus_out(self->im_);
  // A key held while focus leaves never reports its release here.
  if (!event->in) std::fill(std::begin(self->keys_down_), std::end(self->keys_down_), false);
  self->events_->OnFocus(event->in);
  return FALSE;
}

gboolean TopLevel::OnConfigure(GtkWidget*, GdkEventConfigure* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  int s = self->scale();
  int width = event->width * s, height = event->height * s;
  self->EnsureBackBuffer(std::max(1, width), std::max(1, height));
  self->events_->OnConfigured(event->x * s, event->y * s, width, height);
  return FALSE;
}

gboolean TopLevel::OnDelete(GtkWidget*, GdkEvent*, gpointer data) {
  static_cast<TopLevel*>(data)->events_->OnCloseRequest();
  return TRUE;  // the window system decides whether the window goes
}

void TopLevel::OnRealize(GtkWidget*, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  gtk_im_context_set_client_window(self->im_, gtk_widget_get_window(GTK_WIDGET(self->window_)));
  self->ApplyTransientParent();
}

}  // namespace qmk::platform::ui::gtk3
