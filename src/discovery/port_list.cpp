// port_list.cpp: enumerating serial ports into SSerInfo elements.
#include "discovery/port_list.h"

#include <cstdio>
#include <cstring>

#include "platform/serial/serial_port.h"

namespace qmk::discovery {

using platform::serial::DeviceFacts;
using platform::serial::ListFailure;
using platform::serial::ListStep;

namespace {

// Fixed text fields are zero-filled, then hold at most their size less one.
void SetField(char (&field)[QMK_SER_TEXT_BYTES], const std::string& text) {
  std::memset(field, 0, sizeof field);
  std::memcpy(field, text.data(), std::min(text.size(), sizeof field - 1));
}

std::string FailureText(const ListFailure& f) {
  const char* step = f.step == ListStep::kOpenClass    ? "SetupDiGetClassDevs"
                     : f.step == ListStep::kReadEntry ? "SetupDiEnumDeviceInterfaces"
                                                      : "SetupDiGetDeviceInterfaceDetail";
  char text[96];
  std::snprintf(text, sizeof text, "%s failed. (err=%lx)", step,
                static_cast<unsigned long>(f.error));
  return text;
}

// The description is the friendly name without a trailing " (...)" that starts past its first
// character.
std::string DescriptionFromFriendlyName(const std::string& friendly) {
  const size_t open = friendly.find(" (");
  const size_t close = friendly.find(')');
  if (open != std::string::npos && open > 0 && close == friendly.size() - 1)
    return friendly.substr(0, open);
  return friendly;
}

}  // namespace

std::string PortNameFromFriendlyName(const std::string& friendly) {
  const size_t com = friendly.find("COM");
  if (com == std::string::npos) return friendly;
  const size_t close = friendly.find(')', com);
  return close == std::string::npos ? std::string() : friendly.substr(com, close - com);
}

std::vector<SSerInfo> PortsFromFacts(const std::vector<DeviceFacts>& facts) {
  std::vector<SSerInfo> ports;
  for (const DeviceFacts& f : facts) {
    if (!f.friendly_name || !f.description) continue;
    SSerInfo info{};
    SetField(info.device_path, f.interface_path);
    SetField(info.port_name, PortNameFromFriendlyName(*f.friendly_name));
    SetField(info.friendly_name, *f.friendly_name);
    SetField(info.description, *f.description);
    info.is_usb = f.location && f.location->rfind("USB", 0) == 0;
    ports.push_back(info);
  }
  return ports;
}

void FinishPortList(std::vector<SSerInfo>& ports, bool check_open) {
  for (size_t i = 0; i < ports.size();) {
    SSerInfo& p = ports[i];
    if (check_open) {
      int error = 0;
      if (!platform::serial::CurrentPortOpener().Open(p.device_path, &error)) {
        ports.erase(ports.begin() + static_cast<long>(i));
        continue;
      }
    }
    if (!p.friendly_name[0]) SetField(p.friendly_name, p.port_name);
    if (!p.description[0]) SetField(p.description, DescriptionFromFriendlyName(p.friendly_name));
    ++i;
  }
}

void ScnEnumSerialPorts(std::vector<SSerInfo>& ports, int check_open) {
  ports.clear();
  std::vector<DeviceFacts> facts;
  ListFailure failure{};
  if (!platform::serial::ListSerialDevices(platform::serial::SysfsRoot(), &facts, &failure))
    throw FailureText(failure);
  ports = PortsFromFacts(facts);
  FinishPortList(ports, check_open != 0);
}

}  // namespace qmk::discovery
