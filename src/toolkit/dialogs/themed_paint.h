// themed_paint.h: drawing a window's area through the current paint manager: the theme draws
// into a picture of the area, which is then laid onto the window's device context.
#pragma once

#include <functional>

#include "platform/draw/draw_target.h"
#include "platform/ui/paint.h"

namespace qmk::toolkit {

using ThemePainter = std::function<void(platform::DrawTarget& target, const platform::DrawRect& rc)>;

// Draws the client area `rc` of the context's window with `painter`. False when nothing could
// be drawn (an empty area, no context).
bool PaintThemed(platform::ui::Dc* dc, const platform::ui::Rect& rc, const ThemePainter& painter);

// The dialog's background: `colour` when it is not 0xFFFFFFFF, else the theme's.
bool PaintDialogBackgroundOn(platform::ui::HWND hwnd, platform::ui::Dc* dc, uint32_t colour);

// True when the window's frame can be resized by a person.
bool FrameResizable(platform::ui::HWND hwnd);

}  // namespace qmk::toolkit
