// fuzz_autoname.cpp: arbitrary bytes as a file name template. Every template is expanded within
// the name buffer (a guard zone behind it must stay untouched); a template that the check
// accepts must also expand, through the export, to a name of at most 259 characters.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "frame/scripted_operator.h"
#include "options/auto_name.h"
#include "platform/local_time.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkScan.h"

namespace {

struct Guarded {
  char name[QMK_NAME_BYTES];
  unsigned char guard[64];
};

qmk::frame::ScriptedOperator g_operator;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const bool ready = [] {
    qmk::frame::SetOperator(&g_operator);
    return true;
  }();
  (void)ready;
  if (size < 3) return 0;
  // The first bytes choose the date and the sequence; the rest is the template.
  static qmk::platform::FixedWallClock clock(2000, 1, 1);
  clock.Set(1990 + data[0] % 60, 1 + data[1] % 12, 1 + data[2] % 28, data[0] % 24, data[1] % 60);
  qmk::platform::ScopedWallClock use(&clock);
  const int16_t sequence = static_cast<int16_t>(data[1] << 8 | data[2]);
  data += 3;
  size -= 3;

  build_data record{};
  std::memcpy(record.autoNameTemplate, data, std::min(size, sizeof record.autoNameTemplate));
  Guarded out;
  std::memset(&out, 0xA5, sizeof out);
  qmk::options::ExpandAutoNameTemplate(record.autoNameTemplate, sequence, out.name);
  for (unsigned char g : out.guard)
    if (g != 0xA5) __builtin_trap();

  const std::string text(reinterpret_cast<const char*>(data), strnlen(reinterpret_cast<const char*>(data), size));
  g_operator.ClearEvents();
  if (!GenCheckAutoNameCString(text.c_str(), nullptr)) return 0;
  record = build_data{};
  std::memcpy(record.autoNameTemplate, text.data(), std::min(text.size(), sizeof record.autoNameTemplate - 1));
  record.autoNameSequence = sequence % 998;  // numbers that keep the sequence field at 3 digits
  std::memset(&out, 0xA5, sizeof out);
  ScnMakeAutoName(nullptr, "/nonexistent", out.name, &record, 0);
  if (std::strlen(out.name) > QMK_NAME_BYTES - 1) __builtin_trap();
  for (unsigned char g : out.guard)
    if (g != 0xA5) __builtin_trap();
  return 0;
}
