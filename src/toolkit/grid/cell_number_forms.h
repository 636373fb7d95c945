// cell_number_forms.h: number cells with a written form of their own: a fraction ("2 3/8") and
// scientific notation ("1.23E+04").
#pragma once

#include "toolkit/grid/cell_input.h"

namespace qmk::toolkit::grid {

// A number shown as a whole part and a fraction: 2.375 shows as "2 3/8", -0.5 as "-1/2". The
// fraction is the nearest one whose denominator has at most the given count of digits, or,
// with a fixed denominator, the nearest count of that unit, not reduced ("4/8"). Text input
// takes "W", "N/D", "W N/D" with an optional sign, or any number the variant conversion reads.
class CExtGridCellFraction : public CExtGridCellNumberBase {
  QMK_GRID_CELL_CLASS(CExtGridCellFraction)
 public:
  static constexpr int kMaxDigits = 4;
  static constexpr int32_t kMaxFixed = 10000;

  int DenominatorDigitsGet() const { return m_nDigits; }
  // 1 to kMaxDigits; false and no change otherwise.
  bool DenominatorDigitsSet(int digits);
  int32_t FixedDenominatorGet() const { return m_nFixed; }
  // 0 for none, else 2 to kMaxFixed; false and no change otherwise.
  bool FixedDenominatorSet(int32_t denominator);

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

  // `value` written the cell's way; the parts are exposed for tests and for the editor.
  std::string Format(double value) const;
  static bool Parse(const char* text, double& value);

 private:
  int32_t m_nDigits = 1;
  int32_t m_nFixed = 0;
};

// A number in scientific notation with a fixed count of decimals in the mantissa and at least
// two exponent digits: 12345 with 2 decimals shows as "1.23E+04".
class CExtGridCellScientific : public CExtGridCellNumberBase {
  QMK_GRID_CELL_CLASS(CExtGridCellScientific)
 public:
  int DecimalsGet() const { return m_nDecimals; }
  // 0 to 15; false and no change otherwise.
  bool DecimalsSet(int decimals);

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

 private:
  int32_t m_nDecimals = 2;
};

// The value of a number cell as a double; false for an empty cell or a value with no number.
bool CellNumber(const CExtGridCellVariant& cell, double& value);

}  // namespace qmk::toolkit::grid
