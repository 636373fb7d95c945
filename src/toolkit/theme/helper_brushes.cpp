// helper_brushes.cpp: the six shaded brushes between button face, highlight and shadow,
// recomputed at each colour change; dithered patterns on palette displays.
#include <cstdint>

#include "toolkit/bitmap/colour.h"
#include "toolkit/theme/paint_manager.h"
#include "toolkit/theme/system_colors.h"

namespace qmk::toolkit::theme {
namespace {

// One brush: a step of `num`/`den` from the first colour of a pair to the second; `checks` is
// the size of the dither squares used on palette displays.
struct BrushStep {
  bool from_shadow;  // shadow towards face; else face towards highlight
  int num, den;
  int checks;
};
constexpr BrushStep kBrushSteps[6] = {
    {false, 1, 2, 1}, {false, 3, 5, 2}, {false, 4, 5, 2},
    {true, 1, 2, 1},  {true, 2, 5, 2},  {true, 1, 5, 2},
};

uint32_t Step(uint32_t from, uint32_t to, int num, int den) {
  auto channel = [&](int shift) {
    const int a = static_cast<int>((from >> shift) & 0xFF);
    const int b = static_cast<int>((to >> shift) & 0xFF);
    return static_cast<uint32_t>(a + MulDiv(b - a, num, den)) << shift;
  };
  return channel(0) | channel(8) | channel(16);
}

HelperBrush MakeBrush(const BrushStep& s, uint32_t face, uint32_t hi, uint32_t shadow, bool dither) {
  const uint32_t from = s.from_shadow ? shadow : face;
  const uint32_t to = s.from_shadow ? face : hi;
  HelperBrush brush;
  brush.color = Step(from, to, s.num, s.den);
  if (!dither) return brush;
  // Palette displays can't show the blend: alternate the two colours in squares instead.
  brush.pattern = true;
  for (int y = 0; y < 16; ++y)
    for (int x = 0; x < 16; ++x)
      brush.pixels[y * 16 + x] = ((x / s.checks + y / s.checks) % 2) ? to : from;
  return brush;
}

}  // namespace

void CExtPaintManager::InitHelperBrushes() {
  const bool dither = m_nColorDepth <= 8;
  const uint32_t face = GetColor(COLOR_BTNFACE), hi = GetColor(COLOR_BTNHIGHLIGHT);
  const uint32_t shadow = GetColor(COLOR_BTNSHADOW);
  const SystemColorTable sys = QuerySystemColors();
  for (int i = 0; i < 6; ++i) {
    m_brushes[i] = MakeBrush(kBrushSteps[i], face, hi, shadow, dither);
    m_systemBrushes[i] = MakeBrush(kBrushSteps[i], sys[COLOR_BTNFACE], sys[COLOR_BTNHIGHLIGHT],
                                   sys[COLOR_BTNSHADOW], dither);
  }
}

}  // namespace qmk::toolkit::theme
