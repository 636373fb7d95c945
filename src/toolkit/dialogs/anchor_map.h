// anchor_map.h: anchored child controls of a resizable window: the record per control, how a
// record is taken from a control's place and how a layout is computed from it.
#pragma once

#include <cstdint>
#include <map>

#include "platform/ui/types.h"

namespace qmk::platform {
class Archive;
}

namespace qmk::toolkit {

// One anchored control: where each corner hangs, in percent of the client size, and its
// distance from that point in pixels.
struct RDI_t {
  int32_t m_nLeftPercent = 0, m_nTopPercent = 0;
  int32_t m_nLeftOffset = 0, m_nTopOffset = 0;
  int32_t m_nRightPercent = 0, m_nBottomPercent = 0;
  int32_t m_nRightOffset = 0, m_nBottomOffset = 0;
  bool operator==(const RDI_t&) const = default;
};

using AnchorMap = std::map<platform::ui::HWND, RDI_t>;

// The platform's multiply and divide: 64-bit product, rounded half away from zero; -1 for a
// zero divisor.
int MulDiv(int value, int numerator, int denominator);

// The record of a control at `rect` (client coordinates) in a client of `width` by `height`.
// Offsets use truncating division, so the first layout may move a control by one pixel.
RDI_t MakeAnchor(const platform::ui::Rect& rect, int width, int height, int left_percent,
                 int top_percent, int right_percent, int bottom_percent);
// Where the control goes in a client of `width` by `height` (MulDiv rounding).
platform::ui::Rect PlaceAnchor(const RDI_t& rdi, int width, int height);

// The archive form: the count, then the handle's value and the eight integers per entry.
bool SaveAnchorMap(platform::Archive& ar, const AnchorMap& map);
bool LoadAnchorMap(platform::Archive& ar, AnchorMap& map);

}  // namespace qmk::toolkit
