// word_text.h: what a word shows and how wide it is once its style is applied: the case of
// "text-transform" and the room of "letter-spacing".
#pragma once

#include <string>

#include "toolkit/richcontent/style.h"
#include "toolkit/richcontent/text_measure.h"

namespace qmk::toolkit::richcontent {

// Values of "text-transform".
enum TextTransform : int { kTransformNone = 0, kTransformCapitalize = 1, kTransformUpper = 2, kTransformLower = 3 };

// The word as shown: "capitalize" raises its first letter, "uppercase" and "lowercase" change
// every letter. Only ASCII letters change: other bytes belong to the host's code page.
std::string ShownText(const std::string& word, const CExtRichStyleDescription& style);

// The size of a shown word: its measured width and, with letter spacing, that many pixels more
// after each character (negative spacing narrows, never below zero).
RichTextSize MeasureShown(RichTextMeasurer& measurer, const std::string& shown, const CExtRichStyleDescription& style);

}  // namespace qmk::toolkit::richcontent
