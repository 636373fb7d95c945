// Teaching a description from a sample sheet: thickness window, search rectangles, the limit of
// 48 marks with its clipping, edge marks and the solid row.
#include <gmock/gmock.h>

#include <utility>

#include "qmk/QmkLink.h"
#include "scanner/form_id_search.h"
#include "support/sim_fixture.h"

namespace qmk::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Marks = std::vector<std::pair<int, int>>;  // column, row as stored

TEST(ThicknessWindow, EveryRowOfTheTable) {
  struct Case { int t, min, max; };
  for (Case c : {Case{-3, 0, 0}, {0, 0, 0}, {1, 1, 1}, {2, 1, 2}, {3, 2, 4}, {4, 3, 6}, {5, 4, 7},
                 {9, 7, 13}, {10, 8, 15}, {11, 8, 15}, {13, 10, 15}, {14, 11, 15}, {15, 12, 15},
                 {200, 12, 15}}) {
    const scanner::ThicknessWindow w = scanner::WindowForThickness(c.t);
    EXPECT_EQ(w.min, c.min) << c.t;
    EXPECT_EQ(w.max, c.max) << c.t;
  }
}

class DefineForm : public SessionTest {
 protected:
  int Define(FeatureBits feat, int read_level, bool front_only, bool first, bool last, int mode = 0,
             int stop_on_empty = 0) {
    if (QlkSimSessionOpen()) ScnScanTerm(rec_);
    rec_ = OpenReader(feat);
    QlkSetTuneParams(nullptr, 52, mode);
    QlkSimJournalClear();
    front_.assign(QMK_OMR_BYTES, 'Z');
    return ScnScanToDefineFormIds(nullptr, rec_, &desc_, read_level, front_.data(), nullptr,
                                  QMK_OMR_BYTES, front_only, first, last, stop_on_empty);
  }
  Marks Stored() const {
    Marks m;
    for (int i = 0; i < QMK_MAX_FORM_ID_MARKS && desc_.id_mark_col[i]; ++i)
      m.emplace_back(desc_.id_mark_col[i], desc_.id_mark_row[i]);
    return m;
  }
  static std::string Row(int marks, int width = 48) {
    return std::string(marks, 'x') + std::string(width - marks, '.');
  }

  qlkdata_rec* rec_ = nullptr;
  sht_desc desc_{};
  std::vector<char> front_;
};

const char kSample[] = "sheet\n thickness 13\n front\n x..x\n .xa.\n xx.x\n end\nend\n";

TEST_F(DefineForm, SearchRectanglesByReadMode) {
  struct Case { int mode; bool first, last; Marks marks; };
  const Case cases[] = {
      {0, false, false, {{1, 1}, {4, 1}, {2, 2}, {1, 3}, {2, 3}, {4, 3}}},
      {0, true, false, {{1, 1}, {4, 1}}},
      {0, false, true, {{1, 3}, {2, 3}, {4, 3}}},
      {0, true, true, {{1, 1}, {4, 1}, {1, 3}, {2, 3}, {4, 3}}},
      {3, false, false, {{1, 1}, {4, 1}, {2, 2}, {1, 3}, {2, 3}, {4, 3}}},
      {3, true, false, {{1, 1}, {2, 2}, {1, 3}, {2, 3}}},
      {2, false, true, {{1, 1}, {4, 1}, {1, 3}, {2, 3}, {4, 3}}},
      {4, true, true, {{1, 1}, {1, 3}, {2, 3}}},
  };
  for (const Case& c : cases) {
    QlkSimReset();
    LoadBatch(kSample);
    EXPECT_EQ(Define({2, 5, 1}, 0, true, c.first, c.last, c.mode), 0);
    EXPECT_THAT(Stored(), ElementsAreArray(c.marks)) << "mode " << c.mode << " first " << c.first << " last " << c.last;
  }
}

TEST_F(DefineForm, LinesAndWindowAreLearnedAndTheSheetAccepted) {
  LoadBatch(kSample);
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false), 0);
  EXPECT_EQ(desc_.id_lines_front, 3);
  EXPECT_EQ(desc_.thick_min, 10);
  EXPECT_EQ(desc_.thick_max, 15);
  EXPECT_THAT(Journal(), ::testing::Contains("QlkControl(0, 24)"));
  EXPECT_EQ(std::string(front_.data(), 4), "?00?");
  EXPECT_THAT(op_.events(), IsEmpty());
}

