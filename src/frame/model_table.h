// model_table.h: the scanner models that a configuration can name, and the feature bits of each;
// shared by the scanning layer, the configuration dialog and the command-line host.
#pragma once

#include <cstdint>
#include <span>

namespace qmk::frame {

// One model of the model list, identified by the id of its display text.
struct ModelRow {
  int text_id;
  unsigned family, model_code, series, submodel, image_read;
  int select_stacker;   // 0, 1, or kStackerBox: the "Select Stacker" checkbox decides
  unsigned second_stacker;
  int forced_port;      // 0: the user's port stands
};

constexpr int kStackerBox = -1;

std::span<const ModelRow> Models();
// The row of a text id, or null.
const ModelRow* FindModel(int text_id);
// The feature word that a save of the configuration writes for `row`, with the checkbox's state
// for a stacker decided by the box and the fixed bits 12 to 15.
uint32_t FeatureWordFor(const ModelRow& row, bool stacker_box_checked);

}  // namespace qmk::frame
