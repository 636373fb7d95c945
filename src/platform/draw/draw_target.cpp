// draw_target.cpp: the drawing target on cairo image surfaces.
#include "platform/draw/draw_target.h"

#include <cairo.h>

#include <algorithm>
#include <cstring>

namespace qmk::platform {
namespace {

// Cairo's image surfaces address rows with a 32-bit stride.
constexpr int kMaxSide = 32767;

cairo_surface_t* NewSurface(cairo_format_t format, int w, int h) {
  cairo_surface_t* s = cairo_image_surface_create(format, w, h);
  if (cairo_surface_status(s) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(s);
    return nullptr;
  }
  return s;
}

DrawRect Intersect(const DrawRect& a, const DrawRect& b) {
  return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
          std::min(a.bottom, b.bottom)};
}

}  // namespace

std::unique_ptr<DeviceImage> DeviceImage::Create(const PixelView& v) {
  if (!v.top_row || v.width <= 0 || v.height <= 0 || v.width > kMaxSide || v.height > kMaxSide)
    return nullptr;
  std::unique_ptr<DeviceImage> image(new DeviceImage());
  image->blend_ = NewSurface(CAIRO_FORMAT_ARGB32, v.width, v.height);
  if (!image->blend_) return nullptr;
  image->width_ = v.width;
  image->height_ = v.height;
  cairo_surface_flush(image->blend_);
  uint8_t* blend = cairo_image_surface_get_data(image->blend_);
  const int bs = cairo_image_surface_get_stride(image->blend_);
  if (v.premultiplied) {
    // Already the blend form byte for byte; the plain copy's colours can be recovered from it,
    // so that form is made only when a copy asks for it.
    for (int y = 0; y < v.height; ++y)
      std::memcpy(blend + static_cast<ptrdiff_t>(y) * bs, v.top_row + y * v.stride,
                  static_cast<size_t>(v.width) * 4);
  } else {
    // A straight-alpha picture loses its colour under alpha 0 when premultiplied, so its plain
    // form is kept from the start.
    image->copy_ = NewSurface(CAIRO_FORMAT_RGB24, v.width, v.height);
    if (!image->copy_) return nullptr;
    cairo_surface_flush(image->copy_);
    uint8_t* copy = cairo_image_surface_get_data(image->copy_);
    const int cs = cairo_image_surface_get_stride(image->copy_);
    for (int y = 0; y < v.height; ++y) {
      const uint8_t* in = v.top_row + y * v.stride;
      uint8_t* b = blend + static_cast<ptrdiff_t>(y) * bs;
      uint8_t* c = copy + static_cast<ptrdiff_t>(y) * cs;
      for (int x = 0; x < v.width; ++x, in += 4, b += 4, c += 4) {
        const unsigned a = in[3];
        for (int k = 0; k < 3; ++k) {
          c[k] = in[k];
          b[k] = static_cast<uint8_t>(in[k] * a / 255);
        }
        c[3] = 255;
        b[3] = static_cast<uint8_t>(a);
      }
    }
    cairo_surface_mark_dirty(image->copy_);
  }
  cairo_surface_mark_dirty(image->blend_);
  return image;
}

// A plain copy keeps each pixel's own colour whatever its alpha, as a blit of the bytes would,
// so the premultiplied colours are divided back out.
cairo_surface_t* DeviceImage::copy_surface() const {
  if (copy_ || !blend_) return copy_;
  copy_ = NewSurface(CAIRO_FORMAT_RGB24, width_, height_);
  if (!copy_) return nullptr;
  cairo_surface_flush(copy_);
  const uint8_t* blend = cairo_image_surface_get_data(blend_);
  uint8_t* copy = cairo_image_surface_get_data(copy_);
  const int bs = cairo_image_surface_get_stride(blend_);
  const int cs = cairo_image_surface_get_stride(copy_);
  for (int y = 0; y < height_; ++y) {
    const uint8_t* b = blend + static_cast<ptrdiff_t>(y) * bs;
    uint8_t* c = copy + static_cast<ptrdiff_t>(y) * cs;
    for (int x = 0; x < width_; ++x, b += 4, c += 4) {
      const unsigned a = b[3];
      for (int k = 0; k < 3; ++k) c[k] = static_cast<uint8_t>(a ? std::min(255u, b[k] * 255u / a) : b[k]);
      c[3] = 255;
    }
  }
  cairo_surface_mark_dirty(copy_);
  return copy_;
}

DeviceImage::~DeviceImage() {
  if (blend_) cairo_surface_destroy(blend_);
  if (copy_) cairo_surface_destroy(copy_);
}

DrawTarget::DrawTarget(int width, int height) {
  if (width <= 0 || height <= 0 || width > kMaxSide || height > kMaxSide) return;
  surface_ = NewSurface(CAIRO_FORMAT_ARGB32, width, height);
  if (!surface_) return;
  cr_ = cairo_create(surface_);
  width_ = width;
  height_ = height;
}

DrawTarget::~DrawTarget() {
  if (cr_) cairo_destroy(cr_);
  if (surface_) cairo_surface_destroy(surface_);
}

int DrawTarget::SetStretchMode(int mode) {
  if (mode != kStretchColorOnColor && mode != kStretchHalftone) return 0;
  const int previous = stretch_mode_;
  stretch_mode_ = mode;
  return previous;
}

void DrawTarget::SetClip(const DrawRect& r) {
  if (!cr_) return;
  cairo_reset_clip(cr_);
  clip_ = r;
  if (r.IsEmpty()) return;
  cairo_rectangle(cr_, r.left, r.top, r.Width(), r.Height());
  cairo_clip(cr_);
}

