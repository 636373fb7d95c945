// properties.cpp: PropertyTable, the handlers of style declarations with their keyword tables,
// which write declared values into a style rule.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/readers.h"
#include "toolkit/richcontent/resolve.h"

namespace qmk::toolkit::richcontent {
namespace {

// What a handler works with: the item (or rule item), the declaration and its value tokens.
struct Declaration {
  CExtRichContentItem& item;
  CExtRichContentItem& declaration;
  CExtRichStyleRule& rule;
  const CExtRichStyleDescription& parent;

  size_t Count() const { return declaration.m_children.size(); }
  const std::string& Value(size_t i) const { return declaration.m_children[i]->m_strName; }
  const CExtRichFontDescription* Font() const { return &parent.m_font; }
};

using Handler = std::function<void(Declaration&)>;

struct Keyword {
  std::string_view word;
  int value;
};
using Keywords = std::vector<Keyword>;

constexpr int kKeep = -32762;  // an unknown keyword leaves the field as it was

bool IsInherit(std::string_view v) { return EqualsNoCase(v, "inherit"); }

std::optional<int> Lookup(const Keywords& words, std::string_view v) {
  for (const Keyword& k : words)
    if (EqualsNoCase(k.word, v)) return k.value;
  return std::nullopt;
}

// Lengths start with a digit, a sign or a point; colour and keyword tokens don't.
bool LooksNumeric(std::string_view v) {
  return !v.empty() && (std::isdigit(static_cast<unsigned char>(v[0])) || v[0] == '-' || v[0] == '+' || v[0] == '.');
}

bool IsUrl(std::string_view v) { return v.size() >= 4 && EqualsNoCase(v.substr(0, 4), "url("); }

// The text inside url(...), trimmed of blanks and quotes.
std::string UrlText(std::string_view v) {
  v.remove_prefix(4);
  if (!v.empty() && v.back() == ')') v.remove_suffix(1);
  return std::string(Trim(v, " \t\r\n'\""));
}

void TakeParentEnum(Declaration& d, EnumField f) {
  const int inherit = InfoOf(f).inherit;
  d.rule.DeclareEnum(f, inherit != kNoValue ? inherit : d.parent.m_enums[f]);
}

// A keyword of `words` into an enum field; true when the value was taken.
bool ReadEnum(Declaration& d, EnumField f, const Keywords& words, std::string_view v, int unknown = kKeep) {
  if (IsInherit(v)) {
    TakeParentEnum(d, f);
    return true;
  }
  if (const std::optional<int> k = Lookup(words, v)) {
    d.rule.DeclareEnum(f, *k);
    return true;
  }
  if (unknown != kKeep) d.rule.m_enums[f] = unknown;
  return false;
}

Handler EnumHandler(EnumField f, Keywords words, int unknown = kKeep) {
  return [f, words = std::move(words), unknown](Declaration& d) {
    if (d.Count() == 1) ReadEnum(d, f, words, d.Value(0), unknown);
  };
}

// ---- keyword tables ----

const Keywords kBooleanWords = {{"yes", 2}, {"true", 2}, {"1", 2}, {"no", 1}, {"not", 1}, {"false", 1}, {"0", 1}};
const Keywords kBorderStyles = {{"none", 0}, {"dotted", 1}, {"dashed", 2}, {"solid", 3}, {"double", 4},
                                {"groove", 5}, {"ridge", 6}, {"inset", 7}, {"outset", 8}};
const Keywords kBorderWidths = {{"thin", 3}, {"medium", 5}, {"thick", 7}};
const Keywords kListTypes = {{"none", 0}, {"circle", 1}, {"disc", 2}, {"square", 3}, {"decimal", 4},
                             {"decimal-leading-zero", 5}, {"lower-alpha", 6}, {"lower-latin", 7},
                             {"lower-roman", 8}, {"upper-alpha", 9}, {"upper-latin", 10},
                             {"upper-roman", 11}};
const Keywords kListPositions = {{"inside", 0}, {"outside", 1}};
const Keywords kRepeats = {{"repeat", 0}, {"repeat-x", 1}, {"repeat-y", 2}, {"no-repeat", 3}};
const Keywords kAttachments = {{"scroll", 0}, {"fixed", 1}};
const Keywords kDrawMethods = {{"hollow", 0}, {"center", 1}, {"stretch", 2}, {"tile-horizontally", 3},
                               {"tile-vertically", 4}, {"tile", 5}};
const Keywords kFontSizes = {{"xx-small", 9}, {"x-small", 10}, {"small", 13}, {"medium", 16},
                             {"large", 18}, {"x-large", 24}, {"xx-large", 32}};
const Keywords kSystemFonts = {{"caption", 0}, {"icon", 0}, {"menu", 0}, {"message-box", 0},
                               {"small-caption", 0}, {"status-bar", 0}};

// The face of the toolkit's default font, taken by the system font keywords.
const char* DefaultFace() {
  static const CExtRichFontDescription font;
  return font.lfFaceName;
}

// ---- lengths ----

int Length(Declaration& d, const std::string& v, int fallback, bool allowNegative = true,
           double* percent = nullptr, bool* isPercent = nullptr, bool* isPlain = nullptr) {
  return ResolveLength(v.c_str(), true, d.Font(), fallback, percent, isPercent, isPlain, allowNegative);
}

// A length with its percent form, or "auto" (left, top, right, bottom).
void ReadOffset(Declaration& d, LengthField f) {
  if (d.Count() != 1) return;
  const std::string& v = d.Value(0);
  if (IsInherit(v)) {
    d.rule.m_lengths[f] = d.parent.m_lengths[f];
    d.rule.m_percents[f] = d.parent.m_percents[f];
    return;
  }
  if (EqualsNoCase(v, "auto")) {
    d.rule.m_lengths[f] = kAutoLength;
    d.rule.m_percents[f] = -1.0f;
    return;
  }
  double percent = 0;
  bool isPercent = false;
  d.rule.m_lengths[f] = Length(d, v, d.rule.m_lengths[f], true, &percent, &isPercent);
  d.rule.m_percents[f] = isPercent ? static_cast<float>(percent * 100) : -1.0f;
}

// A width of a border or the outline: a keyword, a length, or "inherit".
bool ReadWidth(Declaration& d, LengthField f, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_lengths[f] = d.parent.m_lengths[f];
    return true;
  }
  if (const std::optional<int> k = Lookup(kBorderWidths, v)) {
    d.rule.m_lengths[f] = *k;
    return true;
  }
  if (!LooksNumeric(v)) return false;
  const int px = Length(d, v, kNoValue, false);
  if (px == kNoValue) return false;
  d.rule.m_lengths[f] = px;
  return true;
}

bool ReadColor(Declaration& d, ColorField f, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_colors[f] = d.parent.m_colors[f];
    return true;
  }
  const int32_t c = ResolveColor(v, -1);
  if (c == -1) return false;
  d.rule.m_colors[f] = c;
  return true;
}

