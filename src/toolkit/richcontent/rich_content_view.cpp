// rich_content_view.cpp: the rich content control's document, layout, scrolling and painting.
#include "toolkit/richcontent/rich_content_view.h"

#include <algorithm>

#include "toolkit/richcontent/hit_test.h"
#include "toolkit/richcontent/painter.h"

namespace qmk::toolkit::richcontent {
namespace {

bool IsMarkup(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && text[first] == '<';
}

bool Inside(const RichRect& r, int x, int y) { return x >= r.left && x < r.right && y >= r.top && y < r.bottom; }

}  // namespace

RichContentView::RichContentView(RichTextMeasurer* measurer) : m_layout(m_document, measurer) {}

void RichContentView::SetText(std::string_view text) {
  // A markup document needn't start with "<html" here: the control is told what it shows.
  if (IsMarkup(text)) m_document.ParseHtml(text);
  else m_document.ParsePlainText(text);
  m_scrollY = 0;
  Relayout();
}

void RichContentView::Resize(int width, int height) {
  m_width = std::max(0, width);
  m_height = std::max(0, height);
  Relayout();
}

void RichContentView::Relayout() {
  m_barShown = false;
  m_documentHeight = 0;
  if (m_width <= 0 || m_height <= 0 || !m_document.Root()) {
    m_scrollY = 0;
    return;
  }
  m_layout.LayoutTree({0, 0, m_width, m_height});
  m_documentHeight = m_layout.DocumentHeight();
  // A document taller than the control gets the bar, and the narrower room it leaves.
  if (m_documentHeight > m_height && m_width > kBarWidth) {
    m_barShown = true;
    m_layout.LayoutTree({0, 0, m_width - kBarWidth, m_height});
    m_documentHeight = m_layout.DocumentHeight();
  }
  m_scrollY = std::clamp(m_scrollY, 0, MaxScroll());
}

int RichContentView::MaxScroll() const { return std::max(0, m_documentHeight - m_height); }

bool RichContentView::ScrollTo(int y) {
  const int next = std::clamp(y, 0, MaxScroll());
  if (next == m_scrollY) return false;
  m_scrollY = next;
  return true;
}

ScrollBarParts RichContentView::BarParts() const {
  if (!m_barShown) return {};
  return ScrollBarPartsAt({m_width - kBarWidth, 0, m_width, m_height}, true, m_documentHeight, m_height, m_scrollY);
}

void RichContentView::Paint(platform::DrawTarget& target) {
  target.FillRect({0, 0, target.width(), target.height()}, 0xFFFFFFFFu);
  if (!m_document.Root() || m_width <= 0) return;
  RichContentPainter(m_layout, target).PaintDocument(0, -m_scrollY);
  if (m_barShown) PaintScrollBar(target, BarParts(), false);
}

bool RichContentView::ClickBar(int x, int y) {
  if (!m_barShown) return false;
  const ScrollBarParts parts = BarParts();
  if (!Inside(parts.bar, x, y)) return false;
  if (Inside(parts.arrowLow, x, y)) ScrollBy(-kLineStep);
  else if (Inside(parts.arrowHigh, x, y)) ScrollBy(kLineStep);
  else if (y < parts.thumb.top) ScrollBy(-m_height);
  else if (y >= parts.thumb.bottom) ScrollBy(m_height);
  return true;
}

CExtRichContentItem* RichContentView::ItemAt(int x, int y) {
  if (m_barShown && x >= m_width - kBarWidth) return nullptr;
  RichHitTestRecord record;
  record.x = x;
  record.y = y + m_scrollY;
  if (!HitTest(m_layout, record)) return nullptr;
  return record.Found();
}

}  // namespace qmk::toolkit::richcontent
