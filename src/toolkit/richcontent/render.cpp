// render.cpp: one call from a parsed document to a painted page.
#include "toolkit/richcontent/render.h"

#include <algorithm>

#include "toolkit/richcontent/painter.h"

namespace qmk::toolkit::richcontent {

constexpr int kMaxPageSide = 16384;

std::unique_ptr<platform::DrawTarget> RenderDocument(RichDocumentLayout& layout, int width, int height) {
  if (width < 1 || width > kMaxPageSide || height < 0 || height > kMaxPageSide) return nullptr;
  const int rotation = layout.Document().m_nRotation;
  const bool turned = rotation == 90 || rotation == 180 || rotation == 270;
  const int pageHeight = height > 0 ? height : turned ? width : kMaxPageSide;
  layout.LayoutTree({0, 0, width, pageHeight});
  const int finalHeight = height > 0 || turned ? pageHeight : std::clamp(layout.DocumentHeight(), 1, kMaxPageSide);
  auto target = std::make_unique<platform::DrawTarget>(width, finalHeight);
  if (!target->ok()) return nullptr;
  target->FillRect({0, 0, width, finalHeight}, 0xFFFFFFFFu);
  RichContentPainter(layout, *target).PaintDocument();
  return target;
}

}  // namespace qmk::toolkit::richcontent
