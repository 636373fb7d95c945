// resource_memory_buffer.cpp: the owned byte block of a loaded resource.
#include "toolkit/dialogs/resource_memory_buffer.h"

#include <cstring>
#include <new>
#include <utility>

namespace qmk::toolkit {

CExtResourceMemoryBuffer::~CExtResourceMemoryBuffer() { Empty(); }

CExtResourceMemoryBuffer::CExtResourceMemoryBuffer(CExtResourceMemoryBuffer&& other) noexcept
    : m_pData(std::exchange(other.m_pData, nullptr)), m_nSize(std::exchange(other.m_nSize, 0)) {}

CExtResourceMemoryBuffer& CExtResourceMemoryBuffer::operator=(
    CExtResourceMemoryBuffer&& other) noexcept {
  if (this != &other) {
    Empty();
    m_pData = std::exchange(other.m_pData, nullptr);
    m_nSize = std::exchange(other.m_nSize, 0);
  }
  return *this;
}

bool CExtResourceMemoryBuffer::Alloc(size_t size) {
  Empty();
  // A zero-length resource still gets a block, so that "loaded" and "empty" stay apart.
  m_pData = new (std::nothrow) uint8_t[size ? size : 1]();
  if (!m_pData) return false;
  m_nSize = size;
  return true;
}

bool CExtResourceMemoryBuffer::Assign(std::string_view bytes) {
  if (!Alloc(bytes.size())) return false;
  if (!bytes.empty()) std::memcpy(m_pData, bytes.data(), bytes.size());
  return true;
}

void CExtResourceMemoryBuffer::Empty() {
  delete[] m_pData;
  m_pData = nullptr;
  m_nSize = 0;
}

}  // namespace qmk::toolkit
