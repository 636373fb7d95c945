// fuzz_variant_text.cpp: arbitrary text converted to every variant type and back to text.
#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/variant/change_type.h"

using namespace qmk::platform;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size > 4096) return 0;
  const Variant text = Variant::Str(std::string(reinterpret_cast<const char*>(data), size));
  static const VarType kTargets[] = {VT_I1, VT_UI1, VT_I2, VT_UI2, VT_I4,   VT_UI4,  VT_I8,     VT_UI8,
                                     VT_INT, VT_UINT, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BOOL, VT_DECIMAL};
  for (const VarType to : kTargets) {
    Variant value, back;
    if (ChangeType(value, text, to) != S_OK) continue;
    if (ChangeType(back, value, VT_BSTR) != S_OK && to != VT_DATE) __builtin_trap();
    (void)VarCmp(value, text);
  }
  return 0;
}
