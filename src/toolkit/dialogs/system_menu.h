// system_menu.h: the themed system menu of the toolkit's dialogs: a simple popup list of the
// window's system commands, drawn by the theme and worked by keyboard or mouse.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/types.h"

namespace qmk::toolkit {

constexpr const char* kSystemMenuClassName = "Corvid-SystemMenu";

struct SystemMenuItem {
  unsigned command;  // sent to the owner as WM_SYSCOMMAND
  std::string text;
};

// The system commands a dialog offers: Close, unless its close is disabled.
std::vector<SystemMenuItem> DialogSystemMenuItems(bool close_enabled);

// Opens the popup at `at` (screen coordinates; its right edge there when `right_to_left`) for
// `owner`, the first item chosen; the popup of another owner closes first. Null when there is
// nothing to show or no window could be made.
platform::ui::HWND OpenSystemMenu(platform::ui::HWND owner, platform::ui::Point at,
                                  std::vector<SystemMenuItem> items, bool right_to_left = false);
// The open popup of `owner`, or null.
platform::ui::HWND SystemMenuOf(platform::ui::HWND owner);
// Closes the popup, if one is open, without choosing.
void CloseSystemMenu();
// Works the open popup by key: arrows move, Enter chooses, Escape closes. False when no popup
// is open (the key is then not the menu's).
bool SystemMenuKey(unsigned vk);

}  // namespace qmk::toolkit
