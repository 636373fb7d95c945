// colour.h: colour words (red in the low byte) and their blends, and the RGB and HLS forms.
#pragma once

#include <cstdint>

namespace qmk::toolkit::bitmap {

constexpr uint32_t RGB(unsigned r, unsigned g, unsigned b) {
  return (r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16);
}
constexpr unsigned GetRValue(uint32_t c) { return c & 0xFF; }
constexpr unsigned GetGValue(uint32_t c) { return (c >> 8) & 0xFF; }
constexpr unsigned GetBValue(uint32_t c) { return (c >> 16) & 0xFF; }

// `part` parts of c1 and the rest of c2, out of 100 when `part` is under 100, else out of 1000.
uint32_t Mix100(uint32_t c1, uint32_t c2, int part);
// `alpha` of 255 parts of c1, the rest of c2; truncated, clamped to 0..255.
uint32_t Mix255(uint32_t c1, uint32_t c2, int alpha);
// Each channel XOR 255; the upper byte is cleared.
uint32_t Invert(uint32_t c);

// Hue, lightness and saturation in 0..1.
struct HLS {
  double h = 0, l = 0, s = 0;
};
HLS RGBtoHLS(uint32_t rgb);
uint32_t HLStoRGB(double h, double l, double s);

// The colour dialogs' form: hue in degrees 0..360, lightness and saturation in 0..1, floats.
struct HLSDegrees {
  float h = 0, l = 0, s = 0;
};
HLSDegrees RGBtoHLSDegrees(uint32_t rgb);
uint32_t HLSDegreesToRGB(float h, float l, float s);

// The change a delta makes to a value in 0..1: towards 1 for positive, towards 0 for negative;
// the result is clamped to 0..1.
double ApplyDelta(double v, double d);

}  // namespace qmk::toolkit::bitmap
