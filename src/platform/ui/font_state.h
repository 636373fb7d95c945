// font_state.h: the pango side of font objects, shared by the font and drawing code. Private to
// the window system.
#pragma once

#include <pango/pangocairo.h>

#include <string>

#include "platform/ui/paint.h"

namespace qmk::platform::ui {

struct FontObject {
  LOGFONT lf;
  PangoFontDescription* desc = nullptr;
  bool stock = false;
  TEXTMETRIC metrics;
  bool have_metrics = false;
  Size base_units;
};

// The context every measurement uses: fixed font options (grey antialiasing, no hinting) so that
// sizes and pictures are the same on every machine.
PangoContext* MeasureContext();
// Applies the same options to a layout drawn on a cairo context.
void PrepareLayoutContext(cairo_t* cr, PangoLayout* layout);
// Text as pango needs it: bytes that are not UTF-8 become replacement characters.
std::string ValidUtf8(const std::string& text);
// Returns the font, or the stock font for null or a deleted one.
FontObject* Resolve(HFONT font);

}  // namespace qmk::platform::ui