bool ReadBorderStyle(Declaration& d, EnumField f, const std::string& v) {
  return ReadEnum(d, f, kBorderStyles, v);
}

// One to four values spread over top, right, bottom, left as "margin" does.
template <typename ReadSide>
void FourSides(Declaration& d, ReadSide read) {
  const size_t n = d.Count();
  if (n < 1 || n > 4) return;
  const size_t pick[4][4] = {{0, 0, 0, 0}, {0, 1, 0, 1}, {0, 1, 2, 1}, {0, 1, 2, 3}};
  for (int side = 0; side < 4; ++side) read(side, d.Value(pick[n - 1][side]));
}

Handler BoxHandler(LengthField top, bool clampNegative, bool withAuto) {
  return [=](Declaration& d) {
    FourSides(d, [&](int side, const std::string& v) {
      const LengthField f = static_cast<LengthField>(top + side);
      if (IsInherit(v)) {
        d.rule.m_lengths[f] = d.parent.m_lengths[f];
        return;
      }
      if (withAuto && EqualsNoCase(v, "auto")) {
        d.rule.m_lengths[kMarginAutoTop + side] = 1;
        d.rule.m_lengths[f] = 0;
        return;
      }
      const int px = Length(d, v, d.rule.m_lengths[f]);
      d.rule.m_lengths[f] = clampNegative && px < 0 ? 0 : px;
    });
  };
}

Handler SideLengthHandler(LengthField f, bool allowNegative, bool withAuto) {
  return [=](Declaration& d) {
    if (d.Count() != 1) return;
    const std::string& v = d.Value(0);
    if (IsInherit(v)) {
      d.rule.m_lengths[f] = d.parent.m_lengths[f];
    } else if (withAuto && EqualsNoCase(v, "auto")) {
      d.rule.m_lengths[kMarginAutoTop + (f - kMarginTop)] = 1;
    } else {
      d.rule.m_lengths[f] = Length(d, v, d.rule.m_lengths[f], allowNegative);
    }
  };
}

// Width, style and colour tokens for the given sides.
void ReadBorderTokens(Declaration& d, int firstSide, int lastSide) {
  for (size_t i = 0; i < d.Count(); ++i) {
    const std::string& v = d.Value(i);
    for (int side = firstSide; side <= lastSide; ++side) {
      const auto widthField = static_cast<LengthField>(kBorderWidthTop + side);
      const auto styleField = static_cast<EnumField>(kBorderStyleTop + side);
      const auto colorField = static_cast<ColorField>(kBorderColorTop + side);
      if (IsInherit(v)) {
        d.rule.m_lengths[widthField] = d.parent.m_lengths[widthField];
        d.rule.m_enums[styleField] = d.parent.m_enums[styleField];
        d.rule.m_colors[colorField] = d.parent.m_colors[colorField];
        continue;
      }
      if (Lookup(kBorderStyles, v)) ReadBorderStyle(d, styleField, v);
      else if (!ReadWidth(d, widthField, v)) ReadColor(d, colorField, v);
    }
  }
}

// ---- fonts ----

bool ReadFontStyle(Declaration& d, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_nItalic = d.parent.m_font.lfItalic ? 1 : -1;
    return true;
  }
  if (EqualsNoCase(v, "italic") || EqualsNoCase(v, "oblique")) {
    d.rule.m_nItalic = 1;
    return true;
  }
  if (EqualsNoCase(v, "normal")) {
    d.rule.m_nItalic = -1;
    return true;
  }
  return false;
}

bool ReadFontWeight(Declaration& d, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_nWeightAbsolute = d.parent.m_font.lfWeight;
    return true;
  }
  if (EqualsNoCase(v, "normal")) d.rule.m_nWeightAbsolute = 400;
  else if (EqualsNoCase(v, "bold")) d.rule.m_nWeightAbsolute = 700;
  else if (EqualsNoCase(v, "lighter")) d.rule.m_nWeightRelative = -300;
  else if (EqualsNoCase(v, "bolder")) d.rule.m_nWeightRelative = 300;
  else {
    char* end = nullptr;
    const long n = std::labs(std::clamp(std::strtol(v.c_str(), &end, 10), -100000L, 100000L));
    if (n == 0 || end == v.c_str() || *end != '\0') return false;
    d.rule.m_nWeightAbsolute = static_cast<int>(n);
  }
  return true;
}

