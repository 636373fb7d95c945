// device_map.cpp: COMn names through a folder of symbolic links.
#include "platform/serial/device_map.h"
#include "platform/text.h"
#include "platform/files.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace qmk::platform::serial {
namespace fs = std::filesystem;

namespace {

constexpr const char kDevicePrefix[] = "\\\\.\\";
constexpr int kFirstAdapterNumber = 3;
constexpr int kMaxComNumber = 255;

std::string LinkName(int number) { return "com" + std::to_string(number); }

// The target of a map entry, made absolute against the folder; empty when there is none.
std::string MapTarget(const fs::path& folder, int number) {
  std::error_code ec;
  const fs::path target = fs::read_symlink(folder / LinkName(number), ec);
  if (ec) return {};
  return (target.is_absolute() ? target : folder / target).lexically_normal().string();
}

bool IsMapped(const fs::path& folder, int number) {
  std::error_code ec;
  return fs::is_symlink(fs::symlink_status(folder / LinkName(number), ec));
}

}  // namespace

std::string DeviceMapFolder() {
  if (const char* env = std::getenv("QMK_DEVICE_MAP"); env && *env) return env;
  return ConfigFolder() + "/quillmark/devices";
}

int ComNumberOf(const std::string& name) {
  std::string rest = name;
  const bool prefixed = rest.rfind(kDevicePrefix, 0) == 0;
  if (prefixed) rest.erase(0, sizeof kDevicePrefix - 1);
  if (rest.size() < 4 || rest.size() > 6) return 0;
  if (!EqualsNoCase(std::string_view(rest).substr(0, 3), "COM")) return 0;
  if (rest[3] == '0') return 0;
  int number = 0;
  for (size_t i = 3; i < rest.size(); ++i) {
    if (!std::isdigit(static_cast<unsigned char>(rest[i]))) return 0;
    number = number * 10 + (rest[i] - '0');
  }
  if (!prefixed && number > 9) return 0;
  return number <= kMaxComNumber ? number : 0;
}

int ResolvePortName(const std::string& name, std::string* path) {
  if (!name.empty() && name[0] == '/') {
    *path = name;
    return 0;
  }
  const int number = ComNumberOf(name);
  if (number == 0) return ENOENT;
  std::string target = MapTarget(DeviceMapFolder(), number);
  if (target.empty()) {
    // Unmapped numbers fall back to the built-in port of that number, if the machine has one.
    target = "/dev/ttyS" + std::to_string(number - 1);
    std::error_code ec;
    if (!fs::exists(target, ec)) return ENOENT;
  }
  *path = target;
  return 0;
}

int RememberPort(const std::string& device_path, const std::set<int>& taken) {
  const fs::path folder = DeviceMapFolder();
  for (int n = 1; n <= kMaxComNumber; ++n)
    if (MapTarget(folder, n) == device_path) return n;
  int number = kFirstAdapterNumber;
  while (number < kMaxComNumber && (taken.count(number) || IsMapped(folder, number))) ++number;
  std::error_code ec;
  fs::create_directories(folder, ec);
  fs::create_symlink(device_path, folder / LinkName(number), ec);  // best effort, see header
  return number;
}

}  // namespace qmk::platform::serial
