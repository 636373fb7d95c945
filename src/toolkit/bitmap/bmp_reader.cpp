// bmp_reader.cpp: reading the BMP file form: every depth, top-down rows, bit fields and both
// run-length codes. Whatever a file says, nothing is read or written outside the block.
#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {
namespace {

constexpr uint16_t kMagic = 19778;  // "BM"
// Run-length data can claim a large picture in a few bytes. A picture may have 2048 pixels for
// each byte of data (runs of 255 give 127 a byte; blank areas skipped by deltas give more), or a
// million whatever the data, beyond which a short file is taken as damaged.
constexpr uint64_t kRlePixelsPerByte = 2048;
constexpr uint64_t kRleFreePixels = uint64_t{1} << 20;
constexpr uint64_t kMaxRlePixels = uint64_t{1} << 28;

bool RleSizePlausible(Archive& ar, uint64_t pixels) {
  if (pixels > kMaxRlePixels) return false;
  const std::optional<uint64_t> left = ar.Remaining();
  return !left || pixels <= std::max(kRleFreePixels, *left * kRlePixelsPerByte);
}

struct BlockOwner {
  uint8_t* block = nullptr;
  ~BlockOwner() { PixelBlock::Free(block); }
  uint8_t* Release() {
    uint8_t* b = block;
    block = nullptr;
    return b;
  }
};

// True when the data left can hold `before` more bytes and the rows, so that a short file is
// refused before its block is made.
bool RowsFit(Archive& ar, const BITMAPINFOHEADER& h, int height, uint64_t before) {
  const std::optional<uint64_t> left = ar.Remaining();
  return !left || *left >= before + Stride(h.biWidth, h.biBitCount) * static_cast<uint64_t>(height);
}

bool ReadHeader(Archive& ar, BITMAPINFOHEADER& h) {
  ar.Read(&h, sizeof h);
  if (!ar.ok() || h.biSize < 40) return false;
  // A larger header carries fields this engine doesn't use; the palette or pixels follow it.
  if (h.biSize > 40) {
    if (h.biSize > 124) return false;
    uint8_t skip[124 - 40];
    ar.Read(skip, h.biSize - 40);
  }
  return ar.ok();
}

// Masks by depth; for bit fields the reader first drops bytes before the masks.
bool ReadMasks(Archive& ar, const BITMAPINFOHEADER& h, ChannelMasks& masks) {
  const int depth = h.biBitCount;
  if (depth == 24) {
    masks = kMasks24;
    return h.biCompression == kCompressNone;
  }
  if (h.biCompression == kCompressNone) {
    masks = depth == 16 ? kMasks555 : kMasks32;
    return true;
  }
  if (h.biCompression != kCompressBitFields) return false;
  // This reader has always dropped 4 bytes (16-bit) or 5 bytes (32-bit) before the three masks;
  // pictures stored with it depend on that, so it stays, though its own writer doesn't match it.
  for (int i = 0, n = depth == 16 ? 4 : 5; i < n; ++i) ar.ReadU8();
  masks.red = ar.ReadU32();
  masks.green = ar.ReadU32();
  masks.blue = ar.ReadU32();
  masks.alpha = 0;
  return ar.ok();
}

bool ReadRows(Archive& ar, uint8_t* block, bool top_down) {
  const size_t row_bytes = PixelBlock::RowBytes(block);
  const int height = PixelBlock::Height(block);
  const std::optional<uint64_t> left = ar.Remaining();
  if (left && *left < row_bytes * static_cast<uint64_t>(height)) return false;
  if (!top_down) {
    ar.Read(PixelBlock::Pixels(block), row_bytes * static_cast<size_t>(height));
    return ar.ok();
  }
  for (int i = 0; i < height && ar.ok(); ++i) ar.Read(PixelBlock::Row(block, height - 1 - i), row_bytes);
  return ar.ok();
}

// Writes one pixel of a run-length picture; positions past the row's end are cut.
struct RleCursor {
  uint8_t* block;
  int width, height, depth;
  int x = 0, y = 0;

