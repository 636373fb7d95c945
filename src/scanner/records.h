// records.h: the host records of the scanner side and the reading of the feature word.
#pragma once

#include "frame/features.h"
#include "qmk/QmkScan.h"

namespace qmk::scanner {

using frame::Features;
using frame::FeaturesOf;

}  // namespace qmk::scanner
