// cell_combo_lists.h: two more members of the combo box family: a list whose items are checked
// on and off, and the font face name chooser.
#pragma once

#include <string>
#include <vector>

#include "toolkit/grid/cell_family.h"

namespace qmk::toolkit::grid {

// Items with a check each. The text is the checked items in list order, joined by ", "; text
// input names items separated by ',' or ';' (letter case ignored, blanks around a name dropped).
// An item whose own name holds ',' or ';' can be checked only through CheckSet.
class CExtGridCellCheckListComboBox : public CExtGridCellComboBox {
  QMK_GRID_CELL_CLASS(CExtGridCellCheckListComboBox)
 public:
  bool IsChecked(int index) const;
  // False when there is no item `index`.
  bool CheckSet(int index, bool checked);
  int CheckedCount() const;
  // Replaces the items; every check is cleared.
  void ItemsReplace(std::vector<std::string> items);

  bool Serialize(Archive& ar) override;
  void SetEmpty(bool empty = true) override;
  void Assign(const CExtGridCell& other) override;
  // Checks exactly the named items; a text naming an unknown item leaves the checks.
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;

 private:
  // The checks `text` names, one per item; false for an unknown name.
  bool ParseChecks(const char* text, std::vector<uint8_t>& checks) const;
  // Puts the text in line with the checks.
  void SyncText();
  std::vector<uint8_t> m_arrChecks;
};

// Where the font face names of the machine come from; the application sets one at start.
class FontFaceSource {
 public:
  virtual ~FontFaceSource() = default;
  virtual std::vector<std::string> FaceNames() const = 0;
};
// The source new font face cells read; null (the default) leaves their list empty. Not owned.
void FontFaceSourceSet(const FontFaceSource* source);

// A font face name. With a list of faces only a listed face may be stored, spelled as the list
// spells it; with an empty list any name that is not blank. The archive holds the name only:
// the list belongs to the machine, not to the cell.
class CExtGridCellFontFaceName : public CExtGridCellComboBox {
  QMK_GRID_CELL_CLASS(CExtGridCellFontFaceName)
 public:
  CExtGridCellFontFaceName();
  bool Serialize(Archive& ar) override;
  void TextSet(const char* text, bool asIs = false) override;
  platform::HRESULT OnParseText(const char* text) const override;
};

}  // namespace qmk::toolkit::grid
