// fuzz_port_names.cpp: names from outside (friendly names of devices, port names from hosts)
// through the port-name readers.
#include <cstddef>
#include <cstdint>
#include <string>

#include "discovery/port_list.h"
#include "platform/serial/device_map.h"

using namespace qmk;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  const std::string port = discovery::PortNameFromFriendlyName(text);
  if (port.size() > text.size()) __builtin_trap();
  const int number = platform::serial::ComNumberOf(text);
  if (number < 0 || number > 255) __builtin_trap();

  platform::serial::DeviceFacts facts{"/dev/fuzz", text, std::string(), text};
  std::vector<SSerInfo> ports = discovery::PortsFromFacts({facts});
  discovery::FinishPortList(ports, false);
  for (const SSerInfo& p : ports)
    if (p.friendly_name[QMK_SER_TEXT_BYTES - 1] || p.description[QMK_SER_TEXT_BYTES - 1])
      __builtin_trap();  // every field stays zero-ended
  return 0;
}
