// draw_primitives.h: the shapes themes build widgets from, all made of opaque fills on the
// drawing target: lines, edges, shaded and rounded faces, discs, glyphs.
#pragma once

#include <cstdint>

#include "toolkit/theme/widget_state.h"

namespace qmk::toolkit::theme::draw {

void Fill(DrawTarget& dc, const DrawRect& rc, uint32_t rgb);
void Frame(DrawTarget& dc, const DrawRect& rc, uint32_t rgb);
// The upper and left sides in one colour, the lower and right in the other.
void Edge(DrawTarget& dc, const DrawRect& rc, uint32_t top_left, uint32_t bottom_right);
// A dotted rectangle, every other pixel.
void FocusFrame(DrawTarget& dc, const DrawRect& rc, uint32_t rgb);

// A face shaded from top to bottom; `radius` cuts the corners.
void ShadedFace(DrawTarget& dc, const DrawRect& rc, uint32_t top, uint32_t bottom, int radius);
// A face whose upper half is lighter than its lower half, split at the middle.
void GlossyFace(DrawTarget& dc, const DrawRect& rc, uint32_t top, uint32_t bottom, int radius);
// The outline of a face with cut corners.
void RoundFrame(DrawTarget& dc, const DrawRect& rc, uint32_t rgb, int radius);

// A filled disc in the rectangle's largest centred square, and its one-pixel ring.
void Disc(DrawTarget& dc, const DrawRect& rc, uint32_t rgb);
void Ring(DrawTarget& dc, const DrawRect& rc, uint32_t rgb);

enum class Arrow { kUp, kDown, kLeft, kRight };
// A solid triangle of `size` pixels from base to tip, centred in the rectangle.
void ArrowGlyph(DrawTarget& dc, const DrawRect& rc, Arrow dir, int size, uint32_t rgb);
// A tick centred in the rectangle; `thick` doubles its strokes.
void CheckGlyph(DrawTarget& dc, const DrawRect& rc, uint32_t rgb, bool thick);

DrawRect Deflate(const DrawRect& rc, int dx, int dy);
DrawRect CenteredSquare(const DrawRect& rc, int side);

}  // namespace qmk::toolkit::theme::draw
