// window_size_layer.cpp: the placement string of the window size layer.
#include <cstdio>

#include "toolkit/dialogs/window_size_layer.h"

namespace qmk::toolkit {

std::string FormatPlacement(const platform::ui::Rect& r, int show, int flags) {
  char text[96];
  std::snprintf(text, sizeof text, "%d,%d,%d,%d,%d,%d", r.left, r.top, r.right, r.bottom, show,
                flags);
  return text;
}

bool ParsePlacement(const std::string& text, platform::ui::Rect* r, int* show, int* flags) {
  int v[6];
  int used = 0;
  if (std::sscanf(text.c_str(), "%d,%d,%d,%d,%d,%d%n", &v[0], &v[1], &v[2], &v[3], &v[4], &v[5],
                  &used) != 6 ||
      static_cast<size_t>(used) != text.size())
    return false;
  // A rectangle turned inside out can't be a window's place.
  if (v[2] < v[0] || v[3] < v[1]) return false;
  *r = platform::ui::Rect{v[0], v[1], v[2], v[3]};
  *show = v[4];
  *flags = v[5];
  return true;
}

}  // namespace qmk::toolkit
