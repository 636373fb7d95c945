// model_table.cpp: the table of models and the feature word a configuration writes for each.
#include "frame/model_table.h"

#include <algorithm>

#include "qmk/QmkScan.h"

namespace qmk::frame {
namespace {

constexpr int B = kStackerBox;

constexpr ModelRow kModels[] = {
    // id  fam mod ser sub img  sel 2nd  port
    {500, 0, 0, 0, 0, 0, 0, 0, 0},
    {501, 3, 9, 5, 0, 1, 1, 0, 0},
    {502, 2, 7, 1, 1, 1, B, 0, QMK_PORT_USB},
    {503, 2, 5, 1, 0, 1, 0, 0, QMK_PORT_USB},
    {504, 2, 7, 1, 0, 1, B, 0, QMK_PORT_USB},
    {505, 12, 12, 12, 0, 1, 0, 0, QMK_PORT_TWAIN},
    {506, 12, 13, 12, 0, 1, 0, 0, QMK_PORT_TWAIN},
    {507, 3, 9, 5, 1, 1, 1, 0, 0},
    {508, 3, 9, 5, 2, 1, 1, 0, 0},
    {509, 2, 5, 1, 0, 0, 0, 0, 0},
    {510, 2, 6, 1, 0, 0, B, 0, 0},
    {511, 2, 7, 1, 0, 0, B, 0, 0},
    {512, 4, 3, 1, 0, 0, 0, 0, 0},
    {513, 4, 4, 1, 0, 0, 1, 0, 0},
    {514, 4, 1, 2, 0, 0, 1, 1, 0},
    {515, 4, 2, 2, 0, 0, 1, 0, 0},
    {516, 4, 1, 2, 1, 0, 1, 1, 0},
    {517, 5, 11, 1, 0, 0, 1, 0, 0},
    {518, 2, 7, 1, 1, 0, B, 0, 0},
};

}  // namespace

std::span<const ModelRow> Models() { return kModels; }

const ModelRow* FindModel(int text_id) {
  auto it = std::find_if(std::begin(kModels), std::end(kModels),
                         [&](const ModelRow& r) { return r.text_id == text_id; });
  return it == std::end(kModels) ? nullptr : it;
}

uint32_t FeatureWordFor(const ModelRow& row, bool stacker_box_checked) {
  const unsigned select = row.select_stacker == kStackerBox ? stacker_box_checked : row.select_stacker;
  // Bits 13 and 14 are always written 1, bit 12 always 0; bit 15 is 1 but for models 500 and 517.
  const unsigned bit15 = (row.text_id == 500 || row.text_id == 517) ? 0 : 1;
  return row.family | row.model_code << 4 | select << 8 | row.second_stacker << 9 | 1u << 13 |
         1u << 14 | bit15 << 15 | row.series << 16 | row.submodel << 20 | row.image_read << 22;
}

}  // namespace qmk::frame
