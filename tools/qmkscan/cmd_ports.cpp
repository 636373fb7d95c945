// cmd_ports.cpp: qmkscan ports: the serial ports of this machine, as hosts see them.
#include <cstdio>
#include <string>
#include <vector>

#include "commands.h"
#include "qmk/QmkScan.hpp"

namespace qmkscan {

int RunPorts(Args& args) {
  const bool check_open = args.Flag("check-open");
  if (!args.NoUnknownOptions("ports")) return 2;
  std::vector<SSerInfo> ports;
  try {
    ScnEnumSerialPorts(ports, check_open ? 1 : 0);
  } catch (const std::string& text) {
    std::fprintf(stderr, "qmkscan ports: %s\n", text.c_str());
    return 1;
  }
  if (ports.empty()) {
    std::printf("No serial ports%s.\n", check_open ? " that can be opened now" : "");
    return 0;
  }
  std::printf("%-8s %-4s %-16s %-34s %s\n", "PORT", "USB", "DEVICE", "FRIENDLY NAME", "DESCRIPTION");
  for (const SSerInfo& p : ports)
    std::printf("%-8s %-4s %-16s %-34s %s\n", p.port_name, p.is_usb ? "yes" : "no", p.device_path,
                p.friendly_name, p.description);
  return 0;
}

}  // namespace qmkscan
