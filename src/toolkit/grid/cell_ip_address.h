// cell_ip_address.h: an IPv4 address.
#pragma once

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// An IPv4 address as one 32-bit word, the first field in the high byte. Shown and read as four
// decimal fields of 0 to 255 separated by dots; leading zeros are decimal ("010" is 10). Two
// addresses compare as numbers, so 10.0.0.9 sorts before 10.0.0.10.
class CExtGridCellIPAddress : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellIPAddress)
 public:
  uint32_t AddressGet() const { return m_dwAddress; }
  void AddressSet(uint32_t address);
  uint8_t FieldGet(int index) const { return static_cast<uint8_t>(m_dwAddress >> (8 * (3 - (index & 3)))); }

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  int Compare(const CExtGridCell& other, uint32_t styleMask = 0, uint32_t styleExMask = 0) const override;
  void TextGet(std::string& text) const override;
  // An empty text empties the cell; a text that is no address leaves it.
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

  static bool Parse(const char* text, uint32_t& address);

 private:
  uint32_t m_dwAddress = 0;
};

}  // namespace qmk::toolkit::grid
