// edit_view.h: where an edit model's text lies on screen, and its painting: used by the edit
// control and by the edit part of a combo box.
#pragma once

#include <string>
#include <string_view>

#include "platform/ui/controls/edit_model.h"
#include "platform/ui/paint.h"

namespace qmk::platform::ui::controls {

enum class TextAlign { kLeft, kCenter, kRight };

struct EditView {
  HFONT font = nullptr;
  Rect area;              // where the text goes, in client coordinates
  int line_height = 13;
  TextAlign align = TextAlign::kLeft;
  char password_char = '*';
  bool vcenter = false;   // a single line centred in the area's height
};

// The pixel width of text in a font.
int MeasureText(HFONT font, std::string_view text);
// A measuring function for EditModel::EnsureCaretVisible.
TextWidth WidthIn(HFONT font);

// The character position nearest a client point (the caret a click puts there).
int CharFromPoint(const EditModel& model, const EditView& view, Point p);
// The client position of the top left of character `index`.
Point PosFromChar(const EditModel& model, const EditView& view, int index);
// Paints the visible lines with the selection (if `show_selection`) and, with focus, the caret.
void PaintEditText(Dc& dc, const EditModel& model, const EditView& view, bool focused,
                   bool enabled, bool show_selection);

}  // namespace qmk::platform::ui::controls
