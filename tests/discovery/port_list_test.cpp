// port_list_test.cpp: the port list: names out of friendly names, the facts that make an
// element, the open check and the fill-ins; the exports with a recorded sysfs tree.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "discovery/port_list.h"
#include "platform/serial/memory_port.h"
#include "qmk/QmkScan.hpp"
#include "support/scoped_env.h"

namespace qmk::discovery {
namespace {

namespace fs = std::filesystem;
using namespace qmk::testing;
using platform::serial::DeviceFacts;

TEST(PortName, FromFriendlyNames) {
  struct Case { const char* friendly; const char* port; };
  for (const Case c : {Case{"USB Serial Port (COM5)", "COM5"}, {"Modem (COM12) extra", "COM12"},
                       {"Port COM7", ""},  // "COM" without ")" gives nothing
                       {"Printer port (LPT1)", "Printer port (LPT1)"},  // no "COM": whole
                       {"COM3)", "COM3"}, {"(x) COM2", ""}, {"", ""}})
    EXPECT_EQ(PortNameFromFriendlyName(c.friendly), c.port) << c.friendly;
}

DeviceFacts Facts(const char* path, std::optional<std::string> friendly,
                  std::optional<std::string> description, std::optional<std::string> location) {
  return {path, std::move(friendly), std::move(description), std::move(location)};
}

TEST(PortsFromFacts, SkipsDevicesMissingANameAndReadsTheLocation) {
  const auto ports = PortsFromFacts({
      Facts("/dev/a", "A (COM1)", "A", "USB 1-2"),
      Facts("/dev/b", std::nullopt, "B", std::nullopt),
      Facts("/dev/c", "C (COM3)", std::nullopt, std::nullopt),
      Facts("/dev/d", "D (COM4)", "D", std::nullopt),
      Facts("/dev/e", "E (COM5)", "E", "usb lower case"),
      Facts("/dev/f", std::string(400, 'f'), "F", "Built-in")});
  ASSERT_EQ(ports.size(), 4u);
  EXPECT_STREQ(ports[0].port_name, "COM1");
  EXPECT_TRUE(ports[0].is_usb);
  EXPECT_STREQ(ports[1].device_path, "/dev/d");
  EXPECT_FALSE(ports[1].is_usb) << "no location";
  EXPECT_FALSE(ports[2].is_usb) << "the location must begin with USB";
  EXPECT_EQ(std::strlen(ports[3].friendly_name), QMK_SER_TEXT_BYTES - 1u) << "cut to its field";
}

SSerInfo Info(const char* path, const char* port, const char* friendly, const char* description) {
  SSerInfo s{};
  std::strcpy(s.device_path, path);
  std::strcpy(s.port_name, port);
  std::strcpy(s.friendly_name, friendly);
  std::strcpy(s.description, description);
  return s;
}

TEST(FinishPortList, FillInsFromTheNamesThereAre) {
  struct Case { const char* port; const char* friendly; const char* description; const char* want_friendly; const char* want_description; };
  for (const Case c : {Case{"COM1", "", "", "COM1", "COM1"},
                       Case{"COM2", "Modem (COM2)", "", "Modem (COM2)", "Modem"},
                       Case{"COM3", " (COM3)", "", " (COM3)", " (COM3)"},  // " (" at the start
                       Case{"COM4", "A (COM4) x", "", "A (COM4) x", "A (COM4) x"},
                       Case{"COM5", "A (B) (COM5)", "", "A (B) (COM5)", "A (B) (COM5)"},
                       Case{"COM6", "A (COM6)", "Kept", "A (COM6)", "Kept"}}) {
    std::vector<SSerInfo> ports{Info("/dev/x", c.port, c.friendly, c.description)};
    FinishPortList(ports, false);
    ASSERT_EQ(ports.size(), 1u);
    EXPECT_STREQ(ports[0].friendly_name, c.want_friendly) << c.port;
    EXPECT_STREQ(ports[0].description, c.want_description) << c.port;
  }
}

TEST(FinishPortList, OpenCheckDropsBusyAndMissingPorts) {
  platform::serial::MemoryPortOpener opener;
  ScopedPortOpener use(&opener);
  opener.Add("/dev/free");
  opener.Add("/dev/busy")->open = true;
  opener.Add("/dev/free2");
  const std::vector<SSerInfo> all{Info("/dev/free", "COM1", "a", "a"), Info("/dev/busy", "COM2", "b", "b"),
                                  Info("/dev/gone", "COM3", "c", "c"), Info("/dev/free2", "COM4", "d", "d")};
  std::vector<SSerInfo> ports = all;
  FinishPortList(ports, false);
  EXPECT_EQ(ports.size(), 4u);
  EXPECT_TRUE(opener.opened.empty()) << "no port is opened without the check";
  ports = all;
  FinishPortList(ports, true);
  ASSERT_EQ(ports.size(), 2u);
  EXPECT_STREQ(ports[0].port_name, "COM1");
  EXPECT_STREQ(ports[1].port_name, "COM4");
}

TEST(EnumSerialPorts, EmptyMachineAndFailingListing) {
  TempDir sys;
  fs::create_directories(sys.path() / "class/tty");
  {
    ScopedEnv env("QMK_SYSFS_ROOT", sys.str());
    std::vector<SSerInfo> ports(3);
    EXPECT_NO_THROW(::ScnEnumSerialPorts(ports, 1));
    EXPECT_TRUE(ports.empty());
  }
  ScopedEnv env("QMK_SYSFS_ROOT", (sys.path() / "missing").string());
  std::vector<SSerInfo> ports(2);
  try {
    ::ScnEnumSerialPorts(ports, 0);
    ADD_FAILURE() << "no exception";
  } catch (const std::string& text) {
    EXPECT_EQ(text, "SetupDiGetClassDevs failed. (err=2)");
  }
  EXPECT_TRUE(ports.empty()) << "emptied first";
  SSerInfo out[2];
  int count = -1;
  char error[64] = "";
  EXPECT_EQ(ScnEnumSerialPortsC(out, 2, 0, &count, error, sizeof error), QMK_ENUM_FAILED);
  EXPECT_STREQ(error, "SetupDiGetClassDevs failed. (err=2)");
  EXPECT_EQ(count, 0);
  EXPECT_EQ(ScnEnumSerialPortsC(nullptr, 2, 0, &count, error, sizeof error), QMK_ENUM_BAD_ARGUMENT);
}

TEST(EnumSerialPorts, CFormReportsASmallArray) {
  TempDir sys, map;
  ScopedEnv root("QMK_SYSFS_ROOT", sys.str());
  ScopedEnv devices("QMK_DEVICE_MAP", map.str());
  for (const char* name : {"ttyUSB0", "ttyUSB1", "ttyUSB2"}) {
    const fs::path dev = sys.path() / "devices/usb1/1-1" / name;
    fs::create_directories(dev);
    fs::create_directories(sys.path() / "class/tty" / name);
    fs::create_symlink(fs::path("../../../devices/usb1/1-1") / name,
                       sys.path() / "class/tty" / name / "device");
  }
  std::ofstream(sys.path() / "devices/usb1/1-1/product") << "Adapter\n";
  SSerInfo out[2];
  int count = 0;
  EXPECT_EQ(ScnEnumSerialPortsC(out, 2, 0, &count, nullptr, 0), QMK_ENUM_TOO_SMALL);
  EXPECT_EQ(count, 3);
  EXPECT_STREQ(out[0].port_name, "COM3");
  EXPECT_STREQ(out[1].friendly_name, "Adapter (COM4)");
  EXPECT_TRUE(out[1].is_usb);
  EXPECT_STREQ(out[1].description, "Adapter");
  EXPECT_EQ(ScnEnumSerialPortsC(nullptr, 0, 0, &count, nullptr, 0), QMK_ENUM_TOO_SMALL);
  EXPECT_EQ(count, 3) << "capacity 0 asks for the count";
}

}  // namespace
}  // namespace qmk::discovery
