// text.cpp: one line of text through pangocairo, drawn on a scratch surface and laid over the
// target by its alpha, so the target keeps its own clipping and composition rules.
#include "platform/draw/text.h"

#include <cairo.h>
#include <pango/pangocairo.h>
#include <strings.h>

#include <algorithm>
#include <cmath>
#include <memory>

namespace qmk::platform {
namespace {

struct LayoutDeleter {
  void operator()(PangoLayout* l) const { g_object_unref(l); }
};
using LayoutPtr = std::unique_ptr<PangoLayout, LayoutDeleter>;

LayoutPtr MakeLayout(cairo_t* cr, const MnemonicText& plain, const FontSpec& font) {
  LayoutPtr layout(pango_cairo_create_layout(cr));
  PangoContext* context = pango_layout_get_context(layout.get());
  pango_cairo_context_set_resolution(context, 96);
  // Grey-scale smoothing keeps the pictures identical on machines with other sub-pixel setups.
  cairo_font_options_t* options = cairo_font_options_create();
  cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
  pango_cairo_context_set_font_options(context, options);
  cairo_font_options_destroy(options);
  pango_layout_context_changed(layout.get());

  PangoFontDescription* desc = pango_font_description_new();
  pango_font_description_set_family(desc, font.face.c_str());
  pango_font_description_set_absolute_size(desc, std::max(1.0, font.pixels) * PANGO_SCALE);
  pango_font_description_set_weight(desc, font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
  pango_font_description_set_style(desc, font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
  pango_layout_set_font_description(layout.get(), desc);
  pango_font_description_free(desc);
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_text(layout.get(), plain.text.c_str(), static_cast<int>(plain.text.size()));
  if (plain.underline_start >= 0) {
    PangoAttrList* attrs = pango_attr_list_new();
    PangoAttribute* under = pango_attr_underline_new(PANGO_UNDERLINE_SINGLE);
    under->start_index = static_cast<guint>(plain.underline_start);
    under->end_index = static_cast<guint>(plain.underline_end);
    pango_attr_list_insert(attrs, under);
    pango_layout_set_attributes(layout.get(), attrs);
    pango_attr_list_unref(attrs);
  }
  return layout;
}

// A 1x1 surface serves the measuring, which needs a context but draws nothing.
struct Scratch {
  cairo_surface_t* surface = nullptr;
  cairo_t* cr = nullptr;
  Scratch(int w, int h) {
    surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
    cr = cairo_create(surface);
  }
  ~Scratch() {
    cairo_destroy(cr);
    cairo_surface_destroy(surface);
  }
  bool ok() const { return cairo_status(cr) == CAIRO_STATUS_SUCCESS; }
};

TextSize LogicalSize(PangoLayout* layout) {
  int w = 0, h = 0;
  pango_layout_get_pixel_size(layout, &w, &h);
  return {w, h};
}

}  // namespace

std::string RepairUtf8(const std::string& in) {
  if (g_utf8_validate(in.data(), static_cast<gssize>(in.size()), nullptr)) return in;
  gchar* fixed = g_utf8_make_valid(in.data(), static_cast<gssize>(in.size()));
  std::string out(fixed);
  g_free(fixed);
  return out;
}

MnemonicText StripMnemonics(const std::string& raw, bool mnemonics) {
  MnemonicText out;
  const std::string in = RepairUtf8(raw);
  if (!mnemonics) {
    out.text = in;
    return out;
  }
  for (size_t i = 0; i < in.size(); ++i) {
    if (in[i] != '&' || i + 1 >= in.size()) {
      out.text += in[i];
      continue;
    }
    ++i;  // the mark itself is never shown
    if (in[i] != '&' && out.underline_start < 0) {
      out.underline_start = static_cast<int>(out.text.size());
      const char* next = g_utf8_next_char(in.c_str() + i);
      out.underline_end = out.underline_start + static_cast<int>(next - (in.c_str() + i));
    }
    out.text += in[i];
  }
  return out;
}

TextSize MeasureText(const std::string& text, const FontSpec& font, bool mnemonics) {
  Scratch scratch(1, 1);
  if (!scratch.ok()) return {};
  const MnemonicText plain = StripMnemonics(text, mnemonics);
  return LogicalSize(MakeLayout(scratch.cr, plain, font).get());
}

bool DrawText(DrawTarget& target, const DrawRect& box, const std::string& text,
              const FontSpec& font, uint32_t colour, const TextOptions& options) {
  if (!target.ok() || box.IsEmpty() || text.empty() || !target.RectVisible(box)) return false;
  Scratch scratch(box.Width(), box.Height());
  if (!scratch.ok()) return false;
  const MnemonicText plain = StripMnemonics(text, options.mnemonics);
  if (plain.text.empty()) return false;
  LayoutPtr layout = MakeLayout(scratch.cr, plain, font);
  const TextSize size = LogicalSize(layout.get());

  int x = 0;
  if (options.align == TextAlign::kCenter) x = (box.Width() - size.width) / 2;
  if (options.align == TextAlign::kRight) x = box.Width() - size.width;
  const int y = options.center_vertically ? (box.Height() - size.height) / 2 : 0;
  cairo_set_source_rgb(scratch.cr, (colour & 0xFF) / 255.0, ((colour >> 8) & 0xFF) / 255.0,
                       ((colour >> 16) & 0xFF) / 255.0);
  cairo_move_to(scratch.cr, x, y);
  pango_cairo_show_layout(scratch.cr, layout.get());
  cairo_surface_flush(scratch.surface);

  // Cairo's ARGB32 rows are blue, green, red, alpha in memory, premultiplied: the target's form.
  PixelView view;
  view.top_row = cairo_image_surface_get_data(scratch.surface);
  view.width = box.Width();
  view.height = box.Height();
  view.stride = cairo_image_surface_get_stride(scratch.surface);
  view.premultiplied = true;
  std::unique_ptr<DeviceImage> image = DeviceImage::Create(view);
  if (!image) return false;
  return target.AlphaBlend(*image, box, {0, 0, box.Width(), box.Height()}, 255);
}

bool FontFamilyInstalled(const std::string& face) {
  PangoFontMap* map = pango_cairo_font_map_get_default();
  PangoFontFamily** families = nullptr;
  int count = 0;
  pango_font_map_list_families(map, &families, &count);
  bool found = false;
  for (int i = 0; i < count && !found; ++i)
    found = strcasecmp(pango_font_family_get_name(families[i]), face.c_str()) == 0;
  g_free(families);
  return found;
}

// Only the font map is dropped. Cairo's and fontconfig's own resets assert that no font is
// still alive, and pango may still hold fonts from its background fontconfig start-up (seen when
// the fontconfig cache is cold), so those caches stay for the life of the process; the leak
// checker's suppressions name them.
void ReleaseFontCaches() { pango_cairo_font_map_set_default(nullptr); }

}  // namespace qmk::platform
