// The simulated scanner as a host of the transport sees it.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "qmk/QmkLink.h"
#include "qmk/QmkLinkSim.h"

namespace {

class Simulator : public ::testing::Test {
 protected:
  void SetUp() override { QlkSimReset(); }
  void TearDown() override { QlkSimReset(); }
  qlkdata_rec* Open(uint32_t word) {
    feat_mask m;
    std::memcpy(&m, &word, sizeof word);
    qlkdata_rec* rec = nullptr;
    EXPECT_EQ(QlkOpen(&m, &rec), 0);
    return rec;
  }
  std::string Entry(int i) {
    char text[128];
    return QlkSimJournalEntry(i, text, sizeof text) < 0 ? "" : text;
  }
};

TEST_F(Simulator, ForcedResultsCountDownAndSkipTheOperation) {
  EXPECT_EQ(QlkSimForceResult("QlkNoSuchCall", 1, 0), -1);
  ASSERT_EQ(QlkSimForceResult("QlkModeSet", -5, 2), 0);
  EXPECT_EQ(QlkModeSet(nullptr, 1, 2, 3, 4), -5);
  EXPECT_EQ(QlkModeSet(nullptr, 1, 2, 3, 4), -5);
  int modes[4];
  EXPECT_EQ(QlkSimModes(modes), 0);  // a forced failure changed nothing
  EXPECT_EQ(QlkModeSet(nullptr, 1, 2, 3, 4), 0);
  EXPECT_EQ(QlkSimModes(modes), 1);
  EXPECT_EQ(modes[3], 4);
  QlkSimForceResult("QlkIsScanner", -9, 0);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(QlkIsScanner(nullptr), -9);
}

TEST_F(Simulator, JournalShowsSessionsAndAddressesByKind) {
  qlkdata_rec* rec = Open(2 | 5 << 4);
  QlkSetTuneParams(rec, 42, 1);
  QlkCommSet(nullptr, 3, 8, 2, static_cast<char>('N'), 19200, 10);
  QlkClose(rec);
  EXPECT_EQ(Entry(0), "QlkOpen(&, &)");
  EXPECT_EQ(Entry(1), "QlkSetTuneParams(rec, 42, 1)");
  EXPECT_EQ(Entry(2), "QlkCommSet(0, 3, 8, 2, 78, 19200, 10)");
  EXPECT_EQ(Entry(3), "QlkClose(rec)");
  EXPECT_EQ(Entry(4), "");
  char small[8];
  EXPECT_EQ(QlkSimJournalEntry(0, small, sizeof small), 13);  // the whole length, text cut
  EXPECT_STREQ(small, "QlkOpen");
}

TEST_F(Simulator, EmptyHopperPicksNothingAndSaysSo) {
  qlkdata_rec* rec = Open(2 | 5 << 4);
  EXPECT_EQ(QlkPick(nullptr, 0), 0);
  QlkWaitEndOp(nullptr);
  QlkStatus(nullptr);
  EXPECT_EQ(rec->status3 & 1u, 1u);
  EXPECT_EQ(rec->sheet_read, 0);
  QlkClose(rec);
}

TEST_F(Simulator, PlainSheetDeliversItsCellsAndGoesToTheStackerChosen) {
  std::vector<unsigned char> front(2 * QLK_SIM_LINE_BYTES, '0');
  front[QLK_SIM_LINE_BYTES + 3] = '0' + 12;
  qlk_sim_sheet sheet{};
  sheet.lines_front = 2;
  sheet.thickness = 6;
  sheet.cells_front = front.data();
  ASSERT_EQ(QlkSimAddSheet(&sheet), 0);
  sheet.lines_front = QLK_SIM_MAX_LINES + 1;
  EXPECT_EQ(QlkSimAddSheet(&sheet), -1);

  qlkdata_rec* rec = Open(2 | 5 << 4);
  QlkPick(nullptr, 0);
  QlkWaitEndOp(nullptr);
  QlkStatus(nullptr);
  EXPECT_EQ(rec->lines_front, 2);
  EXPECT_EQ(rec->thickness, 6);
  const int length = QlkGetOMRLength(0);
  EXPECT_EQ(length, 48);
  EXPECT_EQ(QlkImgVal(rec->omr_front[length + 3], rec->feat), 12);
  EXPECT_EQ(QlkImgVal('0', rec->feat), 0);
  QlkControl(nullptr, 25);
  EXPECT_EQ(QlkSimStackerCount(1), 1);
  EXPECT_EQ(QlkSimStackerCount(0), 0);
  QlkClose(rec);
}

TEST_F(Simulator, ImageModelBuildsCellsOnlyOnRequest) {
  std::vector<unsigned char> back(3 * QLK_SIM_LINE_BYTES, 0x10);
  back[2 * QLK_SIM_LINE_BYTES + 63] = 0xF0;
  qlk_sim_sheet sheet{};
  sheet.lines_back = 3;
  sheet.cells_back = back.data();
  QlkSimAddSheet(&sheet);
  qlkdata_rec* rec = Open(2 | 5 << 4 | 1u << 22);
  QlkPick(nullptr, 0);
  QlkStatus(nullptr);
  EXPECT_EQ(rec->omr_back[0], 0);
  QlkBuildBubbles(nullptr, 1, 129, 1, 1, QlkGetMaxCell(1), 3 | 0x80, 0);
  EXPECT_EQ(QlkImgVal(rec->omr_back[2 * 64 + 63], rec->feat), 15);
  EXPECT_EQ(QlkImgVal(rec->omr_back[0], rec->feat), 1);
  QlkClose(rec);
}

TEST_F(Simulator, BarCodeReaderNeedsTheBitAndAPort) {
  qlkdata_rec* rec = Open(2 | 5 << 4);
  EXPECT_EQ(QlkBarSet(nullptr, 31, 4), -3);
  QlkClose(rec);
  rec = Open(2 | 5 << 4 | 1u << 11);
  EXPECT_EQ(QlkBarSet(nullptr, 31, 0), -4);
  EXPECT_EQ(QlkBarSet(nullptr, 31, 4), 0);
  EXPECT_EQ(QlkSimBarCodePort(), 4);
  QlkClose(rec);
}

TEST_F(Simulator, TwainLampsWarmOnTheClock) {
  QlkSimSetLampWarmUp(90);
  qlkdata_rec* rec = Open(12 | 12 << 4 | 12 << 16);
  EXPECT_EQ(QlkRemainingLampWarmUpTime(nullptr), 90);
  EXPECT_EQ(QlkPick(nullptr, 0), QLK_PICK_LAMPS_WARMING);
  QlkSimAdvanceClock(89500);
  EXPECT_EQ(QlkRemainingLampWarmUpTime(nullptr), 1);
  QlkSimAdvanceClock(500);
  EXPECT_EQ(QlkRemainingLampWarmUpTime(nullptr), 0);
  EXPECT_EQ(QlkPick(nullptr, 0), 0);
  QlkClose(rec);
}

TEST_F(Simulator, CloseOfSessionZeroReleasesTheOpenSessionButNotAfterAFailedOpen) {
  qlkdata_rec* first = Open(7);
  feat_mask m{};
  qlkdata_rec* second = nullptr;
  EXPECT_EQ(QlkOpen(&m, &second), 1);
  QlkClose(nullptr);
  EXPECT_EQ(QlkSimSessionOpen(), 1);
  QlkClose(first);
  EXPECT_EQ(QlkSimSessionOpen(), 0);
  Open(7);
  QlkClose(nullptr);
  EXPECT_EQ(QlkSimSessionOpen(), 0);
}

}  // namespace
