// archive_bytes.h: helpers of the grid tests: a cell's text, storing an object to bytes and
// loading it back.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "platform/archive.h"

namespace grid_test {

using Bytes = std::vector<uint8_t>;

// What a cell shows.
template <class Cell>
std::string Text(const Cell& cell) {
  std::string t;
  cell.TextGet(t);
  return t;
}

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
inline void Put64(Bytes& b, uint64_t v) {
  Put32(b, static_cast<uint32_t>(v));
  Put32(b, static_cast<uint32_t>(v >> 32));
}
inline void PutReal(Bytes& b, double v) {
  uint64_t bits = 0;
  std::memcpy(&bits, &v, 8);
  Put64(b, bits);
}
inline void Append(Bytes& to, const Bytes& more) { to.insert(to.end(), more.begin(), more.end()); }

// The five words of the base cell.
inline Bytes BaseWords(uint32_t style = 0x40000000, uint32_t styleEx = 0x80, int32_t icon = -1, int32_t font = -1,
                       uint32_t data = 0) {
  Bytes b;
  for (uint32_t w : {style, styleEx, static_cast<uint32_t>(icon), static_cast<uint32_t>(font), data}) Put32(b, w);
  return b;
}

// The mix-ins' words (colours, flags, join extent), the cursor-and-tip word, the has-font byte.
inline Bytes ExWords(uint32_t join_cx = 1, uint32_t join_cy = 1) {
  Bytes b;
  for (uint32_t w : {0xFFFFFFFFu, 0xFFFFFFFFu, 0u, join_cx, join_cy, 0u}) Put32(b, w);
  b.push_back(0);
  return b;
}

// The whole prefix of a data cell that holds a value: base words (not empty), then ExWords.
inline Bytes DataCellWords() {
  Bytes b = BaseWords(0x40000000, 0);
  Append(b, ExWords());
  return b;
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
