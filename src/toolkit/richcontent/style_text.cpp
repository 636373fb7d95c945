// style_text.cpp: names of the style fields and of item kinds, and the differences of a style.
#include "toolkit/richcontent/style_text.h"

#include <cstdio>
#include <cstring>
#include <iterator>

namespace qmk::toolkit::richcontent {
namespace {

constexpr const char* kEnumNames[kEnumFieldCount] = {
    "visibility", "display", "ui-dock", "table-layout", "empty-cells", "caption-side",
    "border-collapse", "z-index-state", "cursor", "clip", "float", "overflow", "ui-sbh", "ui-sbv",
    "position", "list-style-position", "list-style-type", "outline-style", "background-repeat",
    "background-attachment", "white-space", "text-align", "vertical-align", "text-transform",
    "border-top-style", "border-right-style", "border-bottom-style", "border-left-style",
    "ui-can-be-disabled", "ui-can-be-active", "ui-can-be-focused", "ui-can-be-selected",
    "ui-can-be-hovered", "ui-can-be-pressed", "ui-can-be-link", "ui-can-be-visited",
    "ui-focus-on-make-selected", "ui-focus-on-make-unselected-sibling",
    "ui-focus-off-make-unselected", "ui-focus-off-make-unselected-sibling", "ui-list-navigation",
    "ui-draw-method", "ui-background-draw-method", "ui-focus-ensure-visibility", "ui-delayed-draw",
    "ui-sb-type", "noshade"};

constexpr const char* kLengthNames[kLengthFieldCount] = {
    "left", "top", "right", "bottom", "width", "height", "min-width", "min-height", "max-width",
    "max-height", "margin-top", "margin-right", "margin-bottom", "margin-left", "padding-top",
    "padding-right", "padding-bottom", "padding-left", "border-top-width", "border-right-width",
    "border-bottom-width", "border-left-width", "margin-top-auto", "margin-right-auto",
    "margin-bottom-auto", "margin-left-auto", "ui-slice-top", "ui-slice-right", "ui-slice-bottom",
    "ui-slice-left", "ui-background-slice-top", "ui-background-slice-right",
    "ui-background-slice-bottom", "ui-background-slice-left", "ui-background-extend-top",
    "ui-background-extend-right", "ui-background-extend-bottom", "ui-background-extend-left",
    "clip-top", "clip-right", "clip-bottom", "clip-left", "text-indent", "word-spacing",
    "letter-spacing", "border-spacing-x", "border-spacing-y", "outline-width", "z-index",
    "ui-transparency", "ui-background-transparency", "background-position-x",
    "background-position-y", "colspan", "rowspan"};

constexpr const char* kColorNames[kColorFieldCount] = {
    "color", "background-color", "outline-color", "border-top-color", "border-right-color",
    "border-bottom-color", "border-left-color"};

constexpr const char* kStringNames[kStringFieldCount] = {
    "list-style-image", "background-image", "cursor-url", "direction", "counter", "content",
    "content-before", "content-after"};

std::string Format(const char* name, const char* format, auto value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return std::string(name) + "=" + text;
}

// Colour words hold red in the low byte; they are told as "#rrggbb", or as the number when
// negative (not set, inverted).
std::string ColorText(const char* name, int32_t c) {
  if (c < 0) return Format(name, "%d", c);
  const unsigned rgb = (c & 0xff) << 16 | (c & 0xff00) | (c >> 16 & 0xff);
  return Format(name, "#%06x", rgb);
}

void FontDifferences(const CExtRichFontDescription& f, const CExtRichFontDescription& r,
                     std::vector<std::string>& out) {
  if (f.lfHeight != r.lfHeight) out.push_back(Format("font-height", "%d", f.lfHeight));
  if (f.lfWeight != r.lfWeight) out.push_back(Format("font-weight", "%d", f.lfWeight));
  if (f.lfItalic != r.lfItalic) out.push_back(Format("italic", "%d", f.lfItalic));
  if (f.lfUnderline != r.lfUnderline) out.push_back(Format("underline", "%d", f.lfUnderline));
  if (f.lfStrikeOut != r.lfStrikeOut) out.push_back(Format("strike", "%d", f.lfStrikeOut));
  if (std::strncmp(f.lfFaceName, r.lfFaceName, sizeof f.lfFaceName) != 0)
    out.push_back(std::string("font-face=\"") + f.lfFaceName + "\"");
}

}  // namespace

const char* ItemKindName(int kind) {
  static const char* const kNames[] = {"root", "word", "space", "tag", "attribute", "style attribute",
                                       "value", "rule", "title", "style", "script", "meta", "link"};
  return kind >= -1 && kind + 1 < static_cast<int>(std::size(kNames)) ? kNames[kind + 1] : "?";
}

std::vector<std::string> DescribeStyleDifferences(const CExtRichStyleDescription& s,
                                                  const CExtRichStyleDescription& r) {
  std::vector<std::string> out;
  FontDifferences(s.m_font, r.m_font, out);
  if (s.m_nLineHeight != r.m_nLineHeight) out.push_back(Format("line-height", "%d", s.m_nLineHeight));
  if (s.m_lfLineHeightFactor != r.m_lfLineHeightFactor)
    out.push_back(Format("line-height-factor", "%g", s.m_lfLineHeightFactor));
  for (int i = 0; i < kEnumFieldCount; ++i)
    if (s.m_enums[i] != r.m_enums[i]) out.push_back(Format(kEnumNames[i], "%d", s.m_enums[i]));
  for (int i = 0; i < kLengthFieldCount; ++i) {
    if (s.m_lengths[i] != r.m_lengths[i]) out.push_back(Format(kLengthNames[i], "%d", s.m_lengths[i]));
    if (s.m_percents[i] != r.m_percents[i])
      out.push_back(Format((std::string(kLengthNames[i]) + "-percent").c_str(), "%g", s.m_percents[i]));
  }
  for (int i = 0; i < kColorFieldCount; ++i)
    if (s.m_colors[i] != r.m_colors[i]) out.push_back(ColorText(kColorNames[i], s.m_colors[i]));
  for (int i = 0; i < kStringFieldCount; ++i)
    if (s.m_strings[i] != r.m_strings[i]) out.push_back(std::string(kStringNames[i]) + "=\"" + s.m_strings[i] + "\"");
  return out;
}

}  // namespace qmk::toolkit::richcontent
