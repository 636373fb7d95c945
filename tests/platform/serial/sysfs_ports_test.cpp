// sysfs_ports_test.cpp: listing serial devices from a recorded sysfs tree.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/serial/sysfs_ports.h"
#include "support/scoped_env.h"

namespace qmk::platform::serial {
namespace {

namespace fs = std::filesystem;
using qmk::testing::ScopedEnv;
using qmk::testing::TempDir;

// A tree shaped like a real machine's: class/tty/<name>/device links into devices/.
class SysfsTree {
 public:
  SysfsTree() { fs::create_directories(root() / "class/tty"); }
  fs::path root() const { return dir_.path() / "sys"; }

  // A tty whose device lives at devices/<device_dir>; `type` written when not empty.
  void AddTty(const std::string& name, const std::string& device_dir, const std::string& type = "") {
    const fs::path tty = root() / "class/tty" / name;
    fs::create_directories(tty);
    fs::create_directories(root() / "devices" / device_dir);
    fs::create_symlink(fs::path("../../../devices") / device_dir, tty / "device");
    if (!type.empty()) std::ofstream(tty / "type") << type << "\n";
  }
  void Write(const std::string& file, const std::string& text) {
    std::ofstream(root() / file) << text << "\n";
  }
  void AddBareTty(const std::string& name) { fs::create_directories(root() / "class/tty" / name); }

 private:
  TempDir dir_;
};

TEST(SysfsPorts, BuiltInAdaptersAndNonPorts) {
  SysfsTree tree;
  TempDir map;
  ScopedEnv env("QMK_DEVICE_MAP", map.str());
  tree.AddTty("ttyS0", "platform/serial8250/tty/ttyS0", "4");
  tree.AddTty("ttyS1", "platform/serial8250/tty/ttyS1", "0");  // slot without a chip
  tree.AddTty("ttyUSB0", "pci0000:00/0000:00:14.0/usb1/1-2/1-2:1.0/ttyUSB0");
  tree.Write("devices/pci0000:00/0000:00:14.0/usb1/1-2/product", "FT232R USB UART");
  tree.AddTty("ttyACM0", "pci0000:00/0000:00:14.0/usb1/1-3/1-3:1.0/tty/ttyACM0");
  tree.AddBareTty("tty0");                         // a virtual terminal has no device link
  tree.AddTty("console", "virtual/console");       // not a serial port by name

  std::vector<DeviceFacts> devices;
  ListFailure failure{};
  ASSERT_TRUE(ListSerialDevices(tree.root().string(), &devices, &failure));
  ASSERT_EQ(devices.size(), 3u);
  EXPECT_EQ(devices[0].interface_path, "/dev/ttyS0");
  EXPECT_EQ(devices[0].friendly_name, "Communications Port (COM1)");
  EXPECT_EQ(devices[0].location, "Built-in serial port");
  EXPECT_EQ(devices[1].interface_path, "/dev/ttyACM0");
  EXPECT_EQ(devices[1].friendly_name, "USB Serial Port (COM3)") << "no product file above it";
  EXPECT_EQ(devices[2].interface_path, "/dev/ttyUSB0");
  EXPECT_EQ(devices[2].friendly_name, "FT232R USB UART (COM4)");
  EXPECT_EQ(devices[2].description, "FT232R USB UART");
  EXPECT_EQ(devices[2].location->rfind("USB", 0), 0u);
}

TEST(SysfsPorts, EmptyMachineAndMissingTree) {
  SysfsTree tree;
  std::vector<DeviceFacts> devices{DeviceFacts{}};
  ListFailure failure{};
  EXPECT_TRUE(ListSerialDevices(tree.root().string(), &devices, &failure));
  EXPECT_TRUE(devices.empty());
  EXPECT_FALSE(ListSerialDevices((tree.root() / "nothing").string(), &devices, &failure));
  EXPECT_EQ(failure.step, ListStep::kOpenClass);
  EXPECT_EQ(failure.error, ENOENT);
}

TEST(SysfsPorts, DanglingDeviceLinkFailsTheListing) {
  SysfsTree tree;
  fs::create_directories(tree.root() / "class/tty/ttyUSB3");
  fs::create_symlink("../../../devices/gone", tree.root() / "class/tty/ttyUSB3/device");
  std::vector<DeviceFacts> devices;
  ListFailure failure{};
  EXPECT_FALSE(ListSerialDevices(tree.root().string(), &devices, &failure));
  EXPECT_EQ(failure.step, ListStep::kResolveDevice);
}

TEST(SysfsPorts, RootFromEnvironment) {
  {
    ScopedEnv env("QMK_SYSFS_ROOT", "/tmp/recorded");
    EXPECT_EQ(SysfsRoot(), "/tmp/recorded");
  }
  ScopedEnv env("QMK_SYSFS_ROOT", "");
  EXPECT_EQ(SysfsRoot(), "/sys");
}

}  // namespace
}  // namespace qmk::platform::serial
