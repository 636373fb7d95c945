// cell_archive_io.h: the small two-way archive steps that cell classes share: one call stores a
// field or loads it, depending on the archive's direction.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "platform/archive.h"

namespace qmk::toolkit::grid::io {

using platform::Archive;

inline void Word(Archive& ar, uint32_t& v) {
  if (ar.IsStoring())
    ar.WriteU32(v);
  else
    v = ar.ReadU32();
}

inline void Int(Archive& ar, int32_t& v) {
  auto w = static_cast<uint32_t>(v);
  Word(ar, w);
  v = static_cast<int32_t>(w);
}

// 64 bits as two words, the low one first.
inline void Wide(Archive& ar, uint64_t& v) {
  auto lo = static_cast<uint32_t>(v), hi = static_cast<uint32_t>(v >> 32);
  Word(ar, lo);
  Word(ar, hi);
  v = lo | (static_cast<uint64_t>(hi) << 32);
}

inline void Real(Archive& ar, double& v) {
  uint64_t bits = 0;
  std::memcpy(&bits, &v, 8);
  Wide(ar, bits);
  std::memcpy(&v, &bits, 8);
}

inline void Byte(Archive& ar, uint8_t& v) {
  if (ar.IsStoring())
    ar.WriteU8(v);
  else
    v = ar.ReadU8();
}

inline void Text(Archive& ar, std::string& s) {
  if (ar.IsStoring())
    ar.WriteString(s);
  else
    s = ar.ReadString();
}

// A list of strings: a 32-bit count, then each string. A count larger than the bytes left (each
// string takes at least its length byte) fails before anything is allocated.
inline bool TextList(Archive& ar, std::vector<std::string>& list) {
  if (ar.IsStoring()) {
    ar.WriteU32(static_cast<uint32_t>(list.size()));
    for (const std::string& s : list) ar.WriteString(s);
    return ar.ok();
  }
  const uint32_t count = ar.ReadU32();
  if (auto left = ar.Remaining(); !ar.ok() || (left && *left < count)) return false;
  std::vector<std::string> read;
  for (uint32_t i = 0; i < count && ar.ok(); ++i) read.push_back(ar.ReadString());
  if (!ar.ok()) return false;
  list = std::move(read);
  return true;
}

}  // namespace qmk::toolkit::grid::io
