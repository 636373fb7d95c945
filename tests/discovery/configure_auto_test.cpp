// Auto Configure through the dialog's button, against the simulators: the serial scanner on a
// pseudo-terminal named COM3 in a private device map, a PadLot scanner there, and the
// transport's simulated USB scanner.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "discovery/configure_view_fixture.h"
#include "serial_scanner_sim.h"

namespace qmk::testing {
namespace {

namespace fs = std::filesystem;
namespace ui = platform::ui;
using namespace discovery::config_ids;
using platform::serial::Parity;
using serialsim::PtySerialScanner;
using serialsim::SimConfig;

class AutoConfigureTest : public ConfigureViewTest {
 protected:
  // Starts a simulated serial scanner and names it COM3.
  void StartSerial(const SimConfig& config) {
    sim_ = std::make_unique<PtySerialScanner>(config);
    std::string error;
    ASSERT_TRUE(sim_->Start(&error)) << error;
    fs::create_symlink(sim_->path(), map_.path() / "com3");
  }

  std::unique_ptr<PtySerialScanner> sim_;
};

TEST_F(AutoConfigureTest, FindsTheSerialScannerOnAPseudoTerminal) {
  SimConfig scanner;
  scanner.setting = {9600, 7, 2, Parity::kEven};
  StartSerial(scanner);
  Store(509);
  comm_ = sct_config_ex{38400, 'N', 8, 1, 3, 10, 0};
  EXPECT_EQ(Run(Script().Click(kAutoConfigure).Press(ui::IDOK)), ui::IDOK);
  const auto shown = Messages();
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_NE(shown[0].find(Text(2087)), std::string::npos) << shown[0];
  EXPECT_EQ(report_.tested, 1);
  // The reply names model 511; the baud list is searched from its fastest row down, and on a
  // pseudo-terminal the first setting with the scanner's speed and stop bits answers.
  EXPECT_EQ(ModelOf(config_.feat_mask), 511);
  EXPECT_EQ(comm_.baud, 9600u);
  EXPECT_EQ(comm_.stop_bits, 2);
  EXPECT_EQ(comm_.data_bits, 7);
  EXPECT_EQ(comm_.parity, 'O');
  EXPECT_EQ(comm_.port, 3);
  EXPECT_EQ(report_.bar_code_state, 1) << "the option digit 8 says a bar-code reader is fitted";
  EXPECT_GT(sim_->answers(), 0);
}

TEST_F(AutoConfigureTest, FindsAPadLotScannerBeforeSearching) {
  SimConfig scanner;
  scanner.padlot = true;
  scanner.setting = {9600, 7, 1, Parity::kEven};
  StartSerial(scanner);
  Store(512);
  comm_ = sct_config_ex{19200, 'N', 8, 1, 3, 10, 0};
  EXPECT_EQ(Run(Script().Click(kAutoConfigure).Press(ui::IDOK)), ui::IDOK);
  ASSERT_EQ(Messages().size(), 1u);
  EXPECT_NE(Messages()[0].find(Text(2087)), std::string::npos);
  EXPECT_EQ(ModelOf(config_.feat_mask), 517);
  EXPECT_EQ(comm_.port, 3);
  EXPECT_EQ(comm_.baud, 9600u) << "a model that isn't the one at open starts at 9600";
  EXPECT_EQ(report_.tested, 1);
  EXPECT_EQ(report_.select_state, 0);
}

TEST_F(AutoConfigureTest, SilentPortEndsWithNoScannerFound) {
  SimConfig scanner;
  scanner.fault = serialsim::Fault::kSilent;
  StartSerial(scanner);
  Store(513);
  comm_.port = 3;
  comm_.baud = 38400;
  EXPECT_EQ(Run(Script().Click(kAutoConfigure).Press(ui::IDCANCEL)), ui::IDCANCEL);
  ASSERT_EQ(Messages().size(), 1u);
  EXPECT_NE(Messages()[0].find(Text(2062)), std::string::npos) << Messages()[0];
  EXPECT_NE(Messages()[0].find("flags=0x30"), std::string::npos);
}

TEST_F(AutoConfigureTest, FindsTheSimulatedUsbScanner) {
  struct Case {
    int stored;
    int image_read, model_code_5, bar_code, printer;
    int found;
  };
  for (const Case c : {Case{509, 1, 0, 1, 0, 504}, Case{518, 0, 0, 0, 1, 518}, Case{511, 0, 0, 0, 0, 511},
                       Case{509, 1, 1, 0, 0, 503}}) {
    op_.ClearEvents();
    QlkSimSetUSBScanner(1, c.image_read, c.model_code_5, c.bar_code, c.printer);
    Store(c.stored);
    comm_ = sct_config_ex{19200, 'N', 8, 1, QMK_PORT_USB, 10, 0};
    EXPECT_EQ(Run(Script().Click(kAutoConfigure).Press(ui::IDOK)), ui::IDOK);
    ASSERT_EQ(Messages().size(), 1u) << c.stored;
    EXPECT_NE(Messages()[0].find(Text(2087)), std::string::npos) << c.stored;
    EXPECT_EQ(ModelOf(config_.feat_mask), c.found) << c.stored;
    EXPECT_EQ(report_.tested, 1);
    EXPECT_EQ(report_.bar_code_state, 1) << "found or not fitted, the state isn't 0";
    EXPECT_EQ(report_.printer_state, 1);
  }
}

TEST_F(AutoConfigureTest, NoUsbScannerAnswers) {
  QlkSimSetUSBScanner(0, 0, 0, 0, 0);
  Store(503);
  EXPECT_EQ(Run(Script().Click(kAutoConfigure).Press(ui::IDOK)), ui::IDOK);
  ASSERT_EQ(Messages().size(), 1u);
  EXPECT_NE(Messages()[0].find(Text(2062)), std::string::npos);
  EXPECT_EQ(report_.tested, 0);
  EXPECT_EQ(ModelOf(config_.feat_mask), 503);
}

}  // namespace
}  // namespace qmk::testing
