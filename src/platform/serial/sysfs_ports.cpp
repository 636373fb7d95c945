// sysfs_ports.cpp: serial devices from /sys/class/tty.
#include "platform/serial/sysfs_ports.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <system_error>

#include "platform/serial/device_map.h"

namespace qmk::platform::serial {
namespace fs = std::filesystem;

namespace {

// Kinds of tty that can be serial ports; consoles, virtual terminals and ptys are not.
bool IsBuiltIn(const std::string& name) { return name.rfind("ttyS", 0) == 0; }
bool IsAdapter(const std::string& name) {
  return name.rfind("ttyUSB", 0) == 0 || name.rfind("ttyACM", 0) == 0;
}

std::optional<std::string> ReadLine(const fs::path& file) {
  std::ifstream in(file);
  std::string line;
  if (!in || !std::getline(in, line)) return std::nullopt;
  while (!line.empty() && (line.back() == '\r' || line.back() == ' ')) line.pop_back();
  return line;
}

// A built-in slot has a chip when its "type" is a known UART (0 means none).
bool HasHardware(const fs::path& tty) {
  const auto type = ReadLine(tty / "type");
  return type && std::atoi(type->c_str()) != 0;
}

// The USB device above an interface: the nearest folder up the device tree with a "product".
std::optional<fs::path> UsbDeviceOf(const fs::path& device) {
  for (fs::path p = device; p.has_relative_path() && p != p.root_path(); p = p.parent_path()) {
    std::error_code ec;
    if (fs::exists(p / "product", ec)) return p;
  }
  return std::nullopt;
}

bool OnUsbBus(const fs::path& device) {
  for (const auto& part : device)
    if (part.string().rfind("usb", 0) == 0) return true;
  return false;
}

struct Candidate {
  std::string name;
  fs::path device;  // resolved sysfs folder of the device
};

DeviceFacts FactsFor(const Candidate& c, int com_number) {
  DeviceFacts f;
  f.interface_path = "/dev/" + c.name;
  const std::string com = " (COM" + std::to_string(com_number) + ")";
  if (OnUsbBus(c.device)) {
    const auto usb = UsbDeviceOf(c.device);
    std::string product = usb ? ReadLine(*usb / "product").value_or("") : "";
    if (product.empty()) product = "USB Serial Port";
    f.description = product;
    f.friendly_name = product + com;
    f.location = "USB " + (usb ? usb->filename().string() : c.name);
  } else {
    f.description = "Communications Port";
    f.friendly_name = "Communications Port" + com;
    f.location = "Built-in serial port";
  }
  return f;
}

}  // namespace

std::string SysfsRoot() {
  const char* env = std::getenv("QMK_SYSFS_ROOT");
  return env && *env ? env : "/sys";
}

bool ListSerialDevices(const std::string& root, std::vector<DeviceFacts>* devices,
                       ListFailure* failure) {
  devices->clear();
  const fs::path cls = fs::path(root) / "class" / "tty";
  std::error_code ec;
  fs::directory_iterator it(cls, ec);
  if (ec) {
    *failure = {ListStep::kOpenClass, ec.value()};
    return false;
  }
  std::vector<Candidate> found;
  for (; it != fs::directory_iterator(); it.increment(ec)) {
    if (ec) break;
    const std::string name = it->path().filename().string();
    if (!IsBuiltIn(name) && !IsAdapter(name)) continue;
    const fs::path link = it->path() / "device";
    if (!fs::exists(fs::symlink_status(link, ec))) continue;  // a tty without a device
    const fs::path device = fs::canonical(link, ec);
    if (ec) {
      *failure = {ListStep::kResolveDevice, ec.value()};
      return false;
    }
    if (IsBuiltIn(name) && !HasHardware(it->path())) continue;
    found.push_back({name, device});
  }
  if (ec) {
    *failure = {ListStep::kReadEntry, ec.value()};
    return false;
  }
  std::sort(found.begin(), found.end(), [](const Candidate& a, const Candidate& b) {
    return a.name.size() != b.name.size() ? a.name.size() < b.name.size() : a.name < b.name;
  });

  // Built-in ports keep their fixed numbers; adapters take free ones around them.
  std::set<int> taken;
  for (const Candidate& c : found)
    if (IsBuiltIn(c.name)) taken.insert(std::atoi(c.name.c_str() + 4) + 1);
  for (const Candidate& c : found) {
    int number;
    if (IsBuiltIn(c.name)) {
      number = std::atoi(c.name.c_str() + 4) + 1;
    } else {
      number = RememberPort("/dev/" + c.name, taken);
      taken.insert(number);
    }
    devices->push_back(FactsFor(c, number));
  }
  return true;
}

}  // namespace qmk::platform::serial
