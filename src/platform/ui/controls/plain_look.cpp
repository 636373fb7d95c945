// plain_look.cpp: drawing of the neutral look with the device context and cairo.
#include "platform/ui/controls/plain_look.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

namespace qmk::platform::ui::controls {
namespace {

void SetSource(cairo_t* cr, uint32_t c) {
  cairo_set_source_rgba(cr, (c & 0xFF) / 255.0, ((c >> 8) & 0xFF) / 255.0,
                        ((c >> 16) & 0xFF) / 255.0, ((c >> 24) & 0xFF) / 255.0);
}

// The top and left lines of `r` in one colour, the bottom and right in another.
void Bevel(Dc& dc, const Rect& r, uint32_t top_left, uint32_t bottom_right) {
  if (r.IsEmpty()) return;
  dc.FillRect({r.left, r.top, r.right - 1, r.top + 1}, top_left);
  dc.FillRect({r.left, r.top, r.left + 1, r.bottom - 1}, top_left);
  dc.FillRect({r.left, r.bottom - 1, r.right, r.bottom}, bottom_right);
  dc.FillRect({r.right - 1, r.top, r.right, r.bottom}, bottom_right);
}

}  // namespace

Rect Deflate(const Rect& r, int dx, int dy) {
  Rect out{r.left + dx, r.top + dy, r.right - dx, r.bottom - dy};
  if (out.right < out.left) out.right = out.left;
  if (out.bottom < out.top) out.bottom = out.top;
  return out;
}

Rect DrawEdge(Dc& dc, const Rect& r, Edge edge) {
  using namespace colors;
  switch (edge) {
    case Edge::kRaised:
      Bevel(dc, r, kHighlight3d, kDarkShadow);
      Bevel(dc, Deflate(r, 1, 1), kLight, kShadow);
      return Deflate(r, 2, 2);
    case Edge::kPressed:
      Bevel(dc, r, kDarkShadow, kHighlight3d);
      Bevel(dc, Deflate(r, 1, 1), kShadow, kLight);
      return Deflate(r, 2, 2);
    case Edge::kSunken:
      Bevel(dc, r, kShadow, kHighlight3d);
      Bevel(dc, Deflate(r, 1, 1), kDarkShadow, kLight);
      return Deflate(r, 2, 2);
    case Edge::kThinSunken:
      Bevel(dc, r, kShadow, kHighlight3d);
      return Deflate(r, 1, 1);
    case Edge::kEtched: {
      if (r.Width() < 2 || r.Height() < 2) return r;
      Rect outer{r.left, r.top, r.right - 1, r.bottom - 1};
      Rect inner{r.left + 1, r.top + 1, r.right, r.bottom};
      dc.FrameRect(inner, kHighlight3d);
      dc.FrameRect(outer, kShadow);
      return Deflate(r, 2, 2);
    }
  }
  return r;
}

void DrawArrow(Dc& dc, const Rect& r, Arrow direction, uint32_t color) {
  int size = std::max(2, std::min(r.Width(), r.Height()) / 3);
  double cx = (r.left + r.right) / 2.0, cy = (r.top + r.bottom) / 2.0;
  double h = size / 2.0;
  cairo_t* cr = dc.cairo();
  cairo_save(cr);
  SetSource(cr, color);
  switch (direction) {
    case Arrow::kUp:
      cairo_move_to(cr, cx - size, cy + h); cairo_line_to(cr, cx + size, cy + h);
      cairo_line_to(cr, cx, cy - h);
      break;
    case Arrow::kDown:
      cairo_move_to(cr, cx - size, cy - h); cairo_line_to(cr, cx + size, cy - h);
      cairo_line_to(cr, cx, cy + h);
      break;
    case Arrow::kLeft:
      cairo_move_to(cr, cx + h, cy - size); cairo_line_to(cr, cx + h, cy + size);
      cairo_line_to(cr, cx - h, cy);
      break;
    case Arrow::kRight:
      cairo_move_to(cr, cx - h, cy - size); cairo_line_to(cr, cx - h, cy + size);
      cairo_line_to(cr, cx + h, cy);
      break;
  }
  cairo_close_path(cr);
  cairo_fill(cr);
  cairo_restore(cr);
}

void DrawArrowButton(Dc& dc, const Rect& r, Arrow direction, bool pressed, bool enabled) {
  dc.FillRect(r, colors::kFace);
  Rect inside = DrawEdge(dc, r, pressed ? Edge::kPressed : Edge::kRaised);
  if (pressed) inside = OffsetRect(inside, 1, 1);
  DrawArrow(dc, inside, direction, enabled ? colors::kText : colors::kShadow);
}

void DrawCheckBox(Dc& dc, const Rect& box, int state, bool pushed, bool enabled) {
  dc.FillRect(box, pushed || !enabled ? colors::kFace : colors::kWindow);
  Rect inside = DrawEdge(dc, box, Edge::kSunken);
  if (state == 0) return;
  uint32_t mark = (state == 2 || !enabled) ? colors::kShadow : colors::kText;
  cairo_t* cr = dc.cairo();
  cairo_save(cr);
  SetSource(cr, mark);
  cairo_set_line_width(cr, 1.6);
  double x = inside.left, y = inside.top, w = inside.Width(), h = inside.Height();
  cairo_move_to(cr, x + w * 0.18, y + h * 0.50);
  cairo_line_to(cr, x + w * 0.42, y + h * 0.75);
  cairo_line_to(cr, x + w * 0.85, y + h * 0.22);
  cairo_stroke(cr);
  cairo_restore(cr);
}

void DrawRadio(Dc& dc, const Rect& box, bool checked, bool pushed, bool enabled) {
  cairo_t* cr = dc.cairo();
  double cx = box.left + box.Width() / 2.0, cy = box.top + box.Height() / 2.0;
  double radius = std::min(box.Width(), box.Height()) / 2.0 - 0.5;
  cairo_save(cr);
  cairo_arc(cr, cx, cy, radius, 0, 2 * M_PI);
  SetSource(cr, pushed || !enabled ? colors::kFace : colors::kWindow);
  cairo_fill_preserve(cr);
  cairo_set_line_width(cr, 1.0);
  SetSource(cr, colors::kDarkShadow);
  cairo_stroke(cr);
  if (checked) {
    cairo_arc(cr, cx, cy, radius * 0.42, 0, 2 * M_PI);
    SetSource(cr, enabled ? colors::kText : colors::kShadow);
    cairo_fill(cr);
  }
  cairo_restore(cr);
}

int DrawLabel(Dc& dc, const std::string& text, Rect r, unsigned format, bool enabled,
              uint32_t color) {
  uint32_t old = dc.text_color();
  int height = 0;
  if (enabled) {
    dc.SetTextColor(color);
    height = dc.DrawText(text, &r, format);
  } else {
    Rect lit = OffsetRect(r, 1, 1);
    dc.SetTextColor(colors::kHighlight3d);
    dc.DrawText(text, &lit, format);
    dc.SetTextColor(colors::kShadow);
    height = dc.DrawText(text, &r, format);
  }
  dc.SetTextColor(old);
  return height;
}

}  // namespace qmk::platform::ui::controls