TEST_F(DefineForm, FortyEightMarksAreQuietAndTheFortyNinthIsTold) {
  LoadBatch("sheet\n front\n " + Row(48) + "\n end\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false), 0);
  EXPECT_EQ(Stored().size(), 48u);
  EXPECT_THAT(op_.events(), IsEmpty());

  QlkSimReset();
  op_.ClearEvents();
  LoadBatch("sheet\n front\n " + Row(48) + "\n " + Row(1) + "\n end\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false), 0);
  EXPECT_EQ(Stored().size(), 48u);
  EXPECT_THAT(op_.events(),
              ElementsAre(::testing::AllOf(::testing::HasSubstr("reduced to be under the maximum of 48."),
                                           ::testing::HasSubstr("flags=0x40"))));
}

TEST_F(DefineForm, FrontThatOverflowedStaysOverflowedWhenItsEdgesFitTheList) {
  // Five lines of 20 marks: the whole search overflows, its first and last lines hold 40.
  std::string front;
  for (int line = 0; line < 5; ++line) front += " " + Row(20) + "\n";
  LoadBatch("sheet\n front\n" + front + " end\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false), 0);
  const Marks m = Stored();
  ASSERT_EQ(m.size(), 40u);
  EXPECT_EQ(m[19], std::make_pair(20, 1));
  EXPECT_EQ(m[20], std::make_pair(1, 5));
  ASSERT_EQ(op_.events().size(), 1u);
  EXPECT_THAT(op_.events()[0], ::testing::HasSubstr("reduced to be under the maximum of 48."));
}

TEST_F(DefineForm, BackIsCutToWhatTheFrontLeaves) {
  LoadBatch("sheet\n front\n " + Row(40) + "\n end\n back\n " + Row(20) + "\n end\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, false, true, false), 0);
  const Marks m = Stored();
  ASSERT_EQ(m.size(), 48u);
  EXPECT_EQ(m[39], std::make_pair(40, 1));
  EXPECT_EQ(m[40], std::make_pair(1, 1 | 0x80));
  EXPECT_EQ(m[47], std::make_pair(8, 1 | 0x80));
  EXPECT_EQ(op_.events().size(), 1u);  // the result was 1: the reduction is told
}

TEST_F(DefineForm, EdgeMarksOfOneSideWinTheWholeList) {
  // Front: 60 marks in its first two lines, of which 30 stand in its first and last lines.
  // Back: marks only in its middle line, so its edges hold none.
  LoadBatch("sheet\n front\n " + Row(30) + "\n " + Row(30) + "\n " + Row(0) + "\n end\n"
            " back\n " + Row(0) + "\n " + Row(5) + "\n " + Row(0) + "\n end\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, false, false, false), 0);
  const Marks m = Stored();
  ASSERT_EQ(m.size(), 30u);
  for (const auto& [col, row] : m) EXPECT_EQ(row, 1);
}

TEST_F(DefineForm, ClippingBranchesWhenBothSidesAreSearched) {
  const std::string three = " " + Row(30) + "\n " + Row(30) + "\n " + Row(30) + "\n";
  const std::string middle = " " + Row(0) + "\n " + Row(30) + "\n " + Row(0) + "\n";
  struct Case {
    const char* name;
    std::string front, back;
    bool first;
    size_t front_kept, back_kept;
  };
  const Case cases[] = {
      // A full front leaves nothing for the back.
      {"full front", " " + Row(48) + "\n", " " + Row(5) + "\n", true, 48, 0},
      // Edge marks on both sides: the edge lists replace both, then the front's 48 take all.
      {"edges on both", three, " " + Row(10) + "\n " + Row(0) + "\n " + Row(10) + "\n", false, 48, 0},
      // Edge marks on neither: the full lists stay and the back is cut to what the front leaves.
      {"edges on neither", middle, middle, false, 30, 18},
  };
  for (const Case& c : cases) {
    QlkSimReset();
    op_.ClearEvents();
    LoadBatch("sheet\n front\n" + c.front + " end\n back\n" + c.back + " end\nend\n");
    EXPECT_EQ(Define({2, 5, 1}, 0, false, c.first, false), 0) << c.name;
    size_t front = 0, back = 0;
    for (const auto& [col, row] : Stored()) ++((row & 0x80) ? back : front);
    EXPECT_EQ(front, c.front_kept) << c.name;
    EXPECT_EQ(back, c.back_kept) << c.name;
    EXPECT_EQ(op_.events().size(), 1u) << c.name << ": the reduction is told";
  }
}

TEST_F(DefineForm, EmptyHopperStopsQuietlyOnlyWithStopOnEmpty) {
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false, 0, 1), 7);
  EXPECT_THAT(op_.events(), IsEmpty());
  op_.QueueAnswer(2);
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false, 0, 0), 7);
  EXPECT_THAT(op_.events(), ElementsAre("scan errors \"Input hopper empty\""));
}

TEST_F(DefineForm, FrontOnlyWithoutFrontLinesSearchesTheBack) {
  LoadBatch("sheet\n back\n ..x.\n end\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false), 0);
  EXPECT_THAT(Stored(), ElementsAre(std::make_pair(3, 1 | 0x80)));
}

TEST_F(DefineForm, BlankSampleKeepsTheMarksAtReadLevelZeroAndIsRefusedAbove) {
  desc_.id_mark_col[0] = 5;
  desc_.id_mark_row[0] = 2;
  LoadBatch("sheet\n thickness 2\nend\nsheet\nend\n");
  EXPECT_EQ(Define({2, 5, 1}, 0, true, false, false), 0);
  EXPECT_EQ(desc_.id_mark_col[0], 5);
  EXPECT_EQ(desc_.thick_min, 1);
  EXPECT_EQ(desc_.thick_max, 2);
  EXPECT_THAT(Journal(), ::testing::Not(::testing::Contains("QlkControl(0, 24)")));

  EXPECT_EQ(Define({2, 5, 1}, 1, true, false, false), 1);
  ASSERT_EQ(op_.events().size(), 1u);
  EXPECT_THAT(op_.events()[0], ::testing::HasSubstr("At least one timing mark is required."));
  EXPECT_EQ(QlkSimStackerCount(1), 1);
}

TEST_F(DefineForm, SolidRowOnlyOnThePadLotModel) {
  const std::string sample = "sheet\n front\n x.x\n xxxxxxxxxxxx.\n end\nend\n";
  LoadBatch(sample);
  Define({5, 11, 1}, 0, true, false, false);
  EXPECT_EQ(desc_.solid_row, 2);
  QlkSimReset();
  LoadBatch(sample);
  Define({5, 10, 1}, 0, true, false, false);
  EXPECT_EQ(desc_.solid_row, 0);
}

}  // namespace
}  // namespace qmk::testing
