// The host's codes for each failure of session open, through ScnInitializeScanner.
#include <gmock/gmock.h>

#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;

struct CodeCase {
  int result;
  unsigned series;
  int code;
};

TEST_F(SessionTest, OpenResultsMapRowByRow) {
  const CodeCase cases[] = {
      {1, 1, 1149},   {2, 1, 1150},   {7, 1, 1150},   {8, 1, 1151},   {9, 1, 1152},
      {10, 1, 1152},  {11, 1, 1153},  {29, 1, 1153},  {32, 1, 1153},  {12, 1, 1154},
      {13, 1, 1155},  {14, 1, 1156},  {15, 1, 1157},  {26, 1, 1157},  {27, 1, 1158},
      {28, 1, 1159},  {34, 1, 1160},  {38, 1, 1187},  {-2, 1, 1080},
      // every other value falls back by series
      {33, 1, 1095},  {33, 12, 1186}, {35, 5, 1095},  {37, 12, 1186}, {39, 1, 1095},
      {-1, 1, 1095},  {-2, 12, 1080}, {1, 12, 1149},  {100, 0, 1095},
  };
  for (const CodeCase& c : cases) {
    QlkSimReset();
    QlkSimForceResult("QlkOpen", c.result, 1);
    HostRecords host(Word({2, 5, c.series}));
    int error = 0;
    EXPECT_EQ(host.Open(&error), nullptr) << c.result;
    EXPECT_EQ(error, c.code) << "result " << c.result << " series " << c.series;
    EXPECT_THAT(Journal(), ElementsAre("QlkOpen(&, &)", "QlkClose(0)")) << c.result;
  }
}

TEST_F(SessionTest, CommSetFailuresMapAndCloseOnEveryCommFamily) {
  const std::pair<int, int> codes[] = {{-7, 2081}, {-8, 2082}, {-10, 2084}, {-11, 2085},
                                       {-9, 1095}, {-1, 1095}, {3, 1095}};
  for (FeatureBits feat : {FeatureBits{2, 5, 1}, {5, 11, 1}, {4, 3, 1}, {4, 4, 1}}) {
    for (auto [result, code] : codes) {
      QlkSimReset();
      QlkSimForceResult("QlkCommSet", result, 1);
      HostRecords host(Word(feat));
      int error = 0;
      EXPECT_EQ(host.Open(&error), nullptr);
      EXPECT_EQ(error, code) << "family " << feat.family << " result " << result;
      EXPECT_THAT(Journal(), ElementsAre("QlkOpen(&, &)", "QlkCommSet(0, 1, 7, 1, 69, 9600, 10)",
                                         "QlkClose(0)"));
      EXPECT_FALSE(QlkSimSessionOpen());
    }
  }
}

TEST_F(SessionTest, PresenceFailuresReturnNullSomeWithCodeZero) {
  for (auto [result, code] : {std::pair{-9, 2083}, {-3, 1095}, {-5, 0}, {7, 0}}) {
    QlkSimReset();
    QlkSimForceResult("QlkIsScanner", result, 1);
    HostRecords host(Word({7, 1, 1}));
    int error = -1;
    EXPECT_EQ(host.Open(&error), nullptr);
    EXPECT_EQ(error, code) << result;
    EXPECT_THAT(Journal(), ElementsAre("QlkOpen(&, &)", "QlkIsScanner(0)", "QlkClose(0)"));
    EXPECT_FALSE(QlkSimSessionOpen());
  }
}

TEST_F(SessionTest, BarCodeSetUpFailuresAreWarningsOnAWorkingSession) {
  for (auto [result, code] : {std::pair{-4, 1083}, {-3, 1098}, {-1, 0}, {0, 0}}) {
    QlkSimReset();
    QlkSimForceResult("QlkBarSet", result, 1);
    HostRecords host(Word({2, 5, 1, false, true}));
    int error = -1;
    qlkdata_rec* rec = host.Open(&error);
    ASSERT_NE(rec, nullptr) << result;
    EXPECT_EQ(error, code) << result;
    ScnScanTerm(rec);
  }
}

TEST_F(SessionTest, NullErrorPointerIsAcceptedOnEveryPath) {
  HostRecords host(Word({2, 5, 1, false, true}));
  QlkSimForceResult("QlkOpen", 8, 1);
  EXPECT_EQ(host.Open(nullptr), nullptr);
  QlkSimForceResult("QlkCommSet", -7, 1);
  EXPECT_EQ(host.Open(nullptr), nullptr);
  QlkSimForceResult("QlkIsScanner", -9, 1);
  EXPECT_EQ(host.Open(nullptr), nullptr);
  QlkSimForceResult("QlkBarSet", -4, 1);
  qlkdata_rec* rec = host.Open(nullptr);
  ASSERT_NE(rec, nullptr);
  ScnScanTerm(rec);
  EXPECT_EQ(ScnInitializeScanner(nullptr, nullptr, nullptr, nullptr), nullptr);
}

TEST_F(SessionTest, NullRecordsAreRefusedBeforeTheTransport) {
  HostRecords host(Word({2, 5, 1}));
  int error = 0;
  EXPECT_EQ(ScnInitializeScanner(nullptr, nullptr, &host.comm, &error), nullptr);
  EXPECT_EQ(error, QMK_ERROR_NULL_ARGUMENT);
  error = 0;
  EXPECT_EQ(ScnInitializeScanner(nullptr, &host.cfg, nullptr, &error), nullptr);
  EXPECT_EQ(error, QMK_ERROR_NULL_ARGUMENT);
  EXPECT_TRUE(Journal().empty());
}

TEST_F(SessionTest, SecondOpenWhileASessionStandsIsRefusedAndTheFirstSurvives) {
  HostRecords host(Word({2, 5, 1}));
  qlkdata_rec* first = host.Open(nullptr);
  ASSERT_NE(first, nullptr);
  int error = 0;
  EXPECT_EQ(host.Open(&error), nullptr);
  EXPECT_EQ(error, 1149);
  EXPECT_TRUE(QlkSimSessionOpen());
  ScnScanTerm(first);
  EXPECT_FALSE(QlkSimSessionOpen());
}

}  // namespace
}  // namespace qmk::testing
