// types.h: small value types of the grid engine: sizes and the packed position key.
#pragma once

#include <cstdint>

namespace qmk::toolkit::grid {

// A width and height in cells (join extents, join sizes).
struct CSize {
  int32_t cx = 0;
  int32_t cy = 0;
  bool operator==(const CSize&) const = default;
};

// A position key: the low half is the column, the high half the row, both as stored (the sparse
// store adds 1 to each so that 0 stays free for defaults).
inline int64_t MakePositionKey(uint32_t column, uint32_t row) {
  return static_cast<int64_t>((static_cast<uint64_t>(row) << 32) | column);
}
inline uint32_t KeyColumn(int64_t key) { return static_cast<uint32_t>(static_cast<uint64_t>(key)); }
inline uint32_t KeyRow(int64_t key) { return static_cast<uint32_t>(static_cast<uint64_t>(key) >> 32); }

}  // namespace qmk::toolkit::grid
