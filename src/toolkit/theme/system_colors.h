// system_colors.h: the system colour slots that every theme starts from, and the seam through
// which the window system (or a test) supplies them.
#pragma once

#include <array>
#include <cstdint>
#include <functional>

namespace qmk::toolkit::theme {

// Slot numbers of the system colours, as themes and widgets name them.
enum SysColor : int {
  COLOR_SCROLLBAR = 0,
  COLOR_BACKGROUND = 1,
  COLOR_ACTIVECAPTION = 2,
  COLOR_INACTIVECAPTION = 3,
  COLOR_MENU = 4,
  COLOR_WINDOW = 5,
  COLOR_WINDOWFRAME = 6,
  COLOR_MENUTEXT = 7,
  COLOR_WINDOWTEXT = 8,
  COLOR_CAPTIONTEXT = 9,
  COLOR_ACTIVEBORDER = 10,
  COLOR_INACTIVEBORDER = 11,
  COLOR_APPWORKSPACE = 12,
  COLOR_HIGHLIGHT = 13,
  COLOR_HIGHLIGHTTEXT = 14,
  COLOR_BTNFACE = 15,
  COLOR_BTNSHADOW = 16,
  COLOR_GRAYTEXT = 17,
  COLOR_BTNTEXT = 18,
  COLOR_INACTIVECAPTIONTEXT = 19,
  COLOR_BTNHIGHLIGHT = 20,
  COLOR_3DDKSHADOW = 21,
  COLOR_3DLIGHT = 22,
  COLOR_INFOTEXT = 23,
  COLOR_INFOBK = 24,
  COLOR_HOTLIGHT = 26,
  COLOR_GRADIENTACTIVECAPTION = 27,
  COLOR_GRADIENTINACTIVECAPTION = 28,
  COLOR_MENUHILIGHT = 29,
  COLOR_MENUBAR = 30,
};

constexpr int kSysColorCount = 31;
using SystemColorTable = std::array<uint32_t, kSysColorCount>;

// The toolkit's own system colours, used until the window system supplies the desktop's.
SystemColorTable DefaultSystemColors();

// Replaces the source of system colours; an empty function restores the default.
void SetSystemColorSource(std::function<SystemColorTable()> source);
SystemColorTable QuerySystemColors();

}  // namespace qmk::toolkit::theme
