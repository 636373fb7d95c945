// style.cpp: the field tables of the style records, merging of rules and computing a style.
#include "toolkit/richcontent/style.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace qmk::toolkit::richcontent {
namespace {

// reset, inherit, initial, inherited; in the order of EnumField.
constexpr EnumFieldInfo kEnumInfo[kEnumFieldCount] = {
    {0, 3, 0, true},                // visibility
    {2, 17, 2, false},              // display: a cleared rule holds inline, 17 asks the parent
    {0, kNoValue, 0, false},        // dock position (computed with display)
    {0, 2, 0, false},               // table-layout
    {1, 2, 1, true},                // empty-cells
    {0, 2, 0, true},                // caption-side
    {1, 2, 1, true},                // border-collapse
    {kNoValue, 1, 0, false},        // z-index state: auto 0, inherit 1, integer 2
    {1, 18, 0, true},               // cursor (1 is also the url cursor, told by its text)
    {1, 2, 0, false},               // clip: auto 0, rect 3
    {kNoValue, 3, 2, false},        // float
    {kNoValue, 4, 0, false},        // overflow
    {kNoValue, kNoValue, 0, false}, // ui-sbh
    {kNoValue, kNoValue, 0, false}, // ui-sbv
    {3, 4, 3, false},               // position
    {kNoValue, 2, 1, true},         // list-style-position
    {kNoValue, 12, 2, true},        // list-style-type
    {kNoValue, 9, 0, false},        // outline-style
    {kNoValue, 4, 0, false},        // background-repeat
    {kNoValue, 2, 0, false},        // background-attachment
    {5, 5, 0, true},                // white-space
    {kNoValue, -1, 0, true},        // text-align
    {kNoValue, -1, 3, false},       // vertical-align
    {kNoValue, 4, 0, true},         // text-transform
    {kNoValue, kNoValue, 0, false}, {kNoValue, kNoValue, 0, false},  // border styles
    {kNoValue, kNoValue, 0, false}, {kNoValue, kNoValue, 0, false},
    {0, kNoValue, 0, false}, {0, kNoValue, 0, false}, {0, kNoValue, 0, false},  // ui-can-be-*
    {0, kNoValue, 0, false}, {0, kNoValue, 0, false}, {0, kNoValue, 0, false},
    {0, kNoValue, 0, false}, {0, kNoValue, 0, false},
    {0, kNoValue, 0, false}, {0, kNoValue, 0, false},  // ui-focus-*
    {0, kNoValue, 0, false}, {0, kNoValue, 0, false},
    {0, kNoValue, 0, false},        // ui-list-navigation
    {kNoValue, kNoValue, 2, false}, // ui-draw-method
    {kNoValue, kNoValue, 2, false}, // ui-background-draw-method
    {0, kNoValue, 0, false},        // ui-focus-ensure-visibility
    {kNoValue, kNoValue, 0, false}, // ui-delayed-draw
    {kNoValue, kNoValue, 0, false}, // ui-sb-type
    {0, kNoValue, 0, false},        // noshade
};

constexpr LengthFieldInfo kAutoSide = {kNoValue, kAutoLength, false};
constexpr LengthFieldInfo kBoxSide = {-1, 0, false};
constexpr LengthFieldInfo kNoValueSide = {kNoValue, kNoValue, false};
constexpr LengthFieldInfo kInheritedLength = {kNoValue, 0, true};
constexpr LengthFieldInfo kPlainLength = {kNoValue, 0, false};
constexpr LengthFieldInfo kMinMax = {-1, -1, false};

// In the order of LengthField.
constexpr LengthFieldInfo kLengthInfo[kLengthFieldCount] = {
    kAutoSide, kAutoSide, kAutoSide, kAutoSide,        // left, top, right, bottom
    kAutoSide, kAutoSide,                              // width, height
    kMinMax, kMinMax, kMinMax, kMinMax,                // min/max
    kBoxSide, kBoxSide, kBoxSide, kBoxSide,            // margin
    kBoxSide, kBoxSide, kBoxSide, kBoxSide,            // padding
    kBoxSide, kBoxSide, kBoxSide, kBoxSide,            // border width
    kNoValueSide, kNoValueSide, kNoValueSide, kNoValueSide,  // margin auto
    kBoxSide, kBoxSide, kBoxSide, kBoxSide,            // ui-slice
    kBoxSide, kBoxSide, kBoxSide, kBoxSide,            // ui-background-slice
    kBoxSide, kBoxSide, kBoxSide, kBoxSide,            // ui-background-extend
    {kNoValue, -1, false}, {kNoValue, -1, false}, {kNoValue, -1, false}, {kNoValue, -1, false},
    kInheritedLength, kInheritedLength, kInheritedLength,  // text-indent, word/letter spacing
    kInheritedLength, kInheritedLength,                    // border-spacing
    {-1, 0, false},                                        // outline width
    kNoValueSide,                                          // z-index value
    kPlainLength, kPlainLength,                            // transparencies
    kPlainLength, kPlainLength,                            // background position
    {kNoValue, 1, false}, {kNoValue, 1, false},            // colspan, rowspan
};

}  // namespace

