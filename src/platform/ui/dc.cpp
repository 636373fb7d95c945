// dc.cpp: the device context: fills, frames, lines, the focus rectangle, text with mnemonics,
// and pictures, on a cairo context already placed and clipped for one window.
#include <cairo.h>

#include <algorithm>

#include "platform/draw/text.h"
#include "platform/ui/font_state.h"
#include "platform/ui/paint.h"

namespace qmk::platform::ui {
namespace {

void SetColor(cairo_t* cr, uint32_t rgba) {
  cairo_set_source_rgba(cr, (rgba & 0xFF) / 255.0, ((rgba >> 8) & 0xFF) / 255.0,
                        ((rgba >> 16) & 0xFF) / 255.0, (rgba >> 24) / 255.0);
}

}  // namespace

Dc::Dc(cairo_t* cr, HWND hwnd, const Rect& clip)
    : cr_(cr), hwnd_(hwnd), clip_(clip), font_(GetStockGuiFont()) {}

HFONT Dc::SelectFont(HFONT font) {
  const HFONT old = font_;
  font_ = font ? font : GetStockGuiFont();
  return old;
}

uint32_t Dc::SetTextColor(uint32_t rgba) {
  const uint32_t old = text_color_;
  text_color_ = rgba;
  return old;
}

void Dc::FillRect(const Rect& r, uint32_t rgba) {
  if (r.IsEmpty()) return;
  cairo_save(cr_);
  SetColor(cr_, rgba);
  cairo_rectangle(cr_, r.left, r.top, r.Width(), r.Height());
  cairo_fill(cr_);
  cairo_restore(cr_);
}

void Dc::FrameRect(const Rect& r, uint32_t rgba) {
  if (r.IsEmpty()) return;
  FillRect({r.left, r.top, r.right, r.top + 1}, rgba);
  FillRect({r.left, r.bottom - 1, r.right, r.bottom}, rgba);
  FillRect({r.left, r.top + 1, r.left + 1, r.bottom - 1}, rgba);
  FillRect({r.right - 1, r.top + 1, r.right, r.bottom - 1}, rgba);
}

void Dc::Line(int x0, int y0, int x1, int y1, uint32_t rgba) {
  if (y0 == y1) {
    FillRect({std::min(x0, x1 + 1), y0, std::max(x0 + 1, x1), y0 + 1}, rgba);
    return;
  }
  if (x0 == x1) {
    FillRect({x0, std::min(y0, y1 + 1), x0 + 1, std::max(y0 + 1, y1)}, rgba);
    return;
  }
  cairo_save(cr_);
  SetColor(cr_, rgba);
  cairo_set_line_width(cr_, 1);
  cairo_move_to(cr_, x0 + 0.5, y0 + 0.5);
  cairo_line_to(cr_, x1 + 0.5, y1 + 0.5);
  cairo_stroke(cr_);
  cairo_restore(cr_);
}

void Dc::DrawFocusRect(const Rect& r) {
  if (r.IsEmpty()) return;
  cairo_save(cr_);
  SetColor(cr_, 0xFF000000u);
  // Every other pixel along the edge, starting at the corner.
  for (int x = r.left; x < r.right; x += 2) {
    cairo_rectangle(cr_, x, r.top, 1, 1);
    if ((x - r.left + r.Height() - 1) % 2 == 0) cairo_rectangle(cr_, x, r.bottom - 1, 1, 1);
  }
  for (int y = r.top + 1; y < r.bottom; ++y) {
    if ((y - r.top) % 2 == 0) cairo_rectangle(cr_, r.left, y, 1, 1);
    if ((r.Width() - 1 + y - r.top) % 2 == 0) cairo_rectangle(cr_, r.right - 1, y, 1, 1);
  }
  cairo_fill(cr_);
  cairo_restore(cr_);
}

int Dc::DrawText(const std::string& text, Rect* r, unsigned format) {
  if (!r) return 0;
  FontObject* f = Resolve(font_);
  const MnemonicText plain = StripMnemonics(text, (format & DT_NOPREFIX) == 0);
  const std::string& shown = plain.text;
  const int mark = (format & DT_HIDEPREFIX) ? -1 : plain.underline_start;
  const int mark_end = plain.underline_end;

  PangoLayout* layout = pango_cairo_create_layout(cr_);
  PrepareLayoutContext(cr_, layout);
  pango_layout_set_font_description(layout, f->desc);
  pango_layout_set_text(layout, shown.data(), static_cast<int>(shown.size()));
  if (f->lf.underline || mark >= 0) {
    PangoAttrList* attrs = pango_attr_list_new();
    PangoAttribute* u = pango_attr_underline_new(PANGO_UNDERLINE_SINGLE);
    if (!f->lf.underline && mark < static_cast<int>(shown.size())) {
      u->start_index = static_cast<guint>(mark);
      u->end_index = static_cast<guint>(mark_end);
    }
    pango_attr_list_insert(attrs, u);
    pango_layout_set_attributes(layout, attrs);
    pango_attr_list_unref(attrs);
  }
  const bool single = (format & DT_SINGLELINE) != 0;
  if ((format & DT_WORDBREAK) && !single) {
    pango_layout_set_width(layout, std::max(1, r->Width()) * PANGO_SCALE);
    pango_layout_set_wrap(layout, PANGO_WRAP_WORD_CHAR);
  } else if (format & DT_END_ELLIPSIS) {
    pango_layout_set_width(layout, std::max(1, r->Width()) * PANGO_SCALE);
    pango_layout_set_ellipsize(layout, PANGO_ELLIPSIZE_END);
  }
  if (single) pango_layout_set_single_paragraph_mode(layout, TRUE);
  int w = 0, h = 0;
  pango_layout_get_pixel_size(layout, &w, &h);
  if (format & DT_CALCRECT) {
    r->right = r->left + w;
    r->bottom = r->top + h;
    g_object_unref(layout);
    return h;
  }
  int x = r->left, y = r->top;
  if (format & DT_CENTER)
    x = r->left + (r->Width() - w) / 2;
  else if (format & DT_RIGHT)
    x = r->right - w;
  if (single && (format & DT_VCENTER))
    y = r->top + (r->Height() - h) / 2;
  else if (single && (format & DT_BOTTOM))
    y = r->bottom - h;
  cairo_save(cr_);
  if (!(format & DT_NOCLIP)) {
    cairo_rectangle(cr_, r->left, r->top, r->Width(), r->Height());
    cairo_clip(cr_);
  }
  SetColor(cr_, text_color_);
  cairo_move_to(cr_, x, y);
  pango_cairo_show_layout(cr_, layout);
  cairo_restore(cr_);
  g_object_unref(layout);
  return h;
}

bool Dc::DrawImage(DeviceImage& image, const Rect& dst, const Rect& src, uint8_t alpha) {
  if (dst.IsEmpty() || src.IsEmpty() || !image.blend_surface()) return false;
  cairo_save(cr_);
  cairo_rectangle(cr_, dst.left, dst.top, dst.Width(), dst.Height());
  cairo_clip(cr_);
  cairo_translate(cr_, dst.left, dst.top);
  cairo_scale(cr_, static_cast<double>(dst.Width()) / src.Width(),
              static_cast<double>(dst.Height()) / src.Height());
  cairo_set_source_surface(cr_, image.blend_surface(), -src.left, -src.top);
  cairo_pattern_set_filter(cairo_get_source(cr_), CAIRO_FILTER_NEAREST);
  cairo_paint_with_alpha(cr_, alpha / 255.0);
  cairo_restore(cr_);
  return true;
}

bool Dc::DrawPicture(const DrawTarget& picture, const Point& at) {
  cairo_surface_t* surface = picture.FlushedSurface();
  if (!surface) return false;
  cairo_save(cr_);
  cairo_rectangle(cr_, at.x, at.y, picture.width(), picture.height());
  cairo_clip(cr_);
  cairo_set_source_surface(cr_, surface, at.x, at.y);
  cairo_paint(cr_);
  cairo_restore(cr_);
  return true;
}

void Dc::IntersectClip(const Rect& r) {
  cairo_rectangle(cr_, r.left, r.top, std::max(0, r.Width()), std::max(0, r.Height()));
  cairo_clip(cr_);
  clip_ = IntersectRect(clip_, r);
}

}  // namespace qmk::platform::ui
