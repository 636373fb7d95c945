// box_model.cpp: box sides from a computed style, rectangle rotation and list marker texts.
#include "toolkit/richcontent/box_model.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

namespace qmk::toolkit::richcontent {
namespace {

RichSides SidesOf(const CExtRichStyleDescription& s, LengthField top, LengthField right,
                  LengthField bottom, LengthField left) {
  auto v = [&](LengthField f) { return std::max(0, s.m_lengths[f]); };
  return {v(left), v(top), v(right), v(bottom)};
}

// List types as stored by the style reader.
enum ListType { kDecimal = 4, kDecimalZero = 5, kLowerAlpha = 6, kLowerLatin = 7, kLowerRoman = 8,
                kUpperAlpha = 9, kUpperLatin = 10, kUpperRoman = 11 };

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

}  // namespace

RichSides MarginOf(const CExtRichStyleDescription& s) {
  return SidesOf(s, kMarginTop, kMarginRight, kMarginBottom, kMarginLeft);
}
RichSides BorderOf(const CExtRichStyleDescription& s) {
  return SidesOf(s, kBorderWidthTop, kBorderWidthRight, kBorderWidthBottom, kBorderWidthLeft);
}
RichSides PaddingOf(const CExtRichStyleDescription& s) {
  return SidesOf(s, kPaddingTop, kPaddingRight, kPaddingBottom, kPaddingLeft);
}

RichSides OuterSidesOf(const CExtRichStyleDescription& s, bool hasBorder) {
  RichSides m = MarginOf(s), p = PaddingOf(s), b = hasBorder ? BorderOf(s) : RichSides{};
  return {m.left + b.left + p.left, m.top + b.top + p.top, m.right + b.right + p.right,
          m.bottom + b.bottom + p.bottom};
}

RichRect Deflate(const RichRect& r, const RichSides& s) {
  RichRect d{r.left + s.left, r.top + s.top, r.right - s.right, r.bottom - s.bottom};
  if (d.right < d.left) d.right = d.left;
  if (d.bottom < d.top) d.bottom = d.top;
  return d;
}

RichRect RotateRect(const RichRect& r, int rotation) {
  switch (rotation) {
    case 90: return {r.bottom, r.left, r.top, r.right};
    case 180: return {r.right, r.bottom, r.left, r.top};
    case 270: return {r.top, r.right, r.bottom, r.left};
    default: return r;
  }
}

std::string RomanNumeral(int n) {
  if (n < 1 || n > 4000) return {};
  static const char* const kThousands[] = {"", "M", "MM", "MMM", "MMMM"};
  static const char* const kHundreds[] = {"", "C", "CC", "CCC", "CD", "D", "DC", "DCC", "DCCC", "CM"};
  static const char* const kTens[] = {"", "X", "XX", "XXX", "XL", "L", "LX", "LXX", "LXXX", "XC"};
  static const char* const kUnits[] = {"", "I", "II", "III", "IV", "V", "VI", "VII", "VIII", "IX"};
  return std::string(kThousands[n / 1000]) + kHundreds[n / 100 % 10] + kTens[n / 10 % 10] + kUnits[n % 10];
}

std::string AlphaNumeral(int n) {
  static const char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string out;
  while (n > 0) {
    --n;
    out.insert(out.begin(), kLetters[n % 26]);
    n /= 26;
  }
  return out;
}

std::string ListMarkerText(int listType, int n, bool fallback) {
  std::string text;
  char buffer[32];
  switch (listType) {
    case kDecimal: std::snprintf(buffer, sizeof buffer, "%d", n); text = buffer; break;
    case kDecimalZero: std::snprintf(buffer, sizeof buffer, "%02d", n); text = buffer; break;
    case kLowerAlpha: case kLowerLatin: text = Lower(AlphaNumeral(n)); break;
    case kUpperAlpha: case kUpperLatin: text = AlphaNumeral(n); break;
    case kLowerRoman: text = Lower(RomanNumeral(n)); break;
    case kUpperRoman: text = RomanNumeral(n); break;
    default: return {};
  }
  if (text.empty() && fallback) {
    std::snprintf(buffer, sizeof buffer, "%d", n);
    text = buffer;
  }
  return text.empty() ? text : text + ".  ";
}

}  // namespace qmk::toolkit::richcontent
