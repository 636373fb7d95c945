// archive_bytes.h: helpers of the grid tests: storing an object to bytes and loading it back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/archive.h"

namespace grid_test {

using Bytes = std::vector<uint8_t>;

// Little-endian pieces for hand-built archives.
inline void Put32(Bytes& b, uint32_t v) {
  for (int i = 0; i < 4; ++i) b.push_back(static_cast<uint8_t>(v >> (8 * i)));
}
inline void Put16(Bytes& b, uint16_t v) {
  b.push_back(static_cast<uint8_t>(v));
  b.push_back(static_cast<uint8_t>(v >> 8));
}
inline void PutString(Bytes& b, const std::string& s) {
  b.push_back(static_cast<uint8_t>(s.size()));
  b.insert(b.end(), s.begin(), s.end());
}

template <class T>
Bytes Store(T& object) {
  auto ar = qmk::platform::Archive::ToMemory();
  object.Serialize(ar);
  ar.Flush();
  return ar.TakeStored();
}

template <class T>
bool Load(T& object, const Bytes& bytes) {
  auto ar = qmk::platform::Archive::FromMemory(bytes.data(), bytes.size());
  return object.Serialize(ar);
}

}  // namespace grid_test
