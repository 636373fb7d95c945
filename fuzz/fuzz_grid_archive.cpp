// fuzz_grid_archive.cpp: the grid's archive readers on any bytes: cells of every class, hash
// maps, sort orders, joins and both stores. Whatever loads is stored again and loaded back.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/archive.h"
#include "toolkit/grid/cell_family.h"
#include "toolkit/grid/cell_input.h"
#include "toolkit/grid/provider_mixins.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;
using qmk::platform::Archive;

namespace {

// A 16-bit picture is stored with its masks right after the header, where the reader skips four
// bytes before reading them, so a picture cell (or a store holding one) with such a picture is
// known not to read back. The stored bytes show it: a picture of depth 16 with bit fields.
bool HoldsSixteenBitPicture(const std::vector<uint8_t>& bytes) {
  for (size_t i = 0; i + 34 <= bytes.size(); ++i) {
    if (bytes[i] != 'B' || bytes[i + 1] != 'M') continue;
    const unsigned depth = bytes[i + 28] | bytes[i + 29] << 8;
    const unsigned compression = bytes[i + 30] | bytes[i + 31] << 8 | bytes[i + 32] << 16 | bytes[i + 33] << 24;
    if (depth == 16 && compression == 3) return true;
  }
  return false;
}

template <class T>
void Cycle(T& object, const uint8_t* data, size_t size) {
  Archive in = Archive::FromMemory(data, size);
  if (!object.Serialize(in)) return;
  Archive out = Archive::ToMemory();
  object.Serialize(out);
  out.Flush();
  const std::vector<uint8_t> again = out.TakeStored();
  Archive back = Archive::FromMemory(again.data(), again.size());
  // What we wrote we must read, but for the one known exception.
  if (!object.Serialize(back) && !HoldsSixteenBitPicture(again)) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  // The first byte chooses the reader; for a cell, the second its class.
  const uint8_t which = data[0];
  ++data;
  --size;
  switch (which % 8) {
    case 0: {
      // The next byte chooses the cell class among all that archives may name.
      if (size < 1) return 0;
      const auto classes = CellClasses();
      std::unique_ptr<CExtGridCell> cell(classes[data[0] % classes.size()]->CreateObject(nullptr));
      Cycle(*cell, data + 1, size - 1);
      break;
    }
    case 1: {
      CExtHashMapT<int64_t, int64_t, CSize, CSize> map;
      Cycle(map, data, size);
      break;
    }
    case 2: {
      CExtGridDataSortOrder order;
      Cycle(order, data, size);
      break;
    }
    case 3: {
      CExtGridJoinManager joins;
      Cycle(joins, data, size);
      break;
    }
    case 4: {
      CExtGridDataProviderSparse sparse;
      Cycle(sparse, data, size);
      break;
    }
    case 5: {
      CExtGridDataProviderMemory dense;
      Cycle(dense, data, size);
      break;
    }
    case 6: {
      CExtGDPJ<CExtGridDataProviderSparse> joined;
      Cycle(joined, data, size);
      break;
    }
    default: {
      CExtMDP<> joined;
      Cycle(joined, data, size);
      break;
    }
  }
  return 0;
}
