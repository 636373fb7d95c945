// picture_compare.h: comparing a rendered picture with a reference PNG within a tolerance, and
// keeping the actual picture and a difference picture when they differ.
#pragma once

#include <cairo.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/draw/draw_target.h"

namespace qmk::platform::ui::controls::testing {

// The folder of the reference pictures: $QMK_TEST_SOURCE_DIR/tests/ui_controls/reference.
inline std::filesystem::path ReferenceDir() {
  const char* root = std::getenv("QMK_TEST_SOURCE_DIR");
  // Run by hand from the build folder, the sources are two folders up.
  std::filesystem::path base = root ? root : "../..";
  return base / "tests" / "ui_controls" / "reference";
}

struct PictureDiff {
  bool loaded = false;
  bool same_size = false;
  int differing = 0;  // pixels whose channels differ by more than the tolerance
  int total = 0;
  std::string message;
};

// Compares `actual` with the PNG at `reference`: a pixel differs when a channel is off by more
// than `channel_tolerance`. On a difference the actual picture and a red-on-grey difference map
// are written to `out_dir`.
inline PictureDiff ComparePicture(const DrawTarget& actual, const std::filesystem::path& reference,
                                  int channel_tolerance, const std::filesystem::path& out_dir) {
  PictureDiff d;
  cairo_surface_t* ref = cairo_image_surface_create_from_png(reference.c_str());
  if (cairo_surface_status(ref) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(ref);
    d.message = "no reference " + reference.string();
    std::filesystem::create_directories(out_dir);
    actual.WritePng((out_dir / reference.filename()).string());
    return d;
  }
  d.loaded = true;
  int w = cairo_image_surface_get_width(ref), h = cairo_image_surface_get_height(ref);
  d.same_size = w == actual.width() && h == actual.height();
  d.total = w * h;
  if (!d.same_size) {
    d.message = "size differs";
  } else {
    cairo_surface_t* diff = cairo_image_surface_create(CAIRO_FORMAT_RGB24, w, h);
    cairo_surface_flush(ref);
    const unsigned char* rows = cairo_image_surface_get_data(ref);
    int stride = cairo_image_surface_get_stride(ref);
    unsigned char* drows = cairo_image_surface_get_data(diff);
    int dstride = cairo_image_surface_get_stride(diff);
    for (int y = 0; y < h; ++y) {
      for (int x = 0; x < w; ++x) {
        uint32_t r = *reinterpret_cast<const uint32_t*>(rows + y * stride + x * 4);
        uint32_t a = actual.GetPixel(x, y);  // red in the low byte
        int channels[3][2] = {{static_cast<int>((r >> 16) & 0xFF), static_cast<int>(a & 0xFF)},
                              {static_cast<int>((r >> 8) & 0xFF), static_cast<int>((a >> 8) & 0xFF)},
                              {static_cast<int>(r & 0xFF), static_cast<int>((a >> 16) & 0xFF)}};
        bool off = false;
        for (auto& c : channels) off |= std::abs(c[0] - c[1]) > channel_tolerance;
        auto* out = reinterpret_cast<uint32_t*>(drows + y * dstride + x * 4);
        *out = off ? 0xFF0000u : 0x808080u;
        if (off) ++d.differing;
      }
    }
    cairo_surface_mark_dirty(diff);
    if (d.differing > 0) {
      std::filesystem::create_directories(out_dir);
      std::string stem = reference.stem().string();
      actual.WritePng((out_dir / (stem + ".actual.png")).string());
      cairo_surface_write_to_png(diff, (out_dir / (stem + ".diff.png")).c_str());
      d.message = std::to_string(d.differing) + " pixels differ; see " + out_dir.string();
    }
    cairo_surface_destroy(diff);
  }
  cairo_surface_destroy(ref);
  return d;
}

}  // namespace qmk::platform::ui::controls::testing
