// draw_target.h: the drawing target of the toolkit: a memory surface with fills, blits,
// stretched blits, alpha blends, clipping and PNG output.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

typedef struct _cairo_surface cairo_surface_t;
typedef struct _cairo cairo_t;

namespace qmk::platform {

// A rectangle in device pixels, right and bottom exclusive.
struct DrawRect {
  int left = 0, top = 0, right = 0, bottom = 0;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool operator==(const DrawRect&) const = default;
};

// 32-bit pixels in memory order blue, green, red, alpha; `stride` may be negative for pictures
// whose last row comes first in memory.
struct PixelView {
  const uint8_t* top_row = nullptr;
  int width = 0;
  int height = 0;
  ptrdiff_t stride = 0;
  bool premultiplied = false;
};

// Raster operations of a blit; only a plain copy is offered by this target.
constexpr uint32_t kRopSourceCopy = 0x00CC0020;

// Stretch modes: colour on colour picks the nearest pixel, half tone filters.
constexpr int kStretchColorOnColor = 3;
constexpr int kStretchHalftone = 4;

// A picture converted to the target's own form, made once and drawn many times.
class DeviceImage {
 public:
  // Null when the view is empty or too large for the target.
  static std::unique_ptr<DeviceImage> Create(const PixelView& view);
  ~DeviceImage();
  DeviceImage(const DeviceImage&) = delete;
  DeviceImage& operator=(const DeviceImage&) = delete;

  int width() const { return width_; }
  int height() const { return height_; }
  // Premultiplied with alpha, for blending.
  cairo_surface_t* blend_surface() const { return blend_; }
  // Colour only, every pixel opaque, for plain copies; made on first use from a premultiplied
  // picture, which most pictures drawn only by blending are.
  cairo_surface_t* copy_surface() const;

 private:
  DeviceImage() = default;
  cairo_surface_t* blend_ = nullptr;
  mutable cairo_surface_t* copy_ = nullptr;
  int width_ = 0, height_ = 0;
};

class DrawTarget {
 public:
  // A transparent memory target of the given size.
  DrawTarget(int width, int height);
  ~DrawTarget();
  DrawTarget(const DrawTarget&) = delete;
  DrawTarget& operator=(const DrawTarget&) = delete;

  bool ok() const { return cr_ != nullptr; }
  int width() const { return width_; }
  int height() const { return height_; }

  // Returns the previous mode; an unknown mode is refused and returns 0.
  int SetStretchMode(int mode);
  int GetStretchMode() const { return stretch_mode_; }
  bool HasHalftone() const { return true; }
  bool HasAlphaBlend() const { return true; }
  bool IsRightToLeft() const { return right_to_left_; }
  void SetRightToLeft(bool on) { right_to_left_ = on; }

  // Limits drawing to `r`; an empty rectangle removes the limit.
  void SetClip(const DrawRect& r);
  // True when some part of `r` can be drawn.
  bool RectVisible(const DrawRect& r) const;

  // Colour words have red in the low byte and alpha in the high one.
  void FillRect(const DrawRect& r, uint32_t rgba);
  // Copies `src` of the image to `dst`, stretching when the sizes differ. False for a raster
  // operation other than a plain copy, or empty rectangles.
  bool Blit(DeviceImage& image, const DrawRect& dst, const DrawRect& src, uint32_t rop);
  // Lays `src` of the image over `dst` by its alpha, scaled by `constant_alpha`.
  bool AlphaBlend(DeviceImage& image, const DrawRect& dst, const DrawRect& src,
                  uint8_t constant_alpha);

  // The pixel at (x, y), alpha undone; 0 outside.
  uint32_t GetPixel(int x, int y) const;
  // The target's pixels (premultiplied), valid until the next drawing; empty when not ok().
  PixelView Pixels() const;
  // The target's own surface, flushed, for laying the whole picture onto another cairo
  // surface without a copy; null when not ok().
  cairo_surface_t* FlushedSurface() const;
  bool WritePng(const std::string& path) const;

 private:
  void FillOpaque(const DrawRect& r, uint32_t rgba);
  bool Paint(cairo_surface_t* s, const DrawRect& dst, const DrawRect& src, bool copy,
             double alpha);

  cairo_surface_t* surface_ = nullptr;
  cairo_t* cr_ = nullptr;
  int width_ = 0, height_ = 0;
  int stretch_mode_ = kStretchColorOnColor;
  bool right_to_left_ = false;
  DrawRect clip_{};
};

}  // namespace qmk::platform
