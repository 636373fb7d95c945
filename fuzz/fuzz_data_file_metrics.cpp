// fuzz_data_file_metrics.cpp: any bytes as a scan's data file; the reader ends, and its counts
// agree with each other.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "options/data_file_metrics.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;  // fmemopen wants a buffer
  std::FILE* file = fmemopen(const_cast<uint8_t*>(data), size, "rb");
  if (!file) return 0;
  qmk::options::DataFileMetrics m;
  const auto read = qmk::options::ReadDataFileMetrics(file, m);
  std::fclose(file);
  if (read != qmk::options::DataFileRead::kRead && (m.records || m.last_serial || m.damaged)) std::abort();
  if ((m.records == 0) != (m.last_serial == 0) || (m.records == 0) != (m.first_serial == 0)) std::abort();
  if (m.last_serial > 999999999u) std::abort();
  return 0;
}
