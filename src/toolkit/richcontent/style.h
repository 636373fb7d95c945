// style.h: the rich content engine's style records: the font request, the declared rule with its
// "not declared" sentinels, and the computed style description.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace qmk::toolkit::richcontent {

class CExtRichContentItem;

// The toolkit's "no value" for integer style fields that may be negative.
constexpr int kNoValue = -32761;
// The "auto" of a length field that has it (left, top, right, bottom, width, height).
constexpr int kAutoLength = -32760;

// A font request in the operating system's form; ordered over every field so it can be a key.
struct CExtRichFontDescription {
  int32_t lfHeight = -13;
  int32_t lfWidth = 0;
  int32_t lfEscapement = 0;
  int32_t lfOrientation = 0;
  int32_t lfWeight = 400;
  uint8_t lfItalic = 0;
  uint8_t lfUnderline = 0;
  uint8_t lfStrikeOut = 0;
  uint8_t lfCharSet = 1;
  uint8_t lfOutPrecision = 0;
  uint8_t lfClipPrecision = 0;
  uint8_t lfQuality = 0;
  uint8_t lfPitchAndFamily = 0;
  char lfFaceName[32] = "DejaVu Sans";

  // Three-way compare: height, width, weight, the flags, then the face.
  int Compare(const CExtRichFontDescription& other) const;
  bool operator<(const CExtRichFontDescription& other) const { return Compare(other) < 0; }
  bool operator==(const CExtRichFontDescription& other) const { return Compare(other) == 0; }
  // Copies a face name, cut to 31 bytes and zero-ended.
  void SetFace(const std::string& face);
  // The request to create for a document turned by `rotation` degrees: 90 and 270 swap width and
  // height and set the escapement to ten times the angle.
  CExtRichFontDescription ForRotation(int rotation) const;
  // A copy that underlines when this request does not.
  CExtRichFontDescription Underlined() const;
};

// Integer fields that hold a keyword's stored value. Each has a value that changes nothing in a
// rule, and perhaps a value that asks for the parent's.
enum EnumField : int {
  kVisibility, kDisplay, kDockPosition, kTableLayout, kEmptyCells, kCaptionSide, kBorderCollapse,
  kZIndexState, kCursor, kClip, kFloat, kOverflow, kScrollBarH, kScrollBarV, kPosition,
  kListPosition, kListType, kOutlineStyle, kBackgroundRepeat, kBackgroundAttachment, kWhiteSpace,
  kTextAlign, kVerticalAlign, kTextTransform,
  kBorderStyleTop, kBorderStyleRight, kBorderStyleBottom, kBorderStyleLeft,
  kCanBeDisabled, kCanBeActive, kCanBeFocused, kCanBeSelected, kCanBeHovered, kCanBePressed,
  kCanBeLink, kCanBeVisited, kFocusOnMakeSelected, kFocusOnMakeUnselectedSibling,
  kFocusOffMakeUnselected, kFocusOffMakeUnselectedSibling, kListNavigation, kDrawMethod,
  kBackgroundDrawMethod, kFocusEnsureVisibility, kDelayedDraw, kScrollBarType, kNoShade,
  kEnumFieldCount
};

// Integer fields that hold pixels (some with a percent form beside them).
enum LengthField : int {
  kLeft, kTop, kRight, kBottom, kWidth, kHeight, kMinWidth, kMinHeight, kMaxWidth, kMaxHeight,
  kMarginTop, kMarginRight, kMarginBottom, kMarginLeft,
  kPaddingTop, kPaddingRight, kPaddingBottom, kPaddingLeft,
  kBorderWidthTop, kBorderWidthRight, kBorderWidthBottom, kBorderWidthLeft,
  kMarginAutoTop, kMarginAutoRight, kMarginAutoBottom, kMarginAutoLeft,
  kSliceTop, kSliceRight, kSliceBottom, kSliceLeft,
  kBackgroundSliceTop, kBackgroundSliceRight, kBackgroundSliceBottom, kBackgroundSliceLeft,
  kBackgroundExtendTop, kBackgroundExtendRight, kBackgroundExtendBottom, kBackgroundExtendLeft,
  kClipTop, kClipRight, kClipBottom, kClipLeft,
  kTextIndent, kWordSpacing, kLetterSpacing, kBorderSpacingX, kBorderSpacingY, kOutlineWidth,
  kZIndex, kTransparency, kBackgroundTransparency, kBackgroundPositionX, kBackgroundPositionY,
  kColSpan, kRowSpan, kLengthFieldCount
};

// Colour fields; -1 is "not declared" in a rule (and transparent for the background).
enum ColorField : int {
  kColorText, kColorBackground, kColorOutline,
  kBorderColorTop, kBorderColorRight, kBorderColorBottom, kBorderColorLeft, kColorFieldCount
};

