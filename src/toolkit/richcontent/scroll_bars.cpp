// scroll_bars.cpp: scroll bar geometry and thumb dragging.
#include "toolkit/richcontent/scroll_bars.h"

#include <algorithm>
#include <memory>

#include "toolkit/theme/paint_manager_holder.h"
#include "toolkit/theme/widget_layout.h"

namespace qmk::toolkit::richcontent {

namespace {

RichRect FromDraw(const platform::DrawRect& r) { return {r.left, r.top, r.right, r.bottom}; }

}  // namespace

ScrollBarParts ScrollBarPartsAt(const RichRect& bar, bool vertical, int extent, int view, int position) {
  ScrollBarParts p;
  p.bar = bar;
  theme::PAINTSCROLLBARDATA& d = p.data;
  d.m_rcBar = {bar.left, bar.top, bar.right, bar.bottom};
  d.m_bHorzBar = !vertical;
  d.m_nMin = 0;
  d.m_nMax = std::max(view, extent) - 1;
  d.m_nPage = std::max(0, view);
  d.m_nPos = position;
  d.m_bEnabled = extent > view;
  theme::layout::ScrollBar(*theme::g_PaintManager().GetPM(), d);
  p.arrowLow = FromDraw(d.m_rcButtonUp);
  p.arrowHigh = FromDraw(d.m_rcButtonDown);
  p.thumb = FromDraw(d.m_rcThumb);
  return p;
}

ScrollBarParts ScrollBarPartsOf(const RichItemBox& b, bool vertical) {
  if (vertical ? !b.barV : !b.barH) return {};
  const int size = RichDocumentLayout::kScrollBarSize;
  const RichRect& c = b.content;
  const RichRect bar = vertical ? RichRect{c.right, c.top, c.right + size, c.bottom}
                                : RichRect{c.left, c.bottom, c.right, c.bottom + size};
  return vertical ? ScrollBarPartsAt(bar, true, b.extentHeight, c.Height(), b.scrollY)
                  : ScrollBarPartsAt(bar, false, b.extentWidth, c.Width(), b.scrollX);
}

void PaintScrollBar(platform::DrawTarget& target, const ScrollBarParts& parts, bool lightTrack) {
  const int w = parts.bar.Width(), h = parts.bar.Height();
  if (w <= 0 || h <= 0) return;
  // The theme draws the bar on a picture of its own, which is then laid on the target part by
  // part, so that the track can be blended while the arrows and thumb stay opaque.
  platform::DrawTarget picture(w, h);
  if (!picture.ok()) return;
  theme::PAINTSCROLLBARDATA d = parts.data;
  d.m_rcBar = {0, 0, w, h};
  theme::g_PaintManager().GetPM()->PaintScrollBar(picture, d);
  std::unique_ptr<platform::DeviceImage> image = platform::DeviceImage::Create(picture.Pixels());
  if (!image) return;
  const auto lay = [&](const platform::DrawRect& r, uint8_t alpha) {
    if (r.IsEmpty()) return;
    const platform::DrawRect dst{r.left + parts.bar.left, r.top + parts.bar.top, r.right + parts.bar.left,
                                 r.bottom + parts.bar.top};
    target.AlphaBlend(*image, dst, r, alpha);
  };
  const uint8_t track = lightTrack ? 96 : 255;
  lay(d.m_rcPageUp, track);
  lay(d.m_rcPageDown, track);
  lay(d.m_rcThumb, 255);
  lay(d.m_rcButtonUp, 255);
  lay(d.m_rcButtonDown, 255);
}

bool DragScrollPosition(int startPosition, int pointerDelta, int lineSize, int minimum, int maximum, int& position) {
  const long long moved = static_cast<long long>(startPosition) + pointerDelta / std::max(1, lineSize);
  const int next = static_cast<int>(std::clamp<long long>(moved, minimum, static_cast<long long>(maximum) + 1));
  if (next == position) return false;
  position = next;
  return true;
}

}  // namespace qmk::toolkit::richcontent