static_assert(kEnumFieldCount <= 64, "the declared marks of a rule are one 64-bit word");

const EnumFieldInfo& InfoOf(EnumField field) { return kEnumInfo[field]; }
// Display and white-space have no value that means "changes nothing": their cleared values
// (inline, inherit) are real declarations. The other fields' cleared values change nothing by
// design ("visibility: visible", "position: static" and the like merge as not declared).
bool DeclaredValueCounts(EnumField field) { return field == kDisplay || field == kWhiteSpace; }
const LengthFieldInfo& InfoOf(LengthField field) { return kLengthInfo[field]; }
bool IsInherited(ColorField field) { return field == kColorText; }
bool IsInherited(StringField field) {
  return field == kListImage || field == kCursorUrl || field == kDirection;
}

// ---- font request ----

int CExtRichFontDescription::Compare(const CExtRichFontDescription& o) const {
  const int32_t mine[] = {lfHeight, lfWidth, lfWeight, lfEscapement, lfOrientation, lfItalic,
                          lfUnderline, lfStrikeOut, lfCharSet, lfOutPrecision, lfClipPrecision,
                          lfQuality, lfPitchAndFamily};
  const int32_t theirs[] = {o.lfHeight, o.lfWidth, o.lfWeight, o.lfEscapement, o.lfOrientation,
                            o.lfItalic, o.lfUnderline, o.lfStrikeOut, o.lfCharSet,
                            o.lfOutPrecision, o.lfClipPrecision, o.lfQuality, o.lfPitchAndFamily};
  for (size_t i = 0; i < std::size(mine); ++i)
    if (mine[i] != theirs[i]) return mine[i] < theirs[i] ? -1 : 1;
  const int face = std::strncmp(lfFaceName, o.lfFaceName, sizeof lfFaceName);
  return face < 0 ? -1 : face > 0 ? 1 : 0;
}

void CExtRichFontDescription::SetFace(const std::string& face) {
  std::memset(lfFaceName, 0, sizeof lfFaceName);
  std::memcpy(lfFaceName, face.data(), std::min(face.size(), sizeof lfFaceName - 1));
}

CExtRichFontDescription CExtRichFontDescription::ForRotation(int rotation) const {
  CExtRichFontDescription f = *this;
  if (rotation == 90 || rotation == 270) {
    std::swap(f.lfWidth, f.lfHeight);
    f.lfEscapement = f.lfOrientation = rotation * 10;
  }
  return f;
}

CExtRichFontDescription CExtRichFontDescription::Underlined() const {
  CExtRichFontDescription f = *this;
  if (!f.lfUnderline) f.lfUnderline = 1;
  return f;
}

// ---- rule ----

void CExtRichStyleRule::Reset() {
  for (int i = 0; i < kEnumFieldCount; ++i) m_enums[i] = kEnumInfo[i].reset;
  for (int i = 0; i < kLengthFieldCount; ++i) {
    m_lengths[i] = kLengthInfo[i].reset;
    m_percents[i] = -1.0f;
  }
  for (int32_t& c : m_colors) c = -1;
  for (std::string& s : m_strings) s.clear();
  m_quotes.clear();
  m_nWeightAbsolute = m_nWeightRelative = 0;
  m_nItalic = m_nUnderline = m_nStrike = 0;
  m_strFace.clear();
  m_nFontSizePx = m_nFontSizeRelative = 0;
  m_lfSizeFactor = m_lfLineHeightFactor = 1.0;
  m_nLineHeight = -1;
  m_bQuotesSet = false;
  m_nBackgroundSet = 0;
  m_pBeforeRule = m_pAfterRule = nullptr;
  m_nDeclaredEnums = 0;
}

