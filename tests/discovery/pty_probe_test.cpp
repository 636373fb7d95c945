// pty_probe_test.cpp: the probes for real, on a pseudo-terminal, against the simulated serial
// scanner: the settings found, each fault mode, busy and missing ports, COM numbers of 10 up.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

#include "discovery/identity.h"
#include "discovery/port_list.h"
#include "discovery/probe_settings.h"
#include "discovery/probes.h"
#include "discovery/search.h"
#include "platform/serial/termios_port.h"
#include "serial_scanner_sim.h"
#include "support/scoped_env.h"

namespace qmk::discovery {
namespace {

namespace fs = std::filesystem;
using namespace qmk::testing;
using platform::serial::Parity;
using serialsim::Fault;
using serialsim::PtySerialScanner;
using serialsim::SimConfig;

class PtyProbe : public ::testing::Test {
 protected:
  PtyProbe() : env_("QMK_DEVICE_MAP", map_.str()) {}

  // Starts a simulated scanner and names it COM`number` in the device map.
  PtySerialScanner& Start(const SimConfig& config, int number = 3) {
    sim_ = std::make_unique<PtySerialScanner>(config);
    std::string error;
    EXPECT_TRUE(sim_->Start(&error)) << error;
    fs::create_symlink(sim_->path(), map_.path() / ("com" + std::to_string(number)));
    return *sim_;
  }

  // True when nothing holds the port any more.
  bool PortIsFree() {
    int error = 0;
    return platform::serial::OpenTermiosPort(sim_->path(), &error) != nullptr;
  }

  TempDir map_;
  ScopedEnv env_;
  std::unique_ptr<PtySerialScanner> sim_;
};

SimConfig At(uint32_t baud, int data, int stop, Parity parity) {
  SimConfig c;
  c.setting = {baud, data, stop, parity};
  return c;
}

// A pty keeps the speed and the stop bits, so the setting found is the first of the order with
// the scanner's speed and stop bits.
TEST_F(PtyProbe, QuickCheckFindsTheScannersSpeedAndStopBits) {
  struct Case { LineSettings scanner, found; };
  for (const Case& c : {Case{{38400, 8, 2, Parity::kNone}, {38400, 8, 2, Parity::kNone}},
                        Case{{38400, 7, 1, Parity::kEven}, {38400, 8, 1, Parity::kEven}},
                        Case{{19200, 7, 2, Parity::kOdd}, {19200, 8, 2, Parity::kNone}}}) {
    fs::remove(map_.path() / "com3");
    Start(At(c.scanner.baud, c.scanner.data_bits, c.scanner.stop_bits, c.scanner.parity));
    const QuickCheck check = ScnCheckForNonPadLot("COM3");
    ASSERT_TRUE(check.answered) << platform::serial::Describe(c.scanner);
    EXPECT_EQ(check.setting, c.found);
    EXPECT_EQ(check.reply.count, kStatusLineBytes);
    EXPECT_TRUE(PortIsFree());
  }
}

TEST_F(PtyProbe, SearchFindsNineThousandSixHundred) {
  Start(At(9600, 7, 2, Parity::kEven));
  const SearchOutcome out = SearchPort("COM3", BaudList(false), 0);
  ASSERT_EQ(out.code, kConfigured);
  EXPECT_EQ(out.setting, (LineSettings{9600, 7, 2, Parity::kOdd})) << "first 9600 with 2 stop bits";
  EXPECT_EQ(out.model.model, 511);
  EXPECT_EQ(out.options.bar_code, 1);
  EXPECT_TRUE(PortIsFree());
}

TEST_F(PtyProbe, EachFaultModeAtOneSetting) {
  struct Case { Fault fault; int gap_ms; int result; int count; bool accepted; };
  const LineSettings at{38400, 8, 2, Parity::kNone};
  Start(At(at.baud, at.data_bits, at.stop_bits, at.parity));
  for (const Case& c : {Case{Fault::kNone, 0, kReplyLine, 52, true},
                        Case{Fault::kSilent, 0, kReplyNone, -1, false},
                        Case{Fault::kShort, 0, kReplyLine, 51, false},
                        Case{Fault::kLong, 0, kReplyLine, 53, false},
                        Case{Fault::kOverlong, 0, kReplyLine, 120, false},
                        Case{Fault::kWrongFirst, 0, kReplyLine, 52, false},
                        Case{Fault::kLfOnly, 0, kReplyNone, -1, false},
                        Case{Fault::kNoise, 0, kReplyNone, -1, false},
                        Case{Fault::kSplit, 20, kReplyLine, 52, true},     // pauses within 51 ms
                        Case{Fault::kSplit, 150, kReplyNone, -1, false}}) {  // pauses beyond
    SimConfig config = At(at.baud, at.data_bits, at.stop_bits, at.parity);
    config.fault = c.fault;
    config.split_gap_ms = c.gap_ms;
    sim_->Reconfigure(config);
    int error = 0;
    auto port = platform::serial::OpenTermiosPort(sim_->path(), &error);
    ASSERT_NE(port, nullptr);
    StatusReply reply;
    reply.count = -1;
    ASSERT_TRUE(RunStatusQuery(*port, at, ProbeWaits(at.baud), &reply));
    const char* name = serialsim::FaultName(c.fault);
    EXPECT_EQ(reply.result, c.result) << name << c.gap_ms;
    EXPECT_EQ(reply.count, c.count) << name << c.gap_ms;
    EXPECT_EQ(reply.Accepted(), c.accepted) << name << c.gap_ms;
    port.reset();
    usleep(300000);  // let a slow reply finish before the next case
  }
}

TEST_F(PtyProbe, SilentScannerRunsEveryTimeOutAndClosesThePort) {
  SimConfig config = At(38400, 8, 2, Parity::kNone);
  config.fault = Fault::kSilent;
  Start(config);
  EXPECT_EQ(::ScnCheckForNonPadLot("COM3"), 0);
  EXPECT_EQ(sim_->queries(), 12) << "one query per setting";
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort("COM3"), 0);
  EXPECT_TRUE(PortIsFree());
}

TEST_F(PtyProbe, PadLotScannerAnswersItsCommandsOnly) {
  SimConfig config = At(9600, 7, 1, Parity::kEven);
  config.padlot = true;
  Start(config);
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort("COM3"), 1);
  EXPECT_EQ(sim_->answers(), 2);
  EXPECT_TRUE(PortIsFree());
  config.setting.baud = 19200;  // another speed: no answer
  sim_->Reconfigure(config);
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort("COM3"), 0);
}

