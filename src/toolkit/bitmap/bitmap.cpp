// bitmap.cpp: CExtBitmap's life cycle, pixel access, premultiplication, conversion to 32 bits,
// mirroring and its archive form.
#include "toolkit/bitmap/bitmap.h"

#include <algorithm>
#include <cstring>

namespace qmk::toolkit::bitmap {
namespace {

uint8_t Expand5(unsigned v) { return static_cast<uint8_t>(v * 255 / 31); }
uint8_t Expand6(unsigned v) { return static_cast<uint8_t>(v * 255 / 63); }

bool Is565(const uint8_t* block) {
  const ChannelMasks& m = *PixelBlock::Masks(block);
  return m.red == kMasks565.red && m.green == kMasks565.green && m.blue == kMasks565.blue;
}

uint8_t Unmultiply(unsigned c, unsigned a) { return static_cast<uint8_t>(std::min(255u, c * 255 / a)); }
uint8_t Multiply(unsigned c, unsigned a) { return static_cast<uint8_t>(c * a / 255); }

// Palette index of a pixel in a 1, 2, 4 or 8 bit row: high bits first.
unsigned ReadIndex(const uint8_t* row, int x, int depth) {
  const int per_byte = 8 / depth;
  const int shift = 8 - depth * (x % per_byte + 1);
  return (row[x / per_byte] >> shift) & ((1u << depth) - 1);
}

void WriteIndex(uint8_t* row, int x, int depth, unsigned index) {
  const int per_byte = 8 / depth;
  const int shift = 8 - depth * (x % per_byte + 1);
  const unsigned mask = ((1u << depth) - 1) << shift;
  row[x / per_byte] = static_cast<uint8_t>((row[x / per_byte] & ~mask) | ((index << shift) & mask));
}

unsigned NearestPaletteIndex(const RGBQUAD* palette, uint32_t count, const RGBQUAD& c) {
  unsigned best = 0;
  long best_distance = -1;
  for (uint32_t i = 0; i < count; ++i) {
    const long dr = palette[i].rgbRed - c.rgbRed, dg = palette[i].rgbGreen - c.rgbGreen,
               db = palette[i].rgbBlue - c.rgbBlue;
    const long d = dr * dr + dg * dg + db * db;
    if (best_distance < 0 || d < best_distance) {
      best = i;
      best_distance = d;
    }
  }
  return best;
}

}  // namespace

CExtBitmap::~CExtBitmap() { PixelBlock::Free(m_pImageBuffer); }

void CExtBitmap::Attach(uint8_t* block) {
  if (block != m_pImageBuffer) PixelBlock::Free(m_pImageBuffer);
  m_pImageBuffer = block;
  m_bPreMultiplied = false;
  OnContentChanged();
}

bool CExtBitmap::AssignFrom(const CExtBitmap& other) {
  if (&other == this) return !IsEmpty();
  Empty();
  if (other.IsEmpty()) return false;
  uint8_t* copy = PixelBlock::Clone(other.m_pImageBuffer);
  Attach(copy);
  m_bPreMultiplied = copy && other.m_bPreMultiplied;
  return copy != nullptr;
}

void CExtBitmap::Empty() {
  if (!m_pImageBuffer) return;
  Attach(nullptr);
}

bool CExtBitmap::Create(int width, int height, int depth) {
  const ChannelMasks masks = depth == 32 ? kMasks32 : depth == 24 ? kMasks24
                             : depth == 16 ? kMasks555 : ChannelMasks{};
  return Create(width, height, depth, masks);
}

bool CExtBitmap::Create(int width, int height, int depth, const ChannelMasks& masks) {
  uint8_t* block = PixelBlock::Create(width, height, depth, masks);
  Attach(block);
  return block != nullptr;
}

bool CExtBitmap::GetPixel(int x, int y, RGBQUAD& out) const {
  if (!m_pImageBuffer || x < 0 || y < 0 || x >= Width() || y >= Height()) return false;
  const uint8_t* row = PixelBlock::Row(m_pImageBuffer, Height() - y - 1);
  const int depth = Depth();
  if (depth == 32) {
    std::memcpy(&out, row + x * 4, 4);
    if (m_bPreMultiplied && out.rgbReserved) {
      const unsigned a = out.rgbReserved;
      out.rgbRed = Unmultiply(out.rgbRed, a);
      out.rgbGreen = Unmultiply(out.rgbGreen, a);
      out.rgbBlue = Unmultiply(out.rgbBlue, a);
    }
    return true;
  }
  if (depth == 24) {
    const uint8_t* p = row + x * 3;
    out = {p[0], p[1], p[2], 255};
    return true;
  }
  if (depth == 15 || depth == 16) {
    const unsigned v = row[x * 2] | (row[x * 2 + 1] << 8);
    if (Is565(m_pImageBuffer))
      out = {Expand5(v & 31), Expand6((v >> 5) & 63), Expand5((v >> 11) & 31), 255};
    else
      out = {Expand5(v & 31), Expand5((v >> 5) & 31), Expand5((v >> 10) & 31), 255};
    return true;
  }
  if (depth == 1 || depth == 2 || depth == 4 || depth == 8) {
    const unsigned index = ReadIndex(row, x, depth);
    out = index < PixelBlock::PaletteCount(m_pImageBuffer) ? PixelBlock::Palette(m_pImageBuffer)[index]
                                                           : RGBQUAD{};
    out.rgbReserved = 255;
    return true;
  }
  return false;
}

bool CExtBitmap::SetPixel(int x, int y, const RGBQUAD& value, bool set_red, bool set_green,
                          bool set_blue, bool set_alpha) {
  RGBQUAD c;
  if (!GetPixel(x, y, c)) return false;
  if (set_red) c.rgbRed = value.rgbRed;
  if (set_green) c.rgbGreen = value.rgbGreen;
  if (set_blue) c.rgbBlue = value.rgbBlue;
  if (set_alpha) c.rgbReserved = value.rgbReserved;
  uint8_t* row = PixelBlock::Row(m_pImageBuffer, Height() - y - 1);
  const int depth = Depth();
  if (depth == 32) {
    if (m_bPreMultiplied) {
      c.rgbRed = Multiply(c.rgbRed, c.rgbReserved);
      c.rgbGreen = Multiply(c.rgbGreen, c.rgbReserved);
      c.rgbBlue = Multiply(c.rgbBlue, c.rgbReserved);
    }
    std::memcpy(row + x * 4, &c, 4);
  } else if (depth == 24) {
    row[x * 3] = c.rgbBlue;
    row[x * 3 + 1] = c.rgbGreen;
    row[x * 3 + 2] = c.rgbRed;
  } else if (depth == 15 || depth == 16) {
    const unsigned v = Is565(m_pImageBuffer)
                           ? ((c.rgbRed >> 3) << 11) | ((c.rgbGreen >> 2) << 5) | (c.rgbBlue >> 3)
                           : ((c.rgbRed >> 3) << 10) | ((c.rgbGreen >> 3) << 5) | (c.rgbBlue >> 3);
    row[x * 2] = static_cast<uint8_t>(v);
    row[x * 2 + 1] = static_cast<uint8_t>(v >> 8);
  } else {
    // A palette picture takes the nearest colour it has.
    WriteIndex(row, x, depth,
               NearestPaletteIndex(PixelBlock::Palette(m_pImageBuffer),
                                   PixelBlock::PaletteCount(m_pImageBuffer), c));
  }
  OnContentChanged();
  return true;
}

// Transforms the pixels on every call, whatever the flag says: two calls multiply twice.
bool CExtBitmap::PreMultiply(bool on) {
  if (!m_pImageBuffer || Depth() != 32) return false;
  const size_t count = static_cast<size_t>(Width());
  for (int y = 0; y < Height(); ++y) {
    uint8_t* p = PixelBlock::Row(m_pImageBuffer, y);
    for (size_t x = 0; x < count; ++x, p += 4) {
      const unsigned a = p[3];
      if (on) {
        p[0] = Multiply(p[0], a);
        p[1] = Multiply(p[1], a);
        p[2] = Multiply(p[2], a);
      } else if (a) {
        p[0] = Unmultiply(p[0], a);
        p[1] = Unmultiply(p[1], a);
        p[2] = Unmultiply(p[2], a);
      }
    }
  }
  m_bPreMultiplied = on;
  OnContentChanged();
  return true;
}

bool CExtBitmap::Make32() {
  if (!m_pImageBuffer) return false;
  if (Depth() == 32) {
    ChannelMasks* masks = PixelBlock::Masks(m_pImageBuffer);
    if (*masks == kMasks24) masks->alpha = kMasks32.alpha;
    return true;
  }
  uint8_t* block = PixelBlock::Create(Width(), Height(), 32, kMasks32);
  if (!block) return false;
  const BITMAPINFOHEADER* old = PixelBlock::Header(m_pImageBuffer);
  PixelBlock::Header(block)->biXPelsPerMeter = old->biXPelsPerMeter;
  PixelBlock::Header(block)->biYPelsPerMeter = old->biYPelsPerMeter;
  for (int y = 0; y < Height(); ++y) {
    uint8_t* out = PixelBlock::Row(block, Height() - y - 1);
    for (int x = 0; x < Width(); ++x, out += 4) {
      RGBQUAD c;
      GetPixel(x, y, c);
      c.rgbReserved = 255;
      std::memcpy(out, &c, 4);
    }
  }
  Attach(block);
  return true;
}

bool CExtBitmap::Flip(bool horizontal, bool vertical, const Rect* rect) {
  if (!m_pImageBuffer) return false;
  Rect r{0, 0, Width(), Height()};
  if (rect)
    r = {std::max(rect->left, 0), std::max(rect->top, 0), std::min(rect->right, Width()),
         std::min(rect->bottom, Height())};
  if (r.IsEmpty()) return false;
  RGBQUAD a, b;
  auto swap = [&](int x1, int y1, int x2, int y2) {
    GetPixel(x1, y1, a);
    GetPixel(x2, y2, b);
    SetPixel(x1, y1, b);
    SetPixel(x2, y2, a);
  };
  if (horizontal)
    for (int y = r.top; y < r.bottom; ++y)
      for (int i = 0; i < r.Width() / 2; ++i) swap(r.left + i, y, r.right - 1 - i, y);
  if (vertical)
    for (int i = 0; i < r.Height() / 2; ++i)
      for (int x = r.left; x < r.right; ++x) swap(x, r.top + i, x, r.bottom - 1 - i);
  OnContentChanged();
  return true;
}

bool CExtBitmap::Serialize(Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(IsEmpty() ? 1 : 0);
    if (IsEmpty()) return ar.ok();
    // Stored pictures are never premultiplied.
    if (m_bPreMultiplied) PreMultiply(false);
    return SaveBMP(ar, true, true) && ar.ok();
  }
  const uint32_t empty = ar.ReadU32();
  Empty();
  if (!ar.ok()) return false;
  if (empty) return true;
  const bool loaded = LoadBMP(ar, false);
  OnContentChanged();
  return loaded;
}

}  // namespace qmk::toolkit::bitmap
