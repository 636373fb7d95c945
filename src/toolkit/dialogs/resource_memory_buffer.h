// resource_memory_buffer.h: CExtResourceMemoryBuffer, the bytes of one loaded resource.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qmk::toolkit {

// Owns a block of bytes and frees it on destruction. Empty is a null pointer and size 0.
class CExtResourceMemoryBuffer {
 public:
  CExtResourceMemoryBuffer() = default;
  ~CExtResourceMemoryBuffer();
  CExtResourceMemoryBuffer(CExtResourceMemoryBuffer&& other) noexcept;
  CExtResourceMemoryBuffer& operator=(CExtResourceMemoryBuffer&& other) noexcept;
  CExtResourceMemoryBuffer(const CExtResourceMemoryBuffer&) = delete;
  CExtResourceMemoryBuffer& operator=(const CExtResourceMemoryBuffer&) = delete;

  // Replaces the contents by `size` zero bytes; false (and empty) when memory runs out.
  bool Alloc(size_t size);
  // Replaces the contents by a copy of `bytes`.
  bool Assign(std::string_view bytes);
  void Empty();

  bool IsEmpty() const { return m_pData == nullptr; }
  uint8_t* GetBuffer() { return m_pData; }
  const uint8_t* GetBuffer() const { return m_pData; }
  size_t GetSize() const { return m_nSize; }
  std::string_view View() const {
    return {reinterpret_cast<const char*>(m_pData), m_nSize};
  }

 private:
  uint8_t* m_pData = nullptr;
  size_t m_nSize = 0;
};

}  // namespace qmk::toolkit
