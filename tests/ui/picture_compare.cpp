// picture_compare.cpp: comparison of rendered pictures with the references in tests/ui/reference.
#include "ui/picture_compare.h"

#include <cairo.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <filesystem>

#include "support/picture_match.h"

namespace qmk::testing {

using platform::DeviceImage;
using platform::DrawTarget;
using platform::kRopSourceCopy;
using platform::PixelView;
namespace fs = std::filesystem;

fs::path ReferenceDir() {
  if (const char* src = std::getenv("QMK_TEST_SOURCE_DIR")) return fs::path(src) / "tests/ui/reference";
  return fs::path(QMK_SOURCE_DIR) / "tests/ui/reference";
}

fs::path PictureOutputDir() {
  char exe[PATH_MAX] = {};
  const ssize_t n = readlink("/proc/self/exe", exe, sizeof exe - 1);
  fs::path dir = n > 0 ? fs::path(std::string(exe, static_cast<size_t>(n))).parent_path()
                       : fs::temp_directory_path();
  dir /= "ui-pictures";
  fs::create_directories(dir);
  return dir;
}

// Reads a PNG into a drawing target through cairo; null when it cannot be read.
std::unique_ptr<DrawTarget> LoadPng(const std::string& path) {
  cairo_surface_t* s = cairo_image_surface_create_from_png(path.c_str());
  if (cairo_surface_status(s) != CAIRO_STATUS_SUCCESS) {
    cairo_surface_destroy(s);
    return nullptr;
  }
  cairo_surface_flush(s);
  PixelView view;
  view.top_row = cairo_image_surface_get_data(s);
  view.width = cairo_image_surface_get_width(s);
  view.height = cairo_image_surface_get_height(s);
  view.stride = cairo_image_surface_get_stride(s);
  view.premultiplied = true;
  auto image = DeviceImage::Create(view);
  auto target = std::make_unique<DrawTarget>(view.width, view.height);
  if (image)
    target->Blit(*image, {0, 0, view.width, view.height}, {0, 0, view.width, view.height},
                 kRopSourceCopy);
  cairo_surface_destroy(s);
  return image ? std::move(target) : nullptr;
}

// A pixel differs when a channel is off by more than 24, and up to one pixel in five hundred may
// differ (anti-aliased text edges of another font build).
::testing::AssertionResult MatchesReference(const DrawTarget& actual, const std::string& name) {
  const long allowed = static_cast<long>(actual.width()) * actual.height() / 500;
  return MatchesPicture(actual, ReferenceDir() / (name + ".png"),
                        {24, allowed, PictureOutputDir(), "QMK_UPDATE_REFERENCE"});
}

}  // namespace qmk::testing
