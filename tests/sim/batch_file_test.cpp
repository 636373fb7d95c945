// Batch files of simulated sheets: what they describe, and the errors they are refused with.
#include <gtest/gtest.h>

#include <string>

#include "qmk/QmkLink.h"
#include "qmk/QmkLinkSim.h"

namespace {

int Load(const std::string& text, std::string* error = nullptr) {
  char message[200] = "";
  const int n = QlkSimLoadBatchText(text.data(), static_cast<int>(text.size()), message, sizeof message);
  if (error) *error = message;
  return n;
}

class BatchFile : public ::testing::Test {
 protected:
  void SetUp() override { QlkSimReset(); }
  void TearDown() override { QlkSimReset(); }
};

TEST_F(BatchFile, SheetFactsAndGridsReachTheRecord) {
  ASSERT_EQ(Load("# two sheets\nlamp-warmup 0\nsheet first\n thickness 7\n status1 0x40\n"
                 " skew-hold 1\n sensors 01 10 00 ff\n barcode AB 12\n front\n  .x9f\n  ....\n end\n"
                 "end\nsheet\nend\n"),
            2);
  feat_mask m{};
  m.family = 2;
  m.model_code = 5;
  qlkdata_rec* rec = nullptr;
  ASSERT_EQ(QlkOpen(&m, &rec), 0);
  QlkPick(nullptr, 0);
  QlkStatus(nullptr);
  EXPECT_EQ(rec->thickness, 7);
  EXPECT_EQ(rec->status1, 0x40u);
  EXPECT_EQ(rec->skew_hold, 1);
  EXPECT_EQ(rec->lines_front, 2);
  EXPECT_EQ(rec->sensor_bytes[3], 0xFF);
  EXPECT_EQ(std::string(reinterpret_cast<char*>(rec->omr_front), 5), "0?9?0");
  EXPECT_EQ(DrlReadBar(nullptr), 0);
  EXPECT_STREQ(rec->bar_code_text, "AB 12");
  QlkClose(rec);
}

TEST_F(BatchFile, RefusesWholeFilesWithTheLineOfTheFault) {
  struct Case { std::string text; const char* error; };
  const Case cases[] = {
      {"sheet\n thikness 3\nend\n", "line 2: unknown word \"thikness\""},
      {"sheet\n thickness -1\nend\n", "line 2: thickness wants a number from 0 to 255"},
      {"sheet\n status1 0x100000000\nend\n", "line 2: status1 wants a number from 0 to 4294967295"},
      {"sheet\n front\n ..z\n end\nend\n", "line 3: a grid cell is '.', 0-9, a-f, x or #, not 'z'"},
      {"sheet\n front\n ..\n end\n back-raw\n 30\n end\nend\n",
       "line 5: a sheet's sides are both grids or both raw bytes"},
      {"sheet\n front\n ...\n", "line 3: the grid has no \"end\""},
      {"sheet\n", "line 1: the sheet has no \"end\""},
      {"sheets\n", "line 1: expected \"sheet\" or \"lamp-warmup\", not \"sheets\""},
      {"sheet\n sensors 01 02 03\nend\n", "line 2: sensors wants four hex bytes"},
      {"sheet\n front-raw\n 300\n end\nend\n", "line 3: raw cells are hex bytes such as 30 or 3f"},
      {"sheet\nend\nsheet\n front\n" + std::string(65, '.') + "\n end\nend\n",
       "line 5: a line has more than 64 cells"},
  };
  for (const Case& c : cases) {
    std::string error;
    EXPECT_EQ(Load(c.text, &error), -1) << c.text;
    EXPECT_EQ(error, c.error);
    EXPECT_EQ(QlkSimHopperCount(), 0) << "nothing of a refused file is added";
  }
  std::string many = "sheet\n front\n";
  for (int i = 0; i <= QLK_SIM_MAX_LINES; ++i) many += ".\n";
  std::string error;
  EXPECT_EQ(Load(many + " end\nend\n", &error), -1);
  EXPECT_EQ(error, "line " + std::to_string(QLK_SIM_MAX_LINES + 3) + ": a side has more than 156 lines");
  EXPECT_EQ(QlkSimLoadBatch("/no/such/file.batch", nullptr, 0), -1);
}

TEST_F(BatchFile, ImageModelsGetDarknessAsGreyLevels) {
  ASSERT_EQ(Load("sheet\n front\n .8x\n end\nend\n"), 1);
  feat_mask m{};
  m.family = 3;
  qlkdata_rec* rec = nullptr;
  QlkOpen(&m, &rec);
  QlkPick(nullptr, 0);
  QlkStatus(nullptr);
  QlkBuildBubbles(nullptr, 1, 1, 1, 1, 64, 1, 0);
  EXPECT_EQ(rec->omr_front[0], 0x08);
  EXPECT_EQ(QlkImgVal(rec->omr_front[1], rec->feat), 8);
  EXPECT_EQ(QlkImgVal(rec->omr_front[2], rec->feat), 15);
  QlkClose(rec);
}

}  // namespace