bool ReadFontSize(Declaration& d, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_nFontSizePx = std::abs(d.parent.m_font.lfHeight);
    return true;
  }
  if (const std::optional<int> k = Lookup(kFontSizes, v)) {
    d.rule.m_nFontSizePx = *k;
    return true;
  }
  if (EqualsNoCase(v, "smaller")) {
    d.rule.m_lfSizeFactor = 0.75;
    return true;
  }
  if (EqualsNoCase(v, "larger")) {
    d.rule.m_lfSizeFactor = 1.25;
    return true;
  }
  double percent = 0;
  bool isPercent = false;
  const int px = Length(d, v, 0, false, &percent, &isPercent);
  if (isPercent) {
    if (percent <= 0) return false;
    d.rule.m_lfSizeFactor = percent;
    return true;
  }
  if (px <= 0) return false;
  d.rule.m_nFontSizePx = px;
  return true;
}

// `font` is the font whose height a plain number multiplies (and an "em" measures).
bool ReadLineHeight(Declaration& d, const std::string& v, const CExtRichFontDescription& font) {
  if (IsInherit(v)) {
    d.rule.m_lfLineHeightFactor = d.parent.m_lfLineHeightFactor;
    d.rule.m_nLineHeight = d.parent.m_nLineHeight;
    return true;
  }
  if (EqualsNoCase(v, "normal")) {
    d.rule.m_lfLineHeightFactor = 1.0;
    return true;
  }
  double percent = 0;
  bool isPercent = false, isPlain = false;
  const int px = ResolveLength(v.c_str(), true, &font, -1, &percent, &isPercent, &isPlain, false);
  if (isPercent) {
    d.rule.m_lfLineHeightFactor = percent;
  } else if (isPlain) {
    // A plain number is a multiple of the font height.
    const double factor = std::clamp(std::strtod(v.c_str(), nullptr), -1.0e6, 1.0e6);
    d.rule.m_nLineHeight = static_cast<int>(std::fabs(factor * std::abs(font.lfHeight)));
  } else if (px >= 0) {
    d.rule.m_nLineHeight = px;
  } else {
    return false;
  }
  return true;
}

bool ReadFamily(Declaration& d, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_strFace = d.parent.m_font.lfFaceName;
    return true;
  }
  d.rule.m_strFace = Lookup(kSystemFonts, v) ? std::string(DefaultFace()) : v;
  return true;
}

void FontShorthand(Declaration& d) {
  if (d.Count() == 1 && Lookup(kSystemFonts, d.Value(0))) {
    d.rule.m_strFace = DefaultFace();
    return;
  }
  // style, weight, size with an optional "/" line height, then the family.
  size_t i = 0;
  for (; i < d.Count(); ++i) {
    const std::string& v = d.Value(i);
    if (EqualsNoCase(v, "normal") || ReadFontStyle(d, v)) continue;
    if (ReadFontWeight(d, v)) continue;
    const size_t slash = v.find('/');
    if (ReadFontSize(d, v.substr(0, slash))) {
      if (slash != std::string::npos) {
        // "20px/2" is twice the 20 pixels given here, not twice the parent's font.
        CExtRichFontDescription sized = d.parent.m_font;
        ComputeFont(sized, d.rule);
        ReadLineHeight(d, v.substr(slash + 1), sized);
      }
      ++i;
      break;
    }
    break;
  }
  std::string family;
  for (; i < d.Count(); ++i) family += (family.empty() ? "" : " ") + d.Value(i);
  if (!family.empty()) ReadFamily(d, family);
}

// ---- lists, outlines and backgrounds: tokens tried on the first component not yet filled ----

void ListStyleShorthand(Declaration& d) {
  if (d.Count() < 1 || d.Count() > 3) return;
  bool image = false, position = false, type = false;
  for (size_t i = 0; i < d.Count(); ++i) {
    const std::string& v = d.Value(i);
    if (!image && (IsUrl(v) || EqualsNoCase(v, "none"))) {
      d.rule.m_strings[kListImage] = IsUrl(v) ? UrlText(v) : "none";
      image = true;
      continue;
    }
    if (!position && ReadEnum(d, kListPosition, kListPositions, v)) {
      position = true;
      continue;
    }
    if (!type && ReadEnum(d, kListType, kListTypes, v)) type = true;
  }
}

void OutlineShorthand(Declaration& d) {
  if (d.Count() < 1 || d.Count() > 3) return;
  bool color = false, style = false, width = false;
  for (size_t i = 0; i < d.Count(); ++i) {
    const std::string& v = d.Value(i);
    if (!color && (EqualsNoCase(v, "invert") || ReadColor(d, kColorOutline, v))) {
      if (EqualsNoCase(v, "invert")) d.rule.m_colors[kColorOutline] = -3;
      color = true;
    } else if (!style && ReadEnum(d, kOutlineStyle, kBorderStyles, v)) {
      style = true;
    } else if (!width && ReadWidth(d, kOutlineWidth, v)) {
      width = true;
    }
  }
}

