// fuzz_form_file.cpp: arbitrary text as a saved form description; what is read prints back to
// text that reads the same.
#include <cstddef>
#include <cstdint>
#include <string>

#include "form_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  sht_desc desc{};
  std::string error;
  if (!qmkscan::FormFromText(std::string(reinterpret_cast<const char*>(data), size), desc, error))
    return 0;
  const std::string text = qmkscan::FormToText(desc);
  sht_desc again{};
  if (!qmkscan::FormFromText(text, again, error) || qmkscan::FormToText(again) != text) __builtin_trap();
  return 0;
}
