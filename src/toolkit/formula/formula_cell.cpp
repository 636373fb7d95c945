// formula_cell.cpp: CExtFormulaGridCell: its archive form, its text-setting path through the
// manager that owns it, its errors and its compiled tree.
#include "toolkit/formula/formula_cell.h"

#include <cstdio>

#include "platform/variant/change_type.h"
#include "toolkit/formula/data_manager.h"
#include "toolkit/formula/errors.h"

namespace qmk::toolkit::formula {

using platform::Variant;

QMK_GRID_CELL_CLASS_IMPL(CExtFormulaGridCell, grid::CExtGridCellVariant)

CExtFormulaGridCell::CExtFormulaGridCell() {
  m_var = Variant::Str("");
  ModifyStyle(kFormulaCellStyle);
}

bool CExtFormulaGridCell::Serialize(grid::Archive& ar) {
  if (!CExtGridCellVariant::Serialize(ar)) return false;
  return SerializeFormula(ar);
}

bool CExtFormulaGridCell::SerializeFormula(grid::Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(m_strFormula.empty() ? 0 : 1);
    if (!m_strFormula.empty()) ar.WriteString(m_strFormula);
    return ar.ok();
  }
  const uint32_t has = ar.ReadU32();
  std::string text;
  if (has != 0 && ar.ok()) text = ar.ReadString();
  if (!ar.ok()) return false;
  m_strFormula = std::move(text);
  ResetCompiled();
  return true;
}

void CExtFormulaGridCell::Assign(const grid::CExtGridCell& other) {
  CExtGridCellVariant::Assign(other);
  if (auto* o = dynamic_cast<const CExtFormulaGridCell*>(&other)) {
    if (o == this) return;
    m_strFormula = o->m_strFormula;
    m_nErrorCode = o->m_nErrorCode;
  } else {
    m_strFormula.clear();
    m_nErrorCode = 0;
  }
  m_tree.reset();
  m_nShiftColumns = m_nShiftRows = 0;
  m_pErrorItem = nullptr;
  m_bDepsKnown = false;
  m_bComputed = false;
}

void CExtFormulaGridCell::TextSet(const char* text, bool asIs) {
  auto* manager = dynamic_cast<CExtFormulaDataManager*>(GetOwner());
  int column = -1, row = -1;
  if (asIs || manager == nullptr || !manager->GetCellPosition(this, column, row)) {
    // A cell outside a formula store can only hold a value.
    m_strFormula.clear();
    ResetCompiled();
    CExtGridCellVariant::TextSet(text, asIs);
    return;
  }
  manager->SetCellText(column, row, text == nullptr ? "" : text);
}

void CExtFormulaGridCell::OnQueryTextForInplaceControl(std::string& text) const {
  if (IsFormula())
    text = m_strFormula;
  else
    TextGet(text);
}

void CExtFormulaGridCell::Reset() {
  CExtGridCellVariant::Reset();
  m_strFormula.clear();
  ResetCompiled();
}

bool CExtFormulaGridCell::ShiftFormula(CExtFormulaDataManager& manager, int dx, int dy,
                                       const CExtGridRangeSet* filter) {
  if (dx == 0 && dy == 0) return true;
  if (!IsFormula()) return false;
  // The text is rewritten through a tree parsed from it: a shared tree knows the offsets of
  // another cell's text.
  std::unique_ptr<CExtFormulaItem> own = manager.Parse(m_strFormula);
  if (!own) return false;
  m_pErrorItem = nullptr;
  std::string text = m_strFormula;
  // Named ranges are never rewritten: a name keeps pointing where it pointed.
  own->ShiftReferences(&manager, manager.GetAlphabet(), text, dx, dy, filter);
  m_strFormula = text;
  ResetCompiled();
  return true;
}

bool CExtFormulaGridCell::FormulaTextAccess(std::string& text, bool get) {
  if (get) {
    text = m_strFormula;
    return !text.empty();
  }
  m_strFormula = text;
  ResetCompiled();
  return true;
}

void CExtFormulaGridCell::ShowMessage(std::string message, int code) {
  m_nErrorCode = code;
  m_var = Variant::Str(std::move(message));
  CExtGridCellEx::SetEmpty(false);
}

void CExtFormulaGridCell::SetError(int code) {
  if (m_nErrorCode == code) return;
  if (code == 0) {
    ShowMessage("", 0);
    return;
  }
  char head[64];
  std::snprintf(head, sizeof head, "Error: %d - ", code);
  ShowMessage(head + GetErrorText(code), code);
}

void CExtFormulaGridCell::SetErrorInCell(const std::string& cellName) {
  ShowMessage("Error: error in " + cellName, kErrDependency);
}

void CExtFormulaGridCell::SetCircularError(const std::string& first, const std::string& second) {
  ShowMessage("Error: cross reference between " + first + " and " + second, kErrDependency);
}

bool CExtFormulaGridCell::Compile(CExtFormulaDataManager& manager) { return manager.Compile(*this); }

bool CExtFormulaGridCell::IsEmptyOfFormula() const {
  const grid::CSize extent = JoinGet();
  return extent.cx == 1 && extent.cy == 1 && IsEmpty() && !IsFormula();
}

void CExtFormulaGridCell::ResetCompiled() {
  m_pErrorItem = nullptr;
  m_nErrorCode = 0;
  m_tree.reset();
  m_nShiftColumns = m_nShiftRows = 0;
  // The set stays until it is collected again: the reverse index finds its entries by it.
  m_bDepsKnown = false;
  m_bComputed = false;
}

void CExtFormulaGridCell::GetDependencies(CExtGridRangeSet& set, CExtFormulaDataManager& manager) {
  set.Empty();
  if (m_tree)
    m_tree->CollectShiftedDependencies(&manager, manager.GetAlphabet(), set, m_nShiftColumns, m_nShiftRows);
}

void CExtFormulaGridCell::ResultSet(const Variant& value, bool empty) {
  m_var = value;
  CExtGridCellEx::SetEmpty(empty);
}

std::string CExtFormulaGridCell::DisplayText() const {
  if (IsEmpty()) return "";
  Variant text;
  if (platform::ChangeType(text, m_var, platform::VT_BSTR) == platform::S_OK) return text.StringValue();
  return "";
}

}  // namespace qmk::toolkit::formula
