// picture_compare.h: comparing a rendered picture with a reference PNG within a tolerance, and
// keeping the actual picture and a difference picture when they differ; the counts for callers
// that weigh the differences themselves (the pixel test is support/picture_match.h's).
#pragma once

#include <cairo.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/draw/draw_target.h"
#include "support/picture_match.h"

namespace qmk::platform::ui::controls::testing {

// The folder of the reference pictures: $QMK_TEST_SOURCE_DIR/tests/ui_controls/reference.
inline std::filesystem::path ReferenceDir() {
  return qmk::testing::SourceTree() / "tests" / "ui_controls" / "reference";
}

struct PictureDiff {
  bool loaded = false;
  bool same_size = false;
  int differing = 0;  // pixels whose channels differ by more than the tolerance
  int total = 0;
  std::string message;
};

// Compares `actual` with the PNG at `reference`: a pixel differs when a channel is off by more
// than `channel_tolerance`. On a difference the actual picture and a difference map are written
// to `out_dir`; without a reference, the actual picture under the reference's name.
inline PictureDiff ComparePicture(const DrawTarget& actual, const std::filesystem::path& reference,
                                  int channel_tolerance, const std::filesystem::path& out_dir) {
  PictureDiff d;
  cairo_surface_t* ref = cairo_image_surface_create_from_png(reference.c_str());
  d.loaded = cairo_surface_status(ref) == CAIRO_STATUS_SUCCESS;
  if (!d.loaded) {
    cairo_surface_destroy(ref);
    d.message = "no reference " + reference.string();
    std::filesystem::create_directories(out_dir);
    actual.WritePng((out_dir / reference.filename()).string());
    return d;
  }
  const int w = cairo_image_surface_get_width(ref), h = cairo_image_surface_get_height(ref);
  d.same_size = w == actual.width() && h == actual.height();
  d.total = w * h;
  if (!d.same_size) {
    d.message = "size differs";
  } else {
    DrawTarget diff(w, h);
    d.differing = static_cast<int>(qmk::testing::CountDifferingPixels(actual, ref, channel_tolerance, diff));
    if (d.differing > 0) {
      std::filesystem::create_directories(out_dir);
      const std::string stem = reference.stem().string();
      actual.WritePng((out_dir / (stem + ".actual.png")).string());
      diff.WritePng((out_dir / (stem + ".diff.png")).string());
      d.message = std::to_string(d.differing) + " pixels differ; see " + out_dir.string();
    }
  }
  cairo_surface_destroy(ref);
  return d;
}

}  // namespace qmk::platform::ui::controls::testing
