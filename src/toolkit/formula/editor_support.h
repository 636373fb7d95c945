// editor_support.h: what the in-place formula editor asks of the engine: colouring the parts
// of a formula, and repairing a text that does not parse.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qmk::toolkit::formula {

class CExtFormulaItem;
class CExtFormulaDataManager;
class CExtFormulaScanner;

// The edit control as the highlighter sees it. Colours are in COLORREF form (0x00bbggrr).
class FormulaEditSink {
 public:
  virtual ~FormulaEditSink() = default;
  virtual void SetColor(int start, int end, int32_t color, bool bold, bool italic) = 0;
  // Replaces the characters start..end (end excluded) by `text`, of the same length.
  virtual void ReplaceText(int start, int end, const std::string& text) = 0;
};

// The colours the highlighter hands out: references cycle through the palette; numbers,
// strings and function names take fixed colours, -1 meaning no colouring.
struct FormulaHighlightColors {
  std::vector<int32_t> palette{0xff0000, 0x8000, 0xcc0099, 0x80, 0x33cc00, 0x66ff, 0x9900cc};
  int cursor = 0;
  int32_t number = -1, string = -1, function = -1;

  int32_t NextReference(int& index) {
    index = cursor % static_cast<int>(palette.size());
    ++cursor;
    return palette[static_cast<size_t>(index)];
  }
};

// Colours `root`'s references, literals and function names in `edit`; a function name the set
// knows only upper- or lower-cased is rewritten in that case, in the tree and in the edit.
void HighlightInEdit(CExtFormulaItem& root, CExtFormulaDataManager& manager, FormulaHighlightColors& colors,
                     FormulaEditSink& edit);

// The editor's repair of a formula that does not parse, in its order: ")" added; characters
// stripped from the end one at a time while more than one is left; "()" added; a quotation mark
// added. The first text that parses is returned in `repaired`; false when none does.
bool RepairFormulaText(const std::string& text, CExtFormulaScanner& scanner, std::string& repaired);

}  // namespace qmk::toolkit::formula
