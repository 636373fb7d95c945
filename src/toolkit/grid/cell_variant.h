// cell_variant.h: CExtGridCellVariant, a cell that holds any variant value, with the conversion
// rules of text input, the spin limits and automatic alignment.
#pragma once

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// The read-only state of the grid that asks a cell to step its value.
struct GridEditState {
  bool readOnly = false;
};

class CExtGridCellVariant : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellVariant)
 public:
  CExtGridCellVariant() = default;

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override { TextSetImpl(text, asIs); }
  void VariantGet(Variant& value) const override { value = m_var; }
  platform::HRESULT OnParseText(const char* text) const override;
  void GetAlignment(bool autoAlign, HorzAlign& horz, VertAlign& vert) const override;

  virtual Variant* GetVariantPtr() { return &m_var; }
  const Variant* GetVariantPtr() const { return &m_var; }
  virtual void VariantSet(const Variant& value);
  // Stores the text as a string value, whatever the present type.
  virtual void TextSetAsIs(const char* text) { TextSetImpl(text, true); }
  virtual bool Increment(int steps = 1, const GridEditState* grid = nullptr);
  virtual bool Decrement(int steps = 1, const GridEditState* grid = nullptr);
  virtual bool CanIncrement(const GridEditState* grid = nullptr) const;
  virtual bool CanDecrement(const GridEditState* grid = nullptr) const;
  virtual bool IsMinimum() const;
  virtual bool IsMaximum() const;

  // Converts the value in place; see the file's notes on text. On failure with `keepOnError` the
  // value becomes an error holding the code; without it the value stays. True on success.
  bool ChangeType(platform::VarType type, unsigned flags = 0, bool keepOnError = false);

  // Typed setters: a change of type clears the old value first; each clears "empty".
  void _VariantAssign(double value);
  void _VariantAssign(int32_t value);
  void _VariantAssign(bool value);
  void _VariantAssign(const std::string& value);
  // The up-down control is offered when neither bit of the 0x30 mask is set.
  bool OffersUpDown() const { return (GetStyle() & kStyleUpDownMask) == 0; }

 protected:
  void TextSetImpl(const char* text, bool asIs);
  bool Step(int steps, const GridEditState* grid);
  Variant m_var;
};

// The text of a failure code as a cell shows it.
std::string ErrorCodeText(int32_t code);

}  // namespace qmk::toolkit::grid
