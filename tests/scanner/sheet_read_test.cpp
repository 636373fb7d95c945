// Reading sheets with ScnScanForOMR: the transport calls of a good sheet, a faulted and repeated
// sheet and a cancelled pick per scanner kind, and what reaches the host's buffers.
#include <gmock/gmock.h>

#include "qmk/QmkGen.h"
#include "qmk/QmkLink.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Calls = std::vector<std::string>;

Calls operator+(Calls a, const Calls& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

const char kGood[] = "sheet\n thickness 5\n front\n x..x\n .x..\n end\nend\n";
const char kThick[] = "sheet\n status1 0x40\n front\n x...\n end\nend\n";

struct Omr {
  int result;
  std::vector<char> front = std::vector<char>(QMK_OMR_BYTES, 'Z');
  std::vector<char> back = std::vector<char>(QMK_OMR_BYTES, 'Z');
  int max_front = -1, max_back = -1, length_front = -1, length_back = -1;
};

Omr ScanOmr(qlkdata_rec* rec, int stop_on_empty = 0, int buffer_size = QMK_OMR_BYTES) {
  Omr o;
  o.result = ScnScanForOMR(nullptr, rec, stop_on_empty, buffer_size, o.front.data(), o.back.data(),
                           &o.max_front, &o.max_back, &o.length_front, &o.length_back);
  return o;
}

class SheetRead : public SessionTest {
 protected:
  void SetUp() override {
    SessionTest::SetUp();
    GenSetMainAppModuleName("Host");
  }
  void TearDown() override {
    GenSetMainAppModuleName(nullptr);
    SessionTest::TearDown();
  }
  // What the operator was asked, leaving out the notices and the parent windows they disable.
  std::vector<std::string> Questions() const {
    std::vector<std::string> out;
    for (const std::string& e : op_.events())
      if (e.rfind("notice", 0) != 0 && e.rfind("disable", 0) != 0 && e.rfind("enable", 0) != 0)
        out.push_back(e);
    return out;
  }
  // Opens the scanner and starts the journal afresh.
  qlkdata_rec* Start(FeatureBits feat) {
    qlkdata_rec* rec = OpenReader(feat);
    QlkSimJournalClear();
    return rec;
  }
};

const Calls kHead = {"QlkSetTuneParams(rec, 42, 1)", "QlkGetTuneParams(0, 52, &, 0, 0)"};
const Calls kPick = {"QlkSetTuneParams(rec, 42, 1)", "QlkPick(0, 0)"};
const Calls kRead = {"QlkWaitEndOp(0)", "QlkStatus(0)"};
const Calls kSizes = {"QlkGetMaxCell(0)", "QlkGetMaxCell(1)", "QlkGetOMRLength(0)", "QlkGetOMRLength(1)"};
const Calls kBubbles = {"QlkGetMaxCell(0)", "QlkBuildBubbles(0, 1, 1, 1, 1, 64, 2, 0)",
                        "QlkGetMaxCell(1)", "QlkBuildBubbles(0, 1, 129, 1, 1, 64, 128, 0)"};
const Calls kReady = {"QlkControl(0, 22)"};
const Calls kPadLotPrepare = {"QlkControl(0, 31)"};
const Calls kTwainReady = {"QlkControl(0, 22)", "QlkRemainingLampWarmUpTime(0)"};
const Calls kAccept = {"QlkControl(0, 24)"};

struct KindCase {
  const char* name;
  FeatureBits feat;
  Calls prepare, bubbles, accept, reject;
};

const KindCase kKinds[] = {
    {"Family2Model5", {2, 5, 1}, kReady, {}, kAccept, {"QlkControl(0, 25)", "QlkControl(0, 23)"}},
    {"PadLot", {5, 11, 1}, kPadLotPrepare, {}, kAccept, {"QlkControl(0, 25)"}},
    {"Family3", {3, 9, 5, true}, kReady, kBubbles, kAccept, {"QlkFlush(0, 25)", "QlkControl(0, 23)"}},
    {"Family12", {12, 12, 12, true}, kTwainReady, kBubbles, {"QlkFlush(0, 24)"}, {"QlkFlush(0, 24)"}},
};

class SheetJournal : public SheetRead, public ::testing::WithParamInterface<KindCase> {};

TEST_P(SheetJournal, GoodSheet) {
  const KindCase& k = GetParam();
  LoadBatch(kGood);
  qlkdata_rec* rec = Start(k.feat);
  const Omr o = ScanOmr(rec);
  EXPECT_EQ(o.result, 0);
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + k.prepare + kPick + kRead + kSizes + k.bubbles + k.accept));
  EXPECT_THAT(Questions(), IsEmpty());
  EXPECT_EQ(QlkSimStackerCount(0), 1);
  ScnScanTerm(rec);
}

