// The exact transport calls of session open, per scanner family.
#include <gmock/gmock.h>

#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAreArray;
using Calls = std::vector<std::string>;

Calls operator+(Calls a, const Calls& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

const Calls kOpen = {"QlkOpen(&, &)"};
const Calls kComm = {"QlkCommSet(0, 1, 7, 1, 69, 9600, 10)"};
const Calls kComm2Modes = {"QlkModeSet(0, 13, 11, 0, 20)", "QlkControl(0, 22)",
                           "QlkSetRead(0, 5, 3, 10, 8, 0)"};
Calls Tunes(int p2) {
  return {"QlkSetTuneParams(0, 52, 0)", "QlkSetTuneParams(0, 8, 81)", "QlkSetTuneParams(0, 7, 77)",
          "QlkSetTuneParams(0, 5, 55)", "QlkSetTuneParams(0, 1, 11)",
          "QlkSetTuneParams(0, 2, " + std::to_string(p2) + ")", "QlkSetTuneParams(0, 3, 33)"};
}
const Calls kPresentAndReady = {"QlkIsScanner(0)", "QlkControl(0, 22)"};

struct OpenCase {
  const char* name;
  FeatureBits feat;
  Calls calls;
};

class OpenSequence : public SessionTest, public ::testing::WithParamInterface<OpenCase> {};

TEST_P(OpenSequence, JournalOfOpen) {
  HostRecords host(Word(GetParam().feat));
  int error = -1;
  qlkdata_rec* rec = host.Open(&error);
  ASSERT_NE(rec, nullptr);
  EXPECT_EQ(error, 0);
  EXPECT_THAT(Journal(), ElementsAreArray(GetParam().calls));
  ScnScanTerm(rec);
}

const OpenCase kOpenCases[] = {
    {"Family2Image", {2, 5, 1, true},
     kOpen + kComm + kComm2Modes + Calls{"QlkSetSpectra(0, 16)"} + Tunes(200) + kPresentAndReady},
    {"Family2Plain", {2, 5, 1, false},
     kOpen + kComm + kComm2Modes + Calls{"QlkSetTuneParams(0, 35, 16)"} + kPresentAndReady},
    {"Family3", {3, 9, 5, true},
     kOpen + Calls{"QlkModeSet(0, 19, 28, 0, 0)", "QlkThickSet(0, 0, 15)", "QlkSetSpectra(0, 16)"} +
         Tunes(120) + kPresentAndReady},
    {"Family4Model3", {4, 3, 1}, kOpen + kComm + kComm2Modes + kPresentAndReady},
    {"Family4Model4", {4, 4, 1}, kOpen + kComm + kComm2Modes + kPresentAndReady},
    {"Family4Model1", {4, 1, 2},
     kOpen + Calls{"QlkModeSet(0, 28, 0, 0, 0)", "QlkThickSet(0, 0, 15)", "QlkControl(0, 22)",
                   "QlkSetRead(0, 5, 3, 10, 8, 0)"} + kPresentAndReady},
    {"Family5", {5, 2, 1},
     kOpen + kComm + kComm2Modes + Calls{"QlkSetTuneParams(0, 35, 16)"} + kPresentAndReady},
    {"PadLot", {5, 11, 1},
     kOpen + kComm + kComm2Modes + Calls{"QlkSetTuneParams(0, 35, 16)"} + kPresentAndReady},
    {"Family12", {12, 12, 12, true},
     kOpen + Calls{"QlkSetSpectra(0, 16)"} + Tunes(120) +
         Calls{"QlkSetTuneParams(0, 44, 1)", "QlkControl(0, 22)"} + kPresentAndReady},
    {"Family7", {7, 1, 1}, kOpen + kPresentAndReady},
    // Model codes the table doesn't list still take their family's branch.
    {"Family2UnlistedModel", {2, 9, 1}, kOpen + kComm + kComm2Modes +
                                            Calls{"QlkSetTuneParams(0, 35, 16)"} + kPresentAndReady},
    {"Family4UnlistedModel", {4, 7, 1},
     kOpen + Calls{"QlkModeSet(0, 28, 0, 0, 0)", "QlkThickSet(0, 0, 15)", "QlkControl(0, 22)",
                   "QlkSetRead(0, 5, 3, 10, 8, 0)"} + kPresentAndReady},
    {"BarCodeReader", {9, 1, 1, false, true},
     kOpen + Calls{"QlkIsScanner(0)", "QlkSetBarCodeDelay(0, &)", "QlkBarSet(0, 31, 4)",
                   "QlkControl(0, 22)"}},
};

INSTANTIATE_TEST_SUITE_P(Families, OpenSequence, ::testing::ValuesIn(kOpenCases),
                         [](const auto& param_info) { return std::string(param_info.param.name); });

TEST_F(SessionTest, FamilyZeroSkipsSetUpButStillTestsPresence) {
  HostRecords host(Word({0, 0, 0}));
  int error = -1;
  EXPECT_EQ(host.Open(&error), nullptr);
  EXPECT_EQ(error, 2083);  // the simulator has no scanner to answer for family 0
  EXPECT_THAT(Journal(), ElementsAreArray({"QlkOpen(&, &)", "QlkIsScanner(0)", "QlkClose(0)"}));
  EXPECT_FALSE(QlkSimSessionOpen());
}

TEST_F(SessionTest, ScaledTuneParameterTruncatesTowardZeroAndNeverOverflows) {
  struct Case { int32_t stored, sent; };
  for (Case c : {Case{16, 26}, {119, 198}, {-16, -26}, {0, 0}, {2147483647, 2147483647},
                 {-2147483647 - 1, -2147483647 - 1}}) {
    QlkSimReset();
    HostRecords host(Word({2, 5, 1, true}));
    host.cfg.tune_p2 = c.stored;
    qlkdata_rec* rec = host.Open(nullptr);
    int32_t value = 0;
    ASSERT_TRUE(QlkSimTuneParam(2, &value));
    EXPECT_EQ(value, c.sent) << c.stored;
    ScnScanTerm(rec);
  }
}

TEST_F(SessionTest, ZeroesTheBarCodeTextThatTheTransportLeft) {
  QlkSimSetOpenBarCodeText("STALE-1234");
  HostRecords host(Word({2, 5, 1}));
  qlkdata_rec* rec = host.Open(nullptr);
  ASSERT_NE(rec, nullptr);
  EXPECT_EQ(std::string(rec->bar_code_text, QMK_BAR_CODE_BYTES), std::string(QMK_BAR_CODE_BYTES, '\0'));
  ScnScanTerm(rec);
}

}  // namespace
}  // namespace qmk::testing
