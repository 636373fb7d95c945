// server_shot.h: a part of the screen read from the X server over a connection of its own, so
// that nothing of the process's GTK (its queue, its drawing) takes part in what is seen.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qmk::testing {

struct ServerShot {
  int width = 0, height = 0;
  std::vector<uint32_t> rgb;  // 0xRRGGBB, row by row
  std::string error;          // why nothing was read

  // Reads the rectangle of the root window on $DISPLAY; may run on any thread.
  void Take(int x, int y, int w, int h);
  uint32_t At(int x, int y) const { return rgb[static_cast<size_t>(y) * width + x]; }
  bool WritePng(const std::string& path) const;
};

}  // namespace qmk::testing
