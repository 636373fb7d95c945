// cell_family.h: more cells of the family with a value of their own: a hyperlink, a boolean, a
// date and time, a colour, and a slider with a range.
#pragma once

#include <string>
#include <vector>

#include "toolkit/grid/cell_ex.h"
#include "toolkit/grid/cell_input.h"
#include "toolkit/grid/cell_variant.h"

namespace qmk::toolkit::grid {

// A link: the text shown is the string; the address and the target window name go with it.
class CExtGridCellHyperLink : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellHyperLink)
 public:
  const std::string& UrlGet() const { return m_strUrl; }
  void UrlSet(const std::string& url) { m_strUrl = url; }
  const std::string& TargetGet() const { return m_strTarget; }
  void TargetSet(const std::string& target) { m_strTarget = target; }
  // The address, or the text when no address was set.
  std::string AddressToOpen() const { return m_strUrl.empty() ? m_strText : m_strUrl; }
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;

 private:
  std::string m_strUrl, m_strTarget;
};

// True or false, shown with the locale's words ("True", "False").
class CExtGridCellBool : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellBool)
 public:
  bool GetValue() const { return m_bValue; }
  void SetValue(bool value);
  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  // Accepts the locale's words in any case, and numbers (0 is false).
  void TextSet(const char* text, bool asIs = false) override;
  void VariantGet(Variant& value) const override;
  platform::HRESULT OnParseText(const char* text) const override;

 private:
  bool Parse(const char* text, bool& value) const;
  bool m_bValue = false;
};

// A date and time as days since 30 December 1899.
class CExtGridCellDateTime : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellDateTime)
 public:
  double GetDate() const { return m_dDate; }
  void SetDate(double date);
  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  void VariantGet(Variant& value) const override;
  platform::HRESULT OnParseText(const char* text) const override;

 private:
  double m_dDate = 0;
};

// A colour word, red in the low byte; shown as "RGB(r, g, b)".
class CExtGridCellColor : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellColor)
 public:
  uint32_t GetColor() const { return m_clr; }
  void SetColor(uint32_t colour);
  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  void VariantGet(Variant& value) const override;

 private:
  uint32_t m_clr = 0;
};

// A whole number in a range; the spin buttons stop at its ends.
class CExtGridCellSlider : public CExtGridCellVariant {
  QMK_GRID_CELL_CLASS(CExtGridCellSlider)
 public:
  CExtGridCellSlider() { m_var = Variant::I4(0); }
  // False for an empty range; the value is moved inside a new range.
  bool SetRange(int32_t low, int32_t high);
  int32_t GetLow() const { return m_nLow; }
  int32_t GetHigh() const { return m_nHigh; }
  void SetPos(int32_t pos);
  int32_t GetPos() const { return static_cast<int32_t>(m_var.SignedValue()); }
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  void TextSet(const char* text, bool asIs = false) override;
  bool CanIncrement(const GridEditState* grid = nullptr) const override;
  bool CanDecrement(const GridEditState* grid = nullptr) const override;
  bool Increment(int steps = 1, const GridEditState* grid = nullptr) override;
  bool Decrement(int steps = 1, const GridEditState* grid = nullptr) override;
  bool IsMinimum() const override { return GetPos() <= m_nLow; }
  bool IsMaximum() const override { return GetPos() >= m_nHigh; }

 private:
  int32_t m_nLow = 0, m_nHigh = 100;
};

// A string with a list of items to choose from; any text may be typed.
class CExtGridCellComboBox : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellComboBox)
 public:
  const std::vector<std::string>& ItemsGet() const { return m_arrItems; }
  void ItemsSet(std::vector<std::string> items) { m_arrItems = std::move(items); }
  // The index of the item equal to `text` without regard to case, or -1.
  int FindItem(const std::string& text) const;
  // Chooses item `index`; false when there is none.
  bool SelectItem(int index);
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;

 private:
  std::vector<std::string> m_arrItems;
};

// The same, where only an item of the list may be stored.
class CExtGridCellDropListComboBox : public CExtGridCellComboBox {
  QMK_GRID_CELL_CLASS(CExtGridCellDropListComboBox)
 public:
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;
};

// A number shown as a percentage: 0.125 shows as "12.5%"; "12.5%" and "12.5" read as 0.125.
class CExtGridCellPercentage : public CExtGridCellNumber {
  QMK_GRID_CELL_CLASS(CExtGridCellPercentage)
 public:
  CExtGridCellPercentage() { m_var = Variant::R8(0); }
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

 private:
  static bool Parse(const char* text, double& fraction);
};

}  // namespace qmk::toolkit::grid
