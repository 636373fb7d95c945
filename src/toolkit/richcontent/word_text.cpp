// word_text.cpp: text-transform and letter spacing of words.
#include "toolkit/richcontent/word_text.h"

#include <algorithm>

namespace qmk::toolkit::richcontent {
namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::string ShownText(const std::string& word, const CExtRichStyleDescription& style) {
  std::string shown = word;
  switch (style.m_enums[kTextTransform]) {
    case kTransformCapitalize:
      if (!shown.empty()) shown[0] = Upper(shown[0]);
      break;
    case kTransformUpper:
      std::transform(shown.begin(), shown.end(), shown.begin(), Upper);
      break;
    case kTransformLower:
      std::transform(shown.begin(), shown.end(), shown.begin(), Lower);
      break;
    default:
      break;
  }
  return shown;
}

RichTextSize MeasureShown(RichTextMeasurer& measurer, const std::string& shown, const CExtRichStyleDescription& style) {
  RichTextSize size = measurer.Measure(shown, style.m_font);
  const int spacing = style.m_lengths[kLetterSpacing];
  if (spacing != 0 && spacing != kNoValue && !shown.empty()) {
    const long long wider = size.width + static_cast<long long>(spacing) * static_cast<long long>(shown.size());
    size.width = static_cast<int>(std::clamp<long long>(wider, 0, 1 << 24));
  }
  return size;
}

}  // namespace qmk::toolkit::richcontent