// Text fields; empty is "not declared".
enum StringField : int {
  kListImage, kBackgroundImage, kCursorUrl, kDirection, kCounter, kContent, kContentBefore,
  kContentAfter, kStringFieldCount
};

struct EnumFieldInfo {
  int reset;      // the value of a cleared rule: merging or computing it changes nothing
  int inherit;    // the value that takes the parent's, or kNoValue when the field has none
  int initial;    // the computed value when nothing was declared
  bool inherited; // copied from the parent before a rule is applied
};
struct LengthFieldInfo {
  int reset;
  int initial;
  bool inherited;
};
const EnumFieldInfo& InfoOf(EnumField field);
// True for the fields whose cleared value is also a value a rule can declare and that must then
// count ("display: inline", "white-space: inherit"); a rule marks such declarations.
bool DeclaredValueCounts(EnumField field);
const LengthFieldInfo& InfoOf(LengthField field);
bool IsInherited(ColorField field);
bool IsInherited(StringField field);

// One "quotes" pair.
struct CQuoutes {
  std::string m_strOpen, m_strClose;
  bool operator==(const CQuoutes&) const = default;
};

// Values common to a rule and a computed style: arrays indexed by the field enums.
struct StyleFields {
  int m_enums[kEnumFieldCount];
  int m_lengths[kLengthFieldCount];
  float m_percents[kLengthFieldCount];  // -1 when the length has no percent form
  int32_t m_colors[kColorFieldCount];
  std::string m_strings[kStringFieldCount];
  std::vector<CQuoutes> m_quotes;
  bool operator==(const StyleFields&) const = default;
};

// One declared value per property, each with its sentinel that means "not declared".
class CExtRichStyleRule : public StyleFields {
 public:
  CExtRichStyleRule() { Reset(); }
  virtual ~CExtRichStyleRule() = default;
  CExtRichStyleRule(const CExtRichStyleRule&) = default;
  CExtRichStyleRule& operator=(const CExtRichStyleRule&) = default;

  void Assign(const CExtRichStyleRule& other) { *this = other; }
  // Every field of `source` that is not its sentinel replaces the field here.
  void Merge(const CExtRichStyleRule& source);
  void Clear() { Reset(); }
  void Reset();
  bool operator==(const CExtRichStyleRule&) const = default;
  // Stores a declared keyword value; for the fields of DeclaredValueCounts the declaration is
  // marked, so it survives a merge even when it equals the cleared value.
  void DeclareEnum(EnumField field, int value);
  bool IsDeclared(EnumField field) const { return (m_nDeclaredEnums >> field) & 1u; }

  uint64_t m_nDeclaredEnums = 0;  // one bit per EnumField, see DeclareEnum
  int m_nWeightAbsolute = 0, m_nWeightRelative = 0;
  int m_nItalic = 0, m_nUnderline = 0, m_nStrike = 0;  // positive sets, negative clears
  std::string m_strFace;
  int m_nFontSizePx = 0, m_nFontSizeRelative = 0;
  double m_lfSizeFactor = 1.0, m_lfLineHeightFactor = 1.0;
  int m_nLineHeight = -1;
  bool m_bQuotesSet = false;
  int m_nBackgroundSet = 0;  // 1 sets the background flag, -1 clears it
  CExtRichContentItem* m_pBeforeRule = nullptr;
  CExtRichContentItem* m_pAfterRule = nullptr;
};

// Applies the font fields of `rule` (weight, flags, face, size) to the request `font`.
void ComputeFont(CExtRichFontDescription& font, const CExtRichStyleRule& rule);

// The computed style of an item: a font request and one real value per property.
class CExtRichStyleDescription : public StyleFields {
 public:
  CExtRichStyleDescription() { Clear(); }
  virtual ~CExtRichStyleDescription() = default;
  CExtRichStyleDescription(const CExtRichStyleDescription&) = default;
  CExtRichStyleDescription& operator=(const CExtRichStyleDescription&) = default;

  // Starts from the defaults and takes the inherited fields of `parent`.
  void CopyFromParent(const CExtRichStyleDescription& parent);
  void Assign(const CExtRichStyleDescription& other) { *this = other; }
  void Clear();
  // Applies a rule on top of this style; `parent` answers the "take the parent's" values.
  void Compute(const CExtRichStyleRule& rule, const CExtRichStyleDescription& parent);
  // "display" with the not-set value read as inline.
  int Display() const;
  bool operator==(const CExtRichStyleDescription&) const = default;

  CExtRichFontDescription m_font;
  double m_lfLineHeightFactor = 1.0;
  int m_nLineHeight = -1;
  bool m_bBackground = false;
  CExtRichContentItem* m_pBeforeRule = nullptr;
  CExtRichContentItem* m_pAfterRule = nullptr;
};

}  // namespace qmk::toolkit::richcontent
