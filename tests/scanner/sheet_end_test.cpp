// How a sheet ends: accepted or rejected by family, a jammed sheet (status1 bit 3) kept where it
// is, and the read level sent before image and form-ID reads.
#include <gmock/gmock.h>

#include "scanner/scan_errors.h"
#include "scanner/sheet_steps.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::Not;
using Calls = std::vector<std::string>;

struct EndCase {
  const char* name;
  FeatureBits feat;
  bool jammed;
  Calls finish, reject;
};

const EndCase kEnds[] = {
    {"plain", {2, 5, 1}, false, {"QlkControl(0, 24)"}, {"QlkControl(0, 25)", "QlkControl(0, 23)"}},
    {"plain jammed", {2, 5, 1}, true, {}, {"QlkControl(0, 23)"}},
    {"family 3", {3, 9, 5, true}, false, {"QlkControl(0, 24)"}, {"QlkFlush(0, 25)", "QlkControl(0, 23)"}},
    {"family 3 jammed", {3, 9, 5, true}, true, {}, {"QlkControl(0, 23)"}},
    // The PadLot model and TWAIN scanners end a sheet the same way whatever bit 3 says.
    {"PadLot jammed", {5, 11, 1}, true, {"QlkControl(0, 24)"}, {"QlkControl(0, 25)"}},
    {"TWAIN jammed", {12, 12, 12, true}, true, {"QlkFlush(0, 24)"}, {"QlkFlush(0, 24)"}},
};

class SheetEnd : public SessionTest {};

TEST_F(SheetEnd, FinishAndRejectByFamilyAndJam) {
  for (const EndCase& c : kEnds) {
    QlkSimReset();
    qlkdata_rec* rec = OpenReader(c.feat);
    ASSERT_NE(rec, nullptr) << c.name;
    rec->status1 = c.jammed ? 0x8 : 0;
    QlkSimJournalClear();
    scanner::ScnFinishSheet(rec);
    EXPECT_THAT(Journal(), ElementsAreArray(c.finish)) << c.name << ": finish";
    QlkSimJournalClear();
    scanner::ScnRejectSheet(rec);
    EXPECT_THAT(Journal(), ElementsAreArray(c.reject)) << c.name << ": reject";
    ScnScanTerm(rec);
  }
}

TEST_F(SheetEnd, ReadLevelGoesOutBeforeImageAndDefinitionReadsOnImageScanners) {
  struct Case { FeatureBits feat; bool sent; };
  for (const Case c : {Case{{2, 5, 1, true}, true}, {{3, 9, 5, false}, true}, {{2, 5, 1}, false}}) {
    for (const bool define : {false, true}) {
      QlkSimReset();
      LoadBatch("sheet\n front\n x.x\n end\nend\n");
      qlkdata_rec* rec = OpenReader(c.feat);
      QlkSimJournalClear();
      std::vector<char> front(QMK_OMR_BYTES), back(QMK_OMR_BYTES);
      sht_desc desc{};
      if (define)
        ScnScanToDefineFormIds(nullptr, rec, &desc, 3, front.data(), back.data(), QMK_OMR_BYTES, 1,
                               0, 0, 0);
      else
        ScnScanForImage(nullptr, rec, &desc, 3, front.data(), back.data(), QMK_OMR_BYTES, 0);
      const auto matcher = Contains("QlkSetTuneParams(rec, 24, 4)");
      if (c.sent) EXPECT_THAT(Journal(), matcher) << "family " << c.feat.family << " define " << define;
      else EXPECT_THAT(Journal(), Not(matcher)) << "family " << c.feat.family << " define " << define;
      ScnScanTerm(rec);
    }
  }
}

}  // namespace
}  // namespace qmk::testing
