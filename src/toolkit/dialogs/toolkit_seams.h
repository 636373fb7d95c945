// toolkit_seams.h: the one start-up call that joins the toolkit's engines to the window system.
#pragma once

#include <cstdint>

namespace qmk::toolkit {

// The message number every window receives when the theme changes (a registered-message value).
constexpr unsigned kMsgPaintManagerChanged = 0xC0F1;

// Fills the seams the theme holder and the resource manager leave open: the screen's dpi and
// colour depth, the theme-change broadcast to every window, the bridge window calls, the dialog
// templates in the library's resource module, the font access over real windows, and the window
// system's template source asking the resource manager. Runs once; later calls do nothing.
void InstallToolkitSeams();
bool ToolkitSeamsInstalled();

}  // namespace qmk::toolkit
