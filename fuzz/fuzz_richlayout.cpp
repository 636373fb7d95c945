// fuzz_richlayout.cpp: arbitrary bytes as a rich content document laid out at a width the first
// byte picks (with the fixed-width measurer, so the run is fast), painted on a small page, and
// hit tested at a few points; then shown in the rich content control's view, scrolled, clicked
// and hit tested through it.
#include <cstddef>
#include <cstdint>
#include <string>

#include "toolkit/richcontent/hit_test.h"
#include "toolkit/richcontent/painter.h"
#include "toolkit/richcontent/rich_content_view.h"

using namespace qmk::toolkit::richcontent;

namespace {

class FixedMeasurer : public RichTextMeasurer {
 public:
  RichTextSize Measure(const std::string& text, const CExtRichFontDescription&) override {
    return {static_cast<int>(text.size()) * 7, 14};
  }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2 || size > 1 << 16) return 0;
  const int width = 1 + data[0] * 3;
  const int rotation = (data[1] % 4) * 90;
  const std::string text(reinterpret_cast<const char*>(data + 2), size - 2);
  CExtRichContentLayout document;
  document.m_nRotation = rotation;
  document.ParseAuto(text, kFormHtml);
  FixedMeasurer measurer;
  RichDocumentLayout layout(document, &measurer);
  layout.LayoutTree({0, 0, width, 200});
  qmk::platform::DrawTarget page(64, 64);
  RichContentPainter(layout, page).PaintDocument(-width / 4, 0);
  for (int p = 0; p < 4; ++p) {
    RichHitTestRecord record;
    record.x = width * p / 4;
    record.y = p * 10;
    if (HitTest(layout, record))
      for (CExtRichContentItem* item : record.items) IsVisibleInAncestors(layout, *item, p % 2 == 0);
  }
  RichContentView view(&measurer);
  view.Resize(width, 60);
  view.SetText(text);
  view.ScrollTo(data[1] * 7);
  view.ClickBar(width - 2, 3);
  view.ClickBar(width - 2, 40);
  view.ItemAt(width / 2, 30);
  qmk::platform::DrawTarget client(width, 60);
  view.Paint(client);
  return 0;
}
