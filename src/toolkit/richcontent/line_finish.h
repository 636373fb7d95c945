// line_finish.h: the finishing steps of one laid out line: horizontal alignment, justification
// by widening the spaces, and the vertical alignment of images.
#pragma once

#include <vector>

#include "toolkit/richcontent/box_model.h"

namespace qmk::toolkit::richcontent {

class CExtRichContentItem;

// Values of "vertical-align" as the style stores them.
enum VerticalAlign { kAlignTop = 0, kAlignTextTop = 1, kAlignMiddle = 2, kAlignBottom = 3, kAlignTextBottom = 4 };

// One box on a line: a word, a space, or an atomic inline box (image, inline block).
struct LineItem {
  RichRect box;
  int kind = 0;            // 0 word, 1 space, 2 atomic box
  bool hidden = false;
  bool image = false;      // an img element: the only kind vertical alignment moves
  int verticalAlign = kAlignBottom;
  bool afterSpace = false; // the first word after a space (or the first word of the line)
  CExtRichContentItem* item = nullptr;
};

// Spreads the free room at the end of the line over the gaps before the words that follow a
// space. `lineRight` is the line's right edge. Returns true when something moved.
bool JustifyLine(std::vector<LineItem>& line, int lineRight);

// Vertical alignment of images on a line whose items sit on its bottom. Returns the height the
// line needs when it is above `lineHeight`, else 0.
int AlignLine(std::vector<LineItem>& line, int lineHeight);

// Moves every item of the line by `dx` (left, center and right alignment).
void ShiftLine(std::vector<LineItem>& line, int dx);

}  // namespace qmk::toolkit::richcontent
