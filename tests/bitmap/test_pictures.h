// test_pictures.h: small pictures with known contents for the bitmap tests.
#pragma once

#include <cstring>
#include <vector>

#include "platform/archive.h"
#include "toolkit/bitmap/bitmap.h"

namespace bitmap_test {

using qmk::platform::Archive;
using qmk::toolkit::bitmap::CExtBitmap;
using qmk::toolkit::bitmap::PixelBlock;
using qmk::toolkit::bitmap::RGBQUAD;

// A picture of the depth whose stored bytes follow a pattern; palettes get distinct colours.
inline CExtBitmap Patterned(int w, int h, int depth) {
  CExtBitmap bmp;
  bmp.Create(w, h, depth);
  uint8_t* block = bmp.Block();
  for (uint32_t i = 0; i < PixelBlock::PaletteCount(block); ++i)
    PixelBlock::Palette(block)[i] = {uint8_t(i * 7), uint8_t(255 - i), uint8_t(i * 3 + 1), 0};
  for (int y = 0; y < h; ++y) {
    uint8_t* row = PixelBlock::Row(block, y);
    const size_t used = (static_cast<size_t>(w) * depth + 7) / 8;
    for (size_t i = 0; i < used; ++i) row[i] = static_cast<uint8_t>(i * 13 + y * 29 + 1);
  }
  return bmp;
}

// Every pixel of both pictures, as GetPixel gives them.
inline bool SamePixels(const CExtBitmap& a, const CExtBitmap& b) {
  if (a.Width() != b.Width() || a.Height() != b.Height()) return false;
  for (int y = 0; y < a.Height(); ++y)
    for (int x = 0; x < a.Width(); ++x) {
      RGBQUAD p, q;
      if (!a.GetPixel(x, y, p) || !b.GetPixel(x, y, q) || !(p == q)) return false;
    }
  return true;
}

inline std::vector<uint8_t> Saved(const CExtBitmap& bmp, bool rle, bool file_header = true) {
  Archive ar = Archive::ToMemory();
  bmp.SaveBMP(ar, file_header, rle);
  return ar.TakeStored();
}

// The archive form of a picture.
inline std::vector<uint8_t> Serialized(CExtBitmap& bmp) {
  Archive ar = Archive::ToMemory();
  bmp.Serialize(ar);
  return ar.TakeStored();
}

inline RGBQUAD Quad(uint8_t r, uint8_t g, uint8_t b, uint8_t a) { return {b, g, r, a}; }

}  // namespace bitmap_test
