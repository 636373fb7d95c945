// fuzz_grid_archive.cpp: the grid's archive readers on any bytes: cells of every class, hash
// maps, sort orders, joins and both stores. Whatever loads is stored again and loaded back.
#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/archive.h"
#include "toolkit/grid/cell_family.h"
#include "toolkit/grid/cell_input.h"
#include "toolkit/grid/provider_mixins.h"
#include "toolkit/grid/provider_sparse.h"

using namespace qmk::toolkit::grid;
using qmk::platform::Archive;

namespace {

template <class T>
void Cycle(T& object, const uint8_t* data, size_t size) {
  Archive in = Archive::FromMemory(data, size);
  if (!object.Serialize(in)) return;
  Archive out = Archive::ToMemory();
  object.Serialize(out);
  out.Flush();
  const std::vector<uint8_t> again = out.TakeStored();
  Archive back = Archive::FromMemory(again.data(), again.size());
  if (!object.Serialize(back)) __builtin_trap();  // what we wrote we must read
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
