// text_measure.h: the text measuring service the layout asks for word sizes, with a pango
// implementation that caches what it measured.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/draw/text.h"
#include "toolkit/richcontent/style.h"

namespace qmk::toolkit::richcontent {

struct RichTextSize {
  int width = 0;
  int height = 0;
};

class RichTextMeasurer {
 public:
  virtual ~RichTextMeasurer() = default;
  virtual RichTextSize Measure(const std::string& text, const CExtRichFontDescription& font) = 0;
};

// The pango font a font request names: its face, its character height and bold from weight 600.
platform::FontSpec FontSpecOf(const CExtRichFontDescription& font);

class PangoTextMeasurer : public RichTextMeasurer {
 public:
  RichTextSize Measure(const std::string& text, const CExtRichFontDescription& font) override;

 private:
  // A document uses few fonts and many words: the words of each font are kept apart, and the
  // font of the last word is tried first.
  struct FontCache {
    CExtRichFontDescription font;
    std::unordered_map<std::string, RichTextSize> sizes;
  };
  std::vector<FontCache> m_fonts;
  size_t m_lastFont = 0;
};

}  // namespace qmk::toolkit::richcontent
