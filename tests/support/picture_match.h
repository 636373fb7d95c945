// picture_match.h: a rendered picture against a reference PNG, within a per-channel tolerance and
// an allowance of differing pixels; a failure leaves the actual picture and a difference map.
#pragma once

#include <cairo.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/draw/draw_target.h"

namespace qmk::testing {

// The source tree: ctest's QMK_TEST_SOURCE_DIR; run by hand from build/tests, two folders up.
inline std::filesystem::path SourceTree() {
  const char* root = std::getenv("QMK_TEST_SOURCE_DIR");
  return root ? std::filesystem::path(root) : std::filesystem::path("../..");
}

struct PictureRule {
  int channel_tolerance;  // a pixel differs when red, green or blue moves by more than this
  long allowed;           // how many differing pixels a picture may have
  std::filesystem::path out_dir;  // where a failing run leaves <stem>.actual.png and <stem>.diff.png
  const char* update_env = "QMK_UPDATE_REFERENCES";  // when set, the reference is written anew
};

// Differing pixels of `actual` against the cairo image `ref` (same size), drawn red in `diff`.
inline long CountDifferingPixels(const platform::DrawTarget& actual, cairo_surface_t* ref,
                                 int tolerance, platform::DrawTarget& diff) {
  cairo_surface_flush(ref);
  const unsigned char* data = cairo_image_surface_get_data(ref);
  const int stride = cairo_image_surface_get_stride(ref);
  long differing = 0;
  for (int y = 0; y < actual.height(); ++y)
    for (int x = 0; x < actual.width(); ++x) {
      // The reference word is 0xAARRGGBB; the target's pixel keeps red in its low byte.
      const uint32_t r = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
      const uint32_t a = actual.GetPixel(x, y);
      bool off = false;
      for (const int shift : {0, 8, 16})
        off |= std::abs(static_cast<int>((a >> shift) & 0xFF) -
                        static_cast<int>((r >> (16 - shift)) & 0xFF)) > tolerance;
      differing += off;
      diff.FillRect({x, y, x + 1, y + 1}, off ? 0xFF0000FFu : 0xFF808080u);
    }
  return differing;
}

inline ::testing::AssertionResult MatchesPicture(const platform::DrawTarget& actual,
                                                 const std::filesystem::path& reference,
                                                 const PictureRule& rule) {
  namespace fs = std::filesystem;
  if (rule.update_env && std::getenv(rule.update_env)) {
    fs::create_directories(reference.parent_path());
    actual.WritePng(reference.string());
  }
  const std::string stem = reference.stem().string();
  fs::create_directories(rule.out_dir);
  cairo_surface_t* ref = cairo_image_surface_create_from_png(reference.c_str());
  const bool loaded = cairo_surface_status(ref) == CAIRO_STATUS_SUCCESS;
  const bool same_size = loaded && cairo_image_surface_get_width(ref) == actual.width() &&
                         cairo_image_surface_get_height(ref) == actual.height();
  platform::DrawTarget diff(actual.width(), actual.height());
  const long differing =
      same_size ? CountDifferingPixels(actual, ref, rule.channel_tolerance, diff) : -1;
  cairo_surface_destroy(ref);
  if (same_size && differing <= rule.allowed) return ::testing::AssertionSuccess();
  actual.WritePng((rule.out_dir / (stem + ".actual.png")).string());
  if (!same_size)
    return ::testing::AssertionFailure()
           << (loaded ? "reference of another size " : "no reference ") << reference
           << "; the picture is in " << rule.out_dir;
  diff.WritePng((rule.out_dir / (stem + ".diff.png")).string());
  return ::testing::AssertionFailure() << stem << ": " << differing << " pixels differ ("
                                       << rule.allowed << " allowed); see " << rule.out_dir;
}

// The allowance of the themed dialog pictures: one pixel in a hundred, 800 at the most, so that
// a missing icon can't hide in a small picture.
inline long DialogPictureAllowance(const platform::DrawTarget& picture) {
  return std::min(800L, static_cast<long>(picture.width()) * picture.height() / 100);
}

}  // namespace qmk::testing