TEST_P(SheetJournal, FaultedSheetIsRejectedAndTheNextReadOnOk) {
  const KindCase& k = GetParam();
  LoadBatch(std::string(kThick) + kGood);
  qlkdata_rec* rec = Start(k.feat);
  op_.QueueAnswer(1);
  EXPECT_EQ(ScanOmr(rec).result, 0);
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + k.prepare + kPick + kRead + k.reject + kReady +
                                          k.prepare + kPick + kRead + kSizes + k.bubbles + k.accept));
  EXPECT_THAT(Questions(), ElementsAre("scan errors \"Sheet too thick\""));
  // A TWAIN scanner flushes a rejected sheet out like a good one.
  EXPECT_EQ(QlkSimStackerCount(1), k.feat.family == 12 ? 0 : 1);
  EXPECT_EQ(QlkSimStackerCount(0) + QlkSimStackerCount(1), 2);
  ScnScanTerm(rec);
}

INSTANTIATE_TEST_SUITE_P(Kinds, SheetJournal, ::testing::ValuesIn(kKinds),
                         [](const auto& param_info) { return std::string(param_info.param.name); });

TEST_F(SheetRead, Family2Model5AsksToFeedWhenTheCaptureFailedAndStopsOnCancel) {
  LoadBatch(kGood);
  qlkdata_rec* rec = Start({2, 5, 1});
  rec->status1 = 1u << 15;  // the last status said the capture failed
  QlkSimForceResult("QlkPick", -1, 1);
  op_.QueueAnswer(2);
  EXPECT_EQ(ScanOmr(rec).result, 7);
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kReady + kPick + Calls{"QlkControl(0, 23)"}));
  EXPECT_THAT(op_.events(), ElementsAre("message \"Host\" \"Feed sheet and press OK.\" flags=0x11 help=0"));
}

TEST_F(SheetRead, Family2Model5WithoutTheCaptureBitReadsStatusAfterAFailedPick) {
  LoadBatch(kGood);
  qlkdata_rec* rec = Start({2, 5, 1});
  QlkSimForceResult("QlkPick", -1, 1);
  op_.QueueAnswer(2);
  EXPECT_EQ(ScanOmr(rec).result, 7);  // nothing picked: the status shows no sheet, Cancel stops
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kReady + kPick + kRead + Calls{"QlkControl(0, 25)", "QlkControl(0, 23)"}));
}

TEST_F(SheetRead, PadLotRepeatsTheFeedPromptUntilCancel) {
  LoadBatch(kGood);
  qlkdata_rec* rec = Start({5, 11, 1});
  QlkSimForceResult("QlkPick", -5, 2);
  op_.QueueAnswer(1);
  op_.QueueAnswer(2);
  const int64_t before = clock_.NowMs();
  EXPECT_EQ(ScanOmr(rec).result, 7);
  EXPECT_EQ(clock_.NowMs() - before, 500);  // the PadLot model settles before its pick
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kPadLotPrepare + kPick + kPick +
                                          Calls{"QlkFlush(0, 25)", "QlkControl(0, 23)"}));
  EXPECT_EQ(op_.events().size(), 2u);
}

