// painter.h: painting a laid out rich content document on a drawing target: children in their
// docking and delayed order, backgrounds, borders, list markers, words and scroll bars.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/draw/draw_target.h"
#include "platform/draw/text.h"
#include "toolkit/richcontent/document_layout.h"

namespace qmk::toolkit::richcontent {

class RichContentPainter {
 public:
  RichContentPainter(RichDocumentLayout& layout, platform::DrawTarget& target)
      : m_layout(layout), m_target(&target) {}

  // Paints the document with its layout origin moved by (dx, dy); a turned document is painted
  // turned. The two delayed lists are painted last, in order.
  void PaintDocument(int dx = 0, int dy = 0);

  // The children of `item` in painting order: pre-fill docked, pre- sides, other sides, other
  // fill, then the ordinary children.
  static std::vector<CExtRichContentItem*> PaintOrder(const CExtRichContentItem& item);

 private:
  using Pending = std::vector<std::pair<CExtRichContentItem*, std::pair<int, int>>>;
  void PaintTree(int dx, int dy);
  // Does a paint extent moved by (dx, dy) meet the target?
  bool OnTarget(const RichRect& extent, int dx, int dy) const;
  void PaintItem(CExtRichContentItem& item, int dx, int dy);
  void PaintChildren(CExtRichContentItem& item, int dx, int dy);
  void PaintBackground(const CExtRichContentItem& item, const RichRect& borderBox);
  void PaintBorders(const CExtRichContentItem& item, const RichRect& borderBox);
  void PaintMarker(const CExtRichContentItem& item, const RichItemBox& box, int dx, int dy);
  void PaintWord(const CExtRichContentItem& word, const RichRect& box);
  // Draws a word's text through the pictures of words drawn before.
  void DrawWordText(const RichRect& box, const std::string& shown, const platform::FontSpec& font, uint32_t colour);
  void PaintScrollBars(const CExtRichContentItem& item, const RichItemBox& box, int dx, int dy);
  void PushClip(const RichRect& r);
  void PopClip();

  RichDocumentLayout& m_layout;
  platform::DrawTarget* m_target;
  std::vector<RichRect> m_clips;
  Pending m_preFixed, m_postFixed;
  int m_depth = 0;
  // Pictures of the words drawn so far, by text, font, colour and box size, up to about 8 MB of
  // them (a picture keeps two surfaces of four bytes a pixel).
  static constexpr size_t kMaxKeptPixels = size_t{1} << 20;
  size_t m_keptPixels = 0;
  std::unordered_map<std::string, std::unique_ptr<platform::DeviceImage>> m_words;
};

}  // namespace qmk::toolkit::richcontent
