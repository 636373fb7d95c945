// widget_layout.h: where the parts of each widget lie, shared by every look so that themes
// differ in colour and shape only, never in where a click lands.
#pragma once

#include <string>
#include <vector>

#include "toolkit/theme/paint_manager.h"

namespace qmk::toolkit::theme::layout {

struct CheckParts {
  DrawRect box, text;
};
CheckParts CheckBox(const CExtPaintManager& pm, const DrawRect& rc);

struct ComboParts {
  DrawRect text, button;
};
ComboParts ComboBox(const CExtPaintManager& pm, const DrawRect& rc);

struct SpinParts {
  DrawRect up, down;
};
SpinParts Spin(const DrawRect& rc);

struct GroupParts {
  DrawRect frame, caption;
};
GroupParts GroupBox(const CExtPaintManager& pm, const DrawRect& rc, const std::string& caption);

struct TabParts {
  DrawRect strip, pane;
  std::vector<DrawRect> tabs;
};
TabParts TabStrip(const CExtPaintManager& pm, const DrawRect& rc, const std::vector<std::string>& tabs);

// The part of the bar that shows progress; empty for no progress or an empty range.
DrawRect ProgressDone(const DrawRect& inner, int pos, int range);

// Fills the computed rectangles of the record from its bar, range, page and position.
void ScrollBar(const CExtPaintManager& pm, PAINTSCROLLBARDATA& data);

// The height of one item of a drop list.
int ListItemHeight(const CExtPaintManager& pm);

}  // namespace qmk::toolkit::theme::layout
