// cell_ex.cpp: CExtGridCellEx's archive form and the string cells.
#include "toolkit/grid/cell_ex.h"

#include <algorithm>
#include <new>

#include "toolkit/bitmap/bitmap.h"

namespace qmk::toolkit::grid {

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellEx, CExtGridCell)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellString, CExtGridCellEx)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellPassword, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellButton, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellCheckBox, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellRadioButton, CExtGridCellCheckBox)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellProgress, CExtGridCellString)
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellHeader, CExtGridCellStringDM)

namespace {
// Flag bits of the font description.
constexpr uint8_t kFontBold = 0x01;
constexpr uint8_t kFontPicture[2] = {0x02, 0x04};
}  // namespace

bool CExtGridCellEx::Serialize(Archive& ar) {
  if (!CExtGridCell::Serialize(ar) || !OnSerializeEx(ar)) return false;
  if (ar.IsStoring()) {
    ar.WriteU32(m_dwCursorAndTip);
    ar.WriteU8(m_pFont ? 1 : 0);
  } else {
    m_dwCursorAndTip = ar.ReadU32();
    m_pFont.reset();
    if (ar.ReadU8() != 0 && ar.ok()) m_pFont = std::make_unique<CellFontDesc>();
  }
  return m_pFont ? SerializeFont(ar) : ar.ok();
}

// The font description: a flag byte, the face name and the height, then each picture whose bit
// is set, in the bitmap engine's archive form.
bool CExtGridCellEx::SerializeFont(Archive& ar) {
  CellFontDesc& font = *m_pFont;
  if (ar.IsStoring()) {
    uint8_t flags = font.m_bBold ? kFontBold : 0;
    for (int i = 0; i < 2; ++i)
      if (font.m_pPicture[i]) flags |= kFontPicture[i];
    ar.WriteU8(flags);
    ar.WriteString(font.m_strFaceName);
    ar.WriteU32(static_cast<uint32_t>(font.m_nHeight));
    for (auto& picture : font.m_pPicture)
      if (picture && !picture->Serialize(ar)) return false;
    return ar.ok();
  }
  const uint8_t flags = ar.ReadU8();
  font.m_bBold = (flags & kFontBold) != 0;
  font.m_strFaceName = ar.ReadString();
  font.m_nHeight = static_cast<int32_t>(ar.ReadU32());
  for (int i = 0; i < 2 && ar.ok(); ++i) {
    if (!(flags & kFontPicture[i])) continue;
    auto picture = std::make_shared<bitmap::CExtBitmap>();
    if (!picture->Serialize(ar)) return false;
    font.m_pPicture[i] = picture;
  }
  return ar.ok();
}

void CExtGridCellEx::Assign(const CExtGridCell& other) {
  Mixins::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellEx*>(&other)) m_dwCursorAndTip = o->m_dwCursorAndTip;
}

int CExtGridCellEx::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  return CExtGridCell::Compare(other, styleMask, styleExMask);
}

// ---- CExtGridCellString ----

bool CExtGridCellString::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    ar.WriteString(m_strText);
  } else {
    std::string text = ar.ReadString();
    if (ar.ok()) m_strText = std::move(text);
  }
  return ar.ok();
}

void CExtGridCellString::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_strText.clear();
}

void CExtGridCellString::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (const char* buffer = other.TextBufferGet())
    m_strText = buffer;
  else
    other.TextGet(m_strText);
  const bool empty = other.IsEmpty();
  SetEmpty(empty);
}

void CExtGridCellString::TextSet(const char* text, bool) {
  m_strText = text ? text : "";
  SetEmpty(false);
}

// ---- check boxes ----

void CExtGridCellCheckBox::SetCheck(int check) {
  m_nCheck = std::clamp(check, 0, 2);
  SetEmpty(false);
}

bool CExtGridCellCheckBox::Serialize(Archive& ar) {
  if (!CExtGridCellString::Serialize(ar)) return false;
  if (ar.IsStoring())
    ar.WriteU32(static_cast<uint32_t>(m_nCheck));
  else
    m_nCheck = std::clamp(static_cast<int32_t>(ar.ReadU32()), 0, 2);
  return ar.ok();
}

void CExtGridCellCheckBox::Assign(const CExtGridCell& other) {
  CExtGridCellString::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellCheckBox*>(&other)) m_nCheck = o->m_nCheck;
}

void CExtGridCellCheckBox::SetEmpty(bool empty) {
  CExtGridCellString::SetEmpty(empty);
  if (empty) m_nCheck = 0;
}

int CExtGridCellCheckBox::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  if (auto* o = dynamic_cast<const CExtGridCellCheckBox*>(&other); o && o->m_nCheck != m_nCheck)
    return m_nCheck < o->m_nCheck ? -1 : 1;
  return CExtGridCellString::Compare(other, styleMask, styleExMask);
}

// ---- progress ----

bool CExtGridCellProgress::SetRange(int32_t lower, int32_t upper) {
  if (lower >= upper) return false;
  m_nLower = lower;
  m_nUpper = upper;
  SetPos(m_nPos);
  return true;
}

void CExtGridCellProgress::SetPos(int32_t pos) { m_nPos = std::clamp(pos, m_nLower, m_nUpper); }

bool CExtGridCellProgress::Serialize(Archive& ar) {
  if (!CExtGridCellString::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    for (int32_t v : {m_nLower, m_nUpper, m_nPos}) ar.WriteU32(static_cast<uint32_t>(v));
    return ar.ok();
  }
  const auto lower = static_cast<int32_t>(ar.ReadU32());
  const auto upper = static_cast<int32_t>(ar.ReadU32());
  const auto pos = static_cast<int32_t>(ar.ReadU32());
  if (!ar.ok()) return false;
  if (!SetRange(lower, upper)) {
    m_nLower = 0;
    m_nUpper = 100;
  }
  SetPos(pos);
  return true;
}

void CExtGridCellProgress::Assign(const CExtGridCell& other) {
  CExtGridCellString::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellProgress*>(&other)) {
    m_nLower = o->m_nLower;
    m_nUpper = o->m_nUpper;
    m_nPos = o->m_nPos;
  }
}

}  // namespace qmk::toolkit::grid
