// themed_list_rows.h: the colours and rows of a list drawn by the theme, shared by the dropped
// list of a combo box and the list box.
#pragma once

#include <cstdint>
#include <string>

#include "platform/draw/draw_target.h"
#include "toolkit/theme/paint_manager.h"

namespace qmk::toolkit {

struct ListColors {
  uint32_t field, border, text, selection, selection_text, focus;
};

// The theme's field, frame, text and highlight colours; the classic look's system colours.
ListColors ListColorsOf(theme::CExtPaintManager& pm);

// One row: its highlight when selected, and its text as plain text (an "&" in it is shown, not
// taken as a mnemonic).
void PaintListRow(theme::CExtPaintManager& pm, platform::DrawTarget& target, const platform::DrawRect& row,
                  const std::string& text, bool selected, const ListColors& colors);

}  // namespace qmk::toolkit
