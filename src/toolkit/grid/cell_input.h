// cell_input.h: the cells edited through an input behaviour: the masked string, and the
// locale-formatted number and currency. Their values live here; the editing hooks meet the edit
// engine through CellInputBehaviour.
#pragma once

#include <memory>
#include <string>

#include "platform/locale.h"
#include "toolkit/grid/cell_ex.h"
#include "toolkit/grid/cell_variant.h"

namespace qmk::toolkit::grid {

// What an in-place editor's behaviour answers for a cell: whether a text may be stored, and the
// text to show when editing starts. The edit engine implements it; a cell without one accepts
// what its own value logic accepts.
class CellInputBehaviour {
 public:
  virtual ~CellInputBehaviour() = default;
  // 0 to accept `text`, or a failure code.
  virtual platform::HRESULT ValidateText(const std::string& text) const = 0;
  virtual std::string EditText(const std::string& displayText) const { return displayText; }
};

// A string whose input follows a mask (the mask's rules belong to the edit engine).
class CExtGridCellStringMasked : public CExtGridCellString {
  QMK_GRID_CELL_CLASS(CExtGridCellStringMasked)
 public:
  const std::string& MaskGet() const { return m_strMask; }
  void MaskSet(const std::string& mask) { m_strMask = mask; }
  // Not owned; the edit engine keeps it alive while the cell is edited.
  void InputBehaviourSet(const CellInputBehaviour* behaviour) { m_pBehaviour = behaviour; }
  bool Serialize(Archive& ar) override;
  void Assign(const CExtGridCell& other) override;
  platform::HRESULT OnParseText(const char* text) const override;
  void OnQueryTextForInplaceControl(std::string& text) const override;

 private:
  std::string m_strMask;
  const CellInputBehaviour* m_pBehaviour = nullptr;
};

// A number shown in the locale's form: grouped digits, the locale's separators, a fixed count of
// decimals. The value is a double; text input accepts the same form.
class CExtGridCellSystemNumberCurrencyBase : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellSystemNumberCurrencyBase)
 public:
  double GetNumber() const { return m_dValue; }
  void SetNumber(double value);
  int DecimalsGet() const { return m_nDecimals; }
  void DecimalsSet(int decimals);
  void LocaleSet(const platform::Locale* locale) { m_pLocale = locale; }
  void InputBehaviourSet(const CellInputBehaviour* behaviour) { m_pBehaviour = behaviour; }

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;
  void TextGet(std::string& text) const override;
  void TextSet(const char* text, bool asIs = false) override;
  void VariantGet(Variant& value) const override;
  platform::HRESULT OnParseText(const char* text) const override;

 protected:
  virtual bool IsCurrency() const { return false; }
  // The number a text stands for, read in the cell's locale.
  bool ParseNumber(const std::string& text, double& value) const;
  const platform::Locale& LocaleGet() const { return m_pLocale ? *m_pLocale : platform::EnUsLocale(); }

  double m_dValue = 0;
  int32_t m_nDecimals = 2;
  const platform::Locale* m_pLocale = nullptr;
  const CellInputBehaviour* m_pBehaviour = nullptr;
};

class CExtGridCellSystemNumber : public CExtGridCellSystemNumberCurrencyBase {
  QMK_GRID_CELL_CLASS(CExtGridCellSystemNumber)
};

// The same with the locale's currency symbol in front ("$1,234.50", "-$3.00").
class CExtGridCellSystemCurrency : public CExtGridCellSystemNumberCurrencyBase {
  QMK_GRID_CELL_CLASS(CExtGridCellSystemCurrency)

 protected:
  bool IsCurrency() const override { return true; }
};

// Numbers held as a variant of a number type: double by default, currency in the currency cell.
class CExtGridCellNumberBase : public CExtGridCellVariant {
  QMK_GRID_CELL_CLASS(CExtGridCellNumberBase)
 public:
  CExtGridCellNumberBase() { m_var = Variant::R8(0); }
};

class CExtGridCellNumber : public CExtGridCellNumberBase {
  QMK_GRID_CELL_CLASS(CExtGridCellNumber)
};

class CExtGridCellCurrency : public CExtGridCellNumberBase {
  QMK_GRID_CELL_CLASS(CExtGridCellCurrency)
 public:
  CExtGridCellCurrency() { m_var = Variant::Cy(0); }
};

}  // namespace qmk::toolkit::grid
