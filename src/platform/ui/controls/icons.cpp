// icons.cpp: the standard icons, drawn as vector shapes, and icons from pictures.
#include "platform/ui/controls/icons.h"

#include <cairo.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace qmk::platform::ui::controls {

struct IconObject {
  int standard = 0;  // an IDI_ value, or 0 for a picture
  std::unique_ptr<DeviceImage> image;
};

namespace {

IconObject g_standard[] = {{IDI_APPLICATION, nullptr}, {IDI_HAND, nullptr},
                           {IDI_QUESTION, nullptr}, {IDI_EXCLAMATION, nullptr},
                           {IDI_ASTERISK, nullptr}};

void Rgb(cairo_t* cr, int r, int g, int b) { cairo_set_source_rgb(cr, r / 255.0, g / 255.0, b / 255.0); }

// A glyph letter centred on (cx, cy) in bold white.
void Glyph(cairo_t* cr, const char* text, double cx, double cy, double size) {
  cairo_select_font_face(cr, "DejaVu Sans", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_BOLD);
  cairo_set_font_size(cr, size);
  cairo_text_extents_t ext;
  cairo_text_extents(cr, text, &ext);
  cairo_move_to(cr, cx - ext.width / 2 - ext.x_bearing, cy - ext.height / 2 - ext.y_bearing);
  cairo_show_text(cr, text);
}

void DrawStandard(cairo_t* cr, int id, double x, double y) {
  double c = kIconSize / 2.0;
  cairo_save(cr);
  cairo_translate(cr, x, y);
  switch (id) {
    case IDI_HAND:
      cairo_arc(cr, c, c, 14.5, 0, 2 * M_PI);
      Rgb(cr, 0xD0, 0x20, 0x20);
      cairo_fill(cr);
      Rgb(cr, 255, 255, 255);
      cairo_set_line_width(cr, 3.2);
      cairo_move_to(cr, 10, 10); cairo_line_to(cr, 22, 22);
      cairo_move_to(cr, 22, 10); cairo_line_to(cr, 10, 22);
      cairo_stroke(cr);
      break;
    case IDI_EXCLAMATION:
      cairo_move_to(cr, c, 2); cairo_line_to(cr, 30.5, 29); cairo_line_to(cr, 1.5, 29);
      cairo_close_path(cr);
      Rgb(cr, 0xF2, 0xC0, 0x1E);
      cairo_fill_preserve(cr);
      Rgb(cr, 0x80, 0x60, 0x00);
      cairo_set_line_width(cr, 1);
      cairo_stroke(cr);
      Rgb(cr, 0, 0, 0);
      Glyph(cr, "!", c, 19, 18);
      break;
    case IDI_QUESTION:
    case IDI_ASTERISK:
      cairo_arc(cr, c, c, 14.5, 0, 2 * M_PI);
      Rgb(cr, 0x1E, 0x5A, 0xC8);
      cairo_fill(cr);
      Rgb(cr, 255, 255, 255);
      Glyph(cr, id == IDI_QUESTION ? "?" : "i", c, c, 20);
      break;
    default:  // the application icon: a window
      Rgb(cr, 255, 255, 255);
      cairo_rectangle(cr, 3.5, 5.5, 25, 21);
      cairo_fill_preserve(cr);
      Rgb(cr, 0x40, 0x40, 0x40);
      cairo_set_line_width(cr, 1);
      cairo_stroke(cr);
      Rgb(cr, 0x1E, 0x5A, 0xC8);
      cairo_rectangle(cr, 4, 6, 24, 5);
      cairo_fill(cr);
      break;
  }
  cairo_restore(cr);
}

}  // namespace

HICON LoadStandardIcon(int id) {
  for (IconObject& icon : g_standard) {
    if (icon.standard == id) return &icon;
  }
  return nullptr;
}

HICON LoadStandardIconByName(const char* text) {
  if (!text) return nullptr;
  struct Named { const char* name; int id; };
  static constexpr Named kNames[] = {
      {"IDI_APPLICATION", IDI_APPLICATION}, {"IDI_HAND", IDI_HAND}, {"IDI_ERROR", IDI_ERROR},
      {"IDI_QUESTION", IDI_QUESTION}, {"IDI_EXCLAMATION", IDI_EXCLAMATION},
      {"IDI_WARNING", IDI_WARNING}, {"IDI_ASTERISK", IDI_ASTERISK},
      {"IDI_INFORMATION", IDI_INFORMATION}};
  for (const Named& n : kNames) {
    if (std::strcmp(text, n.name) == 0) return LoadStandardIcon(n.id);
  }
  const char* digits = text[0] == '#' ? text + 1 : text;
  char* end = nullptr;
  long id = std::strtol(digits, &end, 10);
  if (end == digits || *end != '\0') return nullptr;
  return LoadStandardIcon(static_cast<int>(id));
}

HICON CreateIconFromImage(std::unique_ptr<DeviceImage> image) {
  if (!image) return nullptr;
  return new IconObject{0, std::move(image)};
}

void DestroyIcon(HICON icon) {
  if (icon && icon->standard == 0) delete icon;
}

void DrawIcon(Dc& dc, HICON icon, const Rect& r, bool centre) {
  if (!icon) return;
  int w = icon->image ? icon->image->width() : kIconSize;
  int h = icon->image ? icon->image->height() : kIconSize;
  int x = centre ? r.left + (r.Width() - w) / 2 : r.left;
  int y = centre ? r.top + (r.Height() - h) / 2 : r.top;
  if (icon->image) {
    dc.DrawImage(*icon->image, {x, y, x + w, y + h}, {0, 0, w, h});
    return;
  }
  DrawStandard(dc.cairo(), icon->standard, x, y);
}

}  // namespace qmk::platform::ui::controls
