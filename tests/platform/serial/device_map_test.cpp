// device_map_test.cpp: COM names, their resolution through the device map, and the numbers the
// map gives new adapters.
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

#include "platform/serial/device_map.h"
#include "support/scoped_env.h"

namespace qmk::platform::serial {
namespace {

namespace fs = std::filesystem;
using qmk::testing::ScopedEnv;
using qmk::testing::TempDir;

TEST(ComNumber, NamesAndTheirLimits) {
  struct Case { const char* name; int want; };
  for (const Case c : {Case{"COM1", 1}, {"com9", 9}, {"CoM3", 3}, {"COM10", 0}, {"COM0", 0},
                       {"COM", 0}, {"COM3x", 0}, {"COM03", 0}, {"LPT1", 0}, {"", 0},
                       {"\\\\.\\COM10", 10}, {"\\\\.\\COM255", 255}, {"\\\\.\\COM256", 0},
                       {"\\\\.\\COM2048", 0}, {"\\\\.\\COM4096", 0}, {"\\\\.\\LPT1", 0},
                       {"\\\\COM3", 0}})
    EXPECT_EQ(ComNumberOf(c.name), c.want) << c.name;
}

TEST(ResolvePort, MapLinksPathsAndMissingNames) {
  TempDir map;
  ScopedEnv env("QMK_DEVICE_MAP", map.str());
  fs::create_symlink("/dev/pts/77", map.path() / "com3");
  fs::create_symlink("/dev/pts/78", map.path() / "com12");
  fs::create_symlink("../rel/tty", map.path() / "com4");
  struct Case { const char* name; int error; const char* path; };
  const std::string rel = (map.path().parent_path() / "rel/tty").string();
  for (const Case c : {Case{"COM3", 0, "/dev/pts/77"}, {"\\\\.\\COM3", 0, "/dev/pts/77"},
                       {"\\\\.\\COM12", 0, "/dev/pts/78"}, {"COM12", ENOENT, ""},
                       {"/dev/whatever", 0, "/dev/whatever"}, {"COM99", ENOENT, ""},
                       {"nonsense", ENOENT, ""}, {"COM4", 0, rel.c_str()}}) {
    std::string path;
    EXPECT_EQ(ResolvePortName(c.name, &path), c.error) << c.name;
    if (c.error == 0) {
      EXPECT_EQ(path, c.path) << c.name;
    }
  }
}

TEST(RememberPort, LowestFreeNumberFromThreeAndKeptAfterwards) {
  TempDir map;
  ScopedEnv env("QMK_DEVICE_MAP", (map.path() / "sub" / "devices").string());
  EXPECT_EQ(RememberPort("/dev/ttyUSB0", {}), 3);
  EXPECT_EQ(RememberPort("/dev/ttyACM0", {4}), 5) << "4 is taken by a built-in port";
  EXPECT_EQ(RememberPort("/dev/ttyUSB1", {}), 4);
  EXPECT_EQ(RememberPort("/dev/ttyUSB0", {}), 3) << "a device keeps its number";
  std::string path;
  ASSERT_EQ(ResolvePortName("COM5", &path), 0);
  EXPECT_EQ(path, "/dev/ttyACM0");
}

TEST(RememberPort, UnwritableMapStillGivesANumber) {
  ScopedEnv env("QMK_DEVICE_MAP", "/proc/no-such-folder/devices");
  EXPECT_EQ(RememberPort("/dev/ttyUSB0", {3}), 4);
}

}  // namespace
}  // namespace qmk::platform::serial
