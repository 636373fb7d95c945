// bitmap_cache.h: CExtBitmapCache, a picture that keeps its drawing-target form between draws.
#pragma once

#include <memory>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::bitmap {

class CExtBitmapCache : public CExtBitmap {
 public:
  using CExtBitmap::CExtBitmap;
  CExtBitmapCache() = default;
  CExtBitmapCache(const CExtBitmapCache& other) : CExtBitmap(other) {}
  CExtBitmapCache& operator=(const CExtBitmapCache& other) {
    CExtBitmap::operator=(other);
    return *this;
  }

  // Drops the device form; the next draw makes it again.
  void OnContentChanged() override { m_hDevice.reset(); }
  // Blends through the target's own call with the device form, made on first use; falls back to
  // the plain picture's blend when the target lacks the call, lays out right to left, or fails.
  bool AlphaBlend(DrawTarget& dc, const Rect& dst, const Rect& src = {},
                  uint8_t constant_alpha = 255) override;
  bool HasDeviceForm() const { return m_hDevice != nullptr; }

 private:
  std::unique_ptr<platform::DeviceImage> m_hDevice;
};

}  // namespace qmk::toolkit::bitmap
