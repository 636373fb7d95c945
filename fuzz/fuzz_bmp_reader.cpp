// fuzz_bmp_reader.cpp: the BMP reader on any bytes: every depth, both run-length decoders, with
// and without the file header; whatever it loads is then read back pixel by pixel and written.
#include <cstddef>
#include <cstdint>

#include "platform/archive.h"
#include "toolkit/bitmap/bitmap.h"

using qmk::toolkit::bitmap::CExtBitmap;
using qmk::toolkit::bitmap::RGBQUAD;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  // The first byte chooses whether the file header is there.
  const bool headerless = data[0] & 1;
  CExtBitmap bmp;
  if (!bmp.FromMemory(data + 1, size - 1, headerless)) return 0;
  unsigned sum = 0;
  RGBQUAD c;
  for (int y = 0; y < bmp.Height(); y += 1 + bmp.Height() / 64)
    for (int x = 0; x < bmp.Width(); x += 1 + bmp.Width() / 64)
      if (bmp.GetPixel(x, y, c)) sum += c.rgbRed + c.rgbReserved;
  qmk::platform::Archive out = qmk::platform::Archive::ToMemory();
  bmp.SaveBMP(out, true, true);
  return static_cast<int>(sum & 0);
}
