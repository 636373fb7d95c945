// identity_test.cpp: display names, the lead-edge default, TWAIN names and the self-score
// threshold.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "discovery/identity.h"
#include "memory_scanner.h"
#include "qmk/QmkGen.h"
#include "qmk/QmkLinkSim.h"
#include "qmk/QmkScan.hpp"
#include "support/scoped_env.h"

namespace qmk::discovery {
namespace {

using namespace qmk::testing;
using platform::serial::MemoryPortOpener;

feat_mask Feat(unsigned family, unsigned model_code, unsigned submodel = 0, unsigned image = 0,
               unsigned series = 1) {
  feat_mask f{};
  f.family = family;
  f.model_code = model_code;
  f.submodel = submodel;
  f.image_read = image;
  f.series = series;
  return f;
}

std::string Text(int id) {
  char buffer[300] = "";
  GenLoadText(nullptr, id, buffer, sizeof buffer);
  return buffer;
}

TEST(ScannerName, TableOrderAndFallThroughs) {
  struct Case { feat_mask feat; int id; };
  for (const Case& c : {
           Case{Feat(3, 9, 0), 501}, {Feat(3, 9, 1), 507}, {Feat(3, 9, 2), 508}, {Feat(3, 9, 3), 0},
           Case{Feat(2, 9, 1), 507},  // model code 9 is asked before family 2
           Case{Feat(2, 5, 0, 0), 509}, {Feat(2, 5, 0, 1), 503}, {Feat(2, 6), 510},
           Case{Feat(2, 7, 1, 1), 502}, {Feat(2, 7, 1, 0), 518}, {Feat(2, 7, 2, 1), 504},
           Case{Feat(2, 7, 0, 0), 511},
           Case{Feat(2, 3), 0},       // family 2 doesn't fall through to the model codes
           Case{Feat(4, 3), 512}, {Feat(4, 4), 513}, {Feat(4, 2, 1), 275}, {Feat(4, 2, 0), 515},
           Case{Feat(4, 1, 1), 516}, {Feat(4, 1, 2), 514},
           Case{Feat(5, 11), 517}, {Feat(5, 10), 0}, {Feat(6, 11), 0},
           Case{Feat(12, 12), kTwainName}, {Feat(12, 3), 512}, {Feat(0, 0, 0, 0, 0), 0}})
    EXPECT_EQ(ScannerNameTextId(frame::FeaturesOf(c.feat)), c.id)
        << c.feat.family << "/" << c.feat.model_code << "/" << c.feat.submodel;
}

TEST(ScannerName, TextsAndUnknown) {
  std::string name;
  feat_mask zero{};
  ScnGetScannerName(zero, name, nullptr);
  EXPECT_EQ(name, "UNKNOWN");
  feat_mask f = Feat(4, 2, 1);
  ScnGetScannerName(f, name, nullptr);
  EXPECT_EQ(name, Text(275));
  f = Feat(12, 13);
  ScnGetScannerName(f, name, nullptr);
  EXPECT_EQ(name, Text(506));
  f = Feat(12, 11);  // no TWAIN name for 11: the name stays
  ScnGetScannerName(f, name, nullptr);
  EXPECT_EQ(name, "UNKNOWN");
}

TEST(ScannerName, EveryModelOfTheListHasAText) {
  for (int id = 500; id <= 518; ++id) EXPECT_FALSE(Text(id).empty()) << id;
  EXPECT_FALSE(Text(275).empty());
  EXPECT_EQ(Text(kFirmwareLabelText), "Firmware Version: ");
}

TEST(ScannerName, FirmwareStepOnlyForPadLotWithFirmware) {
  QlkSimReset();
  feat_mask padlot = Feat(5, 11);
  std::string name;
  ScnGetScannerName(padlot, name, nullptr);
  EXPECT_EQ(name, Text(517));
  EXPECT_EQ(QlkSimJournalSize(), 0) << "no control without firmware";

  ScnGetScannerName(padlot, name, "3.07");
  EXPECT_EQ(name, Text(517) + "  Firmware Version: 3.07");
  ASSERT_EQ(QlkSimJournalSize(), 1);
  char entry[64];
  QlkSimJournalEntry(0, entry, sizeof entry);
  EXPECT_STREQ(entry, "QlkControl(0, 34)");

  feat_mask other = Feat(2, 6);
  ScnGetScannerName(other, name, "3.07");
  EXPECT_EQ(name, Text(510)) << "only the PadLot shows firmware";
}

TEST(ScannerName, KeptWithinNinetyNineCharacters) {
  feat_mask padlot = Feat(5, 11);
  std::string name;
  ScnGetScannerName(padlot, name, std::string(500, '9').c_str());
  EXPECT_EQ(name.size(), 99u);
  char small[10];
  EXPECT_EQ(ScnGetScannerNameC(&padlot, small, sizeof small, "1"),
            static_cast<int>(Text(517).size() + 21));
  EXPECT_EQ(std::string(small), Text(517).substr(0, 9));
  EXPECT_EQ(ScnGetScannerNameC(nullptr, small, sizeof small, nullptr), -1);
}

TEST(LeadEdge, TwelveOnlyForFamilyTwelve) {
  for (int family : {0, 2, 5, 11, 13, -1}) EXPECT_EQ(::ScnGetDefaultLeadEdgeTol(family), 8) << family;
  EXPECT_EQ(::ScnGetDefaultLeadEdgeTol(12), 12);
}

TEST(TwainModel, OnlyTwelveAndThirteen) {
  char name[260];
  std::strcpy(name, "untouched");
  EXPECT_EQ(::ScnTwainGetModel(11, name), -1);
  EXPECT_STREQ(name, "untouched");
  EXPECT_EQ(::ScnTwainGetModel(12, name), static_cast<int>(Text(505).size()));
  EXPECT_EQ(std::string(name), Text(505));
  EXPECT_EQ(::ScnTwainGetModel(13, name), static_cast<int>(Text(506).size()));
  EXPECT_EQ(::ScnTwainGetModel(12, nullptr), -1);
}

TEST(CheckUsb, ForwardsTheTransportsAnswer) {
  QlkSimReset();
  int a = 9, b = 9, c = 9, d = 9;
  EXPECT_EQ(::ScnCheckUSB(&a, &b, &c, &d), 0);
  EXPECT_EQ(a + b + c + d, 0);
  QlkSimSetUSBScanner(1, 1, 0, 1, 0);
  EXPECT_NE(::ScnCheckUSB(&a, &b, &c, &d), 0);
  EXPECT_EQ((std::vector<int>{a, b, c, d}), (std::vector<int>{1, 0, 1, 0}));
  QlkSimReset();
}

class Threshold : public OnMemoryLine {
 protected:
  Threshold() : OnMemoryLine("\\\\.\\COM5") {
    cfg_.feat_mask = Feat(2, 7);
    comm_ = {19200, 'E', 7, 2, 5, 10, 0};
  }
  sct_config cfg_{};
  sct_config_ex comm_{};
};

TEST_F(Threshold, ScannersWithoutOneTouchNoPort) {
  struct Case { feat_mask feat; int16_t port; };
  for (const Case& c : {Case{Feat(3, 7), 5}, Case{Feat(2, 7, 0, 0, 5), 5},
                        Case{Feat(2, 7, 0, 1), 5}, Case{Feat(2, 7), QMK_PORT_USB}}) {
    cfg_.feat_mask = c.feat;
    comm_.port = c.port;
    EXPECT_EQ(::ScnGetSelfScoreScannerThreshold(&cfg_, &comm_), kNoThreshold);
  }
  EXPECT_TRUE(opener_.opened.empty());
}

TEST_F(Threshold, PortsThatDoNotOpen) {
  for (int16_t port : {int16_t{QMK_PORT_TWAIN}, int16_t{6}}) {
    comm_.port = port;
    EXPECT_EQ(::ScnGetSelfScoreScannerThreshold(&cfg_, &comm_), kThresholdUnread) << port;
  }
  EXPECT_EQ(opener_.opened, (std::vector<std::string>{"\\\\.\\COM4096", "\\\\.\\COM6"}));
  EXPECT_EQ(::ScnGetSelfScoreScannerThreshold(nullptr, &comm_), kThresholdUnread);
}

TEST_F(Threshold, SettingsFromTheRecordWithBareWaits) {
  struct Case { int16_t parity, stop_bits; LineSettings want; };
  for (const Case& c : {Case{'e', 2, {19200, 7, 2, Parity::kEven}},
                        Case{'O', 1, {19200, 7, 1, Parity::kOdd}},
                        Case{'o', 3, {19200, 7, 1, Parity::kOdd}},
                        Case{'X', 0, {19200, 7, 1, Parity::kNone}}}) {
    comm_.parity = c.parity;
    comm_.stop_bits = c.stop_bits;
    line_->applied.clear();
    clock_.sleeps.clear();
    ScnGetSelfScoreScannerThreshold(cfg_, comm_);
    EXPECT_EQ(line_->applied, std::vector<LineSettings>{c.want}) << c.parity;
    EXPECT_EQ(clock_.sleeps.at(1), 3) << "70000 / 19200 without the 30 ms floor";
    EXPECT_FALSE(line_->open);
  }
}

TEST_F(Threshold, RefusedSettingOrNoBaudIsUnread) {
  line_->refuses = [](const LineSettings&) { return true; };
  EXPECT_EQ(ScnGetSelfScoreScannerThreshold(cfg_, comm_), kThresholdUnread);
  EXPECT_FALSE(line_->open);
  line_->refuses = nullptr;
  comm_.baud = 0;
  EXPECT_EQ(ScnGetSelfScoreScannerThreshold(cfg_, comm_), kThresholdUnread);
  EXPECT_FALSE(line_->open);
}

// The reader's result counts the other way round here: a scanner that answers with a proper
// line gives -2.
TEST_F(Threshold, WholeLineMeansUnread) {
  line_->answer = StatusScanner({19200, 7, 2, Parity::kEven}, StatusLine52('5', '3', '5', '-', '7'));
  EXPECT_EQ(::ScnGetSelfScoreScannerThreshold(&cfg_, &comm_), kThresholdUnread);
}

// Only a reply without a line end goes on, and then tests what the count variable held.
TEST_F(Threshold, NoLineTestsTheHeldCount) {
  struct Case { std::string reply; int held; int want; };
  const auto unended = [](char b3, char b47) {
    std::string line = StatusLine52('5', b3, '5', '-', b47);
    line.back() = 'x';  // no CR LF
    return line;
  };
  for (const Case& c : {Case{unended('3', '7'), 52, 7}, Case{unended('3', 'x'), 52, 0},
                        Case{unended('4', '7'), 52, kNoThreshold},
                        Case{unended('3', '7'), 0, kThresholdUnread},
                        Case{"S" + unended('3', '7').substr(1), 52, kThresholdUnread}}) {
    line_->answer = StatusScanner({19200, 7, 2, Parity::kEven}, c.reply);
    EXPECT_EQ(ScnGetSelfScoreScannerThreshold(cfg_, comm_, c.held), c.want) << c.reply;
  }
}

}  // namespace
}  // namespace qmk::discovery
