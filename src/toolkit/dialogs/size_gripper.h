// size_gripper.h: CExtWSGripper, the size gripper window in a resizable dialog's bottom-right
// corner, painted by the theme.
#pragma once

#include "platform/ui/types.h"

namespace qmk::toolkit {

constexpr int kGripperControlId = 0x7FFE;
constexpr const char* kGripperClassName = "Corvid-SizeGripper";

class CExtWSGripper {
 public:
  CExtWSGripper() = default;
  CExtWSGripper(const CExtWSGripper&) = delete;
  CExtWSGripper& operator=(const CExtWSGripper&) = delete;

  // Creates the gripper (hidden) in `dialog`'s bottom-right corner, or moves it there.
  bool Place(platform::ui::HWND dialog);
  // Shows or hides it without moving it, at the top of the z-order; hiding repaints the place
  // it covered.
  void Show(bool show);
  bool Exists() const;
  bool IsVisible() const;
  platform::ui::HWND GetSafeHwnd() const { return m_hWnd; }

  // The gripper's side in pixels at the theme's dpi.
  static int Side();

 private:
  platform::ui::HWND m_hWnd = nullptr;
};

}  // namespace qmk::toolkit
