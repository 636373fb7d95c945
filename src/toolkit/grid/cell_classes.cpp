// cell_classes.cpp: the table of cell classes that archives name.
#include <cstring>

#include "toolkit/grid/cell_family.h"
#include "toolkit/grid/cell_input.h"

namespace qmk::toolkit::grid {

const CellClass* FindCellClass(const std::string& name) {
  static const CellClass* const kClasses[] = {
      &CExtGridCell::kClass,
      &CExtGridCellStringDM::kClass,
      &CExtGridCellHeader::kClass,
      &CExtGridCellEx::kClass,
      &CExtGridCellString::kClass,
      &CExtGridCellStringMasked::kClass,
      &CExtGridCellPassword::kClass,
      &CExtGridCellButton::kClass,
      &CExtGridCellCheckBox::kClass,
      &CExtGridCellRadioButton::kClass,
      &CExtGridCellProgress::kClass,
      &CExtGridCellVariant::kClass,
      &CExtGridCellNumberBase::kClass,
      &CExtGridCellNumber::kClass,
      &CExtGridCellCurrency::kClass,
      &CExtGridCellSystemNumberCurrencyBase::kClass,
      &CExtGridCellSystemNumber::kClass,
      &CExtGridCellSystemCurrency::kClass,
      &CExtGridCellHyperLink::kClass,
      &CExtGridCellBool::kClass,
      &CExtGridCellDateTime::kClass,
      &CExtGridCellColor::kClass,
      &CExtGridCellSlider::kClass,
      &CExtGridCellComboBox::kClass,
      &CExtGridCellDropListComboBox::kClass,
      &CExtGridCellPercentage::kClass,
  };
  for (const CellClass* c : kClasses)
    if (name == c->name) return c;
  return nullptr;
}

}  // namespace qmk::toolkit::grid
