// lengths.cpp: length texts to device pixels, by unit, with the engine's rounding.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

int g_dpiX = 96, g_dpiY = 96;

enum class Unit { kPx, kPt, kCm, kEm, kQem, kPercent, kIn, kMm, kEx, kPc, kNone };

struct UnitName {
  const char* text;
  Unit unit;
};
// The order of the search: the first substring found decides, so "3pxem" is pixels.
constexpr UnitName kUnits[] = {{"px", Unit::kPx}, {"pt", Unit::kPt}, {"cm", Unit::kCm},
                               {"em", Unit::kEm}, {"__qem", Unit::kQem}, {"%", Unit::kPercent},
                               {"in", Unit::kIn}, {"mm", Unit::kMm}, {"ex", Unit::kEx},
                               {"pc", Unit::kPc}};

int Truncate(double v) { return static_cast<int>(std::clamp(v, -1.0e9, 1.0e9)); }

}  // namespace

void SetDisplayDpi(int horizontal, int vertical) {
  g_dpiX = horizontal > 0 ? horizontal : 96;
  g_dpiY = vertical > 0 ? vertical : 96;
}

int DisplayDpi(bool horizontal) { return horizontal ? g_dpiX : g_dpiY; }

int RoundLength(double x) {
  x = std::clamp(x, -1.0e9, 1.0e9);
  const double up = std::ceil(x);
  return static_cast<int>(1.0 - (up - x) >= 0.5 ? up : std::floor(x));
}

int ResolveLength(const char* text, bool horizontal, const CExtRichFontDescription* fontRef,
                  int defaultValue, double* outPercent, bool* outIsPercent, bool* outIsPlainNumber,
                  bool allowNegative) {
  if (outPercent) *outPercent = 0.0;
  if (outIsPercent) *outIsPercent = false;
  if (outIsPlainNumber) *outIsPlainNumber = false;
  if (!text || !*text) return defaultValue;
  const std::string s(text);
  const std::string_view trimmed = Trim(s);
  if (EqualsNoCase(trimmed, "thin") || EqualsNoCase(trimmed, "medium") || EqualsNoCase(trimmed, "thick"))
    return defaultValue;

  Unit unit = Unit::kNone;
  size_t at = s.size();
  for (const UnitName& u : kUnits) {
    const size_t found = s.find(u.text);
    if (found != std::string::npos) {
      unit = u.unit;
      at = found;
      break;
    }
  }
  const double v = std::strtod(std::string(Trim(std::string_view(s).substr(0, at))).c_str(), nullptr);
  const double dpi = DisplayDpi(horizontal);
  const double h = fontRef ? std::abs(static_cast<double>(fontRef->lfHeight)) : 0.0;
  int result = 0;
  switch (unit) {
    case Unit::kPx:
      return Truncate(v);  // the only unit returned as it is, negative included
    case Unit::kPt: result = RoundLength(dpi * (v * 0.35146 / 25.4)); break;
    case Unit::kCm: result = RoundLength(dpi * v / 2.54); break;
    case Unit::kIn: result = RoundLength(dpi * v); break;
    case Unit::kMm: result = RoundLength(dpi * v / 2.54 / 10); break;
    case Unit::kPc: result = RoundLength(dpi * (v * 12 * 0.35146 / 25.4)); break;
    case Unit::kEm:
    case Unit::kQem: result = RoundLength(h * v); break;
    case Unit::kEx: result = Truncate(v); break;  // one ex is one pixel: no font metric is used
    case Unit::kPercent:
      // `allowNegative` only lets a negative fraction through; the pixels of a negative percent
      // are the default like those of every unit but "px".
      if (outIsPercent) *outIsPercent = true;
      if (v < 0 && !allowNegative) {
        if (outPercent) *outPercent = defaultValue / 100.0;
        return defaultValue;
      }
      if (outPercent) *outPercent = v / 100.0;
      result = RoundLength(h * v / 100);
      break;
    case Unit::kNone:
      if (outIsPlainNumber) *outIsPlainNumber = true;
      result = Truncate(v);
      break;
  }
  return result < 0 ? defaultValue : result;
}

}  // namespace qmk::toolkit::richcontent
