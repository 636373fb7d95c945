// model_table.h: the scanner models as the scanning layer names them; the table itself lies in
// the frame, where the configuration dialog reads it too.
#pragma once

#include "frame/model_table.h"

namespace qmk::scanner {

using frame::FeatureWordFor;
using frame::FindModel;
using frame::kStackerBox;
using frame::ModelRow;
using frame::Models;

}  // namespace qmk::scanner
