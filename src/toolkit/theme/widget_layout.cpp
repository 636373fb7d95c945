// widget_layout.cpp: the geometry of check boxes, combo boxes, spins, group frames, tabs,
// progress and scroll bars, in pixels scaled by the theme.
#include "toolkit/theme/widget_layout.h"

#include <algorithm>

namespace qmk::toolkit::theme::layout {

CheckParts CheckBox(const CExtPaintManager& pm, const DrawRect& rc) {
  const int side = pm.UiScale(13, 1);
  const int top = rc.top + (rc.Height() - side) / 2;
  CheckParts parts;
  parts.box = {rc.left, top, rc.left + side, top + side};
  parts.text = {std::min(rc.right, parts.box.right + pm.UiScale(5)), rc.top, rc.right, rc.bottom};
  return parts;
}

ComboParts ComboBox(const CExtPaintManager& pm, const DrawRect& rc) {
  const int width = std::min(pm.UiScale(17), std::max(0, rc.Width() - 2));
  ComboParts parts;
  parts.button = {rc.right - 1 - width, rc.top + 1, rc.right - 1, rc.bottom - 1};
  parts.text = {rc.left + pm.UiScale(4), rc.top + 1, std::max(rc.left, parts.button.left - 2), rc.bottom - 1};
  return parts;
}

SpinParts Spin(const DrawRect& rc) {
  const int mid = rc.top + rc.Height() / 2;
  return {{rc.left, rc.top, rc.right, mid}, {rc.left, mid, rc.right, rc.bottom}};
}

GroupParts GroupBox(const CExtPaintManager& pm, const DrawRect& rc, const std::string& caption) {
  const platform::TextSize size = platform::MeasureText(caption, pm.Font(), true);
  const int text_h = caption.empty() ? 0 : size.height;
  GroupParts parts;
  parts.frame = {rc.left, rc.top + text_h / 2, rc.right, rc.bottom};
  if (!caption.empty()) {
    const int left = rc.left + pm.UiScale(8);
    parts.caption = {left, rc.top, std::min(rc.right - 2, left + size.width + pm.UiScale(4)), rc.top + text_h};
  }
  return parts;
}

TabParts TabStrip(const CExtPaintManager& pm, const DrawRect& rc, const std::vector<std::string>& tabs) {
  TabParts parts;
  const int strip_h = std::min(rc.Height(), pm.UiScale(24, 1));
  parts.strip = {rc.left, rc.top, rc.right, rc.top + strip_h};
  parts.pane = {rc.left, parts.strip.bottom - 1, rc.right, rc.bottom};
  int x = rc.left + pm.UiScale(2);
  for (const std::string& text : tabs) {
    const int w = platform::MeasureText(text, pm.Font(), true).width + pm.UiScale(18);
    const int right = std::min(rc.right - 2, x + w);
    parts.tabs.push_back({x, rc.top + pm.UiScale(3, 1), right, parts.strip.bottom});
    x = right;
  }
  return parts;
}

DrawRect ProgressDone(const DrawRect& inner, int pos, int range) {
  if (range <= 0 || pos <= 0) return {inner.left, inner.top, inner.left, inner.bottom};
  const int64_t width = static_cast<int64_t>(inner.Width()) * std::min(pos, range) / range;
  return {inner.left, inner.top, inner.left + static_cast<int>(width), inner.bottom};
}

void ScrollBar(const CExtPaintManager& pm, PAINTSCROLLBARDATA& d) {
  const DrawRect& bar = d.m_rcBar;
  const int length = d.m_bHorzBar ? bar.Width() : bar.Height();
  const int thickness = d.m_bHorzBar ? bar.Height() : bar.Width();
  const int arrow = std::max(0, std::min(thickness, length / 2));
  // Positions along the bar, turned into rectangles across it.
  auto span = [&](int from, int to) -> DrawRect {
    return d.m_bHorzBar ? DrawRect{bar.left + from, bar.top, bar.left + to, bar.bottom}
                        : DrawRect{bar.left, bar.top + from, bar.right, bar.top + to};
  };
  d.m_rcButtonUp = span(0, arrow);
  d.m_rcButtonDown = span(length - arrow, length);
  const int track = length - 2 * arrow;
  const int64_t range = static_cast<int64_t>(d.m_nMax) - d.m_nMin + 1;
  if (!d.m_bEnabled || track <= 0 || range <= 0 || d.m_nPage >= range) {
    d.m_rcThumb = span(arrow, arrow);
    d.m_rcPageUp = span(arrow, arrow + std::max(0, track));
    d.m_rcPageDown = span(length - arrow, length - arrow);
    return;
  }
  const int page = std::max(0, d.m_nPage);
  const int min_thumb = std::min(track, pm.UiScale(8));
  const int thumb = std::clamp(static_cast<int>(track * static_cast<int64_t>(page) / range), min_thumb, track);
  const int64_t travel = range - std::max(1, page);
  const int64_t pos = std::clamp<int64_t>(static_cast<int64_t>(d.m_nPos) - d.m_nMin, 0, std::max<int64_t>(0, travel));
  const int offset = travel > 0 ? static_cast<int>((track - thumb) * pos / travel) : 0;
  d.m_rcThumb = span(arrow + offset, arrow + offset + thumb);
  d.m_rcPageUp = span(arrow, arrow + offset);
  d.m_rcPageDown = span(arrow + offset + thumb, length - arrow);
}

int ListItemHeight(const CExtPaintManager& pm) {
  return platform::MeasureText("Ag", pm.Font()).height + pm.UiScale(4, 1);
}

}  // namespace qmk::toolkit::theme::layout