bool ReadPosition(Declaration& d, const std::string& v, bool& xSet, bool& ySet) {
  static const Keywords kHorizontal = {{"left", 0}, {"center", 50}, {"right", 100}};
  static const Keywords kVertical = {{"top", 0}, {"bottom", 100}};
  auto set = [&](LengthField f, int px, float percent) {
    d.rule.m_lengths[f] = px;
    d.rule.m_percents[f] = percent;
  };
  if (const std::optional<int> x = Lookup(kHorizontal, v); x && !(xSet && *x == 50)) {
    set(xSet ? kBackgroundPositionY : kBackgroundPositionX, 0, static_cast<float>(*x));
    (xSet ? ySet : xSet) = true;
    return true;
  }
  if (const std::optional<int> y = Lookup(kVertical, v)) {
    set(kBackgroundPositionY, 0, static_cast<float>(*y));
    ySet = true;
    return true;
  }
  if (!LooksNumeric(v)) return false;
  double percent = 0;
  bool isPercent = false;
  const int px = Length(d, v, kNoValue, true, &percent, &isPercent);
  if (px == kNoValue) return false;
  set(xSet ? kBackgroundPositionY : kBackgroundPositionX, px, isPercent ? static_cast<float>(percent * 100) : -1.0f);
  (xSet ? ySet : xSet) = true;
  return true;
}

void BackgroundPosition(Declaration& d) {
  if (d.Count() < 1 || d.Count() > 2) return;
  const CExtRichStyleRule saved = d.rule;
  bool xSet = false, ySet = false;
  for (size_t i = 0; i < d.Count(); ++i) {
    if (IsInherit(d.Value(i))) {
      for (LengthField f : {kBackgroundPositionX, kBackgroundPositionY}) {
        d.rule.m_lengths[f] = d.parent.m_lengths[f];
        d.rule.m_percents[f] = d.parent.m_percents[f];
      }
      return;
    }
    if (!ReadPosition(d, d.Value(i), xSet, ySet)) {
      d.rule = saved;
      return;
    }
  }
}

bool ReadBackgroundImage(Declaration& d, const std::string& v) {
  if (IsInherit(v)) {
    d.rule.m_strings[kBackgroundImage] = d.parent.m_strings[kBackgroundImage];
    return true;
  }
  if (EqualsNoCase(v, "none")) {
    d.rule.m_strings[kBackgroundImage] = "none";
    return true;
  }
  if (!IsUrl(v)) return false;
  d.rule.m_strings[kBackgroundImage] = UrlText(v);
  return true;
}

void BackgroundShorthand(Declaration& d) {
  if (d.Count() < 1 || d.Count() > 6) return;
  // A failed position restores the whole background state as it was before.
  const CExtRichStyleRule saved = d.rule;
  enum { kColor, kImage, kRepeat, kAttachment, kPosition } next = kColor;
  bool xSet = false, ySet = false;
  int positions = 0;
  for (size_t i = 0; i < d.Count(); ++i) {
    const std::string& v = d.Value(i);
    if (next <= kColor && ReadColor(d, kColorBackground, v)) {
      next = kImage;
    } else if (next <= kImage && ReadBackgroundImage(d, v)) {
      next = kRepeat;
    } else if (next <= kRepeat && ReadEnum(d, kBackgroundRepeat, kRepeats, v)) {
      next = kAttachment;
    } else if (next <= kAttachment && ReadEnum(d, kBackgroundAttachment, kAttachments, v)) {
      next = kPosition;
    } else {
      next = kPosition;
      if (++positions > 2 || !ReadPosition(d, v, xSet, ySet)) {
        d.rule = saved;
        return;
      }
    }
  }
}

// ---- the rest ----

void ReadZIndex(Declaration& d) {
  if (d.Count() != 1) return;
  const std::string& v = d.Value(0);
  if (EqualsNoCase(v, "auto")) {
    d.rule.m_enums[kZIndexState] = 0;
  } else if (IsInherit(v)) {
    d.rule.m_enums[kZIndexState] = 1;
  } else {
    char* end = nullptr;
    const long n = std::strtol(v.c_str(), &end, 10);
    // Zero or a length is "auto".
    const bool integer = end && *end == '\0' && n != 0;
    d.rule.m_enums[kZIndexState] = integer ? 2 : 0;
    if (integer) d.rule.m_lengths[kZIndex] = static_cast<int>(std::clamp(n, -1000000000L, 1000000000L));
  }
}

void ReadClip(Declaration& d) {
  if (d.Count() != 1) return;
  const std::string& v = d.Value(0);
  if (EqualsNoCase(v, "auto")) {
    d.rule.m_enums[kClip] = 0;
    return;
  }
  if (IsInherit(v)) {
    d.rule.m_enums[kClip] = 2;
    return;
  }
  if (v.size() < 5 || !EqualsNoCase(v.substr(0, 5), "rect(")) return;
  const std::string inner = v.substr(5, v.find(')') == std::string::npos ? std::string::npos : v.find(')') - 5);
  const std::vector<std::string> parts = SplitFontFamilyValue(inner);
  if (parts.size() != 4) return;
  d.rule.m_enums[kClip] = 3;
  for (int side = 0; side < 4; ++side) {
    bool plain = false;
    const int px = Length(d, parts[side], -1, true, nullptr, nullptr, &plain);
    if (plain) {
      // A plain number in any place resets the whole rectangle.
      for (int s = 0; s < 4; ++s) d.rule.m_lengths[kClipTop + s] = -1;
      return;
    }
    d.rule.m_lengths[kClipTop + side] = px;
  }
}

