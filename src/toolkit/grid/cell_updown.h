// cell_updown.h: numbers with spin buttons inside a range: the general up-down cell, and its
// members for a font weight, a side of a rectangle and a channel of a colour.
#pragma once

#include "toolkit/grid/cell_input.h"
#include "toolkit/grid/cell_rect.h"

namespace qmk::toolkit::grid {

// A number in [low, high] that the spin buttons move by `step`. The value keeps its variant
// type (4-byte integer by default). Text input outside the range is refused; steps stop at the
// ends.
class CExtGridCellUpDown : public CExtGridCellNumber {
  QMK_GRID_CELL_CLASS(CExtGridCellUpDown)
 public:
  CExtGridCellUpDown() { m_var = Variant::I4(0); }
  double RangeLowGet() const { return m_dLow; }
  double RangeHighGet() const { return m_dHigh; }
  // False for low above high or an end that is no finite number; a value outside a new range
  // moves to its nearer end.
  bool RangeSet(double low, double high);
  double StepGet() const { return m_dStep; }
  // False for a step that is not a finite number above 0.
  bool StepSet(double step);

  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  void TextSet(const char* text, bool asIs = false) override;
  // The variant cell's rule, then DISP_E_OVERFLOW for a number outside the range.
  platform::HRESULT OnParseText(const char* text) const override;
  bool CanIncrement(const GridEditState* grid = nullptr) const override;
  bool CanDecrement(const GridEditState* grid = nullptr) const override;
  bool Increment(int steps = 1, const GridEditState* grid = nullptr) override;
  bool Decrement(int steps = 1, const GridEditState* grid = nullptr) override;
  bool IsMinimum() const override;
  bool IsMaximum() const override;

  // The value as a number; false for an empty cell or a value that is not one.
  bool NumberGet(double& value) const;
  // Stores `value`, held inside the range, in the present type (an integer type rounds).
  void NumberSet(double value);

 protected:
  // Where `steps` steps from `value` lead, before the range holds it.
  virtual double Stepped(double value, int steps) const { return value + static_cast<double>(steps) * m_dStep; }
  bool StepBy(int steps, const GridEditState* grid);

  double m_dLow = -2147483648.0;
  double m_dHigh = 2147483647.0;
  double m_dStep = 1.0;
};

// A font weight from 0 to 1000, moved by hundreds. The hundreds show by name ("Normal",
// "Bold"); other weights by number. Text input takes the names and their common other names
// ("Regular", "Demi Bold") with any case, blanks or hyphens, or a number.
class CExtGridCellUpDownFontWeight : public CExtGridCellUpDown {
  QMK_GRID_CELL_CLASS(CExtGridCellUpDownFontWeight)
 public:
  CExtGridCellUpDownFontWeight();
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;
  // The weight a name stands for; false for a name no weight has.
  static bool WeightOfName(const std::string& name, int& weight);
  // The name a weight shows; false for a weight that is not one of the named hundreds.
  static bool NameOfWeight(int weight, std::string& name);

 protected:
  // A step goes to the next hundred: 450 up is 500, down is 400.
  double Stepped(double value, int steps) const override;
};

// One side of a rectangle as a whole number; the cell knows which side it edits.
class CExtGridCellUpDownRectPart : public CExtGridCellUpDown {
  QMK_GRID_CELL_CLASS(CExtGridCellUpDownRectPart)
 public:
  enum Part : int32_t { kLeft, kTop, kRight, kBottom };
  Part PartGet() const { return m_ePart; }
  void PartSet(Part part) { m_ePart = part; }
  void ReadFrom(const PixelRect& rect);
  // Writes the value to its side; an empty cell writes nothing.
  void WriteTo(PixelRect& rect) const;
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;

 private:
  Part m_ePart = kLeft;
};

// One channel of a colour word (red in the low byte), 0 to 255.
class CExtGridCellUpDownColorPart : public CExtGridCellUpDown {
  QMK_GRID_CELL_CLASS(CExtGridCellUpDownColorPart)
 public:
  enum Part : int32_t { kRed, kGreen, kBlue };
  CExtGridCellUpDownColorPart();
  Part PartGet() const { return m_ePart; }
  void PartSet(Part part) { m_ePart = part; }
  void ReadFrom(uint32_t colour);
  // Writes the value into its channel and leaves the others; an empty cell writes nothing.
  void WriteTo(uint32_t& colour) const;
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;

 private:
  Part m_ePart = kRed;
};

}  // namespace qmk::toolkit::grid
