// text_measure.cpp: pango measuring of words for the layout, cached per font and text.
#include "toolkit/richcontent/text_measure.h"

#include <cstdlib>

namespace qmk::toolkit::richcontent {

platform::FontSpec FontSpecOf(const CExtRichFontDescription& font) {
  platform::FontSpec spec;
  spec.face = font.lfFaceName[0] ? font.lfFaceName : "DejaVu Sans";
  spec.pixels = std::max(1, std::abs(font.lfHeight));
  spec.bold = font.lfWeight >= 600;
  return spec;
}

RichTextSize PangoTextMeasurer::Measure(const std::string& text, const CExtRichFontDescription& font) {
  auto key = std::make_pair(font, text);
  const auto found = m_cache.find(key);
  if (found != m_cache.end()) return found->second;
  const platform::TextSize size = platform::MeasureText(text.empty() ? " " : text, FontSpecOf(font));
  const RichTextSize result{text.empty() ? 0 : size.width, size.height};
  m_cache.emplace(std::move(key), result);
  return result;
}

}  // namespace qmk::toolkit::richcontent
