// cell_font.h: a cell whose value is a font: face, size, weight and the three style flags.
#pragma once

#include <string>

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// A font as the font dialog returns it. Shown as "Face, 10pt" with the weight name when it is
// not Normal and the styles that are on: "DejaVu Sans, 12pt, Bold, Italic, Underline". Text
// input takes the same: the face, the size in points (with or without "pt", 1 to 1638), then in
// any order a weight name or number, "Italic", "Underline", "Strikeout". Unnamed parts keep
// their defaults (weight 400, no styles).
class CExtGridCellFont : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellFont)
 public:
  static constexpr uint32_t kItalic = 0x1;
  static constexpr uint32_t kUnderline = 0x2;
  static constexpr uint32_t kStrikeout = 0x4;
  static constexpr int32_t kMaxPoints = 1638;

  struct Value {
    std::string face;
    int32_t points = 10;
    int32_t weight = 400;
    uint32_t styles = 0;
    bool operator==(const Value&) const = default;
  };

  const Value& FontValueGet() const { return m_value; }
  // False, and no change, for a blank face, a size outside 1 to kMaxPoints, a weight outside 0
  // to 1000 or unknown style bits.
  bool FontValueSet(const Value& value);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

  static std::string Format(const Value& value);
  static bool Parse(const char* text, Value& value);
  static bool IsValid(const Value& value);

 private:
  Value m_value;
};

}  // namespace qmk::toolkit::grid
