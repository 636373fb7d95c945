// icons.h: icons for statics and buttons: the standard ones drawn by the toolkit (stop,
// question, warning, information, application) and icons made from pictures.
#pragma once

#include <memory>

#include "platform/draw/draw_target.h"
#include "platform/ui/paint.h"

namespace qmk::platform::ui::controls {

struct IconObject;
using HICON = IconObject*;

constexpr int IDI_APPLICATION = 32512, IDI_HAND = 32513, IDI_QUESTION = 32514,
              IDI_EXCLAMATION = 32515, IDI_ASTERISK = 32516;
constexpr int IDI_ERROR = IDI_HAND, IDI_WARNING = IDI_EXCLAMATION,
              IDI_INFORMATION = IDI_ASTERISK;
constexpr int kIconSize = 32;

// A standard icon, shared for the process (never destroyed); null for an unknown id.
HICON LoadStandardIcon(int id);
// The same from a template's text: "#32513", "32513" or "IDI_ERROR"; null when none matches.
HICON LoadStandardIconByName(const char* text);
// An icon of the caller's picture; released with DestroyIcon.
HICON CreateIconFromImage(std::unique_ptr<DeviceImage> image);
// Releases an icon made from a picture; standard icons are left alone.
void DestroyIcon(HICON icon);
// Draws the icon at the top left of `r`, or centred in it.
void DrawIcon(Dc& dc, HICON icon, const Rect& r, bool centre);

}  // namespace qmk::platform::ui::controls
