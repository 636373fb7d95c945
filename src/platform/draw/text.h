// text.h: text on the drawing target: measuring and drawing one line with pango, and the
// question whether a font family is installed.
#pragma once

#include <cstdint>
#include <string>

#include "platform/draw/draw_target.h"

namespace qmk::platform {

// A font as the toolkit asks for it: a family, a character height in device pixels and a weight.
struct FontSpec {
  std::string face = "DejaVu Sans";
  double pixels = 12;  // 9 points at 96 dots per inch
  bool bold = false;
  bool italic = false;
  bool operator==(const FontSpec&) const = default;
};

struct TextSize {
  int width = 0;
  int height = 0;
};

enum class TextAlign { kLeft, kCenter, kRight };

// Options of one DrawText call.
struct TextOptions {
  TextAlign align = TextAlign::kLeft;
  // "&x" underlines x and "&&" stands for one "&", as in control captions.
  bool mnemonics = false;
  bool center_vertically = true;
};

// Text as pango needs it: bytes that are not UTF-8 become replacement characters.
std::string RepairUtf8(const std::string& in);

// Text with its mnemonic marks taken out, and the byte range to underline (-1 when none).
struct MnemonicText {
  std::string text;
  int underline_start = -1;
  int underline_end = -1;
};
// Repairs the UTF-8, then with `mnemonics` takes out the '&' marks: "&&" stays one '&', "&x"
// underlines x (the first such mark only). Without `mnemonics` the text is kept as it is.
MnemonicText StripMnemonics(const std::string& raw, bool mnemonics = true);

// The size of one line of UTF-8 text (invalid bytes are shown as replacement characters).
TextSize MeasureText(const std::string& text, const FontSpec& font, bool mnemonics = false);

// Draws one line in `colour` (red in the low byte), clipped to `box`. False when nothing could be
// drawn: an empty box or text, or a target that failed.
bool DrawText(DrawTarget& target, const DrawRect& box, const std::string& text,
              const FontSpec& font, uint32_t colour, const TextOptions& options = {});

// True when the font map has a family of this name (compared without case).
bool FontFamilyInstalled(const std::string& face);

// Drops the process-wide font map, so that a leak checker sees its fonts go at exit; text drawn
// afterwards builds it again. The caches below it (cairo's, fontconfig's) live on.
void ReleaseFontCaches();

}  // namespace qmk::platform
