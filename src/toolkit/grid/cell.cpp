// cell.cpp: CExtGridCell and CExtGridCellStringDM.
#include "toolkit/grid/cell.h"

#include <cctype>
#include <cstring>
#include <new>

#include "platform/variant/change_type.h"
#include "toolkit/grid/provider.h"

namespace qmk::toolkit::grid {

const CellClass CExtGridCell::kClass{"CExtGridCell", sizeof(CExtGridCell), nullptr,
                                     [](void* m) -> CExtGridCell* { return new (m) CExtGridCell(); }};
QMK_GRID_CELL_CLASS_IMPL(CExtGridCellStringDM, CExtGridCell)

bool CellClass::IsDerivedFrom(const CellClass* other) const {
  for (const CellClass* c = this; c; c = c->base)
    if (c == other) return true;
  return false;
}

CExtGridCell* CellClass::CreateObject(IMalloc* alloc) const {
  void* memory = alloc ? alloc->Alloc(size) : ::operator new(size, std::nothrow);
  return memory ? construct(memory) : nullptr;
}

void DestroyCell(CExtGridCell* cell, IMalloc* alloc) {
  if (!cell) return;
  if (!alloc) {
    delete cell;
    return;
  }
  cell->Reset();
  cell->~CExtGridCell();
  alloc->Free(cell);
}

uint32_t CExtGridCell::ModifyStyle(uint32_t add, uint32_t remove) {
  const uint32_t old = m_dwStyle;
  if (add || remove) m_dwStyle = (m_dwStyle & ~remove) | add;
  return old;
}

uint32_t CExtGridCell::ModifyStyleEx(uint32_t add, uint32_t remove) {
  const uint32_t old = m_dwStyleEx;
  if (add || remove) m_dwStyleEx = (m_dwStyleEx & ~remove) | add;
  return old;
}

void CExtGridCell::SetEmpty(bool empty) {
  if (empty)
    m_dwStyleEx |= kStyleExEmpty;
  else
    m_dwStyleEx &= ~kStyleExEmpty;
}

void CExtGridCell::Reset() {
  SetEmpty(true);
  m_dwStyle = kStyleDefault;
  m_dwStyleEx = kStyleExEmpty;
  m_nIconIndex = -1;
  m_nFontIndex = -1;
  m_dwData = 0;
}

void CExtGridCell::Assign(const CExtGridCell& other) {
  m_dwStyle = other.m_dwStyle;
  m_dwStyleEx = other.m_dwStyleEx;
  m_nIconIndex = other.m_nIconIndex;
  m_nFontIndex = other.m_nFontIndex;
  m_dwData = other.m_dwData;
}

bool CExtGridCell::Serialize(Archive& ar) {
  if (ar.IsStoring()) {
    ar.WriteU32(m_dwStyle);
    ar.WriteU32(m_dwStyleEx);
    ar.WriteU32(static_cast<uint32_t>(m_nIconIndex));
    ar.WriteU32(static_cast<uint32_t>(m_nFontIndex));
    ar.WriteU32(m_dwData);
  } else {
    m_dwStyle = ar.ReadU32();
    m_dwStyleEx = ar.ReadU32();
    m_nIconIndex = static_cast<int32_t>(ar.ReadU32());
    m_nFontIndex = static_cast<int32_t>(ar.ReadU32());
    m_dwData = ar.ReadU32();
  }
  return ar.ok();
}

int CExtGridCell::CompareEx(int, const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  return Compare(other, styleMask, styleExMask);
}

int CExtGridCell::CompareVariants(const Variant& a, const Variant& b) {
  const platform::HRESULT r = platform::VarCmp(a, b, 0);
  return r == platform::VARCMP_LT ? -1 : r == platform::VARCMP_GT ? 1 : 0;
}

namespace {
// Letter case is ignored byte by byte: text is narrow bytes in the process's code page.
int CaseBlindCompare(const char* a, const char* b) {
  for (;; ++a, ++b) {
    const int x = std::tolower(static_cast<unsigned char>(*a));
    const int y = std::tolower(static_cast<unsigned char>(*b));
    if (x != y) return x < y ? -1 : 1;
    if (!x) return 0;
  }
}
}  // namespace

int CExtGridCell::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  const char* mine = TextBufferGet();
  const char* theirs = other.TextBufferGet();
  if (mine && theirs) {
    if (int r = CaseBlindCompare(mine, theirs)) return r;
  } else {
    Variant a, b;
    VariantGet(a);
    other.VariantGet(b);
    if (int r = CompareVariants(a, b)) return r;
  }
  return CompareStyleOnly(other, styleMask, styleExMask);
}

