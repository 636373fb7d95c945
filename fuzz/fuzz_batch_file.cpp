// fuzz_batch_file.cpp: arbitrary text as a batch file of simulated sheets.
#include <cstddef>
#include <cstdint>

#include "qmk/QmkLinkSim.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  QlkSimReset();
  char error[128];
  const int sheets = QlkSimLoadBatchText(reinterpret_cast<const char*>(data), static_cast<int>(size),
                                         error, sizeof error);
  if (sheets >= 0 && QlkSimHopperCount() != sheets) __builtin_trap();
  return 0;
}
