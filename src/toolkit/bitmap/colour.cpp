// colour.cpp: colour blends and the RGB and HLS conversions.
#include "toolkit/bitmap/colour.h"

#include <algorithm>
#include <cmath>

namespace qmk::toolkit::bitmap {
namespace {

unsigned Channel(uint32_t c, int i) { return (c >> (8 * i)) & 0xFF; }

double HueChannel(double m1, double m2, double h) {
  if (h < 0) h += 1;
  if (h > 1) h -= 1;
  if (6 * h < 1) return m1 + (m2 - m1) * h * 6;
  if (2 * h < 1) return m2;
  if (3 * h < 2) return m1 + (m2 - m1) * (2.0 / 3.0 - h) * 6;
  return m1;
}

float HueChannelDegrees(float m1, float m2, float h) {
  if (h < 0) h += 360;
  if (h > 360) h -= 360;
  if (h < 60) return m1 + (m2 - m1) * h / 60;
  if (h < 180) return m2;
  if (h < 240) return m1 + (m2 - m1) * (240 - h) / 60;
  return m1;
}

uint8_t ToByte(double v) { return static_cast<uint8_t>(std::clamp(v, 0.0, 1.0) * 255); }

}  // namespace

uint32_t Mix100(uint32_t c1, uint32_t c2, int part) {
  // Themes give thousandths when they need more precision than hundredths, so a part of 100 or
  // more is read on the 1000 scale.
  const long scale = part < 100 ? 100 : 1000;
  uint32_t out = 0;
  for (int i = 0; i < 3; ++i) {
    const long v = (long{Channel(c1, i)} * part + long{Channel(c2, i)} * (scale - part) + scale / 2) / scale;
    out |= static_cast<uint32_t>(std::clamp(v, 0L, 255L)) << (8 * i);
  }
  return out;
}

uint32_t Mix255(uint32_t c1, uint32_t c2, int alpha) {
  uint32_t out = 0;
  for (int i = 0; i < 3; ++i) {
    const long v = (long{Channel(c1, i)} * alpha + long{Channel(c2, i)} * (255 - alpha)) / 255;
    out |= static_cast<uint32_t>(std::clamp(v, 0L, 255L)) << (8 * i);
  }
  return out;
}

uint32_t Invert(uint32_t c) { return (c ^ 0xFFFFFF) & 0xFFFFFF; }

HLS RGBtoHLS(uint32_t rgb) {
  const double r = GetRValue(rgb) / 255.0, g = GetGValue(rgb) / 255.0, b = GetBValue(rgb) / 255.0;
  const double mx = std::max({r, g, b}), mn = std::min({r, g, b});
  HLS out;
  out.l = (mx + mn) / 2;
  if (mx == mn) return out;
  const double d = mx - mn;
  out.s = out.l < 0.5 ? d / (mx + mn) : d / (2 - mx - mn);
  double h;
  if (r == mx)
    h = (g - b) / d;
  else if (g == mx)
    h = 2 + (b - r) / d;
  else
    h = 4 + (r - g) / d;
  h /= 6;
  if (h < 0) h += 1;
  out.h = h;
  return out;
}

uint32_t HLStoRGB(double h, double l, double s) {
  if (s == 0) {
    const uint8_t v = ToByte(l);
    return RGB(v, v, v);
  }
  const double m2 = l <= 0.5 ? l * (1 + s) : l + s - l * s;
  const double m1 = 2 * l - m2;
  return RGB(ToByte(HueChannel(m1, m2, h + 1.0 / 3.0)), ToByte(HueChannel(m1, m2, h)),
             ToByte(HueChannel(m1, m2, h - 1.0 / 3.0)));
}

HLSDegrees RGBtoHLSDegrees(uint32_t rgb) {
  const HLS v = RGBtoHLS(rgb);
  return {static_cast<float>(v.h * 360), static_cast<float>(v.l), static_cast<float>(v.s)};
}

uint32_t HLSDegreesToRGB(float h, float l, float s) {
  auto byte = [](float v) { return static_cast<unsigned>(std::clamp(v, 0.0f, 1.0f) * 255); };
  if (s == 0) return RGB(byte(l), byte(l), byte(l));
  const float m2 = l <= 0.5f ? l * (1 + s) : l + s - l * s;
  const float m1 = 2 * l - m2;
  return RGB(byte(HueChannelDegrees(m1, m2, h + 120)), byte(HueChannelDegrees(m1, m2, h)),
             byte(HueChannelDegrees(m1, m2, h - 120)));
}

double ApplyDelta(double v, double d) {
  if (d > 0) v += d * (1 - v);
  else if (d < 0) v *= 1 + d;
  return std::clamp(v, 0.0, 1.0);
}

}  // namespace qmk::toolkit::bitmap
