// pixel_block.cpp: making, copying and freeing pixel blocks.
#include "toolkit/bitmap/pixel_block.h"

#include <cstring>
#include <new>

namespace qmk::toolkit::bitmap {
namespace {

constexpr std::align_val_t kAlign{16};

size_t TotalBytes(uint64_t pixel_bytes, uint32_t palette_entries) {
  return 16 + PixelBlock::PixelOffset(palette_entries) + static_cast<size_t>(pixel_bytes);
}

}  // namespace

uint8_t* PixelBlock::Create(int width, int height, int depth, const ChannelMasks& masks,
                            uint32_t palette_entries) {
  if (width <= 0 || height <= 0 || depth <= 0 || depth > 32 || palette_entries > 256) return nullptr;
  const uint64_t pixel_bytes = Stride(width, depth) * static_cast<uint64_t>(height);
  if (pixel_bytes > kMaxBlockBytes) return nullptr;
  const size_t total = TotalBytes(pixel_bytes, palette_entries);
  auto* b = static_cast<uint8_t*>(::operator new(total, kAlign, std::nothrow));
  if (!b) return nullptr;
  std::memset(b, 0, total);
  *Masks(b) = masks;
  BITMAPINFOHEADER* h = Header(b);
  h->biSize = 40;
  h->biWidth = width;
  h->biHeight = height;
  h->biPlanes = 1;
  h->biBitCount = static_cast<uint16_t>(depth);
  h->biCompression = kCompressNone;
  h->biSizeImage = static_cast<uint32_t>(pixel_bytes);
  h->biClrUsed = h->biClrImportant = palette_entries;
  return b;
}

void PixelBlock::Free(uint8_t* block) {
  if (block) ::operator delete(block, kAlign);
}

uint8_t* PixelBlock::Clone(const uint8_t* src) {
  const BITMAPINFOHEADER* sh = Header(src);
  uint8_t* b = Create(sh->biWidth, sh->biHeight, sh->biBitCount, *Masks(src), PaletteCount(src));
  if (!b) return nullptr;
  std::memcpy(Header(b), sh, 40);
  std::memcpy(Palette(b), Palette(src), PaletteCount(src) * 4);
  std::memcpy(Pixels(b), Pixels(src), PixelBytes(src));
  return b;
}

}  // namespace qmk::toolkit::bitmap
