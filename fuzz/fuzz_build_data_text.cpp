// fuzz_build_data_text.cpp: arbitrary bytes as the text form of a job record. A text that reads
// must write back to a text that reads to the very same record.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "options/build_data_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  build_data record;
  std::string error;
  if (!qmk::options::BuildDataFromText(text, record, error)) {
    if (error.rfind("line ", 0) != 0) std::abort();
    return 0;
  }
  build_data again;
  if (!qmk::options::BuildDataFromText(qmk::options::BuildDataToText(record), again, error)) std::abort();
  if (std::memcmp(&record, &again, sizeof record) != 0) std::abort();
  return 0;
}
