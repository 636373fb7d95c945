// subclass_controls.h: giving every plain control of a dialog its themed toolkit counterpart.
#pragma once

#include "platform/ui/types.h"

namespace qmk::toolkit {

// Binds each plain child control of `parent` that no toolkit object holds yet to the themed
// control of its class and style, so that a dialog that declares no toolkit member for a
// control still draws it in the theme. Returns how many controls it bound.
int SubclassChildControls(platform::ui::HWND parent);

}  // namespace qmk::toolkit
