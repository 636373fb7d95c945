// tool_tip.h: the one tooltip window the toolkit's controls share: a small pop-up under the
// control the mouse rests on, drawn in the theme's tooltip colours.
#pragma once

#include <string>

#include "platform/ui/types.h"

namespace qmk::toolkit {

// Text format bits of the tip's text (the drawing flags: 0 left, 1 centre, 2 right; 4 centres
// it vertically, which every tip does).
constexpr unsigned kTipAlignDefault = 4;

// Shows `text` for `owner`, just below the owner's window; an empty text hides the tip.
bool ShowToolTip(platform::ui::HWND owner, const std::string& text, unsigned align = kTipAlignDefault);
// Takes the tip away when it shows for `owner` (any owner when null); its window is destroyed.
void HideToolTip(platform::ui::HWND owner = nullptr);

// What shows now, for tests and for controls that change their text while hovered.
platform::ui::HWND ToolTipWindow();
platform::ui::HWND ToolTipOwner();
std::string ToolTipText();

}  // namespace qmk::toolkit
