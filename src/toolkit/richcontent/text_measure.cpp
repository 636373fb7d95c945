// text_measure.cpp: pango measuring of words for the layout, cached per font and text.
#include "toolkit/richcontent/text_measure.h"

#include <cstdlib>

namespace qmk::toolkit::richcontent {

platform::FontSpec FontSpecOf(const CExtRichFontDescription& font) {
  platform::FontSpec spec;
  spec.face = font.lfFaceName[0] ? font.lfFaceName : "DejaVu Sans";
  spec.pixels = std::max(1, std::abs(font.lfHeight));
  spec.bold = font.lfWeight >= 600;
  spec.italic = font.lfItalic != 0;
  return spec;
}

RichTextSize PangoTextMeasurer::Measure(const std::string& text, const CExtRichFontDescription& font) {
  if (m_lastFont >= m_fonts.size() || !(m_fonts[m_lastFont].font == font)) {
    m_lastFont = 0;
    while (m_lastFont < m_fonts.size() && !(m_fonts[m_lastFont].font == font)) ++m_lastFont;
    if (m_lastFont == m_fonts.size()) m_fonts.push_back({font, {}});
  }
  auto& sizes = m_fonts[m_lastFont].sizes;
  const auto found = sizes.find(text);
  if (found != sizes.end()) return found->second;
  const platform::TextSize size = platform::MeasureText(text.empty() ? " " : text, FontSpecOf(font));
  const RichTextSize result{text.empty() ? 0 : size.width, size.height};
  sizes.emplace(text, result);
  return result;
}

}  // namespace qmk::toolkit::richcontent
