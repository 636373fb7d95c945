// layout_fixture.h: a parsed and laid out document for layout tests, measured with a fixed
// width font (8 pixels a character, 16 pixels a line) so that positions are exact.
#pragma once

#include <string>
#include <vector>

#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent::testing {

class FixedMeasurer : public RichTextMeasurer {
 public:
  RichTextSize Measure(const std::string& text, const CExtRichFontDescription&) override {
    return {static_cast<int>(text.size()) * 8, 16};
  }
};

struct LaidOut {
  explicit LaidOut(const std::string& html, int width = 200, int rotation = 0) {
    document.m_nRotation = rotation;
    document.ParseAuto(html, kFormHtml);
    layout.LayoutTree({0, 0, width, 1000});
  }
  CExtRichContentItem* ById(const std::string& id) const {
    for (CExtRichContentItem* item : document.Items())
      if (item->m_strId == id) return item;
    return nullptr;
  }
  CExtRichContentItem* Word(const std::string& text) const {
    for (CExtRichContentItem* item : document.Items())
      if (item->m_nKind == kKindWord && item->m_strName == text) return item;
    return nullptr;
  }
  RichRect Box(const CExtRichContentItem* item) const {
    const RichItemBox* b = layout.BoxOf(item);
    return b ? b->box : RichRect{-1, -1, -1, -1};
  }
  RichRect WordBox(const std::string& text) const { return Box(Word(text)); }

  CExtRichContentLayout document;
  FixedMeasurer measurer;
  RichDocumentLayout layout{document, &measurer};
};

}  // namespace qmk::toolkit::richcontent::testing
