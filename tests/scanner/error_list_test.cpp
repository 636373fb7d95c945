// The fault list of a failed sheet: the edits of the status words and the texts chosen.
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "scanner/error_list.h"
#include "support/sim_fixture.h"
#include "toolkit/dialogs/string_table.h"

namespace qmk::scanner {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::FeatureBits;
using testing::Word;

constexpr uint32_t B(int n) { return 1u << n; }

struct Words {
  uint32_t s1 = 0, s2 = 0, s3 = 0, jam = 0, image_flags = 0;
  int skew_hold = 0, not_ready = 0;
  unsigned char sensors[4] = {};
};

std::vector<std::string> Faults(FeatureBits feat, const Words& w, qlkdata_rec* out = nullptr) {
  static qlkdata_rec rec;
  rec = qlkdata_rec{};
  rec.feat = Word(feat);
  rec.status1 = w.s1;
  rec.status2 = w.s2;
  rec.status3 = w.s3;
  rec.jam_detail = w.jam;
  rec.image_flags = w.image_flags;
  rec.skew_hold = w.skew_hold;
  rec.not_ready = w.not_ready;
  std::copy(std::begin(w.sensors), std::end(w.sensors), rec.sensor_bytes);
  std::vector<std::string> faults;
  ScnBuildErrorList(&rec, faults);
  if (out) *out = rec;
  return faults;
}

const FeatureBits kPlain{2, 6, 1}, kImage2{2, 5, 1, true}, kFamily3{3, 9, 5, true},
    kTwain{12, 12, 12, true};

TEST(ErrorList, EachWordTakesBasePlusBitInOrder) {
  EXPECT_THAT(Faults(kPlain, {.s1 = B(0) | B(7) | B(22)}),
              ElementsAre("Communications error", "Communications timeout", "Guide edge skew failure"));
  EXPECT_THAT(Faults(kPlain, {.s2 = B(0) | B(10), .s3 = B(1) | B(3)}),
              ElementsAre("Ascending booklet check", "Skew Mark detection failure",
                          "Output stacker full", "Secondary select full"));
}

TEST(ErrorList, BitsWithoutTextsAddNothing) {
  uint32_t silent = B(13) | B(16) | B(31);
  for (int bit = 23; bit <= 30; ++bit) silent |= B(bit);
  EXPECT_THAT(Faults(kPlain, {.s1 = silent}), IsEmpty());
  EXPECT_THAT(Faults(kPlain, {.s3 = B(7) | B(30)}), IsEmpty());
}

TEST(ErrorList, IdsAreBasePlusBitWithoutBound) {
  // status2 bit 11 reaches id 561, which belongs to no list of faults but is loaded all the same.
  toolkit::ScopedStringOverride other(561, "Some other message");
  EXPECT_THAT(Faults(kPlain, {.s2 = B(11)}), ElementsAre("Some other message"));
}

TEST(ErrorList, TextsAreCutAt49Characters) {
  toolkit::ScopedStringOverride long_text(401, std::string(60, 'x'));
  EXPECT_THAT(Faults(kPlain, {.s1 = B(1)}), ElementsAre(std::string(49, 'x')));
}

TEST(ErrorList, ThicknessErrorGivesWayToThinOrThick) {
  qlkdata_rec rec;
  EXPECT_THAT(Faults(kPlain, {.s1 = B(14) | B(6)}, &rec), ElementsAre("Sheet too thick"));
  EXPECT_EQ(rec.status1, B(6));  // the record is edited for the host to read
  EXPECT_THAT(Faults(kPlain, {.s1 = B(14)}), ElementsAre("Thickness error"));
}

TEST(ErrorList, FailedCaptureStaysOnlyAlone) {
  qlkdata_rec rec;
  EXPECT_THAT(Faults(kImage2, {.s1 = B(15)}, &rec), ElementsAre("Failed to capture"));
  EXPECT_THAT(Faults(kImage2, {.s1 = B(15) | B(4)}, &rec), ElementsAre("Pick fail"));
  EXPECT_EQ(rec.status1, B(4));
  EXPECT_THAT(Faults(kImage2, {.s1 = B(15), .s3 = B(1)}), ElementsAre("Output stacker full"));
  // Plain scanners keep the bit and replace its text.
  EXPECT_THAT(Faults(kPlain, {.s1 = B(15) | B(4)}), ElementsAre("Pick fail", "General scanner error"));
}

TEST(ErrorList, ReadChecksSilenceTimingAndFormIdTextsOutsideFamily3) {
  EXPECT_THAT(Faults(kPlain, {.s1 = B(8), .s2 = B(4) | B(5) | B(6)}),
              ElementsAre("Read check top", "Timing mark error, bottom"));
  EXPECT_THAT(Faults(kPlain, {.s1 = B(11), .s2 = B(4) | B(5) | B(6)}),
              ElementsAre("Datalost back", "Timing mark error, top"));
  EXPECT_THAT(Faults(kFamily3, {.s1 = B(8), .s2 = B(6)}),
              ElementsAre("Read check top", "Unknown Form ID marks"));
}

TEST(ErrorList, JamOnTwainAndImageScannersDropsReadChecksAndEdges) {
  qlkdata_rec rec;
  EXPECT_THAT(Faults(kTwain, {.s1 = B(3) | B(8) | B(9) | B(17) | B(20), .jam = B(1)}, &rec),
              ElementsAre("Jam at thickness sensor"));
  EXPECT_EQ(rec.status1, B(3));  // the jam bit is back after the list is built
  // An empty hopper lets the image flags clear the read checks.
  EXPECT_THAT(Faults(kImage2, {.s1 = B(8) | B(9), .s3 = B(0), .image_flags = B(2)}),
              ElementsAre("Read check bottom", "Input hopper empty"));
  EXPECT_THAT(Faults(kImage2, {.s1 = B(8) | B(9), .s3 = B(0), .image_flags = B(14)}),
              ElementsAre("Read check top", "Input hopper empty"));
  // Plain scanners keep them.
  EXPECT_THAT(Faults(kPlain, {.s1 = B(3) | B(8)}), ElementsAre("Read check top"));
}

TEST(ErrorList, JamTablesByScannerKind) {
  EXPECT_THAT(Faults(kFamily3, {.s1 = B(3), .jam = B(0) | B(22) | B(23)}),
              ElementsAre("Failed to leave pick", "Unexpected at thickness or not seen at pick"));
  EXPECT_THAT(Faults(kPlain, {.s1 = B(3), .jam = B(0) | B(7) | B(8)}),
              ElementsAre("Jam at pick sensor", "Jam on feed bed"));
  // Without bit 3 the jam detail isn't read.
  EXPECT_THAT(Faults(kPlain, {.jam = B(0)}), IsEmpty());
}

TEST(ErrorList, Family3SensorBytesBecomeJamBits) {
  struct Case { int byte; unsigned char value; const char* text; };
  const Case cases[] = {
      {0, 0x01, "Unexpected at pick"},
      {0, 0x10, "Unexpected at thickness or not seen at pick"},
      {1, 0x01, "Unexpected at prehead or not seen at thickness"},
      {1, 0x10, "Unexpected at posthead or not seen at prehead"},
      {2, 0x01, "Unexpected at preprint or not seen at posthead"},
      {2, 0x10, "Unexpected at select or not seen at preprint"},
      {3, 0x01, "Unexpected at output or not seen at select"},
  };
  for (const Case& c : cases) {
    Words w{.s3 = B(6)};
    w.sensors[c.byte] = c.value;
    qlkdata_rec rec;
    EXPECT_THAT(Faults(kFamily3, w, &rec), ElementsAre(c.text, "Scanner not ready")) << c.byte;
    EXPECT_EQ(rec.status1, 8u);
  }
  // No sensor bits: a jam with no location, and "Scanner not ready".
  qlkdata_rec rec;
  EXPECT_THAT(Faults(kFamily3, {.s3 = B(6)}, &rec), ElementsAre("Scanner not ready"));
  EXPECT_EQ(rec.status1, 8u);
  // Any other bit keeps the sensors out of it.
  EXPECT_THAT(Faults(kFamily3, {.s3 = B(6) | B(0), .sensors = {1, 0, 0, 0}}),
              ElementsAre("Input hopper empty", "Scanner not ready"));
}

TEST(ErrorList, NotReadyComesFirst) {
  EXPECT_THAT(Faults(kPlain, {.s1 = B(4), .not_ready = 1}), ElementsAre("Scanner not ready", "Pick fail"));
}

TEST(ErrorList, HeldSkewOnPlainScannersRepeatsThePreviousText) {
  EXPECT_THAT(Faults(kPlain, {.s1 = B(12)}), ElementsAre("Sheet skewed"));
  EXPECT_THAT(Faults(kPlain, {.s1 = B(12), .skew_hold = 1}), IsEmpty());
  EXPECT_THAT(Faults(kPlain, {.s1 = B(0) | B(12), .skew_hold = 1}),
              ElementsAre("Communications error", "Communications error"));
  // The buffer is emptied per word: a held skew doesn't repeat another word's text.
  EXPECT_THAT(Faults(kPlain, {.s1 = B(12), .s2 = B(0), .skew_hold = 1}),
              ElementsAre("Ascending booklet check"));
  EXPECT_THAT(Faults(kImage2, {.s1 = B(12), .skew_hold = 1}), ElementsAre("Timing mark skew failure"));
}

TEST(ErrorList, ReplacementTexts) {
  EXPECT_THAT(Faults(kPlain, {.s3 = B(4) | B(5)}), ElementsAre("Input hopper error", "Output hopper error"));
  EXPECT_THAT(Faults(kImage2, {.s3 = B(4)}), ElementsAre("Input drive error"));
  EXPECT_THAT(Faults(kTwain, {.s1 = B(10) | B(11)}),
              ElementsAre("Failed to capture image (top)", "Failed to capture image (bottom)"));
  EXPECT_THAT(Faults(kImage2, {.s1 = B(10)}), ElementsAre("Datalost front"));
}

TEST(ErrorList, MissingTextsLeaveTheListEmpty) {
  toolkit::ScopedStringOverride gone(404, std::nullopt);
  EXPECT_THAT(Faults(kPlain, {.s1 = B(4)}), IsEmpty());
}

}  // namespace
}  // namespace qmk::scanner
