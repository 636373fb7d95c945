// cell_classes.cpp: the table of cell classes that archives name.
#include <cstring>

#include "toolkit/grid/cell_combo_lists.h"
#include "toolkit/grid/cell_duration.h"
#include "toolkit/grid/cell_family.h"
#include "toolkit/grid/cell_font.h"
#include "toolkit/grid/cell_header_filter.h"
#include "toolkit/grid/cell_hotkey.h"
#include "toolkit/grid/cell_input.h"
#include "toolkit/grid/cell_ip_address.h"
#include "toolkit/grid/cell_ll.h"
#include "toolkit/grid/cell_number_forms.h"
#include "toolkit/grid/cell_object_size.h"
#include "toolkit/grid/cell_path.h"
#include "toolkit/grid/cell_picture.h"
#include "toolkit/grid/cell_updown.h"

namespace qmk::toolkit::grid {

std::span<const CellClass* const> CellClasses() {
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
      &CExtGridCellFile::kClass,
      &CExtGridCellFileImage::kClass,
      &CExtGridCellFolder::kClass,
      &CExtGridCellFontFaceName::kClass,
      &CExtGridCellCheckListComboBox::kClass,
      &CExtGridCellFraction::kClass,
      &CExtGridCellScientific::kClass,
      &CExtGridCellObjectSize::kClass,
      &CExtGridCellUpDown::kClass,
      &CExtGridCellUpDownFontWeight::kClass,
      &CExtGridCellUpDownRectPart::kClass,
      &CExtGridCellUpDownColorPart::kClass,
      &CExtGridCellDuration::kClass,
      &CExtGridCellLL::kClass,
      &CExtGridCellFont::kClass,
      &CExtGridCellHotKey::kClass,
      &CExtGridCellIPAddress::kClass,
      &CExtGridCellPictureBase::kClass,
      &CExtGridCellPicture::kClass,
      &CExtGridCellPictureRef::kClass,
      &CExtGridCellHeaderFilter::kClass,
  };
  return kClasses;
}

const CellClass* FindCellClass(const std::string& name) {
  for (const CellClass* c : CellClasses())
    if (name == c->name) return c;
  return nullptr;
}

}  // namespace qmk::toolkit::grid
