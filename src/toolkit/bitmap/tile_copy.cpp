// tile_copy.cpp: a picture made of turned copies of one rectangle, side by side.
#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {
namespace {

// The source position (inside a w by h rectangle) of frame pixel (u, v), turned clockwise.
void SourceOf(int angle, int w, int h, int u, int v, int& x, int& y) {
  switch (angle) {
    case 90: x = v; y = h - 1 - u; break;
    case 180: x = w - 1 - u; y = h - 1 - v; break;
    case 270: x = w - 1 - v; y = u; break;
    default: x = u; y = v; break;  // 0 and 360
  }
}

}  // namespace

bool CExtBitmap::TileCopy(const CExtBitmap& source, const Rect& src_rect, int src_step_x,
                          int src_step_y, int frames, int angle, bool vertical) {
  if (source.IsEmpty() || source.Depth() < 15 || frames < 1 || src_rect.IsEmpty()) return false;
  if (angle != 0 && angle != 90 && angle != 180 && angle != 270 && angle != 360) return false;
  const bool turned = angle == 90 || angle == 270;
  const int w = src_rect.Width(), h = src_rect.Height();
  const int fw = turned ? h : w, fh = turned ? w : h;
  const int64_t total_w = vertical ? fw : int64_t{fw} * frames;
  const int64_t total_h = vertical ? int64_t{fh} * frames : fh;
  if (total_w > INT32_MAX || total_h > INT32_MAX) return false;
  CExtBitmap out;
  if (!out.Create(static_cast<int>(total_w), static_cast<int>(total_h), source.Depth(),
                  *PixelBlock::Masks(source.Block())))
    return false;
  out.m_bPreMultiplied = source.m_bPreMultiplied;
  for (int f = 0; f < frames; ++f) {
    const int ox = vertical ? 0 : f * fw, oy = vertical ? f * fh : 0;
    const int sx0 = src_rect.left + f * src_step_x, sy0 = src_rect.top + f * src_step_y;
    for (int v = 0; v < fh; ++v)
      for (int u = 0; u < fw; ++u) {
        int x, y;
        SourceOf(angle, w, h, u, v, x, y);
        RGBQUAD c;
        // Parts of a frame beyond the source picture stay clear.
        if (source.GetPixel(sx0 + x, sy0 + y, c)) out.SetPixel(ox + u, oy + v, c);
      }
  }
  // `source` may be this picture, so the result replaces it only now.
  out.m_bPreMultiplied = false;
  const bool premultiplied = source.m_bPreMultiplied;
  Attach(out.m_pImageBuffer);
  out.m_pImageBuffer = nullptr;
  m_bPreMultiplied = premultiplied;
  return true;
}

}  // namespace qmk::toolkit::bitmap
