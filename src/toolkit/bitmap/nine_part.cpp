// nine_part.cpp: drawing a picture cut in nine by four margins: corners at their natural size,
// edges stretched (or tiled) along one axis, the middle stretched both ways.
#include <vector>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {
namespace {

enum class PartKind { kCorner, kTopBottom, kLeftRight, kMiddle };

struct Part {
  Rect dst, src;
  PartKind kind;
};

// The parts in drawing order: top edge, top-left, left edge, top-right, right edge, bottom edge,
// bottom-left, bottom-right, middle.
std::vector<Part> CutParts(Rect d, Rect s, const Rect& m, int top_inset) {
  d.top += top_inset;
  s.top += top_inset;
  const int dl = d.left + m.left, dr = d.right - m.right, dt = d.top + m.top, db = d.bottom - m.bottom;
  const int sl = s.left + m.left, sr = s.right - m.right, st = s.top + m.top, sb = s.bottom - m.bottom;
  return {
      {{dl, d.top, dr, dt}, {sl, s.top, sr, st}, PartKind::kTopBottom},
      {{d.left, d.top, dl, dt}, {s.left, s.top, sl, st}, PartKind::kCorner},
      {{d.left, dt, dl, db}, {s.left, st, sl, sb}, PartKind::kLeftRight},
      {{dr, d.top, d.right, dt}, {sr, s.top, s.right, st}, PartKind::kCorner},
      {{dr, dt, d.right, db}, {sr, st, s.right, sb}, PartKind::kLeftRight},
      {{dl, db, dr, d.bottom}, {sl, sb, sr, s.bottom}, PartKind::kTopBottom},
      {{d.left, db, dl, d.bottom}, {s.left, sb, sl, s.bottom}, PartKind::kCorner},
      {{dr, db, d.right, d.bottom}, {sr, sb, s.right, s.bottom}, PartKind::kCorner},
      {{dl, dt, dr, db}, {sl, st, sr, sb}, PartKind::kMiddle},
  };
}

// Repeats `src` over `dst` along one axis at natural size; the last copy is cut short.
bool Tile(DrawTarget& dc, platform::DeviceImage& image, const Rect& dst, const Rect& src, bool along_x,
          uint32_t rop) {
  bool ok = true;
  const int step = along_x ? src.Width() : src.Height();
  const int end = along_x ? dst.right : dst.bottom;
  for (int pos = along_x ? dst.left : dst.top; pos < end; pos += step) {
    const int n = std::min(step, end - pos);
    const Rect d = along_x ? Rect{pos, dst.top, pos + n, dst.bottom} : Rect{dst.left, pos, dst.right, pos + n};
    const Rect s = along_x ? Rect{src.left, src.top, src.left + n, src.bottom}
                           : Rect{src.left, src.top, src.right, src.top + n};
    ok = dc.Blit(image, d, s, rop) && ok;
  }
  return ok;
}

}  // namespace

bool CExtBitmap::DrawNinePart(DrawTarget& dc, const Rect& dst, const Rect& src, const Rect& margins,
                              int top_inset, bool draw_middle, bool smooth, uint32_t rop) {
  return DrawNineParts(dc, dst, src, margins, -1, top_inset, draw_middle, smooth, rop);
}

bool CExtBitmap::DrawNinePart(DrawTarget& dc, const Rect& dst, const Rect& src, const Rect& margins,
                              NinePartMethod method, int top_inset, bool smooth, uint32_t rop) {
  if (method < kNinePartHollow || method > kNinePartTileAll) return false;
  if (method == kNinePartHollow) return true;
  return DrawNineParts(dc, dst, src, margins, method, top_inset, true, smooth, rop);
}

// `method` -1 is the plain form: every part stretched, no visibility test.
bool CExtBitmap::DrawNineParts(DrawTarget& dc, const Rect& dst, const Rect& src, const Rect& margins,
                               int method, int top_inset, bool draw_middle, bool smooth, uint32_t rop) {
  std::unique_ptr<platform::DeviceImage> image = MakeDeviceImage();
  if (!image) return false;
  const Rect whole = src.IsEmpty() ? Rect{0, 0, Width(), Height()} : src;
  const int saved = dc.SetStretchMode(smooth && dc.HasHalftone() ? platform::kStretchHalftone
                                                                 : platform::kStretchColorOnColor);
  const bool tile_top_bottom = method == kNinePartTileTopBottom || method == kNinePartTileAll;
  const bool tile_sides = method == kNinePartTileLeftRight || method == kNinePartTileAll;
  bool ok = true;
  for (const Part& p : CutParts(dst, whole, margins, top_inset)) {
    if (p.dst.IsEmpty() || p.src.IsEmpty()) continue;
    if (p.kind == PartKind::kMiddle && !draw_middle) continue;
    if (method == kNinePartCenter && p.kind != PartKind::kMiddle) continue;
    if (method >= 0 && !dc.RectVisible(p.dst)) continue;
    if (p.kind == PartKind::kTopBottom && tile_top_bottom)
      ok = Tile(dc, *image, p.dst, p.src, true, rop) && ok;
    else if (p.kind == PartKind::kLeftRight && tile_sides)
      ok = Tile(dc, *image, p.dst, p.src, false, rop) && ok;
    else
      ok = dc.Blit(*image, p.dst, p.src, rop) && ok;
  }
  if (saved) dc.SetStretchMode(saved);
  return ok;
}

}  // namespace qmk::toolkit::bitmap