TEST_F(PtyProbe, PortHeldByAnotherHolder) {
  Start(At(38400, 8, 2, Parity::kNone));
  const int holder = open(sim_->path().c_str(), O_RDWR | O_NOCTTY);
  ASSERT_EQ(flock(holder, LOCK_EX | LOCK_NB), 0);
  EXPECT_EQ(::ScnCheckForNonPadLot("COM3"), 0);
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort("COM3"), 0);
  EXPECT_EQ(sim_->queries(), 0) << "nothing was sent";
  close(holder);
  EXPECT_EQ(::ScnCheckForNonPadLot("COM3"), 1);
}

TEST_F(PtyProbe, OpenCheckOfThePortListDropsAHeldTerminal) {
  Start(At(38400, 8, 2, Parity::kNone));
  SSerInfo info{};
  std::snprintf(info.device_path, sizeof info.device_path, "%s", sim_->path().c_str());
  std::snprintf(info.port_name, sizeof info.port_name, "COM3");
  const int holder = open(sim_->path().c_str(), O_RDWR | O_NOCTTY);
  ASSERT_EQ(flock(holder, LOCK_EX | LOCK_NB), 0);
  std::vector<SSerInfo> ports{info};
  FinishPortList(ports, true);
  EXPECT_TRUE(ports.empty());
  close(holder);
  ports = {info};
  FinishPortList(ports, true);
  EXPECT_EQ(ports.size(), 1u);
  EXPECT_TRUE(PortIsFree()) << "the check closes what it opened";
}

TEST_F(PtyProbe, PortsThatDoNotExist) {
  EXPECT_EQ(::ScnCheckForNonPadLot("COM7"), 0);
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort("COM7"), 0);
  EXPECT_EQ(::ScnCheckForNonPadLot("/dev/no-such-tty"), 0);
  for (const char* name : {"COM2048", "\\\\.\\COM2048", "COM4096", "\\\\.\\COM4096"}) {
    EXPECT_EQ(::ScnCheckForNonPadLot(name), 0) << name;
    EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort(name), 0) << name;
  }
  EXPECT_EQ(SearchPort("COM7", BaudList(false), 0).code, kNotConfigured);
}

// Without the device prefix, a name of COM10 and up does not open.
TEST_F(PtyProbe, ComTenAndUpNeedTheDevicePrefix) {
  Start(At(38400, 8, 2, Parity::kNone), 10);
  EXPECT_EQ(::ScnCheckForNonPadLot("COM10"), 0);
  EXPECT_EQ(sim_->queries(), 0);
  EXPECT_EQ(::ScnCheckForNonPadLot("\\\\.\\COM10"), 1);
  EXPECT_EQ(SearchPort("COM10", BaudList(false), 0).code, kConfigured) << "the search adds it";
}

TEST_F(PtyProbe, ThresholdOnARealLineKeepsTheReversedSense) {
  Start(At(38400, 8, 2, Parity::kNone), 12);
  sct_config cfg{};
  cfg.feat_mask.family = 2;
  cfg.feat_mask.model_code = 7;
  cfg.feat_mask.series = 1;
  sct_config_ex comm{38400, 'N', 8, 2, 12, 10, 0};
  EXPECT_EQ(::ScnGetSelfScoreScannerThreshold(&cfg, &comm), kThresholdUnread);
  EXPECT_EQ(sim_->answers(), 1) << "the scanner did answer";
  EXPECT_TRUE(PortIsFree());
}

}  // namespace
}  // namespace qmk::discovery

namespace qmk::serialsim {
namespace {

TEST(SimulatorCommand, BadOptionsStopBeforeServing) {
  for (const std::vector<std::string>& args :
       {std::vector<std::string>{"--baud", "1234"}, {"--fault", "bogus"}, {"--line", "short"},
        {"--parity", "X"}, {"--stop-bits"}, {"--whatever", "1"}, {"--line", std::string(50, 's'), "--group", "3"},
        {"--link", "0"}, {"--data-bits", "9"}})
    EXPECT_EQ(RunSimulatorCommand(args, stdout), 2) << args[0];
}

TEST(SimulatorFaults, NamesRoundTrip) {
  for (const char* name : {"none", "silent", "short", "long", "overlong", "wrong-first", "lf-only",
                           "noise", "split"}) {
    Fault fault;
    ASSERT_TRUE(ParseFault(name, &fault)) << name;
    EXPECT_STREQ(FaultName(fault), name);
  }
}

}  // namespace
}  // namespace qmk::serialsim
