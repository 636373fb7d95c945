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
  gtk_window_set_resizable(window_, options.resizable);
  gtk_widget_set_app_paintable(GTK_WIDGET(window_), TRUE);
  if (options.popup) {
    gtk_window_set_type_hint(window_, GDK_WINDOW_TYPE_HINT_COMBO);
    // A group of its own: a modal dialog's grab must not steal the clicks of its own list.
    GtkWindowGroup* group = gtk_window_group_new();
    gtk_window_group_add_window(group, window_);
    g_object_unref(group);
  }
  resizable_ = options.resizable;
  int s = scale();
  const Rect& r = options.screen_rect;
  gtk_window_move(window_, r.left / s, r.top / s);
  gtk_window_set_default_size(window_, std::max(1, r.Width() / s), std::max(1, r.Height() / s));

  area_ = gtk_drawing_area_new();
  gtk_widget_set_can_focus(area_, TRUE);
  gtk_widget_add_events(area_, GDK_BUTTON_PRESS_MASK | GDK_BUTTON_RELEASE_MASK |
                                   GDK_POINTER_MOTION_MASK | GDK_SCROLL_MASK |
                                   GDK_SMOOTH_SCROLL_MASK | GDK_LEAVE_NOTIFY_MASK);
  gtk_container_add(GTK_CONTAINER(window_), area_);
  gtk_widget_show(area_);
  Resize(r.Width(), r.Height());

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
  g_signal_connect(w, "map-event", G_CALLBACK(OnMapChange), this);
  g_signal_connect(w, "unmap-event", G_CALLBACK(OnMapChange), this);
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
  if (visible != visible_) map_seen_ = drawn_ = false;
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
  // Cairo's image surfaces end at 32767 pixels a side; a larger window is cut to that.
  width = std::clamp(width, 1, kMaxSide);
  height = std::clamp(height, 1, kMaxSide);
  EnsureBackBuffer(width, height);
  // A window the user may not resize takes the size of its content.
  if (!resizable_) gtk_widget_set_size_request(area_, std::max(1, width / s), std::max(1, height / s));
  gtk_window_resize(window_, std::max(1, width / s), std::max(1, height / s));
}

void TopLevel::SetTitle(const std::string& title) { gtk_window_set_title(window_, title.c_str()); }

void TopLevel::Present(cairo_surface_t* image, const Rect& dirty) {
  if (!image || !back_ || dirty.IsEmpty()) return;
  presented_ = true;
  cairo_t* cr = cairo_create(back_);
  cairo_rectangle(cr, dirty.left, dirty.top, dirty.Width(), dirty.Height());
  cairo_clip(cr);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cr, image, 0, 0);
  cairo_paint(cr);
  cairo_destroy(cr);
  Invalidate(dirty);
}

void TopLevel::Invalidate(const Rect& r) {
  int s = scale();
  // Rounded outwards, so that a part smaller than one logical pixel is still drawn.
  int left = r.left / s, top = r.top / s;
  int right = (r.right + s - 1) / s, bottom = (r.bottom + s - 1) / s;
  drawn_ = false;
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
  if (state & GDK_SHIFT_MASK) m |= kModShift;
  if (state & GDK_CONTROL_MASK) m |= kModControl;
  if (state & GDK_MOD1_MASK) m |= kModAlt;
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
  if (!self->presented_) {
    // Shown before anything was presented: the window system paints it now, and the back
    // buffer's blank face stands in until then.
    self->presented_ = true;
    self->events_->OnExposed(Rect{0, 0, self->back_width_, self->back_height_});
  }
  int s = self->scale();
  // Our buffer is in device pixels; GDK's context counts logical ones.
  cairo_scale(cr, 1.0 / s, 1.0 / s);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_surface(cr, self->back_, 0, 0);
  cairo_paint(cr);
  self->drawn_ = true;
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
  // A key the window system has no code for sends no key message, only what it types.
  bool known = key.virtual_key != 0;
  if (down && known) events_->OnKey(key);
  // The input method sees every key; what it commits arrives through OnCommit meanwhile.
  typing_modifiers_ = key.modifiers;
  bool taken = gtk_im_context_filter_keypress(im_, event);
  typing_modifiers_ = 0;
  if (!down) {
    if (known) events_->OnKey(key);
    return;
  }
  if (taken) return;
  if (int control = ControlCharForKey(key.virtual_key, key.modifiers & kModControl,
                                      key.modifiers & kModAlt)) {
    events_->OnChar(static_cast<char32_t>(control), key.modifiers);
    return;
  }
  // Alt+key types nothing, but its character goes on as a system character for mnemonics.
  if (key.modifiers & kModAlt) {
    gunichar ch = gdk_keyval_to_unicode(event->keyval);
    if (ch && g_unichar_isprint(ch)) events_->OnChar(ch, key.modifiers);
  }
}

