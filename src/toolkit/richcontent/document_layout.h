// document_layout.h: RichDocumentLayout, the boxes of a parsed rich content document: the
// whole-document pass, measuring, block and inline flow with line breaking, tables, list
// markers, scrolling boxes and out-of-flow items.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "toolkit/richcontent/box_model.h"
#include "toolkit/richcontent/layout.h"
#include "toolkit/richcontent/line_finish.h"
#include "toolkit/richcontent/table_layout.h"
#include "toolkit/richcontent/text_measure.h"

namespace qmk::toolkit::richcontent {

// Values of "display" the layout tells apart.
enum Display : int {
  kDisplayNone = 0, kDisplayBlock = 1, kDisplayInline = 2, kDisplayInlineBlock = 3,
  kDisplayInlineTable = 4, kDisplayListItem = 5, kDisplayTable = 7, kDisplayTableCell = 9,
  kDisplayTableRow = 14, kDisplayDock = 16
};

// What the layout keeps per item.
struct RichItemBox {
  RichRect box;             // the outer box: margin included
  RichRect content;         // inside the padding
  int measuredMin = 0, measuredWidth = 0;  // narrowest and preferred outer widths
  bool measured = false;
  RichTextSize text;        // a word's shown size, measured once a layout
  std::string marker;       // a list item's marker text
  int markerType = 0;       // its list-style-type
  std::string markerImage;  // the picture of "list-style-image" that stands for the marker
  RichRect markerBox;
  int scrollX = 0, scrollY = 0;        // the scroll position of a scrolling box
  int extentWidth = 0, extentHeight = 0;  // the size of its content
  bool barH = false, barV = false;     // scroll bars shown
  RichRect extent;  // what painting the item and all it holds may touch (UpdatePaintExtents)
};

class RichDocumentLayout {
 public:
  // `measurer` null uses pango.
  explicit RichDocumentLayout(CExtRichContentLayout& document, RichTextMeasurer* measurer = nullptr);
  ~RichDocumentLayout();

  // Lays the whole document out in `client` (its width is the page width).
  void LayoutTree(const RichRect& client);
  // Styles for every item, from a root style made from `font`.
  void ComputeTree(const CExtRichFontDescription& font);
  // The narrowest and preferred outer widths of an item.
  void MeasureItem(CExtRichContentItem& item);
  // Lays out an item's box at (x, y) with `width` pixels for its outer box. Returns the outer
  // height.
  int ArrangeItem(CExtRichContentItem& item, int x, int y, int width);
  // Moves a box, and with `recursive` everything inside it.
  void OffsetItem(CExtRichContentItem& item, int dx, int dy, bool recursive = true);

  const RichItemBox* BoxOf(const CExtRichContentItem* item) const;
  RichItemBox* BoxOf(const CExtRichContentItem* item);
  const CExtRichTableLayout* TableOf(const CExtRichContentItem* item) const;
  CExtRichContentLayout& Document() { return m_document; }
  const RichRect& Client() const { return m_client; }
  // The height of everything laid out (the root's box bottom).
  int DocumentHeight() const;
  const std::vector<CExtRichContentItem*>& OutOfFlow() const { return m_outOfFlow; }
  // Brings every box's paint extent up to date after a layout or a move (the painter asks).
  void UpdatePaintExtents();
  // Sets the scroll position of a scrolling item, clamped to its extent; false when unchanged.
  bool ScrollTo(CExtRichContentItem& item, int x, int y);

  static int DisplayOf(const CExtRichContentItem& item);
  static bool IsBlockLevel(int display);
  static constexpr int kScrollBarSize = 12;

 private:
  struct LineState;
  int ArrangeBlock(CExtRichContentItem& item, int x, int y, int width);
  int ArrangeTable(CExtRichContentItem& table, int x, int y, int width);
  CExtRichTableLayout& TableFor(CExtRichContentItem& table);
  int FlowChildren(CExtRichContentItem& item, const RichRect& content);
  // Places the docked children at the sides of `content` (`height` -1 when not fixed), then
  // flows the others in what is left. Returns the content height used.
  int DockAndFlow(CExtRichContentItem& item, const RichRect& content, int height);
  void FlowInline(CExtRichContentItem& element, LineState& line, int depth);
  void MeasureChildren(CExtRichContentItem& item, int& minimum, int& preferred);
  void AddWord(CExtRichContentItem& word, const CExtRichStyleDescription& style, LineState& line);
  void AddAtomic(CExtRichContentItem& item, LineState& line);
  // The shown size of a word in `style`, measured once a layout.
  RichTextSize WordSize(const CExtRichContentItem& word, const CExtRichStyleDescription& style);
  void AddSpace(CExtRichContentItem& space, const CExtRichStyleDescription& style, LineState& line);
  int PendingSpaceWidth(const LineState& line);
  // The size of one blank in `style`.
  RichTextSize BlankSize(const CExtRichStyleDescription& style);
  // Ends the line at a newline or `br`; an empty line takes the height of a line of `style`.
  void BreakLine(const CExtRichStyleDescription& style, LineState& line);
  void FinishLine(LineState& line, bool lastOfBlock);
  void PlaceMarker(CExtRichContentItem& item, int number);
  void UniteInlineBoxes(const std::vector<CExtRichContentItem*>& inlines);
  void ApplyScrolling(CExtRichContentItem& item, RichItemBox& box, int contentHeight);
  void ArrangeOutOfFlow(CExtRichContentItem& item);
  int WidthFor(const CExtRichContentItem& item, int available, bool shrink);

  CExtRichContentLayout& m_document;
  std::unique_ptr<RichTextMeasurer> m_ownMeasurer;
  RichTextMeasurer* m_measurer;
  // The box of an item, made (empty) on first asking in this layout.
  RichItemBox& BoxFor(const CExtRichContentItem* item);
  // Boxes sit in a vector by the item's place in the document's item list, so a layout walks
  // them in document order and a lookup is an index; items outside the list (none in a parsed
  // document) fall back to a map.
  std::vector<RichItemBox> m_boxes;
  std::vector<const CExtRichContentItem*> m_slotItems;  // the item list as it was at LayoutTree
  std::vector<char> m_made;                              // the slot's box was made this layout
  std::unordered_map<const CExtRichContentItem*, RichItemBox> m_looseBoxes;
  std::unordered_set<const CExtRichContentItem*> m_docks;  // items with docked children
  std::unordered_map<const CExtRichContentItem*, std::unique_ptr<CExtRichTableLayout>> m_tables;
  std::vector<CExtRichContentItem*> m_outOfFlow;
  // Where an out-of-flow item was met: its parent's content box and the flow's height there.
  struct OutOfFlowPlace {
    RichRect area;
    int staticY = 0;
  };
  std::unordered_map<const CExtRichContentItem*, OutOfFlowPlace> m_containers;
  RichRect m_client;
  CExtRichStyleDescription m_rootStyle;
  int m_depth = 0;
  bool m_extentsStale = true;
  const CExtRichStyleDescription* m_blankStyle = nullptr;  // the style of the last blank measured
  RichTextSize m_blankSize;
};

}  // namespace qmk::toolkit::richcontent
