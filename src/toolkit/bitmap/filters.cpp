// filters.cpp: pixel colour filters of CExtBitmap: grey with tint, HLS and alpha adjustment,
// hue swap and gradient bands. They run once per change of an icon, through GetPixel/SetPixel.
#include <algorithm>
#include <functional>

#include "toolkit/bitmap/bitmap.h"
#include "toolkit/bitmap/colour.h"

namespace qmk::toolkit::bitmap {
namespace {

uint32_t ToColour(const RGBQUAD& q) { return RGB(q.rgbRed, q.rgbGreen, q.rgbBlue); }
RGBQUAD ToQuad(uint32_t c, uint8_t alpha) {
  return {static_cast<uint8_t>(GetBValue(c)), static_cast<uint8_t>(GetGValue(c)),
          static_cast<uint8_t>(GetRValue(c)), alpha};
}

// Windows' MulDiv for non-negative values: a * b / c rounded to nearest.
int MulDiv(int64_t a, int64_t b, int64_t c) { return static_cast<int>((a * b + c / 2) / c); }

// Runs `fn` on every pixel inside `rect` (the whole picture when null), clamped to the picture.
// Refused for empty pictures and palette depths; a premultiplied picture is turned back first.
bool ForEachPixel(CExtBitmap& bmp, const Rect* rect,
                         const std::function<void(int, int, RGBQUAD&)>& fn) {
  if (bmp.IsEmpty() || bmp.Depth() < 15) return false;
  if (bmp.IsPreMultiplied()) bmp.PreMultiply(false);
  Rect r{0, 0, bmp.Width(), bmp.Height()};
  if (rect)
    r = {std::max(rect->left, 0), std::max(rect->top, 0), std::min(rect->right, bmp.Width()),
         std::min(rect->bottom, bmp.Height())};
  for (int y = r.top; y < r.bottom; ++y)
    for (int x = r.left; x < r.right; ++x) {
      RGBQUAD c;
      bmp.GetPixel(x, y, c);
      fn(x, y, c);
    }
  bmp.OnContentChanged();
  return true;
}

}  // namespace

bool CExtBitmap::MakeMono(int64_t tint, const Rect* rect) {
  const HLS tint_hls = RGBtoHLS(static_cast<uint32_t>(tint));
  return ForEachPixel(*this, rect, [&](int x, int y, RGBQUAD& c) {
    const uint8_t g = static_cast<uint8_t>(
        std::min(255.0, 0.11 * c.rgbBlue + 0.59 * c.rgbGreen + 0.3 * c.rgbRed));
    uint32_t out = RGB(g, g, g);
    if (tint != -1) out = HLStoRGB(tint_hls.h, g / 255.0, tint_hls.s);
    SetPixel(x, y, ToQuad(out, 0), true, true, true, false);
  });
}

bool CExtBitmap::AdjustHLS(int64_t mask_from, int64_t mask_to, double dh, double dl, double ds,
                           const Rect* rect) {
  if (IsEmpty() || Depth() < 15) return false;
  if (dh == 0 && dl == 0 && ds == 0) return true;
  // Colours from `mask_from` up to `mask_from + mask_to`, per channel, are left as they are.
  unsigned lo[3] = {}, hi[3] = {};
  for (int i = 0; i < 3; ++i) {
    lo[i] = (static_cast<uint32_t>(mask_from) >> (8 * i)) & 0xFF;
    hi[i] = std::min(255u, lo[i] + ((static_cast<uint32_t>(mask_to) >> (8 * i)) & 0xFF));
  }
  return ForEachPixel(*this, rect, [&](int x, int y, RGBQUAD& c) {
    const unsigned ch[3] = {c.rgbRed, c.rgbGreen, c.rgbBlue};
    if (mask_from != -1 && ch[0] >= lo[0] && ch[0] <= hi[0] && ch[1] >= lo[1] && ch[1] <= hi[1] &&
        ch[2] >= lo[2] && ch[2] <= hi[2])
      return;
    HLS v = RGBtoHLS(ToColour(c));
    v.h = ApplyDelta(v.h, dh);
    v.l = ApplyDelta(v.l, dl);
    v.s = ApplyDelta(v.s, ds);
    SetPixel(x, y, ToQuad(HLStoRGB(v.h, v.l, v.s), 0), true, true, true, false);
  });
}

bool CExtBitmap::AdjustAlpha(double delta, const Rect* rect) {
  if (IsEmpty() || Depth() < 15) return false;
  if (delta == 0) return true;
  return ForEachPixel(*this, rect, [&](int x, int y, RGBQUAD& c) {
    if (c.rgbReserved == 0) return;
    const auto a = static_cast<uint8_t>(ApplyDelta(c.rgbReserved / 255.0, delta) * 255);
    if (a == c.rgbReserved) return;
    c.rgbReserved = a;
    SetPixel(x, y, c, false, false, false, true);
  });
}

bool CExtBitmap::ChangeColor(int64_t from_color, uint32_t new_hue, const Rect* rect) {
  const HLS target = RGBtoHLS(new_hue);
  return ForEachPixel(*this, rect, [&](int x, int y, RGBQUAD& c) {
    if (from_color != -1 && ToColour(c) == (static_cast<uint32_t>(from_color) & 0xFFFFFF)) return;
    const HLS own = RGBtoHLS(ToColour(c));
    SetPixel(x, y, ToQuad(HLStoRGB(target.h, own.l, target.s), 0), true, true, true, false);
  });
}

bool CExtBitmap::PaintGradient(const Rect& rect, RGBQUAD c1, RGBQUAD c2, bool horizontal, int bands) {
  if (IsEmpty() || Depth() < 15 || bands < 1 || rect.IsEmpty()) return false;
  const int length = horizontal ? rect.Width() : rect.Height();
  const int n = bands;
  auto mix = [n](int a, int b, int i) { return static_cast<uint8_t>((a * (n - i) + b * i) / n); };
  for (int i = 0; i < n; ++i) {
    const RGBQUAD band{mix(c1.rgbBlue, c2.rgbBlue, i), mix(c1.rgbGreen, c2.rgbGreen, i),
                       mix(c1.rgbRed, c2.rgbRed, i), mix(c1.rgbReserved, c2.rgbReserved, i)};
    // With more bands than pixels the positions step one pixel a band and the later bands fall
    // beyond the rectangle, so the far colour is never reached.
    const int from = MulDiv(i, length, std::min(n, length));
    const int to = i == n - 1 ? length : MulDiv(i + 1, length, std::min(n, length));
    Rect part = horizontal ? Rect{rect.left + from, rect.top, rect.left + std::min(to, length), rect.bottom}
                           : Rect{rect.left, rect.top + from, rect.right, rect.top + std::min(to, length)};
    ForEachPixel(*this, &part, [&](int x, int y, RGBQUAD&) { SetPixel(x, y, band); });
  }
  return true;
}

}  // namespace qmk::toolkit::bitmap
