// ScnSetScannerMode and ScnScanTerm: what reaches the transport.
#include <gmock/gmock.h>

#include "scanner/model_table.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ModeTest : public SessionTest {
 protected:
  qlkdata_rec* OpenFresh(FeatureBits feat) {
    host_ = std::make_unique<HostRecords>(Word(feat));
    qlkdata_rec* rec = host_->Open(nullptr);
    mark_ = QlkSimJournalSize();
    return rec;
  }
  std::vector<std::string> Since() { return Journal(mark_); }

  std::unique_ptr<HostRecords> host_;
  int mark_ = 0;
};

TEST_F(ModeTest, PlainMarkScannerIgnoresTheHostsOtherArgumentsAndReturnsOne) {
  qlkdata_rec* rec = OpenFresh({2, 5, 1});
  EXPECT_EQ(ScnSetScannerMode(rec, 1, 1, 7, 200, 9), 1);
  EXPECT_THAT(Since(), ElementsAre("QlkSetTuneParams(0, 52, 0)", "QlkSetTuneParams(0, 35, 32)"));
  ScnScanTerm(rec);
}

TEST_F(ModeTest, SpectrumValues) {
  for (auto [spectrum, value] : {std::pair{0, 16}, {1, 32}, {2, -1}, {-1, -1}, {99, -1}}) {
    qlkdata_rec* rec = OpenFresh({2, 5, 1});
    ScnSetScannerMode(rec, spectrum, 0, 0, 0, 0);
    EXPECT_THAT(Since().back(), "QlkSetTuneParams(0, 35, " + std::to_string(value) + ")");
    ScnScanTerm(rec);
  }
}

TEST_F(ModeTest, Family3SetsModesByFlagAndSkipsLevel30OnSeries5) {
  qlkdata_rec* rec = OpenFresh({3, 9, 5, true});
  EXPECT_EQ(ScnSetScannerMode(rec, 2, 0, 7, 40, 3), 3);  // the simulator's detection echoes 3
  EXPECT_THAT(Since(), ElementsAre("AdaptiveDetect(3, &, &, 0, 0)", "QlkModeSet(0, 19, 28, 0, 20)",
                                   "QlkSetSpectra(0, -1)", "QlkSetTuneParams(0, 52, 7)",
                                   "QlkSetTuneParams(rec, 56, 40)"));
  mark_ = QlkSimJournalSize();
  ScnSetScannerMode(rec, 0, 5, 1, 41, 0);
  EXPECT_EQ(Since()[1], "QlkModeSet(0, 13, 28, 0, 20)");
  ScnScanTerm(rec);
}

TEST_F(ModeTest, ImageScannerOfAnotherSeriesSetsLevel30) {
  qlkdata_rec* rec = OpenFresh({2, 5, 1, true});
  ScnSetScannerMode(rec, 1, 1, 3, 12, 0);
  EXPECT_THAT(Since(), ElementsAre("AdaptiveDetect(0, &, &, 0, 0)", "QlkSetSpectra(0, 32)",
                                   "QlkSetTuneParams(0, 52, 3)", "QlkSetTuneParams(rec, 30, 12)",
                                   "QlkSetTuneParams(rec, 56, 12)"));
  int32_t mode = 0;
  ASSERT_TRUE(QlkSimTuneParam(52, &mode));
  EXPECT_EQ(mode, 3);  // the transport holds the mode until the next change
  ScnScanTerm(rec);
}

TEST_F(ModeTest, NullRecordTouchesNothing) {
  EXPECT_EQ(ScnSetScannerMode(nullptr, 0, 0, 0, 0, 0), -1);
  ScnScanTerm(nullptr);
  EXPECT_THAT(Journal(), IsEmpty());
}

TEST_F(ModeTest, CloseFlushesOnSeries5Only) {
  qlkdata_rec* rec = OpenFresh({3, 9, 5, true});
  ScnScanTerm(rec);
  EXPECT_THAT(Since(), ElementsAre("QlkControl(0, 23)", "QlkFlush(0, 24)", "QlkClose(rec)"));
  rec = OpenFresh({12, 12, 12, true});
  ScnScanTerm(rec);
  EXPECT_THAT(Since(), ElementsAre("QlkControl(0, 23)", "QlkClose(rec)"));
  EXPECT_FALSE(QlkSimSessionOpen());
}

TEST_F(ModeTest, EveryModelOfTheTableOpensAndCloses) {
  for (const scanner::ModelRow& model : scanner::Models()) {
    QlkSimReset();
    HostRecords host(scanner::FeatureWordFor(model, true));
    host.comm.port = static_cast<int16_t>(model.forced_port ? model.forced_port : 1);
    int error = -1;
    qlkdata_rec* rec = host.Open(&error);
    if (model.family == 0) {
      EXPECT_EQ(rec, nullptr);
      continue;
    }
    ASSERT_NE(rec, nullptr) << model.text_id;
    EXPECT_EQ(error, 0) << model.text_id;
    EXPECT_EQ(rec->feat, scanner::FeatureWordFor(model, true));
    ScnScanTerm(rec);
    EXPECT_FALSE(QlkSimSessionOpen()) << model.text_id;
  }
}

}  // namespace
}  // namespace qmk::testing
