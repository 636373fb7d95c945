// cell_hotkey.h: a key with modifiers, as a hot key control holds it.
#pragma once

#include "toolkit/grid/cell_ex.h"

namespace qmk::toolkit::grid {

// A hot key word: the virtual key code in the low byte, the modifiers in the next (kShift,
// kControl, kAlt, and kExtended for keys of the extended keyboard, which the text does not
// show). Shown as "Ctrl+Shift+Alt+Key" with the modifiers in that order; text input takes them
// in any order and case, with blanks around '+', and the usual other names ("Control",
// "Escape", "Return", "Del", "PgUp"). A key code without a name shows as "0x" and two hex
// digits, which text input also takes. Modifiers without a key are no hot key.
class CExtGridCellHotKey : public CExtGridCellEx {
  QMK_GRID_CELL_CLASS(CExtGridCellHotKey)
 public:
  static constexpr uint8_t kShift = 0x1;
  static constexpr uint8_t kControl = 0x2;
  static constexpr uint8_t kAlt = 0x4;
  static constexpr uint8_t kExtended = 0x8;

  uint16_t HotKeyGet() const { return m_wHotKey; }
  uint8_t KeyGet() const { return static_cast<uint8_t>(m_wHotKey); }
  uint8_t ModifiersGet() const { return static_cast<uint8_t>(m_wHotKey >> 8); }
  // A key code of 0 empties the cell; modifier bits beyond the four are refused.
  bool HotKeySet(uint8_t key, uint8_t modifiers);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  void TextGet(std::string& text) const override;
  // An empty text empties the cell; a text that names no hot key leaves it.
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

  static std::string Format(uint8_t key, uint8_t modifiers);
  static bool Parse(const char* text, uint8_t& key, uint8_t& modifiers);

 private:
  uint16_t m_wHotKey = 0;
};

}  // namespace qmk::toolkit::grid
