// The simulated scanner's own rules that the session tests stand on: forced results, the
// journal's form, and what closing session 0 releases. Sheets, bar codes and lamps are tested
// through the library's reads.
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
