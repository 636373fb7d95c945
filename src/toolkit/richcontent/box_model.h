// box_model.h: the integer rectangles of the rich content layout, the box sides a computed style
// gives, rotation of a rectangle, and the marker texts of list items.
#pragma once

#include <string>

#include "toolkit/richcontent/style.h"

namespace qmk::toolkit::richcontent {

struct RichRect {
  int left = 0, top = 0, right = 0, bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
  void Offset(int dx, int dy) { left += dx; right += dx; top += dy; bottom += dy; }
  bool operator==(const RichRect&) const = default;
};

struct RichSides {
  int left = 0, top = 0, right = 0, bottom = 0;
  int Horizontal() const { return left + right; }
  int Vertical() const { return top + bottom; }
};

// Margin, border (not for words and spaces) and padding of a style, negative values read as 0.
RichSides MarginOf(const CExtRichStyleDescription& style);
RichSides BorderOf(const CExtRichStyleDescription& style);
RichSides PaddingOf(const CExtRichStyleDescription& style);
// All three added, the amount between an item's box and its content.
RichSides OuterSidesOf(const CExtRichStyleDescription& style, bool hasBorder);
RichRect Deflate(const RichRect& r, const RichSides& s);

// A rectangle turned by a document rotation of 90, 180 or 270 degrees; other values leave it.
RichRect RotateRect(const RichRect& r, int rotation);

// The marker text of list item number `n` for a "list-style-type" value, "%s.  " applied. Out of
// range numbers give an empty text, or the decimal form when `fallback` is set. Bullet types
// (disc, circle, square) and "none" give an empty text: they are drawn, not written.
std::string ListMarkerText(int listType, int n, bool fallback);
// Roman numerals for 1 to 4000; empty outside.
std::string RomanNumeral(int n);
// Letters A..Z, then AA.. for larger numbers; empty below 1.
std::string AlphaNumeral(int n);

}  // namespace qmk::toolkit::richcontent
