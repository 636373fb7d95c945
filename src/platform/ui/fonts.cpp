// fonts.cpp: font objects described for pango, their metrics and the dialog base units.
#include <algorithm>
#include <set>

#include "platform/draw/text.h"
#include "platform/ui/font_state.h"
#include "platform/ui/screen.h"

namespace qmk::platform::ui {
namespace {

std::set<FontObject*>& LiveFonts() {
  static std::set<FontObject*> fonts;
  return fonts;
}

cairo_font_options_t* FixedOptions() {
  static cairo_font_options_t* options = [] {
    cairo_font_options_t* o = cairo_font_options_create();
    cairo_font_options_set_antialias(o, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(o, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(o, CAIRO_HINT_METRICS_OFF);
    return o;
  }();
  return options;
}

PangoFontDescription* Describe(const LOGFONT& lf) {
  PangoFontDescription* d = pango_font_description_new();
  pango_font_description_set_family(d, lf.face.empty() ? "DejaVu Sans" : lf.face.c_str());
  pango_font_description_set_absolute_size(d, std::clamp(lf.height, 1, 2000) * PANGO_SCALE);
  pango_font_description_set_weight(d, static_cast<PangoWeight>(std::clamp(lf.weight, 100, 1000)));
  pango_font_description_set_style(d, lf.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  return d;
}

FontObject* MakeFont(const LOGFONT& lf) {
  auto* f = new FontObject;
  f->lf = lf;
  f->desc = Describe(lf);
  LiveFonts().insert(f);
  return f;
}

void Measure(FontObject* f) {
  if (f->have_metrics) return;
  PangoFontMetrics* m = pango_context_get_metrics(MeasureContext(), f->desc, nullptr);
  f->metrics.tmAscent = PANGO_PIXELS_CEIL(pango_font_metrics_get_ascent(m));
  f->metrics.tmDescent = PANGO_PIXELS_CEIL(pango_font_metrics_get_descent(m));
  f->metrics.tmHeight = f->metrics.tmAscent + f->metrics.tmDescent;
  f->metrics.tmAveCharWidth = PANGO_PIXELS(pango_font_metrics_get_approximate_char_width(m));
  f->metrics.tmMaxCharWidth = PANGO_PIXELS(pango_font_metrics_get_approximate_digit_width(m));
  pango_font_metrics_unref(m);
  // The platform's way: the width of the 52 Latin letters, halved with rounding.
  const Size letters =
      GetTextExtent(f, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  f->base_units = {(letters.cx / 26 + 1) / 2, f->metrics.tmHeight};
  f->have_metrics = true;
}

}  // namespace

PangoContext* MeasureContext() {
  static PangoContext* context = [] {
    PangoFontMap* map = pango_cairo_font_map_new();
    PangoContext* c = pango_font_map_create_context(map);
    pango_cairo_context_set_font_options(c, FixedOptions());
    pango_cairo_context_set_resolution(c, 96);
    return c;
  }();
  return context;
}

void PrepareLayoutContext(cairo_t* cr, PangoLayout* layout) {
  (void)cr;
  PangoContext* c = pango_layout_get_context(layout);
  pango_cairo_context_set_font_options(c, FixedOptions());
  pango_cairo_context_set_resolution(c, 96);
  pango_layout_context_changed(layout);
}

std::string ValidUtf8(const std::string& text) { return RepairUtf8(text); }

FontObject* Resolve(HFONT font) {
  if (font && LiveFonts().count(font)) return font;
  return GetStockGuiFont();
}

int PointsToPixels(int points, int dpi) {
  // MulDiv rounds half away from zero.
  const long long n = static_cast<long long>(points) * dpi;
  return static_cast<int>((n + (n >= 0 ? 36 : -36)) / 72);
}

HFONT CreateFontIndirect(const LOGFONT& lf) {
  if (lf.height <= 0 || lf.height > 2000) return nullptr;
  return MakeFont(lf);
}

bool DeleteObject(HFONT font) {
  if (!font || !LiveFonts().count(font) || font->stock) return false;
  LiveFonts().erase(font);
  pango_font_description_free(font->desc);
  delete font;
  return true;
}

bool GetObject(HFONT font, LOGFONT* out) {
  if (!font || !LiveFonts().count(font) || !out) return false;
  *out = font->lf;
  return true;
}

HFONT GetStockGuiFont() {
  static FontObject* stock = [] {
    LOGFONT lf;
    lf.height = PointsToPixels(8, PrimaryMonitor().dpi);
    FontObject* f = MakeFont(lf);
    f->stock = true;
    return f;
  }();
  return stock;
}

bool GetTextMetrics(HFONT font, TEXTMETRIC* out) {
  if (!out) return false;
  FontObject* f = Resolve(font);
  Measure(f);
  *out = f->metrics;
  return true;
}

Size GetTextExtent(HFONT font, const std::string& text) {
  FontObject* f = Resolve(font);
  PangoLayout* layout = pango_layout_new(MeasureContext());
  pango_layout_set_font_description(layout, f->desc);
  const std::string valid = ValidUtf8(text);
  pango_layout_set_text(layout, valid.data(), static_cast<int>(valid.size()));
  int w = 0, h = 0;
  pango_layout_get_pixel_size(layout, &w, &h);
  g_object_unref(layout);
  return {w, h};
}

Size GetFontBaseUnits(HFONT font) {
  FontObject* f = Resolve(font);
  Measure(f);
  return f->base_units;
}

}  // namespace qmk::platform::ui
