// bmp_bytes.h: builds BMP files byte by byte for the tests, apart from the engine's own writer.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace bitmap_test {

struct BmpBytes {
  std::vector<uint8_t> data;

  void U8(unsigned v) { data.push_back(static_cast<uint8_t>(v)); }
  void U16(unsigned v) {
    U8(v);
    U8(v >> 8);
  }
  void U32(uint32_t v) {
    U16(v & 0xFFFF);
    U16(v >> 16);
  }
  void Bytes(const std::vector<uint8_t>& b) { data.insert(data.end(), b.begin(), b.end()); }
  // The 14-byte file header; `offset` is where the pixels begin.
  void FileHeader(uint32_t offset, uint32_t size = 0) {
    U16(19778);
    U32(size);
    U32(0);
    U32(offset);
  }
  void InfoHeader(int32_t width, int32_t height, unsigned depth, unsigned compression,
                  unsigned colours = 0, uint32_t image_size = 0) {
    U32(40);
    U32(static_cast<uint32_t>(width));
    U32(static_cast<uint32_t>(height));
    U16(1);
    U16(depth);
    U32(compression);
    U32(image_size);
    U32(2835);
    U32(2835);
    U32(colours);
    U32(colours);
  }
  // Fixes the file size field once everything is written.
  void FinishSize() {
    const auto n = static_cast<uint32_t>(data.size());
    for (int i = 0; i < 4; ++i) data[2 + i] = static_cast<uint8_t>(n >> (8 * i));
  }
};

// A palette of `count` distinct, easily told apart colours.
inline std::vector<uint8_t> TestPalette(unsigned count) {
  std::vector<uint8_t> p;
  for (unsigned i = 0; i < count; ++i) {
    p.push_back(static_cast<uint8_t>(i * 37 + 11));   // blue
    p.push_back(static_cast<uint8_t>(i * 91 + 5));    // green
    p.push_back(static_cast<uint8_t>(255 - i * 13));  // red
    p.push_back(0);
  }
  return p;
}

inline size_t RowStride(int width, int depth) { return ((static_cast<size_t>(width) * depth + 31) / 32) * 4; }

}  // namespace bitmap_test
