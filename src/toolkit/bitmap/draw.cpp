// draw.cpp: putting a picture on the drawing target: blits, stretched blits and alpha blends.
#include <cstring>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {

std::unique_ptr<platform::DeviceImage> CExtBitmap::MakeDeviceImage() const {
  if (IsEmpty()) return nullptr;
  platform::PixelView view;
  view.width = Width();
  view.height = Height();
  std::vector<uint8_t> scratch;
  if (Depth() == 32) {
    // Rows are stored bottom first: start at the last one and walk back.
    view.top_row = PixelBlock::Row(m_pImageBuffer, Height() - 1);
    view.stride = -static_cast<ptrdiff_t>(PixelBlock::RowBytes(m_pImageBuffer));
    view.premultiplied = m_bPreMultiplied;
  } else {
    scratch.resize(static_cast<size_t>(Width()) * Height() * 4);
    for (int y = 0; y < Height(); ++y)
      for (int x = 0; x < Width(); ++x) {
        RGBQUAD c;
        GetPixel(x, y, c);
        c.rgbReserved = 255;
        std::memcpy(&scratch[(static_cast<size_t>(y) * Width() + x) * 4], &c, 4);
      }
    view.top_row = scratch.data();
    view.stride = static_cast<ptrdiff_t>(Width()) * 4;
  }
  return platform::DeviceImage::Create(view);
}

bool CExtBitmap::Draw(DrawTarget& dc, int x, int y, uint32_t rop) {
  return Draw(dc, Rect{x, y, x + Width(), y + Height()}, Rect{}, rop);
}

bool CExtBitmap::Draw(DrawTarget& dc, const Rect& dst, const Rect& src, uint32_t rop) {
  const std::unique_ptr<platform::DeviceImage> image = MakeDeviceImage();
  if (!image) return false;
  return dc.Blit(*image, dst, src.IsEmpty() ? Rect{0, 0, Width(), Height()} : src, rop);
}

bool CExtBitmap::AlphaBlend(DrawTarget& dc, const Rect& dst, const Rect& src, uint8_t constant_alpha) {
  const std::unique_ptr<platform::DeviceImage> image = MakeDeviceImage();
  if (!image) return false;
  return dc.AlphaBlend(*image, dst, src.IsEmpty() ? Rect{0, 0, Width(), Height()} : src, constant_alpha);
}

}  // namespace qmk::toolkit::bitmap
