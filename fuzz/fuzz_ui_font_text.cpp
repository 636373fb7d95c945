// fuzz_ui_font_text.cpp: arbitrary bytes as the desktop's font setting and as a caption with
// mnemonics. A font name that reads must give a face and a character height; a caption of any
// bytes must measure and draw without fault, and never draw outside its box.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/draw/draw_target.h"
#include "platform/draw/text.h"
#include "toolkit/theme/ui_font.h"

// The font caches live for the whole process; they go before the leak checker looks at exit.
extern "C" int LLVMFuzzerInitialize(int*, char***) {
  std::atexit([] { qmk::platform::ReleaseFontCaches(); });
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 512) return 0;
  const std::string text(reinterpret_cast<const char*>(data), size);
  qmk::toolkit::theme::LogFont lf;
  const int dpi = size ? 72 + data[0] % 128 : 96;
  if (qmk::toolkit::theme::ParseGtkFontName(text, dpi, lf)) {
    // At most 200 points: the height is bounded by the dpi.
    const int tallest = -qmk::toolkit::theme::MulDiv(2000, dpi, 720);
    if (lf.lfFaceName.empty() || lf.lfHeight >= 0 || lf.lfHeight < tallest) __builtin_trap();
  }
  qmk::platform::FontSpec font;
  const qmk::platform::TextSize measured = qmk::platform::MeasureText(text, font, true);
  if (measured.width < 0 || measured.height < 0) __builtin_trap();
  qmk::platform::DrawTarget dc(64, 24);
  qmk::platform::TextOptions options;
  options.mnemonics = true;
  qmk::platform::DrawText(dc, {8, 4, 40, 20}, text, font, 0x000000, options);
  for (int y = 0; y < 24; ++y)
    for (int x = 0; x < 64; ++x)
      if ((x < 8 || x >= 40 || y < 4 || y >= 20) && (dc.GetPixel(x, y) >> 24) != 0) __builtin_trap();
  return 0;
}
