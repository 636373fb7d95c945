// text_measure.h: the text measuring service the layout asks for word sizes, with a pango
// implementation that caches what it measured.
#pragma once

#include <map>
#include <string>
#include <utility>

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
  std::map<std::pair<CExtRichFontDescription, std::string>, RichTextSize> m_cache;
};

}  // namespace qmk::toolkit::richcontent
