// cell_combo_lists.cpp: the check list combo box and the font face name cells.
#include "toolkit/grid/cell_combo_lists.h"

#include "toolkit/grid/cell_archive_io.h"
#include "toolkit/grid/cell_text.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellCheckListComboBox, CExtGridCellComboBox)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellFontFaceName, CExtGridCellComboBox)

namespace {

const FontFaceSource* g_pFontFaces = nullptr;

}  // namespace

// ---- check list ----

bool CExtGridCellCheckListComboBox::IsChecked(int index) const {
  return index >= 0 && static_cast<size_t>(index) < m_arrChecks.size() && m_arrChecks[static_cast<size_t>(index)];
}

bool CExtGridCellCheckListComboBox::CheckSet(int index, bool checked) {
  if (index < 0 || static_cast<size_t>(index) >= ItemsGet().size()) return false;
  m_arrChecks.resize(ItemsGet().size(), 0);
  m_arrChecks[static_cast<size_t>(index)] = checked ? 1 : 0;
  SyncText();
  return true;
}

int CExtGridCellCheckListComboBox::CheckedCount() const {
  int count = 0;
  for (size_t i = 0; i < m_arrChecks.size() && i < ItemsGet().size(); ++i) count += m_arrChecks[i] ? 1 : 0;
  return count;
}

void CExtGridCellCheckListComboBox::ItemsReplace(std::vector<std::string> items) {
  ItemsSet(std::move(items));
  m_arrChecks.assign(ItemsGet().size(), 0);
  SyncText();
}

void CExtGridCellCheckListComboBox::SyncText() {
  std::string text;
  for (size_t i = 0; i < m_arrChecks.size() && i < ItemsGet().size(); ++i) {
    if (!m_arrChecks[i]) continue;
    if (!text.empty()) text += ", ";
    text += ItemsGet()[i];
  }
  m_strText = std::move(text);
  CExtGridCellEx::SetEmpty(m_strText.empty());
}

bool CExtGridCellCheckListComboBox::ParseChecks(const char* text, std::vector<uint8_t>& checks) const {
  checks.assign(ItemsGet().size(), 0);
  const std::string all = text ? text : "";
  size_t from = 0;
  while (from <= all.size()) {
    size_t end = all.find_first_of(",;", from);
    if (end == std::string::npos) end = all.size();
    const std::string name = TrimmedText(all.substr(from, end - from));
    if (!name.empty()) {
      const int index = FindItem(name);
      if (index < 0) return false;
      checks[static_cast<size_t>(index)] = 1;
    }
    from = end + 1;
  }
  return true;
}

void CExtGridCellCheckListComboBox::TextSet(const char* text, bool) {
  std::vector<uint8_t> checks;
  if (!ParseChecks(text, checks)) return;
  m_arrChecks = std::move(checks);
  SyncText();
}

HRESULT CExtGridCellCheckListComboBox::OnParseText(const char* text) const {
  std::vector<uint8_t> checks;
  return ParseChecks(text, checks) ? S_OK : DISP_E_TYPEMISMATCH;
}

void CExtGridCellCheckListComboBox::SetEmpty(bool empty) {
  CExtGridCellComboBox::SetEmpty(empty);
  if (empty) m_arrChecks.assign(m_arrChecks.size(), 0);
}

void CExtGridCellCheckListComboBox::Assign(const CExtGridCell& other) {
  const auto* o = dynamic_cast<const CExtGridCellCheckListComboBox*>(&other);
  CExtGridCellComboBox::Assign(other);
  if (o) {
    m_arrChecks = o->m_arrChecks;
    return;
  }
  // Another cell's text names the items to check; a text that names others checks none.
  std::vector<uint8_t> checks;
  m_arrChecks.assign(ItemsGet().size(), 0);
  if (ParseChecks(m_strText.c_str(), checks)) m_arrChecks = std::move(checks);
  SyncText();
}

// After the combo box's form: a 32-bit count equal to the item count, then a byte per item, 1
// for checked. The text is rebuilt from the checks.
bool CExtGridCellCheckListComboBox::Serialize(Archive& ar) {
  if (!CExtGridCellComboBox::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    m_arrChecks.resize(ItemsGet().size(), 0);
    ar.WriteU32(static_cast<uint32_t>(m_arrChecks.size()));
    for (uint8_t c : m_arrChecks) ar.WriteU8(c);
    return ar.ok();
  }
  const uint32_t count = ar.ReadU32();
  if (!ar.ok() || count != ItemsGet().size()) return false;
  std::vector<uint8_t> checks(count, 0);
  for (uint8_t& c : checks) c = ar.ReadU8() ? 1 : 0;
  if (!ar.ok()) return false;
  m_arrChecks = std::move(checks);
  SyncText();
  return true;
}

// ---- font face name ----

void FontFaceSourceSet(const FontFaceSource* source) { g_pFontFaces = source; }

CExtGridCellFontFaceName::CExtGridCellFontFaceName() {
  if (g_pFontFaces) ItemsSet(g_pFontFaces->FaceNames());
}

bool CExtGridCellFontFaceName::Serialize(Archive& ar) { return CExtGridCellString::Serialize(ar); }

HRESULT CExtGridCellFontFaceName::OnParseText(const char* text) const {
  const std::string name = TrimmedText(text ? text : "");
  if (name.empty()) return E_INVALIDARG;
  if (!ItemsGet().empty() && FindItem(name) < 0) return DISP_E_TYPEMISMATCH;
  return S_OK;
}

void CExtGridCellFontFaceName::TextSet(const char* text, bool) {
  if (OnParseText(text) != S_OK) return;
  const std::string name = TrimmedText(text);
  if (ItemsGet().empty())
    CExtGridCellString::TextSet(name.c_str());
  else
    SelectItem(FindItem(name));
}

}  // namespace qmk::toolkit::grid
