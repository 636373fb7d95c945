// sysfs_ports.h: the serial devices of the machine, read from sysfs: what the port list needs to
// know of each.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qmk::platform::serial {

// What the system tells of one serial device. A fact it doesn't have stays empty.
struct DeviceFacts {
  std::string interface_path;                  // the path a program opens
  std::optional<std::string> friendly_name;    // "USB Serial (COM3)"
  std::optional<std::string> description;      // "USB Serial"
  std::optional<std::string> location;         // "USB port 1-2", or "Built-in serial port"
};

// Steps of the listing that can fail, for the caller's error text.
enum class ListStep { kOpenClass, kReadEntry, kResolveDevice };

struct ListFailure {
  ListStep step;
  int error;  // errno value
};

// $QMK_SYSFS_ROOT, else "/sys".
std::string SysfsRoot();

// The serial devices under <root>/class/tty that have hardware behind them, in name order.
// Built-in UART slots without a chip are skipped. USB adapters get their COM number from the
// device map (remembered there when first seen). On failure, returns false and says where.
bool ListSerialDevices(const std::string& root, std::vector<DeviceFacts>* devices,
                       ListFailure* failure);

}  // namespace qmk::platform::serial
