// plain_look.h: the neutral look of the plain controls: system colours, 3-D edges, the glyphs of
// check boxes, radio buttons and arrows, and text that greys when disabled.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/paint.h"

namespace qmk::platform::ui::controls {

// Colour words: red in the low byte, alpha (opaque) in the high one.
namespace colors {
constexpr uint32_t kFace = 0xFFF0F0F0u;
constexpr uint32_t kWindow = 0xFFFFFFFFu;
constexpr uint32_t kText = 0xFF000000u;
constexpr uint32_t kGrayText = 0xFF6D6D6Du;
constexpr uint32_t kHighlight3d = 0xFFFFFFFFu;  // the lit edge
constexpr uint32_t kLight = 0xFFE3E3E3u;
constexpr uint32_t kShadow = 0xFFA0A0A0u;
constexpr uint32_t kDarkShadow = 0xFF696969u;
constexpr uint32_t kSelection = 0xFFD77800u;    // RGB 0, 120, 215
constexpr uint32_t kSelectionText = 0xFFFFFFFFu;
constexpr uint32_t kHot = 0xFFFFF3E5u;          // a pale blue under the mouse
}  // namespace colors

enum class Edge {
  kRaised,   // push buttons, scroll arrows, up-down halves
  kPressed,  // a pushed button
  kSunken,   // edits, lists, check boxes: two pixels
  kThinSunken,
  kEtched,   // group boxes and etched frames
};

// Draws the edge inside `r` and returns the rectangle inside it.
Rect DrawEdge(Dc& dc, const Rect& r, Edge edge);
Rect Deflate(const Rect& r, int dx, int dy);

enum class Arrow { kUp, kDown, kLeft, kRight };
// A filled triangle centred in `r`.
void DrawArrow(Dc& dc, const Rect& r, Arrow direction, uint32_t color);
// A square face with a raised or pressed edge and an arrow: scroll bars, up-downs, combos.
void DrawArrowButton(Dc& dc, const Rect& r, Arrow direction, bool pressed, bool enabled);

// The 13-pixel box of a check box with its state (0, 1, 2 indeterminate).
void DrawCheckBox(Dc& dc, const Rect& box, int state, bool pushed, bool enabled);
// The 12-pixel circle of a radio button.
void DrawRadio(Dc& dc, const Rect& box, bool checked, bool pushed, bool enabled);

// Text in the given colour, or embossed grey when disabled, as disabled labels look.
int DrawLabel(Dc& dc, const std::string& text, Rect r, unsigned format, bool enabled,
              uint32_t color = colors::kText);

// Size of the check box and radio glyphs.
constexpr int kGlyphSize = 13;

}  // namespace qmk::platform::ui::controls