TEST_F(SheetRead, Family3StopsThroughTheFaultList) {
  LoadBatch(kThick);
  qlkdata_rec* rec = Start({3, 9, 5, true});
  op_.QueueAnswer(2);
  EXPECT_EQ(ScanOmr(rec).result, 7);
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kReady + kPick + kRead +
                                          Calls{"QlkFlush(0, 25)", "QlkControl(0, 23)"}));
}

TEST_F(SheetRead, TwainRepicksWhileLampsWarmAndStopsOnCancel) {
  LoadBatch(kGood);
  QlkSimSetLampWarmUp(30);
  qlkdata_rec* rec = Start({12, 12, 12, true});
  op_.PressCancelAfterPumps(2);
  const QMK_HWND parent = reinterpret_cast<QMK_HWND>(7);
  int ints[4];
  std::vector<char> f(100), b(100);
  EXPECT_EQ(ScnScanForOMR(parent, rec, 0, 100, f.data(), b.data(), &ints[0], &ints[1], &ints[2], &ints[3]), 7);
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kTwainReady + kPick + kPick + kPick +
                                          Calls{"QlkFlush(0, 24)", "QlkControl(0, 23)"}));
  EXPECT_TRUE(op_.Enabled(parent));
  EXPECT_EQ(op_.events().back(), "notice destroy");
}

TEST_F(SheetRead, TwainCountsDownWhileItWaitsAndReadsWhenTheLampsAreReady) {
  LoadBatch(kGood);
  QlkSimSetLampWarmUp(2);
  qlkdata_rec* rec = Start({12, 12, 12, true});
  EXPECT_EQ(ScanOmr(rec).result, 0);
  EXPECT_THAT(op_.events(), ::testing::Contains("notice text \"Lamps are warming up.  0:02 minutes remaining.\""));
  EXPECT_THAT(op_.events(), ::testing::Contains("notice text \"Lamps are warming up.  0:01 minutes remaining.\""));
  EXPECT_EQ(op_.events().back(), "notice destroy");
  EXPECT_EQ(QlkSimStackerCount(0), 1);
}

TEST_F(SheetRead, EmptyHopperStopsQuietlyOnlyWithStopOnEmpty) {
  qlkdata_rec* rec = Start({2, 5, 1});
  EXPECT_EQ(ScanOmr(rec, 1).result, 7);
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kReady + kPick + kRead));  // no dialog, no stop
  EXPECT_THAT(op_.events(), IsEmpty());
  op_.QueueAnswer(2);
  EXPECT_EQ(ScanOmr(rec, 0).result, 7);
  EXPECT_THAT(op_.events(), ElementsAre("scan errors \"Input hopper empty\""));
}

TEST_F(SheetRead, BuffersTakeEachSidesLinesCutAtTheBufferSize) {
  LoadBatch(kGood);
  qlkdata_rec* rec = Start({2, 5, 1});
  const Omr o = ScanOmr(rec, 0, 60);
  ASSERT_EQ(o.result, 0);
  EXPECT_EQ(o.max_front, 48);
  EXPECT_EQ(o.length_front, 48);
  EXPECT_EQ(o.length_back, 48);
  EXPECT_EQ(std::string(o.front.data(), 4), "?00?");
  EXPECT_EQ(std::string(o.front.data() + 48, 4), "0?00");
  EXPECT_EQ(o.front[60], 'Z');  // past the buffer size: untouched
  EXPECT_EQ(std::string(o.back.data(), 60), std::string(60, '\0'));  // no back lines: zeroed
  EXPECT_EQ(o.back[60], 'Z');
}

TEST_F(SheetRead, BlankSheetReturnsClearedBuffersWithoutAcceptStep) {
  LoadBatch("sheet\nend\n");
  qlkdata_rec* rec = Start({2, 5, 1});
  const Omr o = ScanOmr(rec, 0, 10);
  EXPECT_EQ(o.result, 0);
  EXPECT_EQ(o.max_front, 0);
  EXPECT_EQ(o.length_back, 0);
  EXPECT_EQ(std::string(o.front.data(), 10), std::string(10, '\0'));
  EXPECT_THAT(Journal(), ElementsAreArray(kHead + kReady + kPick + kRead));
}

