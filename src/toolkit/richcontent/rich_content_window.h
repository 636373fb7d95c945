// rich_content_window.h: the rich content control's window class: a child window that shows the
// document held in its window text, scrolls it, and answers what item lies under a point.
#pragma once

#include "platform/ui/window.h"
#include "toolkit/richcontent/rich_content_view.h"

namespace qmk::toolkit::richcontent {

constexpr const char* kRichContentClassName = "QmkRichContent";

// Messages of the control.
// lParam: a client point (MAKELPARAM(x, y)); answers the CExtRichContentItem* under it, or 0.
constexpr unsigned RCM_HITTEST = platform::ui::WM_USER + 0x240;
// Answers the vertical scroll position in pixels.
constexpr unsigned RCM_GETSCROLLPOS = platform::ui::WM_USER + 0x241;
// wParam: the new position; answers 1 when the view moved.
constexpr unsigned RCM_SETSCROLLPOS = platform::ui::WM_USER + 0x242;

// Registers the class once; true when it is there.
bool RegisterRichContentClass();

// The view behind a control of the class, or null for any other window.
RichContentView* RichContentViewOf(platform::ui::HWND hwnd);

}  // namespace qmk::toolkit::richcontent
