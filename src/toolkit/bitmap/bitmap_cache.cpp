// bitmap_cache.cpp: the cached device form of a picture.
#include "toolkit/bitmap/bitmap_cache.h"

namespace qmk::toolkit::bitmap {

bool CExtBitmapCache::AlphaBlend(DrawTarget& dc, const Rect& dst, const Rect& src, uint8_t constant_alpha) {
  if (IsEmpty()) return false;
  if (!m_hDevice) m_hDevice = MakeDeviceImage();
  if (m_hDevice && dc.HasAlphaBlend() && !dc.IsRightToLeft() &&
      dc.AlphaBlend(*m_hDevice, dst, src.IsEmpty() ? Rect{0, 0, Width(), Height()} : src, constant_alpha))
    return true;
  return CExtBitmap::AlphaBlend(dc, dst, src, constant_alpha);
}

}  // namespace qmk::toolkit::bitmap
