// padlot_test.cpp: the PadLot probe's hello and query, and the configuration it writes.
#include <gtest/gtest.h>

#include <cstring>

#include "discovery/probes.h"
#include "memory_scanner.h"
#include "scanner/records.h"
#include "support/scoped_env.h"
#include "support/sim_fixture.h"

namespace qmk::discovery {
namespace {

using namespace qmk::testing;
using platform::serial::MemoryPortOpener;

const MemoryLine::Bytes kHello(kPadLotHello, kPadLotHello + 5);
const MemoryLine::Bytes kQuery(kPadLotQuery, kPadLotQuery + 6);

class PadLotProbe : public OnMemoryLine {
 protected:
  PadLotProbe() : OnMemoryLine("COM2") {}
};

TEST_F(PadLotProbe, CommandBytes) {
  EXPECT_EQ(kHello, (MemoryLine::Bytes{0x12, 0x1B, 0x53, 0x12, 0x45}));
  EXPECT_EQ(kQuery, (MemoryLine::Bytes{0x12, 0x49, 0x30, 0x30, 0x12, 0x45}));
}

TEST_F(PadLotProbe, HelloThenQueryAtItsSetting) {
  line_->answer = PadLotScanner(1);
  EXPECT_TRUE(ScnIsPadLotScannerPresentOnPort("COM2"));
  EXPECT_EQ(line_->applied, (std::vector<LineSettings>{{9600, 7, 1, Parity::kEven}}));
  EXPECT_EQ(line_->writes, (std::vector<MemoryLine::Bytes>{kHello, kQuery}));
  EXPECT_EQ(clock_.sleeps.front(), 87);
  EXPECT_FALSE(line_->open);
}

TEST_F(PadLotProbe, HelloTriesAndQueryAnswers) {
  struct Case { int hello_try; std::string query_answer; bool present; size_t writes; };
  for (const Case& c : {Case{4, "G\r", true, 5}, Case{5, "G\r", false, 4},
                        Case{1, "X\r", false, 2}, Case{1, "G\n", false, 2},
                        Case{1, "G", false, 2}}) {
    line_->writes.clear();
    line_->answer = PadLotScanner(c.hello_try, c.query_answer);
    EXPECT_EQ(ScnIsPadLotScannerPresentOnPort("COM2"), c.present) << c.hello_try << c.query_answer;
    EXPECT_EQ(line_->writes.size(), c.writes) << c.hello_try << c.query_answer;
    EXPECT_FALSE(line_->open);
  }
}

TEST_F(PadLotProbe, HelloAnswerMustBeThreeBytesWithGAndCr) {
  for (const std::string& answer : {std::string("G\r"), std::string("xGx"), std::string("x\rG")}) {
    line_->writes.clear();
    line_->answer = [&](const LineSettings&, const MemoryLine::Bytes& w) {
      return w.size() == 5 ? Bytes(answer) : Bytes("G\r");
    };
    EXPECT_FALSE(ScnIsPadLotScannerPresentOnPort("COM2")) << answer;
    EXPECT_EQ(line_->writes.size(), 4u) << "all four hellos tried";
  }
}

TEST_F(PadLotProbe, ShortWriteEndsAtOnce) {
  line_->answer = PadLotScanner(1);
  line_->write_limit = 3;
  EXPECT_FALSE(ScnIsPadLotScannerPresentOnPort("COM2"));
  EXPECT_EQ(line_->writes.size(), 1u);
  EXPECT_FALSE(line_->open);
}

TEST_F(PadLotProbe, NoPortOrRefusedSettingIsNo) {
  EXPECT_FALSE(ScnIsPadLotScannerPresentOnPort("COM8"));
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort("COM8"), 0);
  EXPECT_EQ(::ScnIsPadLotScannerPresentOnPort(nullptr), 0);
  line_->refuses = [](const LineSettings&) { return true; };
  line_->answer = PadLotScanner(1);
  EXPECT_FALSE(ScnIsPadLotScannerPresentOnPort("COM2"));
  EXPECT_TRUE(line_->writes.empty());
  EXPECT_EQ(line_->closes, 1) << "a port that opened is closed again";
}

uint32_t Word(const sct_config& cfg) {
  uint32_t w;
  std::memcpy(&w, &cfg.feat_mask, sizeof w);
  return w;
}

TEST(PadLotConfig, FixedValuesAndKeptBits) {
  struct Case { uint32_t before, after; };
  for (const Case c : {Case{0x00000000u, 0x000141B5u},
                       Case{0xFFFFFFFFu, 0xFF8155B5u},   // keeps 10, 12 and 23 to 31
                       Case{0x00400FFFu, 0x000145B5u}}) { // image, bar code and the rest go
    sct_config cfg{};
    sct_config_ex comm{};
    std::memcpy(&cfg.feat_mask, &c.before, sizeof c.before);
    ::ScnSetCfigWithPadLotInfo(7, &cfg, &comm);
    EXPECT_EQ(Word(cfg), c.after) << std::hex << c.before;
    EXPECT_EQ(qmk::testing::CommText(comm), "9600 E 7 1 port 7 timeout 10 aux 1");
    EXPECT_EQ(cfg.bar_code_port, 1);
    EXPECT_TRUE(scanner::FeaturesOf(cfg.feat_mask).padlot());
  }
  ::ScnSetCfigWithPadLotInfo(1, nullptr, nullptr);  // nothing to write, nothing happens
}

}  // namespace
}  // namespace qmk::discovery