void TopLevel::OnCommit(GtkIMContext*, const gchar* text, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  if (!text || !g_utf8_validate(text, -1, nullptr)) return;
  for (const gchar* p = text; *p; p = g_utf8_next_char(p))
    self->events_->OnChar(g_utf8_get_char(p), self->typing_modifiers_);
}

gboolean TopLevel::OnButton(GtkWidget*, GdkEventButton* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  PointerInput p;
  switch (event->button) {
    case 1: p.button = MouseButton::Left; break;
    case 2: p.button = MouseButton::Middle; break;
    case 3: p.button = MouseButton::Right; break;
    default: return FALSE;  // side buttons: no message
  }
  unsigned bit = p.button == MouseButton::Left ? kLeftDown
                 : p.button == MouseButton::Right ? kRightDown : kMiddleDown;
  unsigned held = self->Buttons(event->state);
  switch (event->type) {
    case GDK_BUTTON_PRESS:
      p.action = self->IsSecondClick(event) ? MouseAction::DoubleClick : MouseAction::Down;
      held |= bit;
      break;
    case GDK_BUTTON_RELEASE: p.action = MouseAction::Up; held &= ~bit; break;
    // GTK reports a double press after the second press itself; that press was the double click.
    default: return TRUE;
  }
  if (p.action == MouseAction::Down) gtk_widget_grab_focus(self->area_);
  p.at = {self->ToDevice(event->x), self->ToDevice(event->y)};
  p.modifiers = self->Modifiers(event->state);
  p.buttons = held;
  self->events_->OnPointer(p);
  return TRUE;
}

bool TopLevel::IsSecondClick(const GdkEventButton* event) {
  gint time_limit = 400, distance = 5;
  g_object_get(gtk_widget_get_settings(area_), "gtk-double-click-time", &time_limit,
               "gtk-double-click-distance", &distance, nullptr);
  const bool second = last_press_.button == event->button && !last_press_.was_double &&
                      event->time - last_press_.time <= static_cast<guint32>(time_limit) &&
                      std::abs(event->x - last_press_.x) <= distance &&
                      std::abs(event->y - last_press_.y) <= distance;
  // After a double click the next press starts again, as the third click of a person's triple.
  last_press_ = {event->button, event->time, event->x, event->y, second};
  return second;
}

gboolean TopLevel::OnMotion(GtkWidget*, GdkEventMotion* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  PointerInput p;
  p.action = MouseAction::Move;
  p.at = {self->ToDevice(event->x), self->ToDevice(event->y)};
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
  p.action = MouseAction::Wheel;
  p.at = {self->ToDevice(event->x), self->ToDevice(event->y)};
  p.wheel_delta = delta;
  p.modifiers = self->Modifiers(event->state);
  p.buttons = self->Buttons(event->state);
  self->events_->OnPointer(p);
  return TRUE;
}

gboolean TopLevel::OnCrossing(GtkWidget*, GdkEventCrossing* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  PointerInput p;
  p.action = MouseAction::Leave;
  p.at = {self->ToDevice(event->x), self->ToDevice(event->y)};
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
  self->EnsureBackBuffer(std::clamp(width, 1, kMaxSide), std::clamp(height, 1, kMaxSide));
  self->events_->OnConfigured(Rect{event->x * s, event->y * s, event->x * s + width, event->y * s + height});
  return FALSE;
}

gboolean TopLevel::OnDelete(GtkWidget*, GdkEvent*, gpointer data) {
  static_cast<TopLevel*>(data)->events_->OnCloseRequest();
  return TRUE;  // the window system decides whether the window goes
}

gboolean TopLevel::OnMapChange(GtkWidget*, GdkEvent* event, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  // A window drawn before the server mapped it may have lost that drawing: the map's expose
  // brings the draw that counts.
  self->map_seen_ = event->type == GDK_MAP;
  self->drawn_ = false;
  return FALSE;
}

void TopLevel::OnRealize(GtkWidget*, gpointer data) {
  auto* self = static_cast<TopLevel*>(data);
  gtk_im_context_set_client_window(self->im_, gtk_widget_get_window(GTK_WIDGET(self->window_)));
  self->ApplyTransientParent();
}

}  // namespace qmk::platform::ui::gtk3