void CExtRichStyleRule::DeclareEnum(EnumField field, int value) {
  m_enums[field] = value;
  if (DeclaredValueCounts(field)) m_nDeclaredEnums |= uint64_t{1} << field;
}

namespace {
template <typename T>
void TakeUnless(T& target, const T& source, const T& sentinel) {
  if (source != sentinel) target = source;
}
}  // namespace

void CExtRichStyleRule::Merge(const CExtRichStyleRule& s) {
  for (int i = 0; i < kEnumFieldCount; ++i)
    if (s.IsDeclared(static_cast<EnumField>(i))) m_enums[i] = s.m_enums[i];
    else TakeUnless(m_enums[i], s.m_enums[i], kEnumInfo[i].reset);
  m_nDeclaredEnums |= s.m_nDeclaredEnums;
  // A pixel value and its percent form travel together.
  for (int i = 0; i < kLengthFieldCount; ++i) {
    if (s.m_lengths[i] == kLengthInfo[i].reset && s.m_percents[i] < 0.0f) continue;
    m_lengths[i] = s.m_lengths[i];
    m_percents[i] = s.m_percents[i];
  }
  for (int i = 0; i < kColorFieldCount; ++i) TakeUnless(m_colors[i], s.m_colors[i], int32_t{-1});
  for (int i = 0; i < kStringFieldCount; ++i)
    if (!s.m_strings[i].empty()) m_strings[i] = s.m_strings[i];
  if (s.m_bQuotesSet) {
    m_quotes = s.m_quotes;
    m_bQuotesSet = true;
  }
  TakeUnless(m_nWeightAbsolute, s.m_nWeightAbsolute, 0);
  TakeUnless(m_nWeightRelative, s.m_nWeightRelative, 0);
  TakeUnless(m_nItalic, s.m_nItalic, 0);
  TakeUnless(m_nUnderline, s.m_nUnderline, 0);
  TakeUnless(m_nStrike, s.m_nStrike, 0);
  if (!s.m_strFace.empty()) m_strFace = s.m_strFace;
  TakeUnless(m_nFontSizePx, s.m_nFontSizePx, 0);
  TakeUnless(m_nFontSizeRelative, s.m_nFontSizeRelative, 0);
  TakeUnless(m_lfSizeFactor, s.m_lfSizeFactor, 1.0);
  TakeUnless(m_lfLineHeightFactor, s.m_lfLineHeightFactor, 1.0);
  TakeUnless(m_nLineHeight, s.m_nLineHeight, -1);
  TakeUnless(m_nBackgroundSet, s.m_nBackgroundSet, 0);
  if (s.m_pBeforeRule) m_pBeforeRule = s.m_pBeforeRule;
  if (s.m_pAfterRule) m_pAfterRule = s.m_pAfterRule;
}

// ---- computed style ----

void CExtRichStyleDescription::Clear() {
  for (int i = 0; i < kEnumFieldCount; ++i) m_enums[i] = kEnumInfo[i].initial;
  for (int i = 0; i < kLengthFieldCount; ++i) {
    m_lengths[i] = kLengthInfo[i].initial;
    m_percents[i] = -1.0f;
  }
  for (int32_t& c : m_colors) c = -1;
  for (std::string& s : m_strings) s.clear();
  m_quotes.clear();
  m_font = CExtRichFontDescription();
  m_lfLineHeightFactor = 1.0;
  m_nLineHeight = -1;
  m_bBackground = false;
  m_pBeforeRule = m_pAfterRule = nullptr;
}

void CExtRichStyleDescription::CopyFromParent(const CExtRichStyleDescription& parent) {
  Clear();
  m_font = parent.m_font;
  m_lfLineHeightFactor = parent.m_lfLineHeightFactor;
  m_nLineHeight = parent.m_nLineHeight;
  m_quotes = parent.m_quotes;
  for (int i = 0; i < kEnumFieldCount; ++i)
    if (kEnumInfo[i].inherited) m_enums[i] = parent.m_enums[i];
  for (int i = 0; i < kLengthFieldCount; ++i)
    if (kLengthInfo[i].inherited) {
      m_lengths[i] = parent.m_lengths[i];
      m_percents[i] = parent.m_percents[i];
    }
  for (int i = 0; i < kColorFieldCount; ++i)
    if (IsInherited(static_cast<ColorField>(i))) m_colors[i] = parent.m_colors[i];
  for (int i = 0; i < kStringFieldCount; ++i)
    if (IsInherited(static_cast<StringField>(i))) m_strings[i] = parent.m_strings[i];
}