void ReadCursor(Declaration& d) {
  static const Keywords kCursors = {
      {"auto", 0}, {"crosshair", 2}, {"default", 3}, {"e-resize", 4}, {"help", 5}, {"move", 6},
      {"n-resize", 7}, {"ne-resize", 8}, {"nw-resize", 9}, {"pointer", 10}, {"progress", 11},
      {"s-resize", 12}, {"se-resize", 13}, {"sw-resize", 14}, {"text", 15}, {"w-resize", 16},
      {"wait", 17}};
  if (d.Count() != 1) return;
  const std::string& v = d.Value(0);
  if (IsUrl(v)) {
    d.rule.m_enums[kCursor] = 1;
    d.rule.m_strings[kCursorUrl] = UrlText(v);
    return;
  }
  ReadEnum(d, kCursor, kCursors, v);
}

void ReadBorderSpacing(Declaration& d) {
  if (d.Count() < 1 || d.Count() > 2) return;
  if (IsInherit(d.Value(0))) {
    d.rule.m_lengths[kBorderSpacingX] = d.parent.m_lengths[kBorderSpacingX];
    d.rule.m_lengths[kBorderSpacingY] = d.parent.m_lengths[kBorderSpacingY];
    return;
  }
  int values[2] = {0, 0};
  for (size_t i = 0; i < d.Count(); ++i) {
    bool plain = false;
    values[i] = Length(d, d.Value(i), 0, false, nullptr, nullptr, &plain);
    if (plain) values[i] = static_cast<int>(std::clamp(std::atol(d.Value(i).c_str()), -1000000L, 1000000L));
  }
  d.rule.m_lengths[kBorderSpacingX] = values[0];
  d.rule.m_lengths[kBorderSpacingY] = d.Count() == 2 ? values[1] : values[0];
}

void ReadQuotes(Declaration& d) {
  if (d.Count() == 1 && EqualsNoCase(d.Value(0), "none")) {
    d.rule.m_quotes.clear();
    d.rule.m_bQuotesSet = true;
    return;
  }
  if (d.Count() == 1 && IsInherit(d.Value(0))) {
    d.rule.m_quotes = d.parent.m_quotes;
    d.rule.m_bQuotesSet = true;
    return;
  }
  if (d.Count() < 2 || d.Count() % 2) return;
  d.rule.m_quotes.clear();
  for (size_t i = 0; i + 1 < d.Count(); i += 2) d.rule.m_quotes.push_back({d.Value(i), d.Value(i + 1)});
  d.rule.m_bQuotesSet = true;
}

void ReadTextDecoration(Declaration& d) {
  for (size_t i = 0; i < d.Count(); ++i) {
    const std::string& v = d.Value(i);
    if (EqualsNoCase(v, "none")) {
      d.rule.m_nUnderline = d.rule.m_nStrike = -1;
    } else if (EqualsNoCase(v, "underline")) {
      d.rule.m_nUnderline = 1;
    } else if (EqualsNoCase(v, "line-through")) {
      d.rule.m_nStrike = 1;
    }
  }
}

void ReadContent(Declaration& d) {
  if (d.Count() != 1) return;
  // The rule's key text tells which pseudo element the text is for.
  const std::string& key = d.item.m_strName;
  const StringField slot = key.find(":before") != std::string::npos ? kContentBefore
                           : key.find(":after") != std::string::npos ? kContentAfter
                                                                     : kContent;
  d.rule.m_strings[slot] = d.Value(0);
}

void ReadStringProperty(Declaration& d, StringField f, bool lower) {
  std::string text;
  for (size_t i = 0; i < d.Count(); ++i) text += (i ? " " : "") + d.Value(i);
  if (text.empty()) return;
  if (IsInherit(text)) {
    d.rule.m_strings[f] = d.parent.m_strings[f];
    return;
  }
  d.rule.m_strings[f] = lower ? ToLower(text) : text;
}

void ReadTransparency(Declaration& d, LengthField f) {
  if (d.Count() != 1) return;
  const std::string& v = d.Value(0);
  if (const std::optional<int> k = Lookup(kBorderWidths, v)) {
    d.rule.m_lengths[f] = *k;
    return;
  }
  double percent = 0;
  bool isPercent = false;
  const int px = Length(d, v, kNoValue, false, &percent, &isPercent);
  if (isPercent) {
    d.rule.m_percents[f] = static_cast<float>(std::clamp(percent * 100, 0.0, 100.0));
  } else if (px != kNoValue) {
    d.rule.m_lengths[f] = px;
  }
}

const std::unordered_map<std::string, Handler>& PropertyTable();

}  // namespace

void ReadMinMax(CExtRichStyleRule& rule, LengthField f, const std::string& v,
                const CExtRichStyleDescription& parent) {
  if (v.empty()) return;
  if (IsInherit(v)) {
    rule.m_lengths[f] = parent.m_lengths[f];
    rule.m_percents[f] = parent.m_percents[f];
    return;
  }
  if (EqualsNoCase(v, "none")) {
    if (f == kMaxWidth || f == kMaxHeight) rule.m_lengths[f] = -1;
    return;
  }
  double percent = 0;
  bool isPercent = false, isPlain = false;
  const int px = ResolveLength(v.c_str(), true, &parent.m_font, rule.m_lengths[f], &percent, &isPercent, &isPlain, false);
  if (isPercent) {
    rule.m_percents[f] = static_cast<float>(std::clamp(percent * 100, 0.0, 100.0));
  } else if (isPlain) {
    rule.m_lengths[f] = static_cast<int>(std::labs(std::clamp(std::atol(v.c_str()), -1000000000L, 1000000000L)));
  } else {
    rule.m_lengths[f] = px;
  }
}

