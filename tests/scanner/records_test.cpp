// The feature word's bit fields and the table of models.
#include <gtest/gtest.h>

#include <cstring>

#include "scanner/model_table.h"
#include "scanner/records.h"

namespace qmk::scanner {
namespace {

uint32_t WordOf(const feat_mask& m) {
  uint32_t w;
  std::memcpy(&w, &m, sizeof w);
  return w;
}

TEST(FeatMask, BitFieldsSitWhereTheWordSays) {
  struct Case { void (*set)(feat_mask&); uint32_t word; };
  const Case cases[] = {
      {[](feat_mask& m) { m.family = 0xF; }, 0xFu},
      {[](feat_mask& m) { m.model_code = 0xF; }, 0xF0u},
      {[](feat_mask& m) { m.select_stacker = 1; }, 1u << 8},
      {[](feat_mask& m) { m.second_stacker = 1; }, 1u << 9},
      {[](feat_mask& m) { m.transport_printer = 1; }, 1u << 10},
      {[](feat_mask& m) { m.bar_code_reader = 1; }, 1u << 11},
      {[](feat_mask& m) { m.series = 0xF; }, 0xFu << 16},
      {[](feat_mask& m) { m.submodel = 3; }, 3u << 20},
      {[](feat_mask& m) { m.image_read = 1; }, 1u << 22},
  };
  for (const Case& c : cases) {
    feat_mask m{};
    c.set(m);
    EXPECT_EQ(WordOf(m), c.word);
  }
  const Features f{0x00520A5Bu};  // family 11, model 5, bar-code reader, series 2, submodel 1
  EXPECT_EQ(f.family(), 11u);
  EXPECT_EQ(f.model_code(), 5u);
  EXPECT_TRUE(f.bar_code_reader());
  EXPECT_EQ(f.series(), 2u);
  EXPECT_EQ(QMK_FEAT_SUBMODEL(f.word), 1u);
  EXPECT_TRUE(f.image_read());
}

TEST(FeatMask, PadLotIsFamily5Model11Only) {
  EXPECT_TRUE((Features{5 | 11 << 4}).padlot());
  EXPECT_FALSE((Features{5 | 10 << 4}).padlot());
  EXPECT_FALSE((Features{4 | 11 << 4}).padlot());
}

TEST(ModelTable, SaveWritesTheFixedBitsAndTheStackerBox) {
  const ModelRow* m502 = FindModel(502);
  ASSERT_NE(m502, nullptr);
  const uint32_t checked = FeatureWordFor(*m502, true), unchecked = FeatureWordFor(*m502, false);
  EXPECT_EQ(checked & (1u << 8), 1u << 8);
  EXPECT_EQ(unchecked & (1u << 8), 0u);
  for (const ModelRow& row : Models()) {
    const uint32_t w = FeatureWordFor(row, false);
    EXPECT_EQ(w & 0xF000u, (row.text_id == 500 || row.text_id == 517) ? 0x6000u : 0xE000u)
        << row.text_id;
    EXPECT_EQ(QMK_FEAT_FAMILY(w), row.family);
    EXPECT_EQ(QMK_FEAT_SECOND_STACKER(w), row.second_stacker);
  }
  const Features padlot{FeatureWordFor(*FindModel(517), false)};
  EXPECT_TRUE(padlot.padlot());
  EXPECT_EQ(FindModel(499), nullptr);
  EXPECT_EQ(FindModel(519), nullptr);
}

}  // namespace
}  // namespace qmk::scanner