int CExtRichStyleDescription::Display() const {
  return m_enums[kDisplay] == 17 ? 2 : m_enums[kDisplay];
}

void ComputeFont(CExtRichFontDescription& f, const CExtRichStyleRule& r) {
  if (r.m_nWeightAbsolute != 0) f.lfWeight = std::clamp(r.m_nWeightAbsolute, 100, 900);
  if (r.m_nWeightRelative != 0) f.lfWeight = std::clamp(f.lfWeight + r.m_nWeightRelative, 100, 900);
  if (r.m_nItalic) f.lfItalic = r.m_nItalic > 0;
  if (r.m_nUnderline) f.lfUnderline = r.m_nUnderline > 0;
  if (r.m_nStrike) f.lfStrikeOut = r.m_nStrike > 0;
  if (!r.m_strFace.empty()) f.SetFace(r.m_strFace);
  if (r.m_nFontSizePx != 0) {
    f.lfHeight = -std::abs(r.m_nFontSizePx);
    f.lfWidth = 0;
  }
  if (r.m_nFontSizeRelative != 0) {
    // A relative size moves the height away from zero, keeping its sign.
    if (f.lfHeight < 0) {
      f.lfHeight -= r.m_nFontSizeRelative;
      if (f.lfHeight >= 0) f.lfHeight = -1;
    } else {
      f.lfHeight += r.m_nFontSizeRelative;
      if (f.lfHeight < 2) f.lfHeight = 1;
    }
  }
  if (r.m_lfSizeFactor != 1.0) {
    const double scaled = static_cast<double>(f.lfHeight) * r.m_lfSizeFactor;
    const double limited = std::clamp(scaled, -1.0e6, 1.0e6);
    f.lfHeight = -std::abs(static_cast<int32_t>(limited));
  }
}

void CExtRichStyleDescription::Compute(const CExtRichStyleRule& r,
                                       const CExtRichStyleDescription& parent) {
  ComputeFont(m_font, r);
  if (r.m_lfLineHeightFactor != 1.0) m_lfLineHeightFactor = r.m_lfLineHeightFactor;
  if (r.m_nLineHeight >= 0) m_nLineHeight = r.m_nLineHeight;

  for (int i = 0; i < kEnumFieldCount; ++i) {
    const EnumFieldInfo& info = kEnumInfo[i];
    const int v = r.m_enums[i];
    if (v == info.reset) continue;
    m_enums[i] = (info.inherit != kNoValue && v == info.inherit) ? parent.m_enums[i] : v;
  }
  // A docked display carries its declared side, or the parent's; any other takes the parent's.
  if (m_enums[kDisplay] == 16 && r.m_enums[kDockPosition] != 0)
    m_enums[kDockPosition] = r.m_enums[kDockPosition];
  else
    m_enums[kDockPosition] = parent.m_enums[kDockPosition];
  if (r.m_enums[kCursor] == 18) {
    m_strings[kCursorUrl] = parent.m_strings[kCursorUrl];
  } else if (r.m_enums[kCursor] == 1 && !r.m_strings[kCursorUrl].empty()) {
    m_enums[kCursor] = 1;
  }

  for (int i = 0; i < kLengthFieldCount; ++i) {
    if (r.m_lengths[i] == kLengthInfo[i].reset && r.m_percents[i] < 0.0f) continue;
    m_lengths[i] = r.m_lengths[i];
    m_percents[i] = r.m_percents[i];
  }
  if (r.m_enums[kClip] == 2)
    for (int i = kClipTop; i <= kClipLeft; ++i) m_lengths[i] = parent.m_lengths[i];

  for (int i = 0; i < kColorFieldCount; ++i)
    if (r.m_colors[i] != -1) m_colors[i] = r.m_colors[i];
  if (r.m_nBackgroundSet > 0 || r.m_colors[kColorBackground] != -1) m_bBackground = true;
  if (r.m_nBackgroundSet < 0) {
    m_bBackground = false;
    m_colors[kColorBackground] = -1;
  }
  for (int i = 0; i < kStringFieldCount; ++i)
    if (!r.m_strings[i].empty()) m_strings[i] = r.m_strings[i];
  if (r.m_bQuotesSet) m_quotes = r.m_quotes;
  if (r.m_pBeforeRule) m_pBeforeRule = r.m_pBeforeRule;
  if (r.m_pAfterRule) m_pAfterRule = r.m_pAfterRule;
}

}  // namespace qmk::toolkit::richcontent
