// port_opener.cpp: opening ports by name on this system, the switch tests use, and the ports
// that stay open on purpose.
#include <cstdio>
#include <mutex>
#include <vector>

#include "platform/serial/device_map.h"
#include "platform/serial/serial_port.h"
#include "platform/serial/termios_port.h"

namespace qmk::platform::serial {
namespace {

class SystemPortOpener : public PortOpener {
 public:
  std::unique_ptr<SerialPort> Open(const std::string& name, int* error) override {
    std::string path;
    if (const int e = ResolvePortName(name, &path); e != 0) {
      *error = e;
      return nullptr;
    }
    return OpenTermiosPort(path, error);
  }
};

SystemPortOpener g_system_opener;
PortOpener* g_opener = &g_system_opener;

struct LeftOpen {
  std::mutex mutex;
  std::vector<std::unique_ptr<SerialPort>> ports;
};

LeftOpen& Left() {
  static LeftOpen* left = new LeftOpen;  // never destroyed: the ports stay open to the end
  return *left;
}

}  // namespace

std::string Describe(const LineSettings& s) {
  char text[48];
  std::snprintf(text, sizeof text, "%u %d-%d-%c", s.baud, s.data_bits, s.stop_bits,
                static_cast<char>(s.parity));
  return text;
}

PortOpener& CurrentPortOpener() { return *g_opener; }

PortOpener* SetPortOpener(PortOpener* opener) {
  PortOpener* previous = g_opener;
  g_opener = opener ? opener : &g_system_opener;
  return previous;
}

void LeaveOpen(std::unique_ptr<SerialPort> port) {
  if (!port) return;
  std::lock_guard<std::mutex> lock(Left().mutex);
  Left().ports.push_back(std::move(port));
}

int PortsLeftOpen() {
  std::lock_guard<std::mutex> lock(Left().mutex);
  return static_cast<int>(Left().ports.size());
}

}  // namespace qmk::platform::serial
