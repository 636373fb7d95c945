// border_painter.cpp: one border side: its mitred outline scanned line by line, cut into dots
// or dashes, split into thirds or halves, and shaded for the three-dimensional styles.
#include "toolkit/richcontent/border_painter.h"

#include <algorithm>
#include <cmath>

#include "toolkit/bitmap/colour.h"

namespace qmk::toolkit::richcontent {
namespace {

using platform::DrawRect;

uint32_t Opaque(uint32_t colour) { return (colour & 0xFFFFFFu) | 0xFF000000u; }

// A side seen from its own frame: `along` runs the length of the side, `depth` from the border
// box edge (0) inwards to `width`. The mitre narrows the side towards the inside by the
// neighbours' widths.
struct SideFrame {
  BorderSide side;
  RichRect outer;
  int width;
  int startInset, endInset;  // the neighbour widths at the low and high end of `along`

  int Length() const {
    return side == kSideLeft || side == kSideRight ? outer.Height() : outer.Width();
  }
  // The part of `along` the mitre leaves at `depth` (pixel centre), as [from, to).
  std::pair<int, int> SpanAt(int depth) const {
    // Rounded down on both ends, so the two sides of a corner both cover its diagonal and no
    // gap shows between them.
    const double t = (depth + 0.5) / width;
    const int from = static_cast<int>(std::floor(t * startInset));
    const int to = Length() - static_cast<int>(std::floor(t * endInset));
    return {from, to};
  }
  // The device rectangle of [a0, a1) x [d0, d1) in the frame.
  DrawRect ToDevice(int a0, int a1, int d0, int d1) const {
    switch (side) {
      case kSideTop: return {outer.left + a0, outer.top + d0, outer.left + a1, outer.top + d1};
      case kSideBottom: return {outer.left + a0, outer.bottom - d1, outer.left + a1, outer.bottom - d0};
      case kSideLeft: return {outer.left + d0, outer.top + a0, outer.left + d1, outer.top + a1};
      default: return {outer.right - d1, outer.top + a0, outer.right - d0, outer.top + a1};
    }
  }
};

// Fills depth rows [d0, d1) of the side, inside the mitre, in the pieces `period` apart of
// `piece` length (0: one piece), starting from the end the style measures from.
void FillBand(platform::DrawTarget& target, const SideFrame& f, int d0, int d1, uint32_t colour,
              int piece, int period, bool fromHighEnd) {
  for (int d = d0; d < d1; ++d) {
    const auto [from, to] = f.SpanAt(d);
    if (from >= to) continue;
    if (piece <= 0) {
      target.FillRect(f.ToDevice(from, to, d, d + 1), Opaque(colour));
      continue;
    }
    const int length = f.Length();
    for (int start = 0; start < length; start += period) {
      int a0 = fromHighEnd ? length - start - piece : start;
      int a1 = a0 + piece;
      a0 = std::max(a0, from);
      a1 = std::min(a1, to);
      if (a0 < a1) target.FillRect(f.ToDevice(a0, a1, d, d + 1), Opaque(colour));
    }
  }
}

// Is the outer half of this side the half nearer the page's left or top edge?
bool OuterHalfIsNearer(BorderSide side) { return side == kSideLeft || side == kSideTop; }

}  // namespace

uint32_t ChangeLightness(uint32_t colour, double delta) {
  bitmap::HLS hls = bitmap::RGBtoHLS(colour & 0xFFFFFFu);
  return bitmap::HLStoRGB(hls.h, bitmap::ApplyDelta(hls.l, delta), hls.s);
}

bool DrawBorderSide(platform::DrawTarget& target, const RichRect& outer, const RichRect& inner,
                    BorderSide side, const BorderSideSpec& spec) {
  if (spec.style <= kBorderNone || spec.style > kBorderOutset || spec.colour == -1 || spec.width < 1) return false;
  SideFrame f{side, outer, spec.width, 0, 0};
  const bool vertical = side == kSideLeft || side == kSideRight;
  f.startInset = vertical ? inner.top - outer.top : inner.left - outer.left;
  f.endInset = vertical ? outer.bottom - inner.bottom : outer.right - inner.right;
  const uint32_t c = static_cast<uint32_t>(spec.colour);
  const int w = spec.width;
  // Vertical sides are dotted from their bottom end up; top and bottom from their left end.
  switch (spec.style) {
    case kBorderDotted: FillBand(target, f, 0, w, c, w, 2 * w, vertical); break;
    case kBorderDashed: FillBand(target, f, 0, w, c, 3 * w, 6 * w, vertical); break;
    case kBorderDouble:
      if (w < 3) {
        FillBand(target, f, 0, w, c, 0, 0, false);
      } else {
        FillBand(target, f, 0, w / 3, c, 0, 0, false);
        FillBand(target, f, w - w / 3, w, c, 0, 0, false);
      }
      break;
    case kBorderGroove:
    case kBorderRidge: {
      if (w < 2) {
        FillBand(target, f, 0, w, c, 0, 0, false);
        break;
      }
      const double nearer = spec.style == kBorderGroove ? -0.25 : 0.25;
      const bool outerNearer = OuterHalfIsNearer(side);
      FillBand(target, f, 0, w / 2, ChangeLightness(c, outerNearer ? nearer : -nearer), 0, 0, false);
      FillBand(target, f, w / 2, w, ChangeLightness(c, outerNearer ? -nearer : nearer), 0, 0, false);
      break;
    }
    case kBorderInset:
    case kBorderOutset: {
      const double lightSide = spec.style == kBorderInset ? -0.25 : 0.25;
      FillBand(target, f, 0, w, ChangeLightness(c, OuterHalfIsNearer(side) ? lightSide : -lightSide), 0, 0, false);
      break;
    }
    default: FillBand(target, f, 0, w, c, 0, 0, false); break;
  }
  return true;
}

}  // namespace qmk::toolkit::richcontent
