// Holding sheets against a description: form-ID marks, skew marks, line counts, thickness, and
// the clearing of the timing track, through ScnScanForImage and the check functions.
#include <gmock/gmock.h>

#include "qmk/QmkLink.h"
#include "scanner/verification.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr uint32_t B(int n) { return 1u << n; }

// A plain mark scanner: '0' + darkness per cell, 48 cells a line.
class FormCheck : public SessionTest {
 protected:
  // Reads one sheet of the batch into the record, as a pick would.
  qlkdata_rec* Read(const std::string& batch, FeatureBits feat = {2, 5, 1}) {
    LoadBatch(batch);
    rec_ = OpenReader(feat);
    QlkPick(nullptr, 0);
    QlkStatus(nullptr);
    return rec_;
  }
  void Mark(int i, int col, int row, int sense) {
    desc_.id_mark_col[i] = col;
    desc_.id_mark_row[i] = row;
    desc_.id_mark_sense[i] = static_cast<uint8_t>(sense);
  }
  int Verify(int require = 0) { return scanner::ScnVerifySheetMarks(rec_, &desc_, require); }

  qlkdata_rec* rec_ = nullptr;
  sht_desc desc_{};
};

const char kTwoSides[] =
    "sheet\n thickness 6\n front\n x.x.\n ....\n end\n back\n .x..\n ..x.\n end\nend\n";

TEST_F(FormCheck, MarksOfBothSidesAndTheirSense) {
  Read(kTwoSides);
  Mark(0, 1, 1, 0);           // front row 1 col 1: marked
  Mark(1, 2, 1 | 0x80, 0);    // back row 1 col 2: marked
  Mark(2, 2, 2, 1);           // front row 2 col 2 must be empty: read from the back array (empty)
  Mark(3, 4, 1, 7);           // other senses pass
  EXPECT_EQ(Verify(), 0);
  EXPECT_EQ(rec_->status2, 0u);
  Mark(4, 2, 1 | 0x80, 1);    // the same back cell must now be empty: a fault
  EXPECT_EQ(Verify(), 1);
  EXPECT_EQ(rec_->status2, B(6));
}

TEST_F(FormCheck, FrontMarksThatMustBeEmptyReadTheBackArray) {
  Read(kTwoSides);
  Mark(0, 2, 1, 1);  // front (1,2) is empty, but the back's (1,2) is marked: a fault
  EXPECT_EQ(Verify(), 1);
  desc_ = sht_desc{};
  Mark(0, 3, 1, 1);  // front (1,3) is marked, the back's (1,3) empty: it passes
  EXPECT_EQ(Verify(), 0);
}

TEST_F(FormCheck, RowsOutsideTheSideAreFaultsAndAllMarksAreLookedAt) {
  Read(kTwoSides);
  Mark(0, 1, 3, 0);          // front has 2 lines
  Mark(1, 1, 0, 0);          // row 0 is before the first
  Mark(2, 1, 3 | 0x80, 0);
  EXPECT_EQ(Verify(), 1);
  desc_ = sht_desc{};
  Mark(0, 1, 1, 0);
  Mark(1, 60, 1, 0);         // beyond the record: a fault, not a read out of bounds
  Mark(2, -5, 1, 0);
  EXPECT_EQ(Verify(), 1);
}

TEST_F(FormCheck, EmptyDescriptionPassesUnlessMarksAreRequired) {
  Read(kTwoSides);
  EXPECT_EQ(Verify(0), 0);
  EXPECT_EQ(Verify(1), 1);
  EXPECT_EQ(rec_->status2, B(6));
}

TEST_F(FormCheck, LineCountsAndThicknessWindow) {
  struct Case { int lines_front, lines_back, min, max; uint32_t s1, s2; int result; };
  const Case cases[] = {
      {2, 2, 5, 7, 0, 0, 0},
      {3, 2, 5, 7, 0, B(4), 1},
      {2, 1, 5, 7, 0, B(5), 1},
      {0, 0, 5, 7, 0, 0, 0},        // 0: no check of the count
      {2, 2, 7, 9, B(5), 0, 1},     // too thin
      {2, 2, 2, 5, B(6), 0, 1},     // too thick
      {2, 2, 7, 0, 0, 0, 0},        // thick_max 0: both tests off
      {3, 2, 2, 5, B(6), B(4), 1},
  };
  for (const Case& c : cases) {
    QlkSimReset();
    Read(kTwoSides);
    desc_ = sht_desc{};
    desc_.id_lines_front = c.lines_front;
    desc_.id_lines_back = c.lines_back;
    desc_.thick_min = c.min;
    desc_.thick_max = c.max;
    EXPECT_EQ(Verify(), c.result) << c.lines_front << " " << c.min << "-" << c.max;
    EXPECT_EQ(rec_->status1, c.s1);
    EXPECT_EQ(rec_->status2, c.s2);
  }
}

TEST_F(FormCheck, TwainNeverChecksThickness) {
  Read(kTwoSides, {12, 12, 12, true});
  desc_.id_lines_front = 2;
  desc_.thick_min = 9;
  desc_.thick_max = 10;
  EXPECT_EQ(Verify(), 0);
}

TEST_F(FormCheck, SkewMarks) {
  Read(kTwoSides);
  EXPECT_EQ(scanner::ScnVerifySkewMarks(rec_, &desc_), 0);
  desc_.skew_mark_count = 2;
  desc_.skew_marks[0][0] = 1, desc_.skew_marks[0][1] = 1;
  desc_.skew_marks[1][0] = 3, desc_.skew_marks[1][1] = 2 | 0x80;
  EXPECT_EQ(scanner::ScnVerifySkewMarks(rec_, &desc_), 0);
  desc_.skew_marks[1][1] = 2;  // front (2,3) is empty
  EXPECT_EQ(scanner::ScnVerifySkewMarks(rec_, &desc_), 1);
  EXPECT_EQ(rec_->status2, B(10));
}