bool DrawTarget::RectVisible(const DrawRect& r) const {
  if (!cr_ || r.IsEmpty()) return false;
  DrawRect visible = Intersect(r, {0, 0, width_, height_});
  if (!clip_.IsEmpty()) visible = Intersect(visible, clip_);
  return !visible.IsEmpty();
}

void DrawTarget::FillRect(const DrawRect& r, uint32_t rgba) {
  if (!cr_ || r.IsEmpty()) return;
  if ((rgba >> 24) == 0xFF) {
    // Themes build their faces from thousands of one-row fills; an opaque colour is the same
    // pixel word whatever the rounding, so it is written straight into the rows.
    FillOpaque(r, rgba);
    return;
  }
  cairo_save(cr_);
  cairo_set_operator(cr_, CAIRO_OPERATOR_SOURCE);
  cairo_set_source_rgba(cr_, (rgba & 0xFF) / 255.0, ((rgba >> 8) & 0xFF) / 255.0,
                        ((rgba >> 16) & 0xFF) / 255.0, (rgba >> 24) / 255.0);
  cairo_rectangle(cr_, r.left, r.top, r.Width(), r.Height());
  cairo_fill(cr_);
  cairo_restore(cr_);
}

void DrawTarget::FillOpaque(const DrawRect& r, uint32_t rgba) {
  DrawRect visible = Intersect(r, {0, 0, width_, height_});
  if (!clip_.IsEmpty()) visible = Intersect(visible, clip_);
  if (visible.IsEmpty()) return;
  // Cairo's ARGB32 pixel is one native word: alpha, red, green, blue from the high byte down.
  const uint32_t pixel = 0xFF000000u | (rgba & 0xFFu) << 16 | (rgba & 0xFF00u) | (rgba >> 16 & 0xFFu);
  cairo_surface_flush(surface_);
  uint8_t* data = cairo_image_surface_get_data(surface_);
  const int stride = cairo_image_surface_get_stride(surface_);
  for (int y = visible.top; y < visible.bottom; ++y) {
    uint32_t* row = reinterpret_cast<uint32_t*>(data + static_cast<ptrdiff_t>(y) * stride);
    std::fill(row + visible.left, row + visible.right, pixel);
  }
  cairo_surface_mark_dirty_rectangle(surface_, visible.left, visible.top, visible.Width(),
                                     visible.Height());
}

bool DrawTarget::Paint(cairo_surface_t* s, const DrawRect& dst, const DrawRect& src, bool copy,
                       double alpha) {
  if (!cr_ || !s || dst.IsEmpty() || src.IsEmpty()) return false;
  cairo_save(cr_);
  cairo_rectangle(cr_, dst.left, dst.top, dst.Width(), dst.Height());
  cairo_clip(cr_);
  cairo_translate(cr_, dst.left, dst.top);
  cairo_scale(cr_, static_cast<double>(dst.Width()) / src.Width(),
              static_cast<double>(dst.Height()) / src.Height());
  cairo_set_source_surface(cr_, s, -src.left, -src.top);
  cairo_pattern_t* pattern = cairo_get_source(cr_);
  cairo_pattern_set_filter(pattern, stretch_mode_ == kStretchHalftone ? CAIRO_FILTER_GOOD
                                                                      : CAIRO_FILTER_NEAREST);
  // Filtering near the edges of the source rectangle must not pull in pixels beyond it.
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  cairo_set_operator(cr_, copy ? CAIRO_OPERATOR_SOURCE : CAIRO_OPERATOR_OVER);
  if (alpha >= 1.0)
    cairo_paint(cr_);
  else
    cairo_paint_with_alpha(cr_, alpha);
  cairo_restore(cr_);
  return cairo_status(cr_) == CAIRO_STATUS_SUCCESS;
}

bool DrawTarget::Blit(DeviceImage& image, const DrawRect& dst, const DrawRect& src, uint32_t rop) {
  if (rop != kRopSourceCopy) return false;
  return Paint(image.copy_surface(), dst, src, true, 1.0);
}

bool DrawTarget::AlphaBlend(DeviceImage& image, const DrawRect& dst, const DrawRect& src,
                            uint8_t constant_alpha) {
  return Paint(image.blend_surface(), dst, src, false, constant_alpha / 255.0);
}

uint32_t DrawTarget::GetPixel(int x, int y) const {
  if (!surface_ || x < 0 || y < 0 || x >= width_ || y >= height_) return 0;
  cairo_surface_flush(surface_);
  const uint8_t* p = cairo_image_surface_get_data(surface_) +
                     static_cast<ptrdiff_t>(y) * cairo_image_surface_get_stride(surface_) + x * 4;
  const unsigned a = p[3];
  auto undo = [a](unsigned c) { return a ? std::min(255u, (c * 255 + a / 2) / a) : 0u; };
  return undo(p[2]) | (undo(p[1]) << 8) | (undo(p[0]) << 16) | (a << 24);
}

bool DrawTarget::WritePng(const std::string& path) const {
  if (!surface_) return false;
  cairo_surface_flush(surface_);
  return cairo_surface_write_to_png(surface_, path.c_str()) == CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* DrawTarget::FlushedSurface() const {
  if (surface_) cairo_surface_flush(surface_);
  return surface_;
}

PixelView DrawTarget::Pixels() const {
  PixelView view;
  if (!surface_) return view;
  cairo_surface_flush(surface_);
  view.top_row = cairo_image_surface_get_data(surface_);
  view.width = width_;
  view.height = height_;
  view.stride = cairo_image_surface_get_stride(surface_);
  view.premultiplied = true;
  return view;
}

}  // namespace qmk::platform
