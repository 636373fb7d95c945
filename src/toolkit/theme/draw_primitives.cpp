// draw_primitives.cpp: shapes built from opaque fills, so every theme's pixels are exact and
// the same on every machine.
#include "toolkit/theme/draw_primitives.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "toolkit/bitmap/colour.h"

namespace qmk::toolkit::theme::draw {
namespace {

constexpr uint32_t kOpaque = 0xFF000000u;

// How far row `y` of a face `height` rows high is cut in at each side by corners of `radius`.
int CornerInset(int y, int height, int radius) {
  if (radius <= 0) return 0;
  const int from_edge = std::min(y, height - 1 - y);
  if (from_edge >= radius) return 0;
  const double dy = radius - from_edge - 0.5;
  return static_cast<int>(std::lround(radius - std::sqrt(std::max(0.0, radius * radius - dy * dy))));
}

// The rows of a face `height` rows high at `rc` that fall on the target: a control paints its
// part of the parent's background by drawing the parent's whole face shifted, so most rows lie
// outside and are skipped rather than filled and clipped one by one.
struct RowSpan {
  int first, end;
};
RowSpan RowsOnTarget(const DrawTarget& dc, const DrawRect& rc, int height) {
  return {std::max(0, -rc.top), std::min(height, dc.height() - rc.top)};
}

// `num`/`den` of the way from a to b, per channel.
uint32_t Lerp(uint32_t a, uint32_t b, int num, int den) {
  if (den <= 0) return a;
  auto channel = [&](int shift) {
    const int x = static_cast<int>((a >> shift) & 0xFF), y = static_cast<int>((b >> shift) & 0xFF);
    return static_cast<uint32_t>(x + (y - x) * num / den) << shift;
  };
  return channel(0) | channel(8) | channel(16);
}

// The pixels of a tick, nine wide and seven high.
constexpr const char* kTick[] = {
    "........#", ".......##", "#.....##.", "##...##..", ".##.##...", "..###....", "...#.....",
};

}  // namespace

void Fill(DrawTarget& dc, const DrawRect& rc, uint32_t rgb) { dc.FillRect(rc, (rgb & 0xFFFFFF) | kOpaque); }

void Frame(DrawTarget& dc, const DrawRect& rc, uint32_t rgb) { Edge(dc, rc, rgb, rgb); }

void Edge(DrawTarget& dc, const DrawRect& rc, uint32_t top_left, uint32_t bottom_right) {
  if (rc.IsEmpty()) return;
  Fill(dc, {rc.left, rc.top, rc.right - 1, rc.top + 1}, top_left);
  Fill(dc, {rc.left, rc.top, rc.left + 1, rc.bottom - 1}, top_left);
  Fill(dc, {rc.left, rc.bottom - 1, rc.right, rc.bottom}, bottom_right);
  Fill(dc, {rc.right - 1, rc.top, rc.right, rc.bottom}, bottom_right);
}

void FocusFrame(DrawTarget& dc, const DrawRect& rc, uint32_t rgb) {
  for (int x = rc.left; x < rc.right; x += 2) {
    Fill(dc, {x, rc.top, x + 1, rc.top + 1}, rgb);
    Fill(dc, {x, rc.bottom - 1, x + 1, rc.bottom}, rgb);
  }
  for (int y = rc.top; y < rc.bottom; y += 2) {
    Fill(dc, {rc.left, y, rc.left + 1, y + 1}, rgb);
    Fill(dc, {rc.right - 1, y, rc.right, y + 1}, rgb);
  }
}

void ShadedFace(DrawTarget& dc, const DrawRect& rc, uint32_t top, uint32_t bottom, int radius) {
  const int h = rc.Height();
  const RowSpan rows = RowsOnTarget(dc, rc, h);
  for (int y = rows.first; y < rows.end; ++y) {
    const uint32_t row = Lerp(top, bottom, y, h - 1);
    const int inset = CornerInset(y, h, radius);
    Fill(dc, {rc.left + inset, rc.top + y, rc.right - inset, rc.top + y + 1}, row);
  }
}

void GlossyFace(DrawTarget& dc, const DrawRect& rc, uint32_t top, uint32_t bottom, int radius) {
  const int h = rc.Height();
  const int mid = h * 2 / 5;
  // The upper band runs from near white to the top colour, the lower from the bottom colour to
  // a lighter one: the step at the split is what makes the face look glassy.
  const uint32_t upper_top = bitmap::Mix100(0xFFFFFF, top, 60);
  const uint32_t lower_bottom = bitmap::Mix100(0xFFFFFF, bottom, 30);
  const RowSpan rows = RowsOnTarget(dc, rc, h);
  for (int y = rows.first; y < rows.end; ++y) {
    const uint32_t c = y < mid ? Lerp(upper_top, top, y, mid - 1) : Lerp(bottom, lower_bottom, y - mid, h - mid - 1);
    const int inset = CornerInset(y, h, radius);
    Fill(dc, {rc.left + inset, rc.top + y, rc.right - inset, rc.top + y + 1}, c);
  }
}

void RoundFrame(DrawTarget& dc, const DrawRect& rc, uint32_t rgb, int radius) {
  const int h = rc.Height();
  if (radius <= 0 || h < 2 * radius) {
    Frame(dc, rc, rgb);
    return;
  }
  for (int y = 0; y < h; ++y) {
    const int inset = CornerInset(y, h, radius);
    const int next = y + 1 < h ? CornerInset(y + 1, h, radius) : inset;
    const int prev = y > 0 ? CornerInset(y - 1, h, radius) : inset;
    const int reach = std::max({inset, next, prev});
    const int row = rc.top + y;
    if (y == 0 || y == h - 1) {
      Fill(dc, {rc.left + inset, row, rc.right - inset, row + 1}, rgb);
      continue;
    }
    // Each side spans from this row's inset to its neighbours', so the curve has no gaps.
    const int span = std::max(1, reach - inset + 1);
    Fill(dc, {rc.left + inset, row, rc.left + inset + span, row + 1}, rgb);
    Fill(dc, {rc.right - inset - span, row, rc.right - inset, row + 1}, rgb);
  }
}

void Disc(DrawTarget& dc, const DrawRect& rc, uint32_t rgb) {
  const int side = std::min(rc.Width(), rc.Height());
  const DrawRect sq = CenteredSquare(rc, side);
  const double r = side / 2.0;
  for (int y = 0; y < side; ++y) {
    const double dy = y + 0.5 - r;
    const double half = std::sqrt(std::max(0.0, r * r - dy * dy));
    const int x0 = static_cast<int>(std::lround(r - half));
    const int x1 = static_cast<int>(std::lround(r + half));
    if (x1 > x0) Fill(dc, {sq.left + x0, sq.top + y, sq.left + x1, sq.top + y + 1}, rgb);
  }
}

void Ring(DrawTarget& dc, const DrawRect& rc, uint32_t rgb) {
  const int side = std::min(rc.Width(), rc.Height());
  const DrawRect sq = CenteredSquare(rc, side);
  const double r = side / 2.0;
  // A pixel is on the ring when its centre lies within half a pixel of the circle.
  for (int y = 0; y < side; ++y)
    for (int x = 0; x < side; ++x) {
      const double d = std::hypot(x + 0.5 - r, y + 0.5 - r);
      if (d <= r && d > r - 1.2) Fill(dc, {sq.left + x, sq.top + y, sq.left + x + 1, sq.top + y + 1}, rgb);
    }
}

void ArrowGlyph(DrawTarget& dc, const DrawRect& rc, Arrow dir, int size, uint32_t rgb) {
  const bool vertical = dir == Arrow::kUp || dir == Arrow::kDown;
  const int cx = (rc.left + rc.right) / 2, cy = (rc.top + rc.bottom) / 2;
  for (int i = 0; i < size; ++i) {
    // Row i from the tip is 2i+1 pixels wide.
    const int from_tip = (dir == Arrow::kDown || dir == Arrow::kRight) ? size - 1 - i : i;
    const int half = from_tip;
    if (vertical) {
      const int y = cy - size / 2 + i;
      Fill(dc, {cx - half, y, cx + half + 1, y + 1}, rgb);
    } else {
      const int x = cx - size / 2 + i;
      Fill(dc, {x, cy - half, x + 1, cy + half + 1}, rgb);
    }
  }
}

void CheckGlyph(DrawTarget& dc, const DrawRect& rc, uint32_t rgb, bool thick) {
  const int w = 9, h = static_cast<int>(std::size(kTick));
  const int x0 = rc.left + (rc.Width() - w) / 2, y0 = rc.top + (rc.Height() - h) / 2;
  for (int y = 0; y < h; ++y)
    for (int x = 0; x < w; ++x)
      if (kTick[y][x] == '#')
        Fill(dc, {x0 + x, y0 + y, x0 + x + 1, y0 + y + 1 + (thick ? 1 : 0)}, rgb);
}

DrawRect Deflate(const DrawRect& rc, int dx, int dy) {
  return {rc.left + dx, rc.top + dy, rc.right - dx, rc.bottom - dy};
}

DrawRect CenteredSquare(const DrawRect& rc, int side) {
  const int x = rc.left + (rc.Width() - side) / 2, y = rc.top + (rc.Height() - side) / 2;
  return {x, y, x + side, y + side};
}

}  // namespace qmk::toolkit::theme::draw