  void Put(unsigned value) {
    if (x < width && y < height) {
      uint8_t* row = PixelBlock::Row(block, y);
      if (depth == 8)
        row[x] = static_cast<uint8_t>(value);
      else
        row[x / 2] |= static_cast<uint8_t>((value & 15) << ((x & 1) ? 0 : 4));
    }
    if (x < width) ++x;
  }
};

bool DecodeRle(Archive& ar, uint8_t* block) {
  RleCursor c{block, PixelBlock::Width(block), PixelBlock::Height(block), PixelBlock::Depth(block)};
  const bool nibbles = c.depth == 4;
  while (c.y < c.height) {
    const unsigned n = ar.ReadU8();
    const unsigned m = ar.ReadU8();
    if (!ar.ok()) return false;
    if (n > 0) {
      // An encoded run: one value byte, or two nibbles in turn.
      for (unsigned i = 0; i < n; ++i) c.Put(nibbles ? (i & 1 ? m & 15 : m >> 4) : m);
    } else if (m == 0) {
      ++c.y;
      c.x = 0;
    } else if (m == 1) {
      break;
    } else if (m == 2) {
      const unsigned dx = ar.ReadU8(), dy = ar.ReadU8();
      // The four-bit decoder moves by bytes, so an odd column count loses its last column.
      c.x = std::min<int>(c.width, c.x + static_cast<int>(nibbles ? dx / 2 * 2 : dx));
      c.y += static_cast<int>(dy);
    } else {
      const unsigned bytes = nibbles ? (m + 1) / 2 : m;
      uint8_t data[255];
      ar.Read(data, bytes);
      for (unsigned i = 0; i < m; ++i) c.Put(nibbles ? (i & 1 ? data[i / 2] & 15 : data[i / 2] >> 4) : data[i]);
      if (bytes & 1) ar.ReadU8();
    }
    if (!ar.ok()) return false;
  }
  return true;
}

uint8_t* ReadBlock(Archive& ar, bool file_header_absent) {
  if (!file_header_absent) {
    uint8_t file_header[14];
    ar.Read(file_header, sizeof file_header);
    if (!ar.ok() || (file_header[0] | (file_header[1] << 8)) != kMagic) return nullptr;
  }
  BITMAPINFOHEADER h;
  if (!ReadHeader(ar, h)) return nullptr;
  const int depth = h.biBitCount;
  if (depth == 0 || depth > 32 || h.biWidth <= 0 || h.biHeight == 0 || h.biHeight == INT32_MIN)
    return nullptr;
  const bool top_down = h.biHeight < 0;
  const int height = std::abs(h.biHeight);
  const bool rle = h.biCompression == kCompressRle8 || h.biCompression == kCompressRle4;
  BlockOwner owner;
  if (depth == 1 || depth == 4 || depth == 8) {
    if (h.biCompression > kCompressRle4) return nullptr;
    // A run-length code fits one depth only, and is always stored bottom row first.
    if (rle && (top_down || depth != (h.biCompression == kCompressRle8 ? 8 : 4))) return nullptr;
    if (rle && !RleSizePlausible(ar, static_cast<uint64_t>(h.biWidth) * static_cast<uint64_t>(height)))
      return nullptr;
    uint32_t colours = h.biClrUsed;
    if (colours < 1 || colours > PaletteSizeFor(depth)) colours = PaletteSizeFor(depth);
    if (!rle && !RowsFit(ar, h, height, colours * 4)) return nullptr;
    owner.block = PixelBlock::Create(h.biWidth, height, depth, {}, colours);
    if (!owner.block) return nullptr;
    ar.Read(PixelBlock::Palette(owner.block), colours * 4);
    if (!ar.ok()) return nullptr;
    if (rle ? !DecodeRle(ar, owner.block) : !ReadRows(ar, owner.block, top_down)) return nullptr;
  } else if (depth == 16 || depth == 24 || depth == 32) {
    ChannelMasks masks;
    if (!ReadMasks(ar, h, masks) || !RowsFit(ar, h, height, 0)) return nullptr;
    owner.block = PixelBlock::Create(h.biWidth, height, depth, masks);
    if (!owner.block || !ReadRows(ar, owner.block, top_down)) return nullptr;
  } else {
    return nullptr;
  }
  BITMAPINFOHEADER* out = PixelBlock::Header(owner.block);
  out->biXPelsPerMeter = h.biXPelsPerMeter;
  out->biYPelsPerMeter = h.biYPelsPerMeter;
  return owner.Release();
}

}  // namespace

bool CExtBitmap::LoadBMP(Archive& ar, bool file_header_absent) {
  Empty();
  if (!ar.IsLoading()) return false;
  uint8_t* block = ReadBlock(ar, file_header_absent);
  Attach(block);
  return block != nullptr;
}

bool CExtBitmap::FromFile(const std::string& path) {
  Archive ar = Archive::OpenFile(path, Archive::Mode::kLoad);
  if (!ar.ok()) {
    Empty();
    return false;
  }
  return LoadBMP(ar);
}

bool CExtBitmap::FromMemory(const void* data, size_t size, bool file_header_absent) {
  Archive ar = Archive::FromMemory(data, size);
  return LoadBMP(ar, file_header_absent);
}

}  // namespace qmk::toolkit::bitmap
