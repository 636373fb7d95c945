// rich_content_view.h: what the rich content control does, apart from its window: holds a
// document, lays it out at the control's width, scrolls it vertically with a theme-drawn bar,
// paints the visible part and tells what lies under a point.
#pragma once

#include <memory>
#include <string_view>

#include "platform/draw/draw_target.h"
#include "toolkit/richcontent/document_layout.h"
#include "toolkit/richcontent/scroll_bars.h"

namespace qmk::toolkit::richcontent {

class RichContentView {
 public:
  // The width of the control's own bar, in pixels.
  static constexpr int kBarWidth = 16;
  // Pixels one arrow click or wheel step scrolls.
  static constexpr int kLineStep = 16;

  // `measurer` null measures with pango.
  explicit RichContentView(RichTextMeasurer* measurer = nullptr);

  // Reads a new document: markup when its first non-blank character is "<", else plain text.
  // The view goes back to the top.
  void SetText(std::string_view text);
  // Lays the document out again for a control of this client size.
  void Resize(int width, int height);

  // Moves the top of the view to `y` (clamped to the document); false when nothing moved.
  bool ScrollTo(int y);
  bool ScrollBy(int dy) { return ScrollTo(m_scrollY + dy); }
  int ScrollPosition() const { return m_scrollY; }
  int MaxScroll() const;
  bool HasBar() const { return m_barShown; }
  int DocumentHeight() const { return m_documentHeight; }
  // The bar's parts in client coordinates (empty when there is no bar).
  ScrollBarParts BarParts() const;

  // Paints the client area onto `target` (the client's size): page, document, bar.
  void Paint(platform::DrawTarget& target);

  // What a click at a client point does to the bar: arrows scroll a line, the track a page.
  // True when the point was on the bar (whether or not anything moved).
  bool ClickBar(int x, int y);
  // The item under a client point (the element holding a word for a word), or null: outside the
  // document, or on the bar.
  CExtRichContentItem* ItemAt(int x, int y);

  CExtRichContentLayout& Document() { return m_document; }
  RichDocumentLayout& Layout() { return m_layout; }

 private:
  void Relayout();

  CExtRichContentLayout m_document;
  RichDocumentLayout m_layout;
  int m_width = 0, m_height = 0;
  int m_scrollY = 0;
  int m_documentHeight = 0;
  bool m_barShown = false;
};

}  // namespace qmk::toolkit::richcontent
