// features.h: the fields of a scanner's feature word, as the scanning, discovery and option code
// test them.
#pragma once

#include <cstdint>
#include <cstring>

#include "qmk/QmkScan.h"

namespace qmk::frame {

struct Features {
  uint32_t word = 0;

  unsigned family() const { return QMK_FEAT_FAMILY(word); }
  unsigned model_code() const { return QMK_FEAT_MODEL_CODE(word); }
  unsigned series() const { return QMK_FEAT_SERIES(word); }
  unsigned submodel() const { return QMK_FEAT_SUBMODEL(word); }
  bool image_read() const { return QMK_FEAT_IMAGE_READ(word) != 0; }
  bool bar_code_reader() const { return QMK_FEAT_BAR_CODE_READER(word) != 0; }
  // The PadLot model: family 5, model code 11.
  bool padlot() const { return family() == 5 && model_code() == 11; }
};

inline Features FeaturesOf(const feat_mask& mask) {
  Features f;
  std::memcpy(&f.word, &mask, sizeof f.word);
  return f;
}

inline Features FeaturesOf(const qlkdata_rec& rec) { return Features{rec.feat}; }

}  // namespace qmk::frame