// The timing track: a solid right-hand margin that the clearing sets to '0'. Lines of 48 cells;
// the columns shown are 42 to 47. Line 0 never decides but is cleared with the others.
TEST_F(FormCheck, SolidColumnWalk) {
  struct Case { const char* line2; int mode; const char* line0_after; };
  const Case cases[] = {
      {".xxxxx", 0, "??000?"},  // 46 down to 44 solid, 43 not: clear 44 to 46
      {".xxxxx", 9, "??0000"},  // read mode 9 starts at 47
      {".xxx.x", 0, "??????"},  // the start column isn't solid: nothing changes
      {"xxxxxx", 0, "??000?"},  // line 1 still ends the walk at 43
  };
  for (const Case& c : cases) {
    QlkSimReset();
    const std::string pad(42, '.');
    LoadBatch("sheet\n front\n " + pad + "xxxxxx\n " + pad + "..xxxx\n " + pad + c.line2 +
              "\n end\nend\n");
    rec_ = OpenReader({2, 5, 1});
    QlkPick(nullptr, 0);
    QlkStatus(nullptr);
    QlkSetTuneParams(nullptr, 52, c.mode);
    scanner::ScnClearSolidColumns(rec_);
    EXPECT_EQ(std::string(reinterpret_cast<char*>(rec_->omr_front) + 42, 6), c.line0_after)
        << c.line2 << " mode " << c.mode;
  }
}

TEST_F(FormCheck, SolidColumnsStartOneFurtherInReadMode9AndStopAtColumn1) {
  const std::string solid(48, 'x');
  LoadBatch("sheet\n front\n " + std::string(48, '.') + "\n " + solid + "\n end\nend\n");
  rec_ = OpenReader({2, 5, 1});
  QlkPick(nullptr, 0);
  QlkStatus(nullptr);
  QlkSetTuneParams(nullptr, 52, 9);
  scanner::ScnClearSolidColumns(rec_);
  // Every column from 47 down to 1 is solid: the clearing runs from column 0 through 47.
  EXPECT_EQ(std::string(reinterpret_cast<char*>(rec_->omr_front) + 48, 48), std::string(48, '0'));
}

TEST_F(FormCheck, OneLineSidesAreNotCleared) {
  const std::string solid(48, 'x');
  LoadBatch("sheet\n front\n " + solid + "\n end\nend\n");
  rec_ = OpenReader({2, 5, 1});
  QlkPick(nullptr, 0);
  QlkStatus(nullptr);
  scanner::ScnClearSolidColumns(rec_);
  EXPECT_EQ(std::string(reinterpret_cast<char*>(rec_->omr_front), 48), std::string(48, '?'));
}

class ImageScan : public FormCheck {
 protected:
  int Scan(int require_marks, std::vector<char>& front) {
    qlkdata_rec* rec = OpenReader({2, 5, 1});
    front.assign(200, 'Z');
    return ScnScanForImage(nullptr, rec, &desc_, 0, front.data(), nullptr, 200, require_marks);
  }
};

TEST_F(ImageScan, BlankSheetPassesWithAnEmptyDescription) {
  LoadBatch("sheet\nend\n");
  std::vector<char> front;
  EXPECT_EQ(Scan(0, front), 0);
  EXPECT_EQ(front[0], 'Z');  // nothing to copy, and the buffer isn't cleared first
  EXPECT_EQ(QlkSimStackerCount(0), 1);
}

TEST_F(ImageScan, BlankSheetWithoutTimingMarksIsRefusedWithoutTheFaultList) {
  LoadBatch("sheet\nend\n");
  std::vector<char> front;
  EXPECT_EQ(Scan(1, front), 1);
  ASSERT_EQ(op_.events().size(), 1u);
  EXPECT_THAT(op_.events()[0], ::testing::HasSubstr("does not contain any timing marks"));
  EXPECT_THAT(op_.events()[0], ::testing::HasSubstr("flags=0x30"));
  EXPECT_EQ(QlkSimStackerCount(1), 1);
}

TEST_F(ImageScan, UnknownFormIsRejectedAndTheNextSheetChecked) {
  desc_.id_lines_front = 2;
  Mark(0, 1, 1, 0);
  LoadBatch("sheet\n front\n ....\n ....\n end\nend\n" + std::string(kTwoSides));
  op_.QueueAnswer(1);
  std::vector<char> front;
  EXPECT_EQ(Scan(0, front), 0);
  EXPECT_THAT(op_.events(), ElementsAre("scan errors \"Unknown Form ID marks\""));
  EXPECT_EQ(std::string(front.data(), 4), "?0?0");
  EXPECT_EQ(QlkSimStackerCount(0), 1);
  EXPECT_EQ(QlkSimStackerCount(1), 1);
}

TEST_F(ImageScan, CancelOnAFaultStops) {
  desc_.skew_mark_count = 1;
  desc_.skew_marks[0][0] = 2, desc_.skew_marks[0][1] = 1;
  LoadBatch(kTwoSides);
  std::vector<char> front;
  EXPECT_EQ(Scan(0, front), 7);
  EXPECT_THAT(op_.events(), ElementsAre("scan errors \"Skew Mark detection failure\""));
}

}  // namespace
}  // namespace qmk::testing
