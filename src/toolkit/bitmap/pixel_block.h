// pixel_block.h: the memory form of a picture: channel masks, header, palette and rows in one
// 16-byte aligned allocation, and the one function that gives a row's stride.
#pragma once

#include <cstddef>
#include <cstdint>

namespace qmk::toolkit::bitmap {

#pragma pack(push, 1)
struct BITMAPINFOHEADER {
  uint32_t biSize;
  int32_t biWidth;
  int32_t biHeight;
  uint16_t biPlanes;
  uint16_t biBitCount;
  uint32_t biCompression;
  uint32_t biSizeImage;
  int32_t biXPelsPerMeter;
  int32_t biYPelsPerMeter;
  uint32_t biClrUsed;
  uint32_t biClrImportant;
};
#pragma pack(pop)
static_assert(sizeof(BITMAPINFOHEADER) == 40);

// One palette entry or one 32-bit pixel, in memory order.
struct RGBQUAD {
  uint8_t rgbBlue = 0, rgbGreen = 0, rgbRed = 0, rgbReserved = 0;
  bool operator==(const RGBQUAD&) const = default;
};
static_assert(sizeof(RGBQUAD) == 4);

// The four channel masks stored in front of the header.
struct ChannelMasks {
  uint32_t red = 0, green = 0, blue = 0, alpha = 0;
  bool operator==(const ChannelMasks&) const = default;
};
static_assert(sizeof(ChannelMasks) == 16);

constexpr ChannelMasks kMasks32{0xFF0000, 0xFF00, 0xFF, 0xFF000000};
constexpr ChannelMasks kMasks24{0xFF0000, 0xFF00, 0xFF, 0};
constexpr ChannelMasks kMasks555{0x7C00, 0x3E0, 0x1F, 0};
constexpr ChannelMasks kMasks565{0xF800, 0x7E0, 0x1F, 0};

// Compression codes of the header.
constexpr uint32_t kCompressNone = 0, kCompressRle8 = 1, kCompressRle4 = 2, kCompressBitFields = 3;

// The largest block this engine makes: keeps damaged sizes from asking for the whole memory.
constexpr uint64_t kMaxBlockBytes = uint64_t{1} << 30;

// Bytes of one row: width times depth in bits, rounded up to whole bytes, then to 4.
constexpr uint64_t Stride(int64_t width, int depth) {
  return (((static_cast<uint64_t>(width) * static_cast<uint64_t>(depth) + 7) >> 3) + 3) & ~uint64_t{3};
}

// Palette entries a depth carries: 1 << depth under 16, none from 16 up.
constexpr uint32_t PaletteSizeFor(int depth) { return depth >= 1 && depth <= 8 ? 1u << depth : 0u; }

// A block pointer is the start of the 16-byte mask prefix; the header follows it. All accessors
// take a non-null block.
class PixelBlock {
 public:
  // A zero-filled block, or null when the sizes are out of range or memory is short.
  static uint8_t* Create(int width, int height, int depth, const ChannelMasks& masks,
                         uint32_t palette_entries);
  static uint8_t* Create(int width, int height, int depth, const ChannelMasks& masks) {
    return Create(width, height, depth, masks, PaletteSizeFor(depth));
  }
  static void Free(uint8_t* block);
  // A copy of masks, header, palette and pixels; null when memory is short.
  static uint8_t* Clone(const uint8_t* block);

  static BITMAPINFOHEADER* Header(uint8_t* b) { return reinterpret_cast<BITMAPINFOHEADER*>(b + 16); }
  static const BITMAPINFOHEADER* Header(const uint8_t* b) {
    return reinterpret_cast<const BITMAPINFOHEADER*>(b + 16);
  }
  static ChannelMasks* Masks(uint8_t* b) { return reinterpret_cast<ChannelMasks*>(b); }
  static const ChannelMasks* Masks(const uint8_t* b) { return reinterpret_cast<const ChannelMasks*>(b); }
  static RGBQUAD* Palette(uint8_t* b) { return reinterpret_cast<RGBQUAD*>(b + 16 + 40); }
  static const RGBQUAD* Palette(const uint8_t* b) { return reinterpret_cast<const RGBQUAD*>(b + 56); }
  static uint32_t PaletteCount(const uint8_t* b) { return Header(b)->biClrUsed; }
  // Offset of the pixels from the header: header and palette, rounded up to 16.
  static size_t PixelOffset(uint32_t palette_entries) { return (40 + palette_entries * 4 + 15) & ~size_t{15}; }
  static uint8_t* Pixels(uint8_t* b) { return b + 16 + PixelOffset(PaletteCount(b)); }
  static const uint8_t* Pixels(const uint8_t* b) { return b + 16 + PixelOffset(PaletteCount(b)); }
  static int Width(const uint8_t* b) { return Header(b)->biWidth; }
  static int Height(const uint8_t* b) { return Header(b)->biHeight; }
  static int Depth(const uint8_t* b) { return Header(b)->biBitCount; }
  static size_t RowBytes(const uint8_t* b) { return Stride(Width(b), Depth(b)); }
  static size_t PixelBytes(const uint8_t* b) { return RowBytes(b) * static_cast<size_t>(Height(b)); }
  // Row `stored` counts from the bottom row, as stored.
  static uint8_t* Row(uint8_t* b, int stored) { return Pixels(b) + RowBytes(b) * static_cast<size_t>(stored); }
  static const uint8_t* Row(const uint8_t* b, int stored) {
    return Pixels(b) + RowBytes(b) * static_cast<size_t>(stored);
  }
};

}  // namespace qmk::toolkit::bitmap
