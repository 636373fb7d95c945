// cell_ip_address.cpp: the IPv4 address cell.
#include "toolkit/grid/cell_ip_address.h"

#include <cctype>
#include <cstdio>

#include "toolkit/grid/cell_archive_io.h"
#include "toolkit/grid/cell_text.h"

namespace qmk::toolkit::grid {

using namespace platform;

QMK_GRID_CELL_CLASS_IMPL(CExtGridCellIPAddress, CExtGridCellEx)

bool CExtGridCellIPAddress::Parse(const char* text, uint32_t& address) {
  const std::string t = TrimmedText(text ? text : "");
  uint32_t value = 0;
  size_t at = 0;
  for (int field = 0; field < 4; ++field) {
    if (field && (at >= t.size() || t[at++] != '.')) return false;
    unsigned n = 0;
    size_t digits = 0;
    while (at < t.size() && std::isdigit(static_cast<unsigned char>(t[at])) && digits < 4) {
      n = n * 10 + static_cast<unsigned>(t[at++] - '0');
      ++digits;
    }
    if (digits == 0 || digits > 3 || n > 255) return false;
    value = (value << 8) | n;
  }
  if (at != t.size()) return false;
  address = value;
  return true;
}

void CExtGridCellIPAddress::AddressSet(uint32_t address) {
  m_dwAddress = address;
  SetEmpty(false);
}

void CExtGridCellIPAddress::SetEmpty(bool empty) {
  CExtGridCellEx::SetEmpty(empty);
  if (empty) m_dwAddress = 0;
}

void CExtGridCellIPAddress::TextGet(std::string& text) const {
  text.clear();
  if (IsEmpty()) return;
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%u.%u.%u.%u", FieldGet(0), FieldGet(1), FieldGet(2), FieldGet(3));
  text = buffer;
}

void CExtGridCellIPAddress::TextSet(const char* text, bool) {
  if (TrimmedText(text ? text : "").empty()) {
    SetEmpty(true);
    return;
  }
  uint32_t address = 0;
  if (Parse(text, address)) AddressSet(address);
}

HRESULT CExtGridCellIPAddress::OnParseText(const char* text) const {
  uint32_t address = 0;
  return TrimmedText(text ? text : "").empty() || Parse(text, address) ? S_OK : DISP_E_TYPEMISMATCH;
}

int CExtGridCellIPAddress::Compare(const CExtGridCell& other, uint32_t styleMask, uint32_t styleExMask) const {
  if (auto* o = dynamic_cast<const CExtGridCellIPAddress*>(&other)) {
    // An empty address sorts before every address, as an empty value does elsewhere.
    if (IsEmpty() != o->IsEmpty()) return IsEmpty() ? -1 : 1;
    if (m_dwAddress != o->m_dwAddress) return m_dwAddress < o->m_dwAddress ? -1 : 1;
    return CompareStyleOnly(other, styleMask, styleExMask);
  }
  return CExtGridCellEx::Compare(other, styleMask, styleExMask);
}

void CExtGridCellIPAddress::Assign(const CExtGridCell& other) {
  CExtGridCellEx::Assign(other);
  if (auto* o = dynamic_cast<const CExtGridCellIPAddress*>(&other)) {
    m_dwAddress = o->m_dwAddress;
    CExtGridCellEx::SetEmpty(o->IsEmpty());
    return;
  }
  std::string text;
  other.TextGet(text);
  uint32_t address = 0;
  if (other.IsEmpty() || !Parse(text.c_str(), address))
    SetEmpty(true);
  else
    AddressSet(address);
}

// After the data cell's form: the address word, 32 bits.
bool CExtGridCellIPAddress::Serialize(Archive& ar) {
  if (!CExtGridCellEx::Serialize(ar)) return false;
  uint32_t address = m_dwAddress;
  io::Word(ar, address);
  if (ar.ok()) m_dwAddress = address;
  return ar.ok();
}

}  // namespace qmk::toolkit::grid
