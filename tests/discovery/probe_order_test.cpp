// probe_order_test.cpp: the settings the quick check and the search try, in order, with their
// skips, pinned on the in-memory port that records every setting applied.
#include <gtest/gtest.h>

#include "discovery/probe_settings.h"
#include "discovery/probes.h"
#include "discovery/search.h"
#include "memory_scanner.h"
#include "support/scoped_env.h"

namespace qmk::discovery {
namespace {

using namespace qmk::testing;
using platform::serial::MemoryPortOpener;
constexpr Parity N = Parity::kNone, O = Parity::kOdd, E = Parity::kEven;

TEST(SkippedSettings, EveryCombination) {
  struct Case { int data, stop; Parity parity; bool skipped; };
  for (const Case c : {Case{7, 1, E, true}, {7, 1, O, true}, {7, 1, N, true},
                       {7, 2, E, false}, {7, 2, O, false}, {7, 2, N, false},
                       {8, 2, E, true}, {8, 2, O, true}, {8, 2, N, false},
                       {8, 1, E, false}, {8, 1, O, false}, {8, 1, N, true}})
    EXPECT_EQ(IsSkippedSetting({9600, c.data, c.stop, c.parity}), c.skipped)
        << c.data << c.stop << static_cast<char>(c.parity);
}

TEST(QuickCheckOrder, BaudOutermostThenDataStopParity) {
  const std::vector<LineSettings> want = {
      {38400, 8, 2, N}, {38400, 8, 1, E}, {38400, 8, 1, O},
      {38400, 7, 2, E}, {38400, 7, 2, O}, {38400, 7, 2, N},
      {19200, 8, 2, N}, {19200, 8, 1, E}, {19200, 8, 1, O},
      {19200, 7, 2, E}, {19200, 7, 2, O}, {19200, 7, 2, N}};
  EXPECT_EQ(QuickCheckOrder(), want);
}

TEST(SearchOrder, LastBaudFirstThenSevenBitsFirstAndOddFirst) {
  const std::vector<LineSettings> order = SearchOrder({1200, 9600});
  const std::vector<LineSettings> want = {
      {9600, 7, 2, O}, {9600, 7, 2, E}, {9600, 7, 2, N},
      {9600, 8, 2, N}, {9600, 8, 1, O}, {9600, 8, 1, E},
      {1200, 7, 2, O}, {1200, 7, 2, E}, {1200, 7, 2, N},
      {1200, 8, 2, N}, {1200, 8, 1, O}, {1200, 8, 1, E}};
  EXPECT_EQ(order, want);
  EXPECT_EQ(SearchOrder(BaudList(true)).front().baud, 115200u);
  EXPECT_EQ(SearchOrder(BaudList(false)).front().baud, 38400u);
  EXPECT_EQ(SearchOrder(BaudList(true)).size(), 7u * 6u);
  EXPECT_TRUE(SearchOrder({}).empty());
}

TEST(Waits, FloorsAndIntegerDivision) {
  struct Case { uint32_t baud; QueryWaits probe, bare; };
  for (const Case c : {Case{115200, {30, 30, 50}, {7, 0, 50}},  // 840000 / 115200 is 7
                       Case{38400, {30, 30, 51}, {21, 1, 51}},
                       Case{19200, {43, 30, 52}, {43, 3, 52}},
                       Case{9600, {87, 30, 54}, {87, 7, 54}},
                       Case{1200, {700, 58, 85}, {700, 58, 85}}}) {
    const QueryWaits p = ProbeWaits(c.baud), b = BareWaits(c.baud);
    EXPECT_EQ(std::tie(p.settle_ms, p.between_ms, p.read_ms),
              std::tie(c.probe.settle_ms, c.probe.between_ms, c.probe.read_ms)) << c.baud;
    EXPECT_EQ(std::tie(b.settle_ms, b.between_ms, b.read_ms),
              std::tie(c.bare.settle_ms, c.bare.between_ms, c.bare.read_ms)) << c.baud;
  }
}

class QuickCheck : public OnMemoryLine {
 protected:
  QuickCheck() : OnMemoryLine("COM3") {}
};

TEST_F(QuickCheck, SilentPortTriesEverySettingAndCloses) {
  const auto check = ScnCheckForNonPadLot("COM3");
  EXPECT_FALSE(check.answered);
  EXPECT_EQ(line_->applied, QuickCheckOrder());
  EXPECT_EQ(line_->closes, 1);
  EXPECT_EQ(line_->purges, 12);
}

TEST_F(QuickCheck, StopsAtTheSettingThatAnswers) {
  for (const LineSettings& at : QuickCheckOrder()) {
    line_->applied.clear();
    line_->answer = StatusScanner(at, StatusLine52());
    const auto check = ScnCheckForNonPadLot("COM3");
    ASSERT_TRUE(check.answered) << platform::serial::Describe(at);
    EXPECT_EQ(check.setting, at);
    EXPECT_EQ(line_->applied.back(), at);
    EXPECT_FALSE(line_->open);
  }
}

TEST_F(QuickCheck, OneQueryOnTheWire) {
  line_->answer = StatusScanner({38400, 8, 2, N}, StatusLine52());
  ASSERT_TRUE(ScnCheckForNonPadLot("COM3").answered);
  EXPECT_EQ(line_->writes, (std::vector<MemoryLine::Bytes>{{'s'}, {'0'}}));
  // Settle 840000 / 38400 = 21, raised to 30; between the bytes 1, raised to 30.
  EXPECT_EQ(clock_.sleeps, (std::vector<int64_t>{30, 30}));
}

TEST_F(QuickCheck, RejectedRepliesAreNoAnswer) {
  for (const std::string& reply :
       {StatusLine52().substr(1), "x" + StatusLine52(), "S" + StatusLine52().substr(1),
        std::string(118, 's') + "\r\n"}) {
    line_->answer = StatusScanner({38400, 8, 2, N}, reply);
    EXPECT_FALSE(ScnCheckForNonPadLot("COM3").answered) << reply.size();
  }
}

TEST_F(QuickCheck, PortThatDoesNotOpenTriesNothing) {
  EXPECT_FALSE(ScnCheckForNonPadLot("COM4").answered);
  line_->open = true;  // held elsewhere
  EXPECT_FALSE(ScnCheckForNonPadLot("COM3").answered);
  EXPECT_TRUE(line_->applied.empty());
}

// The one path that keeps its port: a refused setting ends the check with the port still open.
TEST_F(QuickCheck, RefusedSettingLeavesThePortOpen) {
  line_->refuses = [](const LineSettings& s) { return s.data_bits == 7; };
  const int left_before = platform::serial::PortsLeftOpen();
  const auto check = ScnCheckForNonPadLot("COM3");
  EXPECT_FALSE(check.answered);
  EXPECT_TRUE(check.left_open);
  EXPECT_EQ(line_->applied.size(), 4u) << "stopped at the first 7-bit setting";
  EXPECT_EQ(line_->closes, 0);
  EXPECT_TRUE(line_->open);
  EXPECT_EQ(platform::serial::PortsLeftOpen(), left_before + 1);
  EXPECT_FALSE(ScnCheckForNonPadLot("COM3").answered) << "still busy";
}

TEST_F(QuickCheck, ExportAnswersOneOrZero) {
  line_->answer = StatusScanner({19200, 7, 2, N}, StatusLine52());
  EXPECT_EQ(::ScnCheckForNonPadLot("COM3"), 1);
  EXPECT_EQ(::ScnCheckForNonPadLot("COM9"), 0);
  EXPECT_EQ(::ScnCheckForNonPadLot(nullptr), 0);
}

}  // namespace
}  // namespace qmk::discovery
