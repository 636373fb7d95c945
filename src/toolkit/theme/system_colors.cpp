// system_colors.cpp: a neutral grey desktop as the default system colours, and the seam.
#include "toolkit/theme/system_colors.h"

#include <utility>

#include "toolkit/bitmap/colour.h"

namespace qmk::toolkit::theme {
namespace {

using bitmap::RGB;

// Indexed by slot number; slot 25 has no meaning and stays black.
constexpr SystemColorTable kDefaultColors = {
    RGB(200, 200, 200), RGB(58, 110, 165),  RGB(10, 36, 106),   RGB(128, 128, 128),
    RGB(240, 240, 240), RGB(255, 255, 255), RGB(100, 100, 100), RGB(0, 0, 0),
    RGB(0, 0, 0),       RGB(255, 255, 255), RGB(212, 208, 200), RGB(212, 208, 200),
    RGB(128, 128, 128), RGB(51, 110, 204),  RGB(255, 255, 255), RGB(222, 220, 216),
    RGB(158, 156, 152), RGB(118, 118, 118), RGB(0, 0, 0),       RGB(212, 208, 200),
    RGB(255, 255, 255), RGB(82, 82, 82),    RGB(238, 236, 232), RGB(0, 0, 0),
    RGB(255, 255, 225), RGB(0, 0, 0),       RGB(0, 102, 204),   RGB(166, 202, 240),
    RGB(192, 192, 192), RGB(51, 110, 204),  RGB(240, 240, 240)};

std::function<SystemColorTable()>& Source() {
  static std::function<SystemColorTable()> source;
  return source;
}

}  // namespace

SystemColorTable DefaultSystemColors() { return kDefaultColors; }

void SetSystemColorSource(std::function<SystemColorTable()> source) {
  Source() = std::move(source);
}

SystemColorTable QuerySystemColors() {
  return Source() ? Source()() : kDefaultColors;
}

}  // namespace qmk::toolkit::theme