TEST_F(SheetRead, BubbleKindFollowsTheReadMode) {
  struct Case { FeatureBits feat; int mode; int kind; };
  for (Case c : {Case{{3, 9, 5, true}, 5, 3}, {{3, 9, 5, true}, 7, 3}, {{2, 5, 1, true}, 7, 3},
                 {{2, 5, 1, true}, 5, 0}, {{3, 9, 5, true}, 0, 0}}) {
    QlkSimReset();
    LoadBatch(kGood);
    qlkdata_rec* rec = Start(c.feat);
    QlkSetTuneParams(nullptr, 52, c.mode);
    ScanOmr(rec);
    EXPECT_THAT(Journal(), ::testing::Contains("QlkBuildBubbles(0, 1, 1, 1, 1, 64, 2, " +
                                               std::to_string(c.kind) + ")")) << c.mode;
    ScnScanTerm(rec);
  }
}

TEST_F(SheetRead, BarCodeBufferTerminatorAndFailure) {
  LoadBatch("sheet\n barcode ABCDEFG\nend\n");
  qlkdata_rec* rec = Start({2, 5, 1, false, true});
  std::vector<char> text(201, 'Z');
  EXPECT_EQ(ScnReadBarcodeBuffer(rec, 201, text.data()), -1);  // nothing read yet
  EXPECT_EQ(text[0], 'Z');
  ScanOmr(rec);
  EXPECT_EQ(ScnReadBarcodeBuffer(rec, 201, text.data()), 0);
  EXPECT_STREQ(text.data(), "ABCDEFG");
  EXPECT_EQ(text[200], '\0');
  text.assign(201, 'Z');
  EXPECT_EQ(ScnReadBarcodeBuffer(rec, 5, text.data()), 0);
  EXPECT_STREQ(text.data(), "ABCD");
  EXPECT_EQ(text[5], 'Z');
  EXPECT_EQ(ScnReadBarcodeBuffer(rec, 0, text.data()), 0);
  EXPECT_EQ(ScnReadBarcodeBuffer(nullptr, 5, text.data()), -1);
}

TEST_F(SheetRead, NullRecordsStopAtOnce) {
  EXPECT_EQ(ScnScanForOMR(nullptr, nullptr, 0, 0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr), 7);
  sht_desc desc{};
  EXPECT_EQ(ScnScanForImage(nullptr, nullptr, &desc, 0, nullptr, nullptr, 0, 0), 7);
  EXPECT_EQ(ScnScanToDefineFormIds(nullptr, nullptr, &desc, 0, nullptr, nullptr, 0, 0, 0, 0, 0), 7);
  EXPECT_THAT(Journal(), IsEmpty());
}

TEST_F(SheetRead, LogResetLeavesTheHostsEntryFirst) {
  char first[] = "Operator A", second[] = "Shift 1";
  EXPECT_EQ(ScnResetScannerErrorLog(first, second), 0);
  EXPECT_THAT(Journal(), ElementsAre("QlkResetLog(0)", "QlkWriteLog(0, &, &)"));
  scan_error_log_registry log{};
  char a[QLK_SIM_LOG_TEXT_BYTES], b[QLK_SIM_LOG_TEXT_BYTES];
  EXPECT_EQ(ScnGetScannerErrorLog(&log, a, b), 1);
  EXPECT_STREQ(a, "Operator A");
  EXPECT_STREQ(b, "Shift 1");
  LoadBatch(kThick);
  qlkdata_rec* rec = Start({2, 5, 1});
  op_.QueueAnswer(2);
  ScanOmr(rec);
  ScnGetScannerErrorLog(&log, nullptr, nullptr);
  EXPECT_EQ(log.entries, 2);
  EXPECT_EQ(log.sheets_rejected, 1);
  EXPECT_EQ(log.faults, 1);
}

}  // namespace
}  // namespace qmk::testing
