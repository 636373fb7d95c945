// border_painter.h: the four sides of a box border, each drawn by itself in its style and
// clipped to a mitre where it meets its neighbours.
#pragma once

#include <cstdint>

#include "platform/draw/draw_target.h"
#include "toolkit/richcontent/box_model.h"

namespace qmk::toolkit::richcontent {

// Border styles as the style reader stores them.
enum BorderStyle : int {
  kBorderNone = 0, kBorderDotted = 1, kBorderDashed = 2, kBorderSolid = 3, kBorderDouble = 4,
  kBorderGroove = 5, kBorderRidge = 6, kBorderInset = 7, kBorderOutset = 8
};

enum BorderSide : int { kSideLeft, kSideTop, kSideRight, kSideBottom };

struct BorderSideSpec {
  int style = kBorderNone;
  int32_t colour = -1;  // red in the low byte; -1 unset
  int width = 0;
};

// Draws the side between `outer` (the border box) and `inner` (the padding box). Returns false
// when the side is skipped: no style, no colour or a width under 1.
bool DrawBorderSide(platform::DrawTarget& target, const RichRect& outer, const RichRect& inner,
                    BorderSide side, const BorderSideSpec& spec);

// A colour with its HLS lightness changed by `delta` (-1..1).
uint32_t ChangeLightness(uint32_t colour, double delta);

}  // namespace qmk::toolkit::richcontent