void ReadSizeWithPercent(CExtRichStyleRule& rule, LengthField f, const std::string& v,
                         const CExtRichStyleDescription& parent) {
  if (v.empty()) return;
  if (IsInherit(v)) {
    rule.m_lengths[f] = parent.m_lengths[f];
    rule.m_percents[f] = parent.m_percents[f];
    return;
  }
  if (EqualsNoCase(v, "auto")) {
    rule.m_lengths[f] = kAutoLength;
    rule.m_percents[f] = -1.0f;
    return;
  }
  double percent = 0;
  bool isPercent = false;
  const int px = ResolveLength(v.c_str(), f == kWidth, &parent.m_font, rule.m_lengths[f], &percent, &isPercent, nullptr, false);
  if (isPercent) {
    // The percent is kept as a whole number in 0..100, and its pixel form the same way.
    rule.m_percents[f] = static_cast<float>(std::clamp(static_cast<int>(std::lround(std::clamp(percent * 100, -1e6, 1e6))), 0, 100));
    rule.m_lengths[f] = std::clamp(px, 0, 100);
  } else {
    rule.m_lengths[f] = px;
    rule.m_percents[f] = -1.0f;
  }
}

namespace {

void AddEnumProperties(std::unordered_map<std::string, Handler>& t) {
  t["visibility"] = EnumHandler(kVisibility, {{"visible", 0}, {"hidden", 1}, {"collapse", 2}});
  t["display"] = EnumHandler(kDisplay, {{"none", 0}, {"block", 1}, {"inline", 2}, {"inline-block", 3},
      {"inline-table", 4}, {"list-item", 5}, {"run-in", 6}, {"table", 7}, {"table-caption", 8},
      {"table-cell", 9}, {"table-column", 10}, {"table-column-group", 11},
      {"table-footer-group", 12}, {"table-header-group", 13}, {"table-row", 14},
      {"table-row-group", 15}, {"ui-dock", 16}});
  // Anything past "pre-right" that is not a fill word resets the side to 0.
  t["ui-dock"] = EnumHandler(kDockPosition, {{"top", 1}, {"pre-top", 2}, {"bottom", 3}, {"pre-bottom", 4},
      {"left", 5}, {"pre-left", 6}, {"right", 7}, {"pre-right", 8}, {"fill", 9}, {"pre-fill", 10}}, 0);
  t["table-layout"] = EnumHandler(kTableLayout, {{"auto", 0}, {"fixed", 1}});
  t["empty-cells"] = EnumHandler(kEmptyCells, {{"hide", 0}, {"show", 1}});
  t["caption-side"] = EnumHandler(kCaptionSide, {{"top", 0}, {"bottom", 1}});
  t["border-collapse"] = EnumHandler(kBorderCollapse, {{"collapse", 0}, {"separate", 1}});
  t["float"] = EnumHandler(kFloat, {{"left", 0}, {"right", 1}, {"none", 2}});
  t["overflow"] = EnumHandler(kOverflow, {{"visible", 0}, {"hidden", 1}, {"scroll", 2}, {"auto", 3}});
  const Keywords scrollBar = {{"auto", 0}, {"hidden", 1}, {"none", 1}, {"visible", 2}};
  t["ui-sbh"] = EnumHandler(kScrollBarH, scrollBar);
  t["ui-sbv"] = EnumHandler(kScrollBarV, scrollBar);
  t["position"] = EnumHandler(kPosition, {{"absolute", 0}, {"fixed", 1}, {"relative", 2}, {"static", 3}});
  t["list-style-position"] = EnumHandler(kListPosition, kListPositions);
  t["list-style-type"] = EnumHandler(kListType, kListTypes);
  t["outline-style"] = EnumHandler(kOutlineStyle, kBorderStyles);
  t["background-repeat"] = EnumHandler(kBackgroundRepeat, kRepeats);
  t["background-attachment"] = EnumHandler(kBackgroundAttachment, kAttachments);
  t["white-space"] = EnumHandler(kWhiteSpace, {{"normal", 0}, {"nowrap", 1}, {"pre", 2}, {"pre-line", 3}, {"pre-wrap", 4}});
  t["text-align"] = EnumHandler(kTextAlign, {{"left", 0}, {"center", 1}, {"right", 2}, {"justify", 3},
      {"justifywithlastline", 4}});
  // An unknown keyword leaves "bottom" (3) here, not the value before.
  t["vertical-align"] = EnumHandler(kVerticalAlign, {{"top", 0}, {"text-top", 1}, {"middle", 2},
      {"bottom", 3}, {"text-bottom", 4}, {"baseline", 5}, {"sub", 6}, {"super", 7}}, 3);
  t["text-transform"] = EnumHandler(kTextTransform, {{"none", 0}, {"capitalize", 1}, {"uppercase", 2}, {"lowercase", 3}});
  t["ui-list-navigation"] = EnumHandler(kListNavigation, {{"yes", 3}, {"true", 3}, {"1", 3}, {"list", 3},
      {"list-y", 3}, {"list-x", 2}, {"list-xy", 4}, {"no", 1}, {"not", 1}, {"0", 1}, {"none", 1}}, 0);
  t["ui-draw-method"] = EnumHandler(kDrawMethod, kDrawMethods);
  t["ui-background-draw-method"] = EnumHandler(kBackgroundDrawMethod, kDrawMethods);
  t["ui-focus-ensure-visibility"] = EnumHandler(kFocusEnsureVisibility, {{"true", 2}, {"ensure", 2},
      {"yes", 2}, {"1", 2}, {"none", 1}, {"no", 1}, {"not", 1}, {"false", 1}, {"0", 1}}, 0);
  t["ui-delayed-draw"] = EnumHandler(kDelayedDraw, {{"0", 0}, {"default", 0}, {"bottom", 0},
      {"bottommost", 0}, {"1", 1}, {"2", 2}, {"post-sibling", 2}, {"sibling", 2}, {"level", 2},
      {"post-level", 2}, {"3", 3}, {"pre-fa", 3}, {"pre-fixed-absolute", 3}, {"non-top", 3},
      {"non-topmost", 3}, {"4", 4}, {"post-fa", 4}, {"post-fixed-absolute", 4}, {"top", 4},
      {"topmost", 4}});
  t["ui-sb-type"] = EnumHandler(kScrollBarType, {{"0", 0}, {"default", 0}, {"similar", 0}, {"1", 1},
      {"2", 2}, {"classic", 2}, {"3", 3}, {"pop-over-light", 3}, {"popover-light", 3},
      {"pop-light", 3}, {"4", 4}, {"pop-over-full", 4}, {"popover-full", 4}, {"pop-full", 4},
      {"5", 5}, {"none", 5}, {"no", 5}, {"not", 5}, {"empty", 5}, {"hidden", 5}});
  // "inherit" means 1 for these two rather than the parent's value.
  for (const char* name : {"ui-delayed-draw", "ui-sb-type"}) {
    Handler inner = t[name];
    const EnumField f = std::string(name) == "ui-delayed-draw" ? kDelayedDraw : kScrollBarType;
    t[name] = [inner, f](Declaration& d) {
      if (d.Count() == 1 && IsInherit(d.Value(0))) d.rule.m_enums[f] = 1;
      else inner(d);
    };
  }
  // Spelling pairs share one handler.
  const std::pair<const char*, EnumField> booleans[] = {
      {"ui-can-be-disable", kCanBeDisabled}, {"ui-can-be-disabled", kCanBeDisabled},
      {"ui-can-be-active", kCanBeActive}, {"ui-can-be-focus", kCanBeFocused},
      {"ui-can-be-focused", kCanBeFocused}, {"ui-can-be-selected", kCanBeSelected},
      {"ui-can-be-selection", kCanBeSelected}, {"ui-can-be-hover", kCanBeHovered},
      {"ui-can-be-hovered", kCanBeHovered}, {"ui-can-be-press", kCanBePressed},
      {"ui-can-be-pressed", kCanBePressed}, {"ui-can-be-link", kCanBeLink},
      {"ui-can-be-visit", kCanBeVisited}, {"ui-can-be-visited", kCanBeVisited},
      {"ui-focus-on-make-selected", kFocusOnMakeSelected},
      {"ui-focus-on-make-selection", kFocusOnMakeSelected},
      {"ui-focus-on-make-unselected-sibling", kFocusOnMakeUnselectedSibling},
      {"ui-focus-on-make-unselection-sibling", kFocusOnMakeUnselectedSibling},
      {"ui-focus-off-make-unselected", kFocusOffMakeUnselected},
      {"ui-focus-off-make-unselection", kFocusOffMakeUnselected},
      {"ui-focus-off-make-unselected-sibling", kFocusOffMakeUnselectedSibling},
      {"ui-focus-off-make-unselection-sibling", kFocusOffMakeUnselectedSibling}};
  for (const auto& [name, field] : booleans) t[name] = EnumHandler(field, kBooleanWords, 0);
}

void AddLengthProperties(std::unordered_map<std::string, Handler>& t) {
  const std::pair<const char*, LengthField> offsets[] = {{"left", kLeft}, {"top", kTop}, {"right", kRight}, {"bottom", kBottom}};
  for (const auto& [name, f] : offsets) t[name] = [f = f](Declaration& d) { ReadOffset(d, f); };
  for (const auto& [name, f] : {std::pair{"width", kWidth}, std::pair{"height", kHeight}})
    t[name] = [f = f](Declaration& d) {
      if (d.Count() == 1) ReadSizeWithPercent(d.rule, f, d.Value(0), d.parent);
    };
  for (const auto& [name, f] : {std::pair{"min-width", kMinWidth}, std::pair{"min-height", kMinHeight},
                                std::pair{"max-width", kMaxWidth}, std::pair{"max-height", kMaxHeight}})
    t[name] = [f = f](Declaration& d) {
      if (d.Count() == 1) ReadMinMax(d.rule, f, d.Value(0), d.parent);
    };
  t["margin"] = BoxHandler(kMarginTop, true, true);
  t["padding"] = BoxHandler(kPaddingTop, true, false);
  t["ui-slice"] = BoxHandler(kSliceTop, false, false);
  t["ui-background-slice"] = BoxHandler(kBackgroundSliceTop, false, false);
  t["ui-background-extend"] = BoxHandler(kBackgroundExtendTop, false, false);
  const char* sides[] = {"top", "right", "bottom", "left"};
  for (int s = 0; s < 4; ++s) {
    const std::string side = sides[s];
    t["margin-" + side] = SideLengthHandler(static_cast<LengthField>(kMarginTop + s), true, true);
    t["padding-" + side] = SideLengthHandler(static_cast<LengthField>(kPaddingTop + s), false, false);
    t["border-" + side] = [s](Declaration& d) { ReadBorderTokens(d, s, s); };
    t["border-" + side + "-width"] = [s](Declaration& d) {
      if (d.Count() == 1) ReadWidth(d, static_cast<LengthField>(kBorderWidthTop + s), d.Value(0));
    };
    t["border-" + side + "-style"] = [s](Declaration& d) {
      if (d.Count() == 1) ReadBorderStyle(d, static_cast<EnumField>(kBorderStyleTop + s), d.Value(0));
    };
    t["border-" + side + "-color"] = [s](Declaration& d) {
      if (d.Count() == 1) ReadColor(d, static_cast<ColorField>(kBorderColorTop + s), d.Value(0));
    };
  }
  t["border"] = [](Declaration& d) { ReadBorderTokens(d, 0, 3); };
  t["border-width"] = [](Declaration& d) {
    FourSides(d, [&](int s, const std::string& v) { ReadWidth(d, static_cast<LengthField>(kBorderWidthTop + s), v); });
  };
  t["border-style"] = [](Declaration& d) {
    FourSides(d, [&](int s, const std::string& v) { ReadBorderStyle(d, static_cast<EnumField>(kBorderStyleTop + s), v); });
  };
  t["border-color"] = [](Declaration& d) {
    FourSides(d, [&](int s, const std::string& v) { ReadColor(d, static_cast<ColorField>(kBorderColorTop + s), v); });
  };
  for (const auto& [name, f] : {std::pair{"text-indent", kTextIndent}, std::pair{"word-spacing", kWordSpacing},
                                std::pair{"letter-spacing", kLetterSpacing}})
    t[name] = SideLengthHandler(f, true, false);
  t["outline-width"] = [](Declaration& d) {
    if (d.Count() == 1) ReadWidth(d, kOutlineWidth, d.Value(0));
  };
  t["border-spacing"] = ReadBorderSpacing;
  t["z-index"] = ReadZIndex;
  t["clip"] = ReadClip;
  t["ui-transparency"] = [](Declaration& d) { ReadTransparency(d, kTransparency); };
  t["ui-background-transparency"] = [](Declaration& d) { ReadTransparency(d, kBackgroundTransparency); };
}

void AddOtherProperties(std::unordered_map<std::string, Handler>& t) {
  t["cursor"] = ReadCursor;
  t["quotes"] = ReadQuotes;
  t["counter-increment"] = t["counter-reset"] = [](Declaration& d) { ReadStringProperty(d, kCounter, true); };
  t["content"] = ReadContent;
  t["direction"] = [](Declaration& d) { ReadStringProperty(d, kDirection, false); };
  t["list-style"] = ListStyleShorthand;
  t["list-style-image"] = [](Declaration& d) {
    if (d.Count() != 1) return;
    const std::string& v = d.Value(0);
    if (IsInherit(v)) d.rule.m_strings[kListImage] = d.parent.m_strings[kListImage];
    else if (EqualsNoCase(v, "none")) d.rule.m_strings[kListImage] = "none";
    else if (IsUrl(v)) d.rule.m_strings[kListImage] = UrlText(v);
  };
  t["outline"] = OutlineShorthand;
  t["outline-color"] = [](Declaration& d) {
    if (d.Count() != 1) return;
    if (EqualsNoCase(d.Value(0), "invert")) d.rule.m_colors[kColorOutline] = -3;
    else ReadColor(d, kColorOutline, d.Value(0));
  };
  t["background"] = BackgroundShorthand;
  t["background-color"] = [](Declaration& d) {
    if (d.Count() != 1) return;
    if (EqualsNoCase(d.Value(0), "transparent")) d.rule.m_colors[kColorBackground] = -1;
    else ReadColor(d, kColorBackground, d.Value(0));
  };
  t["background-image"] = [](Declaration& d) {
    if (d.Count() == 1) ReadBackgroundImage(d, d.Value(0));
  };
  t["background-position"] = BackgroundPosition;
  t["color"] = [](Declaration& d) {
    if (d.Count() == 1) ReadColor(d, kColorText, d.Value(0));
  };
  t["font"] = FontShorthand;
  t["font-family"] = [](Declaration& d) {
    // The first family is the one asked for; no font is looked up here.
    if (d.Count() >= 1) ReadFamily(d, d.Value(0));
  };
  t["font-style"] = [](Declaration& d) {
    if (d.Count() == 1) ReadFontStyle(d, d.Value(0));
  };
  t["font-size"] = [](Declaration& d) {
    if (d.Count() == 1) ReadFontSize(d, d.Value(0));
  };
  t["font-weight"] = [](Declaration& d) {
    if (d.Count() == 1) ReadFontWeight(d, d.Value(0));
  };
  t["line-height"] = [](Declaration& d) {
    if (d.Count() == 1) ReadLineHeight(d, d.Value(0), d.parent.m_font);
  };
  t["text-decoration"] = ReadTextDecoration;
}

const std::unordered_map<std::string, Handler>& PropertyTable() {
  static const std::unordered_map<std::string, Handler> table = [] {
    std::unordered_map<std::string, Handler> t;
    AddEnumProperties(t);
    AddLengthProperties(t);
    AddOtherProperties(t);
    return t;
  }();
  return table;
}

}  // namespace

bool ApplyProperty(CExtRichContentItem& item, CExtRichContentItem& declaration,
                   CExtRichStyleRule& rule, const CExtRichStyleDescription& parentStyle) {
  const auto& table = PropertyTable();
  const auto found = table.find(declaration.m_strName);
  if (found == table.end()) return false;
  Declaration d{item, declaration, rule, parentStyle};
  found->second(d);
  return true;
}

size_t PropertyTableSize() { return PropertyTable().size(); }

}  // namespace qmk::toolkit::richcontent
