// Form descriptions as text: a round trip, and the lines that are refused.
#include <gtest/gtest.h>

#include "form_file.h"

namespace qmkscan {
namespace {

TEST(FormFile, RoundTripKeepsEveryField) {
  sht_desc d{};
  d.id_lines_front = 12;
  d.id_lines_back = 3;
  d.thick_min = 5;
  d.thick_max = 9;
  d.id_mark_col[0] = 1, d.id_mark_row[0] = 1, d.id_mark_sense[0] = 0;
  d.id_mark_col[1] = 6, d.id_mark_row[1] = 2 | 0x80, d.id_mark_sense[1] = 1;
  d.skew_mark_count = 1;
  d.skew_marks[0][0] = 63, d.skew_marks[0][1] = 1 | 0x80;
  d.solid_row = 4;
  sht_desc back{};
  std::string error;
  ASSERT_TRUE(FormFromText(FormToText(d), back, error)) << error;
  EXPECT_EQ(FormToText(back), FormToText(d));
  EXPECT_EQ(back.id_mark_row[1], 2 | 0x80);
  EXPECT_EQ(back.skew_marks[0][1], 1 | 0x80);
}

TEST(FormFile, RefusesWhatItCannotTake) {
  for (const char* text : {"lines 3\n", "mark 0 1 front 0\n", "mark 1 1 middle 0\n",
                           "mark 1 128 front 0\n", "thickness 5 x\n", "colour red\n",
                           "skew 1 1 front 9\n"}) {
    sht_desc d{};
    d.id_lines_front = 77;
    std::string error;
    EXPECT_FALSE(FormFromText(std::string("# form\n") + text, d, error)) << text;
    EXPECT_EQ(error.rfind("line 2: ", 0), 0u) << error;
    EXPECT_EQ(d.id_lines_front, 77) << "a refused description leaves the record alone";
  }
  std::string many;
  for (int i = 0; i < 49; ++i) many += "mark 1 1 front 0\n";
  sht_desc d{};
  std::string error;
  EXPECT_FALSE(FormFromText(many, d, error));
  EXPECT_EQ(error, "line 49: more than 48 form-ID marks");
}

}  // namespace
}  // namespace qmkscan
