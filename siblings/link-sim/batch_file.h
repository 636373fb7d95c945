// batch_file.h: the text form of a hopper of simulated sheets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "scanner.h"

namespace qmk::sim {

struct Batch {
  std::vector<Sheet> sheets;
  int lamp_warm_up_s = -1;  // -1: the file doesn't set it
};

// Parses a batch. Returns false with "line N: what is wrong" in `error`.
bool ParseBatch(std::string_view text, Batch& batch, std::string& error);

}  // namespace qmk::sim
