// label_text.h: how a label breaks its text into lines and how tall those lines stand, shared by
// the label's painting and by dialogs that size a label to its text.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/draw/text.h"
#include "platform/ui/paint.h"
#include "platform/ui/types.h"

namespace qmk::toolkit {

// Label style: a word longer than the line is broken between characters, as an edit breaks it,
// instead of standing alone on its line and running past the edge (the platform's number).
constexpr uint32_t kSsEditControl = 0x2000;

// The width of a line of text in pixels.
using TextWidth = std::function<int(const std::string& line)>;

// Breaks `text` into the lines a label of `width` pixels shows: at line breaks, and after the
// last space that fits. A word longer than the line stands alone on its line, or with
// `break_words` is cut after the last character that fits (never inside a UTF-8 sequence).
std::vector<std::string> WrapLabelText(const std::string& text, const TextWidth& measure, int width, bool wrap,
                                       bool break_words = false);

// The lines a label shows at a width, each line's width, the height of one line and the font.
struct LabelTextLayout {
  std::vector<std::string> lines;
  std::vector<int> widths;
  int line_height = 0;
  platform::FontSpec font;

  int Width() const;  // the widest line
  int Height() const { return line_height * static_cast<int>(lines.size()); }
};

// Lays out the text of label window `label` at `width` pixels from its style and font, exactly
// as the label paints it.
LabelTextLayout LayOutLabelText(platform::ui::HWND label, int width);
// The same for any text in font `font` (null: the control font), wrapped at `width`.
LabelTextLayout LayOutText(platform::ui::HFONT font, const std::string& text, int width, bool wrap,
                           bool break_words);

}  // namespace qmk::toolkit
