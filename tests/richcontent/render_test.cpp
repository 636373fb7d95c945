// render_test.cpp: documents under render/ laid out and painted with the installed DejaVu fonts,
// compared with their reference pictures within a tolerance. A run that differs leaves the
// actual picture and a difference picture in render-out/ of the working folder.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "platform/draw/text.h"
#include "toolkit/richcontent/render.h"
#include "ui_controls/picture_compare.h"

namespace qmk::toolkit::richcontent {
namespace {

namespace fs = std::filesystem;
using platform::ui::controls::testing::ComparePicture;

fs::path RenderDir() {
  const char* root = std::getenv("QMK_TEST_SOURCE_DIR");
  return fs::path(root ? root : "../..") / "tests" / "richcontent" / "render";
}

std::string ReadText(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The font map and fontconfig caches live as long as the process; freeing them at the end keeps
// the leak checker of sanitized runs quiet about them.
class FontCacheRelease : public ::testing::Environment {
 public:
  void TearDown() override { platform::ReleaseFontCaches(); }
};
::testing::Environment* const kFontCacheRelease = ::testing::AddGlobalTestEnvironment(new FontCacheRelease);

class RenderDocuments : public ::testing::TestWithParam<const char*> {};

TEST_P(RenderDocuments, MatchesItsReference) {
  const std::string stem = GetParam();
  const fs::path html = RenderDir() / (stem + ".html");
  ASSERT_TRUE(fs::exists(html)) << html;
  CExtRichContentLayout document;
  // A name ending in _90 is painted turned by that angle.
  if (stem.size() > 3 && stem.substr(stem.size() - 3) == "_90") document.m_nRotation = 90;
  document.ParseAuto(ReadText(html), kFormHtml);
  RichDocumentLayout layout(document);
  const auto page = RenderDocument(layout, 320, document.m_nRotation ? 240 : 0);
  ASSERT_NE(page, nullptr);
  // Text antialiasing may differ slightly between font builds: a channel may be off by 48, and a
  // few pixels (a quarter of a percent) may differ.
  const auto diff = ComparePicture(*page, RenderDir() / (stem + ".png"), 48, fs::current_path() / "render-out");
  ASSERT_TRUE(diff.loaded) << diff.message;
  ASSERT_TRUE(diff.same_size) << diff.message;
  EXPECT_LE(diff.differing, diff.total / 400) << diff.message;
}

INSTANTIATE_TEST_SUITE_P(Documents, RenderDocuments,
                         ::testing::Values("flow", "borders", "tables", "lists", "scrolling", "docked", "rotated_90",
                                           "finish", "whitespace"));

}  // namespace
}  // namespace qmk::toolkit::richcontent