int CExtGridCell::CompareStyleOnly(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  const uint32_t a = GetStyle() & styleMask, b = other.GetStyle() & styleMask;
  if (a != b) return a < b ? -1 : 1;
  const uint32_t ax = GetStyleEx() & styleExMask, bx = other.GetStyleEx() & styleExMask;
  if (ax != bx) return ax < bx ? -1 : 1;
  return 0;
}

void CExtGridCell::TextGet(std::string& text) const { text.clear(); }

void CExtGridCell::TextSet(const char*, bool) {}

void CExtGridCell::VariantGet(Variant& value) const {
  std::string text;
  TextGet(text);
  value = text.empty() ? Variant() : Variant::Str(std::move(text));
}

CExtGridCell* CExtGridCell::Clone(IMalloc* alloc) const {
  CExtGridCell* copy = GetRuntimeClass()->CreateObject(alloc);
  if (copy) copy->Assign(*this);
  return copy;
}

platform::HRESULT CExtGridCell::OnParseText(const char*) const { return platform::S_OK; }

void CExtGridCell::GetAlignment(bool, HorzAlign& horz, VertAlign& vert) const {
  horz = HorzAlign::kDefault;
  vert = VertAlign::kDefault;
}

void* CExtGridCell::OwnerAlloc(size_t size) const {
  return m_pOwner ? m_pOwner->MallocAlloc(size) : ::operator new(size, std::nothrow);
}

void CExtGridCell::OwnerFree(void* pointer) const {
  if (!pointer) return;
  if (m_pOwner)
    m_pOwner->MallocFree(pointer);
  else
    ::operator delete(pointer);
}

// ---- CExtGridCellStringDM ----

CExtGridCellStringDM::~CExtGridCellStringDM() { Drop(); }

void CExtGridCellStringDM::Drop() {
  OwnerFree(m_pText);
  m_pText = nullptr;
}

void CExtGridCellStringDM::Store(const char* text, size_t length) {
  char* fresh = nullptr;
  if (length > 0) {
    fresh = static_cast<char*>(OwnerAlloc(length + 1));
    if (!fresh) return;  // out of memory: the old text stays
    std::memcpy(fresh, text, length);
    fresh[length] = 0;
  }
  Drop();
  m_pText = fresh;
  SetEmpty(false);
}

void CExtGridCellStringDM::SetOwner(CExtGridDataProvider* owner) {
  if (owner == m_pOwner) return;
  // The text moves to the new owner's memory before the old owner's is given back.
  const std::string text = m_pText ? m_pText : "";
  Drop();
  m_pOwner = owner;
  if (!text.empty()) {
    const bool empty = IsEmpty();
    Store(text.data(), text.size());
    SetEmpty(empty);
  }
}

void CExtGridCellStringDM::SetEmpty(bool empty) {
  CExtGridCell::SetEmpty(empty);
  if (empty) Drop();
}

void CExtGridCellStringDM::Assign(const CExtGridCell& other) {
  CExtGridCell::Assign(other);
  std::string text;
  if (const char* buffer = other.TextBufferGet())
    text = buffer;
  else
    other.TextGet(text);
  if (text.empty())
    Drop();
  else
    Store(text.data(), text.size());
  SetEmpty(other.IsEmpty());
}

void CExtGridCellStringDM::TextGet(std::string& text) const { text = m_pText ? m_pText : ""; }

void CExtGridCellStringDM::TextSet(const char* text, bool) {
  if (!text) text = "";
  Store(text, std::strlen(text));
}

bool CExtGridCellStringDM::Serialize(Archive& ar) {
  if (!CExtGridCell::Serialize(ar)) return false;
  if (ar.IsStoring()) {
    ar.WriteString(m_pText ? m_pText : "");
    return ar.ok();
  }
  const bool empty = IsEmpty();
  const std::string text = ar.ReadString();
  if (!ar.ok()) return false;
  Drop();
  if (!text.empty()) Store(text.data(), text.size());
  SetEmpty(empty);
  return true;
}

}  // namespace qmk::toolkit::grid
